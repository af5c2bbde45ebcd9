#include "unit/uploadclock.h"

namespace kelvo {

void UploadClock::Set(std::optional<LocalTime> time)
{
    offset_.reset();
    if (time)
        offset_ = *time - pc_.Now();
}

LocalTime UploadClock::Now()
{
    return pc_.Now() + offset_.value_or(std::chrono::seconds(0));
}

bool UploadClock::IsPm(LocalTime time)
{
    // A time that the user chose with AM or PM counts as chosen; the PC's own as its time text shows it.
    if (offset_)
        return time - std::chrono::floor<std::chrono::days>(time) >= std::chrono::hours(12);
    return pc_.TimeText(time).ends_with("PM");
}

} // namespace kelvo
