#include "unit/wallclock.h"

#include <algorithm>
#include <thread>

namespace kelvo {

void SystemClock::Pause(std::chrono::milliseconds time)
{
    using SteadyClock = std::chrono::steady_clock;
    constexpr SteadyClock::duration longestSleep = std::chrono::milliseconds(10);
    const auto timeOfDay = [this] {
        const LocalTime now = Now();
        return now - std::chrono::floor<std::chrono::days>(now);
    };

    const SteadyClock::time_point end = SteadyClock::now() + time;
    const auto start = timeOfDay();
    for (auto left = end - SteadyClock::now(); left > left.zero() && timeOfDay() >= start;
         left = end - SteadyClock::now())
        std::this_thread::sleep_for(std::min(left, longestSleep));
}

} // namespace kelvo
