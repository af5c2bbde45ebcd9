#pragma once

namespace kelvo {

class LevelPair;

/// What all level pairs of one window share. The main window has one, the fader dialog another.
struct EntryWindow {
    /// A position that no slider can reach, so that the first change always counts as a move.
    static constexpr int NoPosition = 255;

    /// The position that the slider had which last took the focus inside the window.
    int FocusPosition = NoPosition;
    /// False only while a key is held on a slider: its steps are sent on release.
    bool SendArmed = true;
    /// The pair whose field is being typed in, or null.
    LevelPair *editing = nullptr;
    /// A slider is held by the mouse or a key: nothing may move it under the hand.
    bool sliderHeld = false;

    /// Takes what is typed in the field that has the focus. False after a bad value: its message has been
    /// shown, the field has the focus, and the command that asked is to be called off.
    bool CommitEntry();
};

} // namespace kelvo
