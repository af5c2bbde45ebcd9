#pragma once

#include "model/settings.h"
#include "ui/audio/masterfader.h"
#include "ui/audio/mutebuttons.h"
#include "ui/controls/entrywindow.h"
#include "unit/unitlink.h"

#include <QWidget>

#include <functional>

namespace kelvo {

/// The tab "&E.Q": one channel's bands, shelves or sub-bass equaliser at a time.
class EqualiserPanel : public QWidget {
    Q_OBJECT

  public:
    /// `masterFader` is the frame placed on the tab; `mute` gives `cmdMute`; `fader` and `mute` also
    /// serve the Ctrl shortcuts.
    EqualiserPanel(Settings &settings, UnitLink &link, EntryWindow &entries, MuteButtons &mute,
                   MasterFader &fader, QWidget *masterFader);

    int CurrentChannel() const { return currentChannel_; }
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
    Settings &settings_;
    UnitLink &link_;
    int currentChannel_ = Left;
};

} // namespace kelvo
