#pragma once

#include "unit/devicelibrary.h"

#include <array>
#include <string>

namespace kelvo {

/// True when the unit's software is too old for this console.
bool OutOfDate(const UnitVersion &version);

/// The three captions of the "Processor Unit Information" panel.
std::array<std::string, 3> VersionCaptions(const UnitVersion &version);

} // namespace kelvo
