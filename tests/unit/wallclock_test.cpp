#include "unit/wallclock.h"

#include <doctest/doctest.h>

#include <cstdlib>
#include <ctime>

using namespace kelvo;

TEST_CASE("the PC's clock tells the local date and time")
{
    SystemClock clock;
    const std::time_t before = std::time(nullptr);
    const LocalTime now = clock.Now();
    const std::time_t after = std::time(nullptr);
    // Local time differs from the universal one by at most 14 hours, in quarters of an hour.
    const auto difference = now.time_since_epoch().count() - before;
    CHECK(difference <= 14 * 3600 + (after - before));
    CHECK(difference >= -14 * 3600);
    CHECK((difference % 900 + 900) % 900 <= after - before);
}

TEST_CASE("a pause lasts its time, by a clock that nobody sets")
{
    SystemClock clock;
    for (int time : {0, 1, 15}) {
        const auto start = std::chrono::steady_clock::now();
        clock.Pause(std::chrono::milliseconds(time));
        CHECK(std::chrono::steady_clock::now() - start >= std::chrono::milliseconds(time));
    }
}

TEST_CASE("a pause ends when the time of day goes back before its start")
{
    struct MidnightClock : SystemClock {
        LocalTime now = std::chrono::local_days(std::chrono::year(2024) / 1 / 2) - std::chrono::seconds(1);
        LocalTime Now() override { return now++; }
    };
    MidnightClock clock;
    const auto start = std::chrono::steady_clock::now();
    clock.Pause(std::chrono::hours(1));
    CHECK(std::chrono::steady_clock::now() - start < std::chrono::minutes(1));
}
