#pragma once

#include <chrono>
#include <string>

namespace kelvo {

/// A date and time as the PC's user reads it.
using LocalTime = std::chrono::local_seconds;

/// Time as it comes in from outside, so that tests need not wait.
class WallClock {
  public:
    virtual ~WallClock() = default;

    virtual LocalTime Now() = 0;
    /// The time of day in the PC's own short form, "9:04 PM" or "21:04" (UTF-8).
    virtual std::string TimeText(LocalTime time) = 0;
    /// Returns when the time has passed, or when the clock of the day went back to before the start.
    /// Never runs an event loop.
    virtual void Pause(std::chrono::milliseconds time) = 0;
};

/// The PC's clock.
class SystemClock : public WallClock {
  public:
    LocalTime Now() override;
    std::string TimeText(LocalTime time) override;
    void Pause(std::chrono::milliseconds time) override;
};

} // namespace kelvo
