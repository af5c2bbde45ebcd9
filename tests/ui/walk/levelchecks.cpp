#include "ui/walk/checks.h"

#include <QComboBox>
#include <QPushButton>
#include <QRadioButton>
#include <QStackedWidget>

#include <algorithm>

namespace kelvo {

namespace {

QString WrongField(const Walker &walker, const QString &name, const QString &text)
{
    const QString shown = walker.Console().Find<LevelField>(name)->text();
    return shown == text ? "" : QString("%1 shows %2, not %3").arg(name, shown, text);
}

/// A pair of slider and field that shows a byte, the nearest end for one beyond the slider's range. `sign`
/// tells which way the level goes.
QString WrongPair(const Walker &walker, const QString &slider, const QString &field, int position, int zeroAt,
                  int perDecibel, int sign = -1)
{
    auto *scl = walker.Console().Find<QSlider>(slider);
    position = std::clamp(position, 0, scl->maximum());
    if (scl->value() != position)
        return QString("%1 stands at %2, not at %3").arg(slider).arg(scl->value()).arg(position);
    const double level = double(sign * (position - zeroAt)) / perDecibel;
    return WrongField(walker, field, QString::number(level == 0 ? 0 : level, 'f', perDecibel - 1));
}

QString First(std::initializer_list<QString> wrong)
{
    for (const QString &each : wrong)
        if (!each.isEmpty())
            return each;
    return {};
}

QString WrongFader(const Walker &walker)
{
    const int level = walker.Holds().Fader();
    for (const char *field : {"lblVol(0)", "lblVol(1)", "lblVol(2)", "lblVol(3)", "lblVol"})
        if (const QString wrong = WrongField(walker, field, QString::number(level / 10.0, 'f', 1));
            !wrong.isEmpty())
            return wrong;
    for (const auto *slider : walker.Console().window->findChildren<LevelSlider *>("sclVol"))
        if (slider->value() != std::clamp(99 - level, 0, 99))
            return QString("a fader stands at %1").arg(slider->value());
    return {};
}

QString WrongTrims(const Walker &walker)
{
    for (int channel = 0; channel < ChannelCount; ++channel) {
        const int byte = walker.Holds().Audio().ChannelTrim[std::size_t(channel)];
        const QString wrong =
            WrongPair(walker, Member("sclPNG", channel), Member("lblPNG", channel), byte, 12, 2);
        if (!wrong.isEmpty())
            return wrong;
    }
    return {};
}

QString WrongOptions(const Walker &walker, const char *name, int count, int chosen)
{
    for (int index = 0; index < count; ++index)
        if (walker.Console().Find<QRadioButton>(Member(name, index))->isChecked() != (index == chosen))
            return QString("%1 does not show %2").arg(name).arg(chosen);
    return {};
}

QString WrongSubwoofer(const Walker &walker, const ChannelSlice &slice)
{
    return First({WrongPair(walker, "sclGain", "lblGain", slice.Band[SubGain], 12, 2),
                  WrongOptions(walker, "optBand", 3, slice.Band[SubWidth]),
                  WrongOptions(walker, "optSPB", 7, slice.Band[SubFreq])});
}

QString WrongBands(const Walker &walker, const ChannelSlice &slice, int bands, const char *slider,
                   const char *field)
{
    for (int band = 0; band < bands; ++band) {
        const QString wrong = WrongPair(walker, Member(slider, band), Member(field, band),
                                        slice.Band[std::size_t(band)], 12, 2);
        if (!wrong.isEmpty())
            return wrong;
    }
    return {};
}

/// The channel whose button is bold is the one that is shown.
QString WrongChannel(const Walker &walker)
{
    const ConsoleUnderTest &console = walker.Console();
    int channel = 0;
    while (!console.Find<QPushButton>(Member("cmdEQChan", channel))->font().bold())
        ++channel;
    const ChannelSlice &slice = walker.Holds().Audio().ChannelEq[std::size_t(channel)];
    const ChannelKind kind = KindOf(channel);
    const char *frame = kind == ChannelKind::Screen     ? "frmBandA"
                        : kind == ChannelKind::Surround ? "frmBandB"
                                                        : "frmBass";
    auto *shown = console.Find<QWidget>(frame);
    if (shown->isHidden())
        return QString("%1 is hidden").arg(frame);
    return First({WrongPair(walker, "sclBass", "lblBass", slice.BassLevel, 10, 1),
                  WrongPair(walker, "sclTreb", "lblTreb", slice.TrebleLevel, 10, 1),
                  kind == ChannelKind::Screen     ? WrongBands(walker, slice, 27, "sclA", "lblBand")
                  : kind == ChannelKind::Surround ? WrongBands(walker, slice, 9, "sclB", "lblLSRSv")
                                                  : WrongSubwoofer(walker, slice)});
}

QString WrongObe(const Walker &walker)
{
    const Truth holds = walker.Holds();
    const ConsoleUnderTest &console = walker.Console();
    const bool on = holds.Audio().ObeFreq != 0;
    if (console.Find<QPushButton>("cmdOBEEnable")->text() != (on ? "OBE Enable" : "OBE Disable"))
        return "cmdOBEEnable reads otherwise";
    const int frequency = console.Find<QComboBox>("cboObeF")->currentIndex() + 1;
    if (on && frequency != (holds.Audio().ObeFreq <= 8 ? holds.Audio().ObeFreq : 0))
        return QString("cboObeF shows %1").arg(frequency);
    for (const char *control : {"cboObeF", "sclOBE", "lblOBE"})
        if (auto *widget = console.Find<QWidget>(control);
            widget->isEnabledTo(console.Find<QWidget>("frmtabs(3)")) != on)
            return QString("%1 is enabled otherwise than OBE").arg(control);
    return WrongPair(walker, "sclOBE", "lblOBE", 24 - holds.Audio().ObeLevel, 12, 2, +1);
}

constexpr std::array Checks{
    Check{"fader", WrongFader},
    Check{"trims", WrongTrims},
    Check{"equaliser", WrongChannel},
    Check{"OBE", WrongObe},
};

} // namespace

std::span<const Check> LevelChecks()
{
    return Checks;
}

} // namespace kelvo
