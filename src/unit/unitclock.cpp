#include "unit/unitclock.h"

namespace kelvo {

namespace {

/// Deliberate: the unit counts months from 2, so January is sent as 2.
constexpr int MonthOffset = 1;

/// Deliberate: the unit's week begins on Friday.
Byte WeekdayCode(std::chrono::weekday day)
{
    return Byte((day - std::chrono::Friday).count());
}

std::string TwoDigits(int number)
{
    const std::string digits = std::to_string(number < 0 ? -number : number);
    return (number < 0 ? "-" : "") + std::string(digits.size() < 2, '0') + digits;
}

} // namespace

void StampUnitClock(AudioBlock &audio, LocalTime time, bool pm)
{
    const auto day = std::chrono::floor<std::chrono::days>(time);
    const std::chrono::year_month_day date(day);
    const std::chrono::hh_mm_ss clock(time - day);
    const int month = int(unsigned(date.month())) + MonthOffset;
    const int hour = int(clock.hours().count());
    // Deliberate: only hours after 12 are reduced, so midnight is sent as 0 and noon as 12.
    const int dialHour = hour > 12 ? hour - 12 : hour;
    audio.UnitClock = {Byte(month * 16 + dialHour),
                       Byte(WeekdayCode(std::chrono::weekday(day)) * 32 + unsigned(date.day())),
                       Byte((pm ? 64 : 0) + clock.minutes().count()), Byte(int(date.year()) % 100)};
}

std::string ClockText(const AudioBlock &audio)
{
    const auto [monthAndHour, weekdayAndDay, halfAndMinute, year] = audio.UnitClock;
    return TwoDigits(weekdayAndDay % 32) + "/" + TwoDigits(monthAndHour / 16 - MonthOffset) + "/" +
           TwoDigits(year) + " " + std::to_string(monthAndHour % 16) + ":" + TwoDigits(halfAndMinute % 64) +
           (halfAndMinute / 64 == 1 ? " PM" : " AM");
}

} // namespace kelvo
