#pragma once

#include "model/records.h"

#include <array>
#include <optional>
#include <string>

namespace kelvo {

inline constexpr int TheaterTextCount = 11;
using TheaterTexts = std::array<std::string, TheaterTextCount>; ///< UTF-8, order of `TheaterLabel`

inline constexpr Word NominalFader = 70; ///< fader 7.0, the level at which rooms are tuned
inline constexpr Word HighestFader = 99; ///< fader 9.9
inline constexpr Word FormatCount = 6;

/// What the operator chose for the console itself; kept in `settings.dat`.
struct Preferences {
    Word ComPort = 1;           ///< 1 to 4
    bool AutoUpload = false;    ///< "Automatically Upload": every edit is sent at once
    bool ConfirmUpload = false; ///< "Confirm Message Box": ask before an explicit upload
    bool Shortcuts = false;     ///< "Enable Shortcuts": the Ctrl keys of the equaliser tab
    Word AutoRefresh = 0;       ///< 1 = the settings are re-read every `RefreshSeconds`
    Word RefreshSeconds = 0;

    bool operator==(const Preferences &) const = default;
};

/// The console's one mirror of the unit's settings and of its own state. Panels write the value here
/// first and send it second.
struct Settings {
    AudioBlock Audio{};
    SystemBlock System{};

    Word FaderLevel = NominalFader; ///< tenths, 0 to 99; the unit may report any word
    Word MuteState = False;         ///< muted is any word but 0
    Word CurrentFormat = 0;         ///< 0 to 5; the unit may report any word
    /// The operator's format while an optical stream has forced another one: what Stop restores and
    /// what a file stores.
    std::optional<Word> FormatBeforeStream;

    bool ObeEnabled = false;
    Byte ObeMode = 1; ///< the remembered OBE frequency, 1 to 8 = 50 to 120 Hz

    TheaterTexts TheaterInfo;

    std::string CurrentFileName; ///< UTF-8 path; "" = untitled
    bool FileLoaded = false;     ///< the settings came from a file
    bool SettingsChanged = false;

    /// The program itself is setting controls: their change handlers neither write the model nor send.
    /// Raised through a `FlagGuard` wherever the raise ends with its scope.
    bool Updating = false;

    Word BaudIndex = 0;  ///< 0 to 3 = 9600, 19200, 38400, 57600; not stored
    Word Projector = 0;  ///< 0 or 1: the projector whose optical reader is measured
    Preferences Options; ///< what `settings.dat` keeps

    Word OperatorFormat() const { return FormatBeforeStream.value_or(CurrentFormat); }
};

/// Flat equaliser, shelves at 0 dB and, for the subwoofer, the first width and frequency.
void ResetChannelData(Settings &settings, int channel);

/// Factory defaults in every field that a control of the console shows. Reserved bytes, stored bytes
/// without a control, theatre texts and file state stay; nothing is sent.
void ResetAll(Settings &settings);

/// `ObeEnabled` and `ObeMode` from the block's `ObeFreq`, after a read or a load.
void TakeObeFromAudio(Settings &settings);

} // namespace kelvo
