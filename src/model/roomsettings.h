#pragma once

#include "model/records.h"

#include <array>
#include <string>

namespace kelvo {

inline constexpr int TheaterTextCount = 11;
using TheaterTexts = std::array<std::string, TheaterTextCount>; ///< UTF-8, order of their fields

inline constexpr Word NominalFader = 70; ///< fader 7.0, the level at which rooms are tuned
inline constexpr Word FormatCount = 6;

/// What a room is set to: what a settings file holds, a unit holds, a snapshot holds. A plain value; who
/// shows it, sends it or stores it is somebody else's affair.
struct RoomSettings {
    AudioBlock Audio{};
    SystemBlock System{};

    Word FaderLevel = NominalFader; ///< tenths, 0 to 99; the unit may report any word
    Word MuteState = False;         ///< muted is any word but 0
    Word CurrentFormat = 0;         ///< the operator's, 0 to 5; the unit may report any word

    TheaterTexts TheaterInfo;

    bool operator==(const RoomSettings &) const = default;
};

/// The OBE function is on; what it is set to while it is off, no record holds.
constexpr bool ObeEnabled(const AudioBlock &audio)
{
    return audio.ObeFreq != 0;
}

/// Flat equaliser, shelves at 0 dB and, for the subwoofer, the first width and frequency.
void ResetChannelData(RoomSettings &room, int channel);

/// Factory defaults in every field that a control of the console shows. Reserved bytes, stored bytes
/// without a control and theatre texts stay; nothing is sent.
void ResetAll(RoomSettings &room);

} // namespace kelvo
