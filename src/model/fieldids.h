#pragma once

#include "model/records.h"

#include <array>

namespace kelvo {

/// Every setting that a person can name, and every byte that is kept without a name, is one field: a row of
/// the table in model/fields.h.
enum class FieldId : Byte;

namespace field {

inline constexpr FieldId Fader{0}, Mute{1}, Format{2};

constexpr FieldId After(int first, int index)
{
    return FieldId(Byte(first + index));
}

constexpr FieldId Trim(int channel)
{
    return After(3, channel);
}

/// Byte `band` of a channel's equaliser; the subwoofer's are `SubwooferByte`.
constexpr FieldId Band(int channel, int band)
{
    constexpr std::array<int, ChannelCount> first{9, 36, 45, 72, 81, 108};
    return After(first[channel], band);
}

constexpr FieldId Bass(int channel)
{
    return After(111, channel);
}

constexpr FieldId Treble(int channel)
{
    return After(117, channel);
}

inline constexpr FieldId ObeLevel{123}, ObeFreq{124};
inline constexpr FieldId F1KeyMode{125}, DisableMatrix{126}, NonsyncMode{127}, ReaderDelay{128},
    SurroundDelay{129}, NonsyncTrim{130}, DefaultFormat{131};

constexpr FieldId Theater(int index)
{
    return After(132, index);
}

/// The ten bytes of `SystemBlock` that files hold and no control shows, in the order of their offsets.
constexpr FieldId Kept(int index)
{
    return After(143, index);
}

} // namespace field

} // namespace kelvo
