#include "unit/wallclock.h"

#include <doctest/doctest.h>

#include <clocale>
#include <cstdint>
#include <cstdlib>
#include <ctime>
#include <string>

using namespace kelvo;

TEST_CASE("the PC's clock tells the local date and time")
{
    SystemClock clock;
    const std::time_t before = std::time(nullptr);
    const LocalTime now = clock.Now();
    const std::time_t after = std::time(nullptr);
    // Local time differs from the universal one by at most 14 hours, in quarters of an hour.
    constexpr std::int64_t quarter = 900; // seconds
    constexpr std::int64_t most = 56 * quarter;
    const std::int64_t difference = now.time_since_epoch().count() - before;
    CHECK(difference >= -most);
    CHECK(difference <= most + (after - before));
    CHECK((difference % quarter + quarter) % quarter <= after - before);
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

#ifndef _WIN32

TEST_CASE("the time text is the locale's own without its seconds; the program's locale stays as it is")
{
    const char *before = std::getenv("LC_ALL");
    const std::string kept = before ? before : "";
    setenv("LC_ALL", "C", 1);
    SystemClock clock;
    using namespace std::chrono;
    const local_days day(year(2024) / 3 / 14);
    CHECK(clock.TimeText(day + hours(21) + minutes(4) + seconds(33)) == "21:04");
    CHECK(clock.TimeText(day + hours(4) + minutes(4) + seconds(4)) == "04:04");
    CHECK(clock.TimeText(day) == "00:00");
    setenv("LC_ALL", "no such locale", 1);
    CHECK(clock.TimeText(day + hours(21) + minutes(4)) == "21:04");
    CHECK(std::string(std::setlocale(LC_ALL, nullptr)) == "C");
    if (before)
        setenv("LC_ALL", kept.c_str(), 1);
    else
        unsetenv("LC_ALL");
}

#endif
