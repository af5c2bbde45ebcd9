#pragma once

#include "ui/controls/boxes.h"

namespace kelvo::messages {

inline constexpr Message SetFader7{Question, "Set Fader = 7.0", "Are you sure you want to Set Fader = 7.0 ?"};

inline constexpr const char *ObeOn = "OBE Enable";
inline constexpr const char *ObeOff = "OBE Disable";

} // namespace kelvo::messages
