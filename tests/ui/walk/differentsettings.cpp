#include "ui/walk/checks.h"

#include <functional>
#include <numeric>

namespace kelvo {

namespace {

int DifferentBytes(std::span<const Byte> one, std::span<const Byte> other)
{
    return std::inner_product(one.begin(), one.end(), other.begin(), 0, std::plus(), std::not_equal_to());
}

} // namespace

int DifferentSettings(const AudioBlock &one, const AudioBlock &other)
{
    int count = DifferentBytes(one.ChannelTrim, other.ChannelTrim) + (one.ObeLevel != other.ObeLevel) +
                (one.ObeFreq != other.ObeFreq);
    for (std::size_t channel = 0; channel < one.ChannelEq.size(); ++channel) {
        const ChannelSlice &here = one.ChannelEq[channel];
        const ChannelSlice &there = other.ChannelEq[channel];
        constexpr std::array<std::size_t, ChannelCount> bands{27, 9, 27, 9, 27, 3};
        count += DifferentBytes(std::span(here.Band).first(bands[channel]),
                                std::span(there.Band).first(bands[channel])) +
                 (here.BassLevel != there.BassLevel) + (here.TrebleLevel != there.TrebleLevel);
    }
    return count;
}

int DifferentSettings(const SystemBlock &one, const SystemBlock &other)
{
    return (one.F1KeyMode != other.F1KeyMode) + (one.DisableMatrix != other.DisableMatrix) +
           (one.NonsyncMode != other.NonsyncMode) + (one.ReaderDelay != other.ReaderDelay) +
           (one.SurroundDelay != other.SurroundDelay) + (one.NonsyncTrim != other.NonsyncTrim) +
           (one.DefaultFormat != other.DefaultFormat);
}

} // namespace kelvo
