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
    /// Row = history line x 14 + pair; the columns hold the two bytes of the pair.
    std::array<std::array<Byte, 2>, std::size_t(AzimuthLines) * AzimuthPairs> rows{};
    int line = 0; ///< the line that the next frame fills

    const std::array<Byte, 2> &Row(int ofLine, int pair) const { return rows[RowNumber(ofLine, pair)]; }
    void Store(std::span<const Byte, AzimuthBytes> frame)
    {
        for (int pair = 0; pair < AzimuthPairs; ++pair) {
            const auto first = std::size_t(pair) * 2;
            rows[RowNumber(line, pair)] = {frame[first], frame[first + 1]};
        }
    }
    static std::size_t RowNumber(int ofLine, int pair)
    {
        return std::size_t(ofLine) * AzimuthPairs + std::size_t(pair);
    }
    int NextLine() const { return line == AzimuthLines - 1 ? 0 : line + 1; }
};

} // namespace kelvo
