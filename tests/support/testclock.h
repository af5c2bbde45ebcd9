#pragma once

#include "support/recordinglibrary.h"
#include "unit/wallclock.h"

namespace kelvo {

/// A clock that stands until it is told, and that passes a pause at once.
class TestClock : public WallClock {
  public:
    explicit TestClock(Trace &trace) : trace_(trace) {}

    LocalTime now = std::chrono::local_days(std::chrono::year(2024) / 3 / 14) + std::chrono::hours(15);
    /// The ends of the PC's time text before and after noon; both empty = a 24-hour clock.
    std::string am;
    std::string pm;
    std::chrono::milliseconds paused{0}; ///< all pauses together

    void Set(int year, unsigned month, unsigned day, int hour, int minute)
    {
        using namespace std::chrono;
        now = local_days(std::chrono::year(year) / int(month) / int(day)) + hours(hour) + minutes(minute);
    }

    LocalTime Now() override { return now; }
    std::string TimeText(LocalTime time) override
    {
        const std::chrono::hh_mm_ss clock(time - std::chrono::floor<std::chrono::days>(time));
        const bool afternoon = clock.hours().count() >= 12;
        return std::to_string(clock.hours().count()) + ":" + std::to_string(clock.minutes().count()) +
               (afternoon ? pm : am);
    }
    void Pause(std::chrono::milliseconds time) override
    {
        trace_.push_back("pause " + std::to_string(time.count()));
        paused += time;
    }

  private:
    Trace &trace_;
};

} // namespace kelvo
