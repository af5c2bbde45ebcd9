#pragma once

#include "model/settings.h"
#include "ui/controls/entrywindow.h"
#include "ui/controls/statebutton.h"
#include "ui/equaliser/bandframe.h"
#include "ui/equaliser/subbassframe.h"
#include "ui/formats/mutebuttons.h"
#include "ui/levels/masterfader.h"
#include "unit/unitlink.h"

#include <QStackedWidget>
#include <QWidget>

#include <array>

namespace kelvo {

/// The tab "&E.Q": one channel's bands, shelves or sub-bass equaliser at a time. Every change goes into the
/// channel's record at once, so that screen, record and files agree whatever is sent.
class EqualiserPanel : public QWidget {
    Q_OBJECT

  public:
    /// `faderFrame` is the frame placed on the tab; `mute` gives `cmdMute`; `fader` and `mute` also
    /// serve the Ctrl shortcuts.
    EqualiserPanel(Settings &settings, UnitLink &link, EntryWindow &entries, MuteButtons &mute,
                   MasterFader &fader, QWidget *faderFrame);

    /// The current channel's sliders into its record; a byte whose nearest position is where its slider
    /// stands keeps its value.
    void SaveChannelData();
    /// The current channel's record into the sliders and fields, quietly.
    void LoadChannelData();
    /// `cmdPink` reads "Pink Noise Off"; nothing is sent.
    void ShowTestSignalsOff();
    /// Leaving the tab switches off its noise.
    void LeaveTab();
    /// Runs the Ctrl shortcut of a lower-case character; false when it has none.
    bool RunShortcut(QChar key);

  private:
    static constexpr int NothingCopied = 7;

    QWidget *BuildChannelButtons();
    QWidget *BuildTone();
    QWidget *BuildCommands();
    void ChainTabs();

    void cmdEQChan_Click(int channel);
    void cmdCopy_Click();
    void cmdPaste_Click();
    void cmdClear_Click();
    void cmdPink_Click();
    void optSub_Click(SubwooferByte byte, int index);

    void ShowChannelPanel();
    void ReflectChannelButtons();
    /// What the sliders show goes into the record, as an edit.
    void StoreChange();
    void Upload();
    /// Both: for the commands, which have no moment at which an edit is only stored.
    void ApplyChannelChange();
    void PasteChannelData(int source);
    void SetEQPinkNoise(bool on);
    ChannelSlice &Slice() { return settings_.Audio.ChannelEq[currentChannel_]; }
    ChannelFrame &Frame() { return *frames_[int(KindOf(currentChannel_))]; }

    Settings &settings_;
    UnitLink &link_;
    EntryWindow &entries_;
    MuteButtons &mute_;
    MasterFader &fader_;
    QWidget *faderFrame_;

    std::array<StateButton *, ChannelCount> cmdEQChan_{};
    QStackedWidget *bandArea_;
    std::array<ChannelFrame *, 3> frames_{}; ///< index = `ChannelKind`
    LevelPair *bass_;
    LevelPair *treble_;
    ToggleButton *cmdPink_;

    int currentChannel_ = Left;
    int copiedChannel_ = NothingCopied;
};

} // namespace kelvo
