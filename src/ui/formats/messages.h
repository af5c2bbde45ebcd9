#pragma once

#include <array>

namespace kelvo::messages {

inline constexpr std::array NonsyncModes{"Screen Channels", "Surround Channels",
                                         "Screen And Surround Channels", "Matrix Decoded"};
inline constexpr const char *MatrixDisabled = "Matrix Decoding Disabled";

/// Index = stored value of `DefaultFormat`.
inline constexpr std::array PowerOnFormats{"EXTERNAL 6-TRK", "NON-SYNC", "SR TYPE", "A TYPE",
                                           "F1 ('Mono' button on unit)"};
/// Deliberate: the buttons stand on screen in another order than their stored values.
inline constexpr std::array PowerOnScreenOrder{3, 2, 0, 4, 1};

/// What the unit's F1 key can select. The button `cmdMode(0)` shows it in two different short forms:
/// one after a connection and another one after a choice on the options tab.
struct F1Caption {
    const char *option;          ///< on the options tab
    const char *afterConnection; ///< on `cmdMode(0)`
    const char *afterChoice;     ///< on `cmdMode(0)`
};
inline constexpr std::array<F1Caption, 4> F1Captions{{
    {"Optical Mono", "Optical Mono", "Optical Mono"},
    {"External N.R.", "External N.R.", "External N.R."},
    {"External 2-Trk Return W/ Internal A Type N.R.", "Internal A", "Ext 2-Trk A Type NR"},
    {"External 2-Trk Return W/ Internal SR Type N.R.", "Internal SR", "Ext 2-Trk SR Type NR"},
}};
/// On `cmdMode(0)` when the unit's F1 key selects something that has no option here.
inline constexpr const char *F1Unknown = "Mono";

} // namespace kelvo::messages
