#pragma once

#include "model/channels.h"

#include <array>
#include <cstdint>
#include <span>

namespace kelvo {

using Byte = std::uint8_t;

/// A signed 16-bit integer as the device library passes them; truth is -1, falsehood 0.
using Word = std::int16_t;

inline constexpr Word True = -1;
inline constexpr Word False = 0;

/// Where the subwoofer keeps its parametric band inside `ChannelSlice::Band`.
enum SubwooferByte { SubGain, SubWidth, SubFreq };

/// One channel's tone settings. Band bytes are slider positions: position = 12 - 2 x level in dB.
struct ChannelSlice {
    std::array<Byte, BandCount> Band; ///< a surround uses bytes 0 to 8, the subwoofer `SubwooferByte`
    Byte BassLevel;                   ///< position = 10 - level, -10 to +10 dB
    Byte TrebleLevel;                 ///< as `BassLevel`
    Byte unused29;

    bool operator==(const ChannelSlice &) const = default;
};

/// The audio settings as the unit holds them. Reserved bytes go back as they came.
struct AudioBlock {
    std::array<Byte, 4> UnitClock; ///< packed date and time, see unit/unitclock.h
    std::array<Byte, 2> reserved4;
    std::array<Byte, ChannelCount> ChannelTrim;       ///< slider positions 0..24, 12 = 0 dB
    std::array<ChannelSlice, ChannelCount> ChannelEq; ///< order of `Channel`
    Byte ObeLevel;                                    ///< half decibels down from +6 dB, 0..24
    Byte ObeFreq;                                     ///< 0 = off, 1..8 = 50..120 Hz
    std::array<Byte, 30> reserved194;

    bool operator==(const AudioBlock &) const = default;
};

/// The format and option settings as the unit holds them. `stored` bytes have no control on the
/// console but travel in files; reserved bytes travel in the block alone.
struct SystemBlock {
    Byte F1KeyMode;     ///< what the unit's F1 key selects, 0..3
    Byte DisableMatrix; ///< 1 = matrix decoding disabled
    Byte reserved2;
    Byte NonsyncMode;                ///< 0..3
    std::array<Byte, 2> ReaderDelay; ///< quarter frames, high byte first: `ReaderDelayIndex`
    Byte SurroundDelay;              ///< tens of milliseconds, 0..10
    Byte reserved7;
    Byte stored8;
    Byte reserved9;
    std::array<Byte, 4> stored10;
    std::array<Byte, 10> reserved14;
    Byte NonsyncTrim; ///< decibels of attenuation, 0..20
    std::array<Byte, 5> stored25;
    Byte DefaultFormat; ///< the power-on format, 0..4
    std::array<Byte, 97> reserved31;

    bool operator==(const SystemBlock &) const = default;
};

/// The optical reader delay in quarter frames, 0 to 65535; the console's list ends at 396.
constexpr int ReaderDelayIndex(const SystemBlock &system)
{
    return system.ReaderDelay[0] * 256 + system.ReaderDelay[1];
}

/// `index` is 0 to 65535.
constexpr void SetReaderDelayIndex(SystemBlock &system, int index)
{
    system.ReaderDelay = {Byte(index / 256), Byte(index % 256)};
}

/// The record's own storage, for the device library and the old file format.
template <typename Record>
std::span<Byte, sizeof(Record)> BytesOf(Record &record)
{
    return std::span<Byte, sizeof(Record)>(reinterpret_cast<Byte *>(&record), sizeof(Record));
}

template <typename Record>
std::span<const Byte, sizeof(Record)> BytesOf(const Record &record)
{
    return std::span<const Byte, sizeof(Record)>(reinterpret_cast<const Byte *>(&record), sizeof(Record));
}

} // namespace kelvo
