#pragma once

#include "model/settings.h"
#include "ui/controls/entrywindow.h"
#include "ui/controls/statebutton.h"
#include "ui/picture/grapharea.h"
#include "unit/unitlink.h"

#include <QButtonGroup>
#include <QGroupBox>
#include <QLabel>
#include <QTimer>
#include <QWidget>

#include <array>
#include <chrono>
#include <functional>
#include <optional>

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

    bool Streaming() const { return streaming_; }
    void cmdStart_Click();
    void cmdMute4_Click();
    /// Does what the unit must not be asked while it streams; a running stream begins again afterwards.
    void WithoutStream(const std::function<void()> &work);
    void StreamLock(bool locked);
    /// `cmdRT60` reads "Off"; nothing is sent.
    void ShowTestSignalsOff();
    /// Through the Stop button's handler; nothing happens while none runs.
    void StopRunningStream();

  private:
    /// What the unit can be asked to stream, and what takes a reading of it.
    struct Measurement {
        const char *caption;
        UnitOp begin;
        void (OpticalPanel::*read)();
    };
    static const std::array<Measurement, 3> Measurements; ///< index = `optOptical`

    QGroupBox *BuildMeasurements();
    QGroupBox *BuildProjectors();
    QWidget *BuildStart();
    QGroupBox *BuildRT60();

    void optOptical_Click(int index);
    void cmdPro_Click(int index);
    void cmdRT60_Click();
    void tmrOptical_Timer();
    void Timer2_Timer();

    void StartStream();
    void StopStream();
    /// Asks the unit for the selected measurement.
    void BeginStream();
    /// Everything on screen and in the model is as it was before Start; nothing is sent.
    void ReturnToIdle();
    void ResumeIdleTimers();
    void ClearPictures();
    /// Nothing is known of a stream that has only been asked for.
    void BlankLock();

    /// Brings the readings as close to one a millisecond as the event loop allows.
    void KeepPace(std::chrono::nanoseconds took);
    void ReadGain();
    void ReadSlitLoss();
    void ReadAzimuth();

    Settings &settings_;
    UnitLink &link_;
    Surroundings surroundings_;

    int measurement_ = 0; ///< the selected one of `Measurements`
    SlitReadings slit_ = NoSlitReadings();
    AzimuthHistory history_;
    std::optional<bool> shownLock_;
    bool streaming_ = false;
    bool inTick_ = false;                               ///< the link does not count a reading among its calls
    std::chrono::steady_clock::time_point nextReading_; ///< when the reading after the newest is due

    GraphArea *graphs_;
    std::array<StateButton *, 2> cmdPro_{};
    QPushButton *cmdStart_;
    QLabel *lblStart_;
    QLabel *lblLock_;
    ToggleButton *cmdRT60_;
    QTimer *tmrOptical_;
    QTimer *Timer2_;
};

} // namespace kelvo
