#include "unit/wallclock.h"

#include <ctime>
#include <locale.h>

namespace kelvo {

namespace {

/// The user's own way to write a time; the program's global locale stays as it is.
class TimeLocale {
  public:
    TimeLocale() : locale_(newlocale(LC_TIME_MASK, "", locale_t{}))
    {
        if (!locale_)
            locale_ = newlocale(LC_TIME_MASK, "C", locale_t{});
    }
    ~TimeLocale() { freelocale(locale_); }
    TimeLocale(const TimeLocale &) = delete;
    TimeLocale &operator=(const TimeLocale &) = delete;

    std::string Format(const char *pattern, const std::tm &time) const
    {
        char text[80];
        return std::string(text, strftime_l(text, sizeof text, pattern, &time, locale_));
    }

  private:
    locale_t locale_;
};

} // namespace

LocalTime SystemClock::Now()
{
    using namespace std::chrono;
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    localtime_r(&now, &local);
    const local_days day(year(local.tm_year + 1900) / (local.tm_mon + 1) / local.tm_mday);
    return day + hours(local.tm_hour) + minutes(local.tm_min) + seconds(local.tm_sec);
}

std::string SystemClock::TimeText(LocalTime time)
{
    const auto day = std::chrono::floor<std::chrono::days>(time);
    const std::chrono::hh_mm_ss clock(time - day);
    std::tm parts{};
    parts.tm_hour = int(clock.hours().count());
    parts.tm_min = int(clock.minutes().count());
    parts.tm_sec = int(clock.seconds().count());

    const TimeLocale locale;
    std::string text = locale.Format("%X", parts);
    // The system has no short form of its own: its usual one without the seconds is it.
    for (const char *pattern : {":%S", ".%S"}) {
        const std::size_t seconds = text.rfind(locale.Format(pattern, parts));
        if (seconds != std::string::npos)
            text.erase(seconds, 3);
    }
    return text;
}

} // namespace kelvo
