#pragma once

#include <array>

namespace kelvo::messages {

inline constexpr const char *MatrixDisabled = "Matrix Decoding Disabled";

/// Deliberate: the buttons stand on screen in another order than their stored values.
inline constexpr std::array PowerOnScreenOrder{3, 2, 0, 4, 1};

/// What the unit's F1 key selects, in the two different short forms of `cmdMode(0)`. Index = `F1KeyMode`.
struct F1Caption {
    const char *afterConnection;
    const char *afterChoice; ///< on the options tab
};
inline constexpr std::array<F1Caption, 4> F1Captions{{{"Optical Mono", "Optical Mono"},
                                                      {"External N.R.", "External N.R."},
                                                      {"Internal A", "Ext 2-Trk A Type NR"},
                                                      {"Internal SR", "Ext 2-Trk SR Type NR"}}};
/// On `cmdMode(0)` when the unit's F1 key selects something that has no option here.
inline constexpr const char *F1Unknown = "Mono";

} // namespace kelvo::messages
