#include "ui/walk/acts.h"

#include <QPushButton>
#include <QTimer>

namespace kelvo {

namespace {

void TickPoll(Walker &walker)
{
    walker.Console().TickIfActive("tmrPoll");
}

void TickRefresh(Walker &walker)
{
    for (int second = walker.Number(4); second >= 0 && walker.Console().window->isVisible(); --second)
        walker.Wrong(walker.Kept().Reread(walker.Console(), walker.witness,
                                          [&] { walker.Console().TickIfActive("tmrRefresh"); }));
}

void TickClocks(Walker &walker)
{
    using namespace std::chrono;
    walker.Console().clock.now += hours(walker.Number(30)) + minutes(walker.Number(60));
    walker.Console().TickIfActive(walker.Pick({"tmrClock", "Timer2"}));
}

void TickStream(Walker &walker)
{
    for (int reading = walker.Number(6); reading >= 0; --reading)
        walker.Console().TickIfActive("tmrOptical");
}

/// Goes to the optical tab and begins a stream, or ends it.
void Measure(Walker &walker)
{
    if (!walker.Console().window->isEnabled())
        return;
    if (walker.ShownTab() != Tab::OpticalSetup)
        walker.Console().GoTo(Tab::OpticalSetup);
    auto *cmdStart = walker.Console().Find<QPushButton>("cmdStart");
    if (cmdStart->isVisible() && cmdStart->isEnabled())
        walker.Click(cmdStart);
}

void TouchFrontPanel(Walker &walker)
{
    walker.unit.panel.level = Word(walker.Number(110) - 5);
    walker.unit.panel.mute = walker.Pick({False, True});
    walker.unit.panel.format = Word(walker.Number(7));
}

void ChangeRecords(Walker &walker)
{
    walker.unit.audio.ChannelTrim[std::size_t(walker.Number(ChannelCount))] = Byte(walker.Number(256));
    walker.unit.system.NonsyncTrim = Byte(walker.Number(30));
}

void LoseLock(Walker &walker)
{
    walker.unit.reader.locked = walker.Chance(2);
}

Status AnyStatus(Walker &walker)
{
    constexpr int Bits = 11;
    return walker.Chance(4) ? StreamNotLocked : Status(1 << walker.Number(Bits));
}

void FailNextCalls(Walker &walker)
{
    walker.unit.FailNext(std::nullopt, AnyStatus(walker), 1 + walker.Number(7));
}

void FailOneOperation(Walker &walker)
{
    using enum Operation;
    static constexpr std::array Operations{SetVol,    SetMute,    SetAudio,        SelectFormat, GetAudio,
                                           GetSystem, StopStream, BeginGainStream, GetOptGain,   SetPink,
                                           SetPhase,  SetRT60,    SetProjector};
    walker.unit.FailNext(walker.Pick(Operations), AnyStatus(walker), walker.Pick({1, 2, 6}));
}

void PullCable(Walker &walker)
{
    walker.unit.panel.plugged = false;
}

void PlugIn(Walker &walker)
{
    walker.unit.panel.plugged = true;
}

/// What a hand does while a connection attempt lets the window live for a moment.
void Interrupt(Walker &walker)
{
    auto *frmProg = walker.Console().window->findChild<QDialog *>("frmProg");
    if (!frmProg) // the attempt went well, or there was none
        return;
    if (frmProg->isVisible() && walker.Chance(2))
        QTest::mouseClick(frmProg->findChild<QPushButton *>("cmdCan"), Qt::LeftButton);
    walker.Console().Key(walker.Pick({Qt::Key_F1, Qt::Key_F2}));
    for (const char *timer : {"tmrPoll", "tmrRefresh", "tmrOptical"})
        walker.Console().TickIfActive(timer);
    if (walker.Chance(4))
        walker.Close();
}

void Connect(Walker &walker)
{
    if (walker.Chance(4))
        walker.unit.panel.plugged = true;
    if (walker.Chance(3))
        QTimer::singleShot(0, &walker, [&walker] { Interrupt(walker); });
    if (walker.Chance(2))
        walker.Console().Key(Qt::Key_F1);
    else if (auto *cmdConnect = walker.Console().Find<QPushButton>("cmdConnect"); cmdConnect->isEnabled())
        walker.Click(cmdConnect);
    QCoreApplication::processEvents();
}

constexpr std::array Acts{
    Act{"the poll ticks", 40, TickPoll},
    Act{"seconds pass", 30, TickRefresh},
    Act{"hours pass", 4, TickClocks},
    Act{"readings come", 30, TickStream},
    Act{"go and measure", 6, Measure},
    Act{"the unit's front panel is touched", 10, TouchFrontPanel},
    Act{"another console changes the unit's records", 2, ChangeRecords},
    Act{"the reader loses or finds its lock", 3, LoseLock},
    Act{"the next calls fail", 6, FailNextCalls},
    Act{"an operation fails", 4, FailOneOperation},
    Act{"the cable is pulled", 4, PullCable},
    Act{"the cable is plugged in", 20, PlugIn},
    Act{"connect", 24, Connect},
};

} // namespace

std::span<const Act> UnitActs()
{
    return Acts;
}

} // namespace kelvo
