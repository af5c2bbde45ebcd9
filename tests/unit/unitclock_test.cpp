#include "unit/unitclock.h"

#include <doctest/doctest.h>

using namespace kelvo;

namespace {

using Clock = std::array<Byte, 4>;

Clock Stamp(int year, int month, int day, int hour, int minute, bool pm)
{
    using namespace std::chrono;
    AudioBlock audio{};
    const local_days date(std::chrono::year(year) / month / day);
    StampUnitClock(audio, date + hours(hour) + minutes(minute) + seconds(59), pm);
    return audio.UnitClock;
}

std::string Text(const Clock &clock)
{
    AudioBlock audio{};
    audio.UnitClock = clock;
    return ClockText(audio);
}

} // namespace

TEST_CASE("31 December 23:59 on a 12-hour PC")
{
    // 31 December 2023 was a Sunday.
    CHECK(Stamp(2023, 12, 31, 23, 59, true) == Clock{13 * 16 + 11, 2 * 32 + 31, 64 + 59, 23});
}

TEST_CASE("the month is sent as month + 1")
{
    for (int month = 1; month <= 12; ++month)
        CHECK(Stamp(2024, month, 1, 1, 0, false)[0] == (month + 1) * 16 + 1);
}

TEST_CASE("hours 13 to 23 become 1 to 11; 0 and 12 stay")
{
    for (int hour = 0; hour <= 12; ++hour)
        CHECK(Stamp(2024, 1, 1, hour, 0, false)[0] == 2 * 16 + hour);
    for (int hour = 13; hour <= 23; ++hour)
        CHECK(Stamp(2024, 1, 1, hour, 0, true)[0] == 2 * 16 + hour - 12);
}

TEST_CASE("the unit's week runs from Friday, code 0, to Thursday, code 6")
{
    // 1 March 2024 was a Friday.
    for (int day = 1; day <= 31; ++day)
        CHECK(Stamp(2024, 3, day, 0, 0, false)[1] == (day - 1) % 7 * 32 + day);
}

TEST_CASE("a leap day, midnight and noon")
{
    // 29 February 2024 was a Thursday.
    CHECK(Stamp(2024, 2, 29, 0, 0, false) == Clock{3 * 16 + 0, 6 * 32 + 29, 0, 24});
    CHECK(Stamp(2024, 2, 29, 12, 0, true) == Clock{3 * 16 + 12, 6 * 32 + 29, 64, 24});
}

TEST_CASE("without a PM text the flag is 0 while the hour is reduced all the same")
{
    // 14 March 2024 was a Thursday.
    CHECK(Stamp(2024, 3, 14, 15, 9, false) == Clock{4 * 16 + 3, 6 * 32 + 14, 9, 24});
    CHECK(Stamp(2024, 3, 14, 15, 9, true) == Clock{4 * 16 + 3, 6 * 32 + 14, 64 + 9, 24});
}

TEST_CASE("the year is sent in two digits")
{
    CHECK(Stamp(1999, 1, 1, 0, 0, false)[3] == 99);
    CHECK(Stamp(2000, 1, 1, 0, 0, false)[3] == 0);
    CHECK(Stamp(2101, 1, 1, 0, 0, false)[3] == 1);
}

TEST_CASE("stamping leaves every other byte of the record alone")
{
    AudioBlock audio{};
    BytesOf(audio)[4] = 0xA5;
    BytesOf(audio)[223] = 0x5A;
    AudioBlock expected = audio;
    StampUnitClock(audio, LocalTime{}, true);
    expected.UnitClock = audio.UnitClock;
    CHECK(std::equal(BytesOf(audio).begin(), BytesOf(audio).end(), BytesOf(expected).begin()));
}

TEST_CASE("the unit's clock in words")
{
    CHECK(Text({0x93, 0x2F, 0x5E, 0x01}) == "15/08/01 3:30 PM");
    CHECK(Text({13 * 16 + 11, 2 * 32 + 31, 64 + 59, 23}) == "31/12/23 11:59 PM");
    CHECK(Text({2 * 16 + 12, 1, 5, 24}) == "01/01/24 12:05 AM");
}

TEST_CASE("a half-day flag other than 1 is AM")
{
    CHECK(Text({0x93, 0x2F, 0x1E, 0x01}) == "15/08/01 3:30 AM");
    CHECK(Text({0x93, 0x2F, 0x9E, 0x01}) == "15/08/01 3:30 AM");
    CHECK(Text({0x93, 0x2F, 0xDE, 0x01}) == "15/08/01 3:30 AM");
}

TEST_CASE("a clock that was never set is shown as it is")
{
    CHECK(Text({0, 0, 0, 0}) == "00/-01/00 0:00 AM");
    CHECK(Text({255, 255, 255, 255}) == "31/14/255 15:63 AM");
}
