#pragma once

#include "edit/editor.h"
#include "ui/controls/panel.h"
#include "ui/controls/statebutton.h"
#include "ui/picture/grapharea.h"
#include "unit/opticalstream.h"

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
class OpticalPanel : public QWidget, public Panel, private StreamView {
    Q_OBJECT

  public:
    /// What the main window places on the tab, and what it knows.
    struct Guests {
        QWidget *window;       ///< owns the timers `tmrOptical` and `Timer2`
        StateButton *cmdMute4; ///< this panel handles its click
        QPushButton *cmdUp;
        std::function<bool()> timersMayTouchUnit; ///< false while a box is open or a call is in progress
    };

    OpticalPanel(Editor &editor, UnitLink &link, const Guests &guests);

    OpticalStream &Stream() { return stream_; }
    void StreamLock(bool locked);

    void Show(const Changed &) override {}
    void LeaveTab() override { stream_.StopIfRunning(); }
    void ShowTestSignals(const TestSignals &playing) override;

    void cmdMute4_Click();

  signals:
    void StreamShown(bool running); ///< what a stream forbids elsewhere follows it
    void NoiseShownOff();           ///< no noise button may read "On" beside RT60

  private:
    /// What takes a reading of each measurement.
    struct Kind {
        const char *caption;
        void (OpticalPanel::*read)();
    };
    static const std::array<Kind, MeasurementCount> Kinds; ///< index = `optOptical`

    QGroupBox *BuildMeasurements();
    QGroupBox *BuildProjectors();
    QWidget *BuildStart();
    QGroupBox *BuildRT60();

    void ShowStream() override;
    void ForgetReadings() override;
    void ShowRunning();
    void ShowIdle();
    void ClearPictures();

    void cmdStart_Click();
    void optOptical_Click(int index);
    void cmdPro_Click(int index);
    void cmdRT60_Click();
    void tmrOptical_Timer();
    void Timer2_Timer();

    /// Of the stream that is asked for now nothing is known yet.
    void BlankLock();

    /// Brings the readings as close to one a millisecond as the event loop allows.
    void KeepPace(std::chrono::nanoseconds took);
    void ReadGain();
    void ReadSlitLoss();
    void ReadAzimuth();

    Editor &editor_;
    UnitLink &link_;
    std::function<bool()> timersMayTouchUnit_;
    OpticalStream stream_;

    Measurement shownMeasurement_ = Measurement::Gain;
    SlitReadings slit_ = NoSlitReadings();
    AzimuthHistory history_;
    std::optional<bool> shownLock_;
    bool inTick_ = false;                               ///< the link does not count a reading among its calls
    std::chrono::steady_clock::time_point nextReading_; ///< when the reading after the newest is due

    GraphArea *graphs_;
    std::array<StateButton *, 2> cmdPro_{};
    StateButton *cmdMute4_;
    QPushButton *cmdStart_;
    QLabel *lblStart_;
    QLabel *lblLock_;
    ToggleButton *cmdRT60_;
    QTimer *tmrOptical_;
    QTimer *Timer2_;
};

} // namespace kelvo
