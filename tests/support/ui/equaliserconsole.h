#pragma once

#include "support/ui/consoleundertest.h"

#include <QLineEdit>
#include <QRadioButton>

namespace kelvo {

/// A unit whose channels are all flat.
inline void FlattenUnit(ConsoleUnderTest &start)
{
    for (ChannelSlice &slice : start.unit.audio.ChannelEq) {
        slice.Band.fill(12);
        slice.BassLevel = slice.TrebleLevel = 10;
    }
    start.unit.audio.ChannelEq[Subwoofer].Band[SubWidth] = 0;
    start.unit.audio.ChannelEq[Subwoofer].Band[SubFreq] = 0;
}

/// The tab "E.Q" with automatic upload on.
struct EqualiserConsole : ConsoleUnderTest {
    explicit EqualiserConsole(const std::function<void(ConsoleUnderTest &)> &prepare = FlattenUnit)
        : ConsoleUnderTest(OnLine, Tab::Eq, prepare)
    {
        options.AutoUpload = true;
    }

    LevelSlider *Slider(const char *name, int index) const { return Find<LevelSlider>(Member(name, index)); }
    LevelSlider *Slider(const char *name) const { return Find<LevelSlider>(name); }
    QString Text(const QString &field) const { return Find<QLineEdit>(field)->text(); }
    QString Text(const char *name, int index) const { return Text(Member(name, index)); }
    void Choose(int channel) { Click(Member("cmdEQChan", channel)); }
    ChannelSlice &Slice(int channel) { return room.Audio.ChannelEq[std::size_t(channel)]; }
    ChannelSlice &OfUnit(int channel) { return unit.audio.ChannelEq[std::size_t(channel)]; }
    bool IsShown(const char *frame) const { return Find<QWidget>(frame)->isVisible(); }
    QAbstractButton *Option(const char *name, int index) const
    {
        return Find<QRadioButton>(Member(name, index));
    }
};

/// A unit whose channels all differ, with bytes beyond every control's range in Right and Subwoofer.
inline void FillUnit(ConsoleUnderTest &start)
{
    for (int channel = 0; channel < ChannelCount; ++channel) {
        ChannelSlice &slice = start.unit.audio.ChannelEq[std::size_t(channel)];
        for (std::size_t band = 0; band < slice.Band.size(); ++band)
            slice.Band[band] = Byte((3 * band + 5 * std::size_t(channel)) % 25);
        slice.BassLevel = Byte(2 + channel);
        slice.TrebleLevel = Byte(18 - channel);
        slice.unused29 = Byte(200 + channel);
    }
    start.unit.audio.ChannelEq[Right].Band[3] = 200;
    start.unit.audio.ChannelEq[Right].TrebleLevel = 99;
    start.unit.audio.ChannelEq[Subwoofer].Band[SubWidth] = 7;
    start.unit.audio.ChannelEq[Subwoofer].Band[SubFreq] = 255;
}

} // namespace kelvo
