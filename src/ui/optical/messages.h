#pragma once

#include <array>

namespace kelvo::messages {

// The texts of the optical tab that come and go or are chosen from.

inline constexpr const char *CaptionStart = "Start";
inline constexpr const char *CaptionStop = "Stop";
inline constexpr const char *PressStart = "Press Start  -->";
inline constexpr const char *Locked = "Stream Lock";
inline constexpr const char *NotLocked = "No Stream";
inline constexpr std::array Projectors{"Projector 1", "Projector 2"};

} // namespace kelvo::messages
