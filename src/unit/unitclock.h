#pragma once

#include "model/records.h"
#include "unit/wallclock.h"

#include <string>

namespace kelvo {

/// Writes a date and time into the four clock bytes. `pm` counts as given, whatever the hour says.
void StampUnitClock(AudioBlock &audio, LocalTime time, bool pm);

/// The unit's clock in words: "15/08/01 3:30 PM".
std::string ClockText(const AudioBlock &audio);

} // namespace kelvo
