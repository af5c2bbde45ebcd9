#pragma once

#include <QWheelEvent>

#include <chrono>
#include <functional>

namespace kelvo {

/// What a wheel does to a control. Steps that queued up while the last change kept the thread, on a slow line
/// say, become one change once the queue is empty, so that the unit is not sent through levels that nobody
/// waits for any more.
class WheelSteps {
  public:
    /// `control` gets the wheel's events; `change` moves it by so many steps and sends.
    WheelSteps(QWidget *control, std::function<void(int steps)> change);

    void Take(int steps, const QWheelEvent &event);
    /// Steps that wait are dropped: the control was left.
    void Drop() { waiting_ = 0; }

  private:
    using Clock = std::chrono::steady_clock;

    bool CameDuringLastChange(const QWheelEvent &event);
    void Change(int steps);
    void ChangeLater();

    QWidget *control_;
    std::function<void(int steps)> change_;
    int waiting_ = 0;
    bool changesLater_ = false;
    Clock::time_point lastChangeOver_ = Clock::time_point::min();
    /// The steady clock when the events' own clock stood at 0, as nearly as a prompt event has told.
    Clock::time_point eventsBegan_ = Clock::time_point::max();
};

} // namespace kelvo
