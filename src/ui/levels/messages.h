#pragma once

#include "ui/controls/boxes.h"

#include <array>

namespace kelvo::messages {

inline constexpr Message SetFader7{Question, "Set Fader = 7.0", "Are you sure you want to Set Fader = 7.0 ?"};

inline constexpr const char *ObeOn = "OBE Enable";
inline constexpr const char *ObeOff = "OBE Disable";
inline constexpr std::array ObeFrequencies{"50 Hz", "60 Hz",  "70 Hz",  "80 Hz",
                                           "90 Hz", "100 Hz", "110 Hz", "120 Hz"};

} // namespace kelvo::messages
