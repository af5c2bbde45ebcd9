#pragma once

namespace kelvo {

class LevelField;
class LevelSlider;

/// What all level fields and sliders of one window share. The main window has one and knows the fader
/// dialog's.
struct EntryWindow {
    /// A position that no slider can reach, so that the first change always counts as a move.
    static constexpr int NoPosition = 255;

    /// The position that the slider had which last took the focus inside the window, or to which the program
    /// has moved it since.
    int FocusPosition = NoPosition;
    /// False only while a key is held on a slider: its steps are sent on release.
    bool SendArmed = true;
    /// The field that is the place of entry, or null.
    LevelField *editing = nullptr;
    /// The slider in the user's hand, by mouse or key, or null: nothing may move it meanwhile.
    LevelSlider *sliderHeld = nullptr;
    /// Of the dialog beside the window, or null: the window's commands take what is entered there as well.
    EntryWindow *dialog = nullptr;

    /// Takes what is typed in the field that has the focus, and what a held key has moved. False after a
    /// bad value: its message has been shown, the field has the focus, and the command that asked is to
    /// be called off.
    bool CommitEntry();
    /// A slider here or in the dialog is in the user's hand.
    bool HoldsSlider() const;
};

} // namespace kelvo
