#pragma once

#include <array>

namespace kelvo::messages {

// The texts of the optical and OBE tabs that come and go or are chosen from.

inline constexpr const char *CaptionStart = "Start";
inline constexpr const char *CaptionStop = "Stop";
inline constexpr const char *PressStart = "Press Start  -->";
inline constexpr const char *Locked = "Stream Lock";
inline constexpr const char *NotLocked = "No Stream";
inline constexpr std::array Projectors{"Projector 1", "Projector 2"};

inline constexpr const char *ObeOn = "OBE Enable";
inline constexpr const char *ObeOff = "OBE Disable";
inline constexpr std::array ObeFrequencies{"50 Hz", "60 Hz",  "70 Hz",  "80 Hz",
                                           "90 Hz", "100 Hz", "110 Hz", "120 Hz"};

} // namespace kelvo::messages
