#pragma once

namespace kelvo {

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

} // namespace kelvo
