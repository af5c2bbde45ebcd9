#pragma once

#include "model/records.h"
#include "model/roomsettings.h"

#include <array>
#include <string>
#include <string_view>

namespace kelvo {

inline constexpr std::array<const char *, ChannelCount> ChannelName{
    "Left", "Left Surround", "Center", "Right Surround", "Right", "Subwoofer"};

inline constexpr std::array<const char *, ChannelCount> ChannelTitle{
    "Left Channel",           "Left Surround Channel", "Center Channel",
    "Right Surround Channel", "Right Channel",         "Subwoofer Channel"};

// The second channel numbering is part of the console's vocabulary, tested, but nothing here uses it yet.

/// Section names of a single channel's stored equaliser.
/// Deliberate: the surrounds put "Surround" before the side, unlike `ChannelTitle`.
inline constexpr std::array<const char *, ChannelCount> ChannelSection{
    "Channel Left",           "Channel Surround Left", "Channel Center",
    "Channel Surround Right", "Channel Right",         "Channel Subwoofer"};

/// Third-octave bands, index = byte of `ChannelSlice::Band`.
inline constexpr std::array<const char *, BandCount> BandKey{
    "Eq40h",  "Eq50h",   "Eq63h",  "Eq80h",  "Eq100h", "Eq125h", "Eq160h",  "Eq200h",  "Eq250h",
    "Eq315h", "Eq400h",  "Eq500h", "Eq630h", "Eq800h", "Eq1k",   "Eq1.25k", "Eq1.6k",  "Eq2k",
    "Eq2.5k", "Eq3.15k", "Eq4k",   "Eq5k",   "Eq6.3k", "Eq8k",   "Eq10k",   "Eq12.5k", "Eq16k"};

/// Octave bands of the surround channels, index = byte of `ChannelSlice::Band`.
inline constexpr std::array<const char *, SurroundBandCount> SurroundBandKey{
    "Eq63h", "Eq125h", "Eq250h", "Eq500h", "Eq1k", "Eq2k", "Eq4k", "Eq8k", "Eq16k"};

/// The second channel numbering and back: `ChannelOrderB[ChannelOrderA[i]] == i`.
inline constexpr std::array<Word, ChannelCount> ChannelOrderA{5, 4, 0, 1, 2, 3};
inline constexpr std::array<Word, ChannelCount> ChannelOrderB{2, 3, 4, 5, 1, 0};

/// The sound formats, index = `CurrentFormat`. The first one's button later shows what the F1 key selects.
inline constexpr std::array<const char *, FormatCount> ModeCaption{
    "Mono", "A-TYPE", "SR-TYPE", "EXTERNAL 6-TRK", "Kelvo Digital", "NONSYNC"};

inline constexpr int ReaderDelayCount = 397; ///< 0.00 to 99.00 frames in quarters

/// Entry `index` (0 to 396) of the reader delay list: "0.25 TC Frames" for 1.
std::string ReaderDelayText(int index);

inline constexpr std::array<const char *, TheaterTextCount> TheaterName{
    "Circuit", "Theater Name",     "Address",       "City",           "State / County", "Zip Code",
    "Phone",   "S/N of Processor", "Screen Number", "Date Installed", "Notes"};

/// The texts that something is done with.
enum TheaterIndex { NameOfTheater = 1, ScreenNumber = 8, DateInstalled = 9, Notes = 10 };

} // namespace kelvo
