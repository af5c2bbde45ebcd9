#pragma once

#include "support/ui/consoleundertest.h"

namespace kelvo {

/// What the program holds. The one place of the walk that knows where it does.
class Truth {
  public:
    explicit Truth(const ConsoleUnderTest &console) : console_(console) {}

    const RoomSettings &Room() const { return console_.room; }
    const AudioBlock &Audio() const { return console_.room.Audio; }
    const SystemBlock &System() const { return console_.room.System; }
    int Fader() const { return console_.room.FaderLevel; }
    bool Muted() const { return console_.room.MuteState != False; }
    Word Format() const { return console_.room.CurrentFormat; } ///< the operator's
    const TheaterTexts &Texts() const { return console_.room.TheaterInfo; }
    const Preferences &Options() const { return console_.options; }

    QString File() const { return QString::fromStdString(console_.file.CurrentFileName); }
    bool Changed() const { return console_.file.SettingsChanged; }
    /// What opening a file now would bring; nothing when it cannot be read.
    std::optional<RoomSettings> InFile(const QString &path) const;
    /// The text of a file with these settings.
    static std::string TextOf(const RoomSettings &room);

  private:
    const ConsoleUnderTest &console_;
};

} // namespace kelvo
