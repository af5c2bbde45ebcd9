#include "ui/walk/checks.h"

#include <QAction>
#include <QLabel>
#include <QPushButton>
#include <QTimer>

namespace kelvo {

namespace {

constexpr Word StreamFormat = 1; ///< which the unit is put in for a stream

/// The controls that want a connection, and the panels, of which the shown one alone is enabled.
QString WrongFrames(const Walker &walker)
{
    const ConsoleUnderTest &console = walker.Console();
    const bool onLine = walker.OnLine();
    for (const char *name : {"cmdUp(0)", "cmdUp(1)", "cmdUp(2)", "cmdUp(3)", "cmdUp(4)", "Frame1(3)",
                             "Frame1(1)", "Frame8(0)", "Frame8(1)", "Frame1(5)"})
        if (auto *control = console.Find<QWidget>(name);
            control->isEnabledTo(control->parentWidget()) != onLine)
            return QString("%1 is %2").arg(name, onLine ? "disabled on line" : "enabled off line");
    for (int tab = 0; tab < TabCount; ++tab) {
        const bool enabled = onLine && tab == int(walker.ShownTab());
        if (console.Find<QWidget>(Member("frmtabs", tab))->isEnabled() != enabled)
            return QString("frmtabs(%1) is %2").arg(tab).arg(enabled ? "disabled" : "enabled");
        if (console.Find<QLabel>(Member("lblHint", tab))->isHidden() != onLine)
            return QString("lblHint(%1) is shown otherwise").arg(tab);
    }
    if (!onLine && walker.Streaming())
        return "a stream runs off line";
    return {};
}

QString WrongTimers(const Walker &walker)
{
    const bool streaming = walker.Streaming();
    const auto runs = [&walker](const char *timer) {
        return walker.Console().Find<QTimer>(timer)->isActive();
    };
    if (walker.OnLine() && runs("tmrPoll") == streaming)
        return streaming ? "the poll runs beside a stream" : "the poll did not resume";
    if (runs("tmrOptical") != streaming)
        return streaming ? "no readings are taken" : "readings are taken without a stream";
    if (runs("Timer2") == streaming)
        return "\"Start\" blinks otherwise";
    if (!runs("tmrRefresh") || !runs("tmrClock"))
        return "a clock stands";
    if (walker.Console().Action("mnuBaud")->isEnabled() == streaming)
        return "the baud menu is enabled otherwise";
    return {};
}

/// What the console and the unit think of the stream.
QString WrongStream(const Walker &walker)
{
    const ConsoleUnderTest &console = walker.Console();
    const auto selected = [&console](int projector) {
        return console.Find<QPushButton>(Member("cmdPro", projector))->font().bold();
    };
    if (selected(0) == selected(1))
        return "not one projector is shown";
    if (!walker.StreamKnown())
        return {};
    using Stream = SimulatedUnit::Stream;
    Stream expected = Stream::None;
    for (int index = 0; walker.Streaming() && index < 3; ++index)
        if (console.Find<QAbstractButton>(Member("optOptical", index))->isChecked())
            expected = std::array{Stream::Gain, Stream::SlitLoss, Stream::Azimuth}[std::size_t(index)];
    if (walker.unit.stream != expected)
        return QString("the unit streams %1, not %2").arg(int(walker.unit.stream)).arg(int(expected));
    if (expected != Stream::None && !selected(walker.unit.projector))
        return "the unit streams the other projector";
    if (expected != Stream::None && walker.witness.format != StreamFormat)
        return "the unit was not put in the stream's format";
    return {};
}

/// What sounds in the unit is what the buttons of the shown tab say.
QString WrongSignals(const Walker &walker)
{
    if (!walker.SignalsKnown())
        return {};
    const auto on = [&walker](const QString &name) {
        return walker.Console().Find<QPushButton>(name)->font().bold();
    };
    const Tab tab = walker.ShownTab();
    for (int channel = 0; channel < ChannelCount; ++channel) {
        const bool shownNoise = on(Member("cmdPN", channel)) ||
                                (on("cmdPink") && on(Member("cmdEQChan", channel))) ||
                                (channel == Center && on("cmdPNC")) || (channel == Subwoofer && on("cmdPNS"));
        if (walker.unit.testSignals.pink[std::size_t(channel)] != shownNoise)
            return QString("the noise of channel %1").arg(channel);
        if (shownNoise && tab != Tab::OutputTrim && tab != Tab::Eq && tab != Tab::Obe)
            return QString("the noise of channel %1 outlasts its tab").arg(channel);
        const bool shownPhase = on(Member("cmdPhase", channel));
        if (walker.unit.testSignals.inverted[std::size_t(channel)] != shownPhase)
            return QString("the phase of channel %1").arg(channel);
        if (shownPhase && tab != Tab::OutputTrim)
            return QString("the inverted phase of channel %1 outlasts its tab").arg(channel);
    }
    return walker.unit.testSignals.rt60 == on("cmdRT60") ? "" : "RT60";
}

/// How many settings the unit was not told, by the witness; nothing before the unit was read.
std::optional<int> Unsent(const Walker &walker)
{
    const Witness &unit = walker.witness;
    if (!unit.audio || !unit.system)
        return std::nullopt;
    const Truth holds = walker.Holds();
    const Word format = walker.Streaming() ? StreamFormat : holds.Format();
    return DifferentSettings(holds.Audio(), *unit.audio) + DifferentSettings(holds.System(), *unit.system) +
           (unit.fader && holds.Fader() != *unit.fader) +
           (walker.OnLine() && unit.mute && holds.Muted() != (*unit.mute != False)) +
           (unit.format && format != *unit.format);
}

QString WrongSent(const Walker &walker)
{
    const auto *lblSent = walker.Console().Find<QLabel>("lblSent");
    const QString shown = lblSent->text();
    const auto count = Unsent(walker);
    const bool amber =
        lblSent->autoFillBackground() && lblSent->palette().color(QPalette::Window) == QColor(255, 191, 0);
    if (amber != (count.value_or(0) > 0))
        return QString("lblSent, \"%1\", is %2").arg(shown, amber ? "amber" : "not amber");
    const QStringList offers = OffersOf(walker.Console());
    const bool mayOffer = count.value_or(0) == 0 && !offers.isEmpty() && !walker.Kept().Touched();
    if (mayOffer && !(walker.Kept().MayBeTouched() && shown != offers.first()))
        return shown == offers.first() ? "" : QString("lblSent reads \"%1\" beside offers").arg(shown);
    const QString truth = !count ? QString()
                          : *count == 0
                              ? QString("All sent")
                              : (*count == 1 ? QString("1 change") : QString("%1 changes").arg(*count)) +
                                    " not in the unit" + (walker.OnLine() ? " - F2" : "");
    return shown == truth ? "" : QString("lblSent reads \"%1\", not \"%2\"").arg(shown, truth);
}

/// The title tells where the settings came from; an open file without a change holds them.
QString WrongTitle(const Walker &walker)
{
    const QString title = walker.Console().window->windowTitle();
    const QString from = title.section('<', 1).chopped(1);
    if (from == "Untitled" || from == "CP Settings")
        return {};
    if (from != walker.Holds().File())
        return "the title names another file: " + title;
    if (walker.Holds().Changed())
        return {};
    const Truth holds = walker.Holds();
    auto file = holds.InFile(from);
    if (!file)
        return "the open file cannot be read";
    // Live values and the clock change without a change of the settings.
    file->FaderLevel = holds.Room().FaderLevel;
    file->MuteState = holds.Room().MuteState;
    file->CurrentFormat = holds.Format();
    file->Audio.UnitClock = holds.Audio().UnitClock;
    return *file == holds.Room() ? "" : "a change is not told of";
}

constexpr std::array Checks{
    Check{"frames", WrongFrames},   Check{"timers", WrongTimers}, Check{"stream", WrongStream},
    Check{"signals", WrongSignals}, Check{"sent", WrongSent},     Check{"title", WrongTitle},
};

} // namespace

std::span<const Check> UnitChecks()
{
    return Checks;
}

} // namespace kelvo
