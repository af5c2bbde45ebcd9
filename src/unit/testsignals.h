#pragma once

#include "model/records.h"

#include <array>

namespace kelvo {

class UnitLink;

/// What sounds in the hall or bends its sound for a measurement while it is switched on.
struct TestSignals {
    std::array<bool, ChannelCount> Pink{};
    std::array<bool, ChannelCount> Inverted{};
    bool RT60 = false;

    bool operator==(const TestSignals &) const = default;
};

// Each is sent whatever the unit is known to play; nothing is sent off line.

void SwitchNoise(UnitLink &link, int channel, bool on);
void SwitchPhase(UnitLink &link, int channel, bool inverted);
void SwitchRT60(UnitLink &link, bool on);
/// Whatever the unit was last told to play.
void SwitchOffTestSignals(UnitLink &link);

} // namespace kelvo
