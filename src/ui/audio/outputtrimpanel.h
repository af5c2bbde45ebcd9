#pragma once

#include "model/settings.h"
#include "ui/audio/mutebuttons.h"
#include "ui/controls/entrywindow.h"
#include "unit/unitlink.h"

#include <QWidget>

namespace kelvo {

/// The tab "&Output Trim": six channels with trim, pink noise and phase.
class OutputTrimPanel : public QWidget {
    Q_OBJECT

  public:
    /// `masterFader` is the frame placed beside the channels; `mute` gives `cmdMute2`.
    OutputTrimPanel(Settings &settings, UnitLink &link, EntryWindow &entries, MuteButtons &mute,
                    QWidget *masterFader);

    /// The trims show the model.
    void Show();
    /// All noise buttons read "Off" and all phase buttons "In Phase"; nothing is sent.
    void ShowTestSignalsOff();
    /// The six `cmdPN` read "Off"; nothing is sent.
    void ShowNoiseOff();
    /// Leaving the tab switches off what it left running.
    void LeaveTab();

  private:
    Settings &settings_;
    UnitLink &link_;
};

} // namespace kelvo
