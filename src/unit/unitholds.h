#pragma once

#include "model/settings.h"

#include <array>
#include <optional>

namespace kelvo {

/// What the unit last took or told. Empty until it did.
struct UnitHolds {
    std::optional<AudioBlock> Audio{};
    std::optional<SystemBlock> System{};
    std::optional<Word> FaderLevel{};
    std::optional<Word> MuteState{};
    std::optional<Word> CurrentFormat{};
    /// Test signals count only for switching them off again: an upload does not carry them.
    std::array<bool, ChannelCount> Pink{};
    std::array<bool, ChannelCount> Inverted{};
    bool RT60 = false;
};

/// How many fields of the settings differ from what the unit holds, the clock left out; empty until both
/// records of the unit are known.
std::optional<int> CountDifferences(const Settings &settings, const UnitHolds &holds);

} // namespace kelvo
