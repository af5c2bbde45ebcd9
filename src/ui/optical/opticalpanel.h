#pragma once

#include "model/settings.h"
#include "ui/controls/entrywindow.h"
#include "ui/controls/statebutton.h"
#include "unit/unitlink.h"

#include <QWidget>

#include <functional>

namespace kelvo {

/// The tab "O&ptical Setup": streams of reader gain, slit loss and azimuth with their graphs, and RT60.
class OpticalPanel : public QWidget {
    Q_OBJECT

  public:
    /// What the tab needs from its surroundings.
    struct Surroundings {
        QWidget *window;                          ///< owns the timers `tmrOptical` and `Timer2`
        StateButton *cmdMute4;                    ///< placed here; this panel handles its click
        std::function<void()> toggleMute;         ///< the shared mute handler
        std::function<void()> showNoiseOff;       ///< the six `cmdPN` read "Off"
        std::function<void(bool)> enableBaudMenu; ///< `mnuBaud`
        std::function<bool()> timersMayTouchUnit; ///< false while a box is open or a call is in progress
    };

    OpticalPanel(Settings &settings, UnitLink &link, EntryWindow &entries, Surroundings surroundings);

    bool Streaming() const;
    void cmdStart_Click();
    void cmdMute4_Click();
    void StreamLock(bool locked);
    /// `cmdRT60` reads "Off"; nothing is sent.
    void ShowTestSignalsOff();
    /// Leaving the tab stops a running stream.
    void LeaveTab();

  private:
    Settings &settings_;
    UnitLink &link_;
    Surroundings surroundings_;
};

} // namespace kelvo
