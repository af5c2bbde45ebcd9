#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <type_traits>

namespace kelvo {

using Byte = std::uint8_t;

/// A signed 16-bit integer as the device library passes them; truth is -1, falsehood 0.
using Word = std::int16_t;

inline constexpr Word True = -1;
inline constexpr Word False = 0;

/// The channel order of every per-channel array, file line and device call.
enum Channel { Left, LeftSurround, Center, RightSurround, Right, Subwoofer };
inline constexpr int ChannelCount = 6;

/// How a channel is equalised: 27 third-octave bands, 9 octave bands, or one parametric band.
enum class ChannelKind { Screen, Surround, Subwoofer };

constexpr ChannelKind KindOf(int channel)
{
    if (channel == Subwoofer)
        return ChannelKind::Subwoofer;
    return channel == LeftSurround || channel == RightSurround ? ChannelKind::Surround : ChannelKind::Screen;
}

inline constexpr int BandCount = 27;         ///< third-octave bands of a screen channel, 40 Hz to 16 kHz
inline constexpr int SurroundBandCount = 9;  ///< octave bands of a surround channel, 63 Hz to 16 kHz
inline constexpr int SubwooferByteCount = 3; ///< gain, width and frequency of the subwoofer

/// How many slice bytes, from byte 0 on, hold the equaliser of a channel of this kind.
constexpr int EqualiserBytes(ChannelKind kind)
{
    switch (kind) {
    case ChannelKind::Screen:
        return BandCount;
    case ChannelKind::Surround:
        return SurroundBandCount;
    case ChannelKind::Subwoofer:
        return SubwooferByteCount;
    }
    return 0;
}

/// Slider position of 0 dB: bands, trims, sub-bass gain and OBE (half decibels, 0 to 24).
inline constexpr Byte FlatHalfDecibel = 12;
/// Slider position of 0 dB of the bass and treble shelves (whole decibels, 0 to 20).
inline constexpr Byte FlatShelf = 10;

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
static_assert(sizeof(ChannelSlice) == 30 && offsetof(ChannelSlice, Band) == 0);
static_assert(offsetof(ChannelSlice, BassLevel) == 27 && offsetof(ChannelSlice, TrebleLevel) == 28);
static_assert(offsetof(ChannelSlice, unused29) == 29);

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
static_assert(sizeof(AudioBlock) == 224 && offsetof(AudioBlock, UnitClock) == 0);
static_assert(offsetof(AudioBlock, reserved4) == 4 && offsetof(AudioBlock, ChannelTrim) == 6);
static_assert(offsetof(AudioBlock, ChannelEq) == 12 && offsetof(AudioBlock, ObeLevel) == 192);
static_assert(offsetof(AudioBlock, ObeFreq) == 193 && offsetof(AudioBlock, reserved194) == 194);
static_assert(std::is_trivially_copyable_v<AudioBlock>);

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
static_assert(sizeof(SystemBlock) == 128 && offsetof(SystemBlock, F1KeyMode) == 0);
static_assert(offsetof(SystemBlock, DisableMatrix) == 1 && offsetof(SystemBlock, reserved2) == 2);
static_assert(offsetof(SystemBlock, NonsyncMode) == 3 && offsetof(SystemBlock, ReaderDelay) == 4);
static_assert(offsetof(SystemBlock, SurroundDelay) == 6 && offsetof(SystemBlock, reserved7) == 7);
static_assert(offsetof(SystemBlock, stored8) == 8 && offsetof(SystemBlock, reserved9) == 9);
static_assert(offsetof(SystemBlock, stored10) == 10 && offsetof(SystemBlock, reserved14) == 14);
static_assert(offsetof(SystemBlock, NonsyncTrim) == 24 && offsetof(SystemBlock, stored25) == 25);
static_assert(offsetof(SystemBlock, DefaultFormat) == 30 && offsetof(SystemBlock, reserved31) == 31);
static_assert(std::is_trivially_copyable_v<SystemBlock>);

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
inline std::span<Byte, sizeof(AudioBlock)> BytesOf(AudioBlock &audio)
{
    return std::span<Byte, sizeof(AudioBlock)>(reinterpret_cast<Byte *>(&audio), sizeof(AudioBlock));
}

inline std::span<Byte, sizeof(SystemBlock)> BytesOf(SystemBlock &system)
{
    return std::span<Byte, sizeof(SystemBlock)>(reinterpret_cast<Byte *>(&system), sizeof(SystemBlock));
}

inline std::span<const Byte, sizeof(AudioBlock)> BytesOf(const AudioBlock &audio)
{
    return std::span<const Byte, sizeof(AudioBlock)>(reinterpret_cast<const Byte *>(&audio),
                                                     sizeof(AudioBlock));
}

inline std::span<const Byte, sizeof(SystemBlock)> BytesOf(const SystemBlock &system)
{
    return std::span<const Byte, sizeof(SystemBlock)>(reinterpret_cast<const Byte *>(&system),
                                                      sizeof(SystemBlock));
}

} // namespace kelvo
