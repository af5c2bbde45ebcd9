#pragma once

namespace kelvo {

// Pixels.
inline constexpr int Spacing = 6;       ///< between the controls of a group
inline constexpr int GroupSpacing = 12; ///< between groups

} // namespace kelvo
