#include "ui/controls/wheelsteps.h"

#include <QTimer>
#include <QWidget>

#include <algorithm>
#include <utility>

namespace kelvo {

WheelSteps::WheelSteps(QWidget *control, std::function<void(int steps)> change)
    : control_(control),
      change_(std::move(change))
{
}

void WheelSteps::Take(int steps, const QWheelEvent &event)
{
    if (!CameDuringLastChange(event)) {
        Change(std::exchange(waiting_, 0) + steps);
        return;
    }
    waiting_ += steps;
    if (!std::exchange(changesLater_, true))
        QTimer::singleShot(0, control_, [this] { ChangeLater(); });
}

/// The window system stamps an event when the hand moves, on a clock of its own. An event without a stamp was
/// made by a program and has not waited.
bool WheelSteps::CameDuringLastChange(const QWheelEvent &event)
{
    if (event.timestamp() == 0)
        return false;
    const std::chrono::milliseconds stamp(event.timestamp());
    eventsBegan_ = std::min(eventsBegan_, Clock::now() - stamp);
    return eventsBegan_ + stamp < lastChangeOver_;
}

void WheelSteps::Change(int steps)
{
    change_(steps);
    lastChangeOver_ = Clock::now();
}

void WheelSteps::ChangeLater()
{
    changesLater_ = false;
    if (const int steps = std::exchange(waiting_, 0))
        Change(steps);
}

} // namespace kelvo
