#include "unit/wallclock.h"

#include <windows.h>

namespace kelvo {

LocalTime SystemClock::Now()
{
    using namespace std::chrono;
    SYSTEMTIME now;
    GetLocalTime(&now);
    const local_days day(year(now.wYear) / now.wMonth / now.wDay);
    return day + hours(now.wHour) + minutes(now.wMinute) + seconds(now.wSecond);
}

std::string SystemClock::TimeText(LocalTime time)
{
    const auto day = std::chrono::floor<std::chrono::days>(time);
    const std::chrono::year_month_day date(day);
    const std::chrono::hh_mm_ss clock(time - day);
    SYSTEMTIME parts{};
    parts.wYear = WORD(int(date.year()));
    parts.wMonth = WORD(unsigned(date.month()));
    parts.wDay = WORD(unsigned(date.day()));
    parts.wHour = WORD(clock.hours().count());
    parts.wMinute = WORD(clock.minutes().count());
    parts.wSecond = WORD(clock.seconds().count());

    wchar_t wide[80] = L"";
    GetTimeFormatEx(LOCALE_NAME_USER_DEFAULT, TIME_NOSECONDS, &parts, nullptr, wide, 80);
    char text[240] = "";
    WideCharToMultiByte(CP_UTF8, 0, wide, -1, text, sizeof text, nullptr, nullptr);
    return text;
}

} // namespace kelvo
