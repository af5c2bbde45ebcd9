#pragma once

#include "unit/devicelibrary.h"

#include <array>

namespace kelvo {

/// The left and the right reader side.
using GainReading = std::array<Byte, GainBytes>;

inline constexpr int ReaderSides = 2;
inline constexpr Byte NoSignal = 255; ///< a reading that found nothing: the base line of the graphs

/// The newest eleven bands of each reader side.
using SlitReadings = std::array<std::array<Byte, SlitLossBytes>, ReaderSides>;

/// Nothing has been read from either side yet.
constexpr SlitReadings NoSlitReadings()
{
    SlitReadings readings{};
    for (auto &side : readings)
        side.fill(NoSignal);
    return readings;
}

inline constexpr int AzimuthPairs = int(AzimuthBytes) / 2;
inline constexpr int AzimuthLines = 10; ///< readings that stay on the picture

/// The last ten azimuth frames, filled cyclically.
struct AzimuthHistory {
    using Pair = std::array<Byte, 2>;

    std::array<std::array<Pair, AzimuthPairs>, AzimuthLines> lines{};
    int line = 0; ///< the line that the next frame fills

    void Store(std::span<const Byte, AzimuthBytes> frame)
    {
        auto value = frame.begin();
        for (Pair &pair : lines[line])
            pair = {*value++, *value++};
    }
    int NextLine() const { return line == AzimuthLines - 1 ? 0 : line + 1; }
};

} // namespace kelvo
