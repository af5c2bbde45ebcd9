#pragma once

#include "files/configfile.h"
#include "support/ui/consoleundertest.h"

#include <QFile>

namespace kelvo {

inline constexpr auto Untitled = "Kelvo Cinema Processor and EQ Software   <Untitled>";

inline QString TitleOf(const QString &path)
{
    return "Kelvo Cinema Processor and EQ Software   <" + path + ">";
}

/// A settings file with something to see on every tab.
inline QString WriteSample(const ConsoleUnderTest &console, const char *name = "sample.zcf")
{
    RoomSettings sample;
    ResetAll(sample);
    sample.FaderLevel = 42;
    sample.MuteState = True;
    sample.CurrentFormat = 2;
    sample.Audio.ChannelTrim[Center] = 8;
    sample.Audio.ChannelEq[Left].BassLevel = 7;
    sample.Audio.ObeFreq = 3;
    sample.System.SurroundDelay = 5;
    sample.TheaterInfo[1] = "Odeon 3";
    [&] { QVERIFY(!SaveConfigFile(console.File(name).toStdString(), sample)); }();
    return console.File(name);
}

inline void Open(ConsoleUnderTest &console, const QString &path)
{
    console.ChooseNextFile(path);
    console.Trigger("mnuLoad");
}

inline QByteArray ContentOf(const QString &path)
{
    QFile file(path);
    return file.open(QFile::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace kelvo
