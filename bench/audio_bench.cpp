#include "console.h"
#include "measuring.h"
#include "timedunit.h"
#include "ui/controls/levelslider.h"

#include <QApplication>
#include <QMouseEvent>
#include <QPushButton>

#include <algorithm>
#include <cstdio>

/// What the equaliser tab costs in the whole main window: a slider's release until the unit hears of it, a
/// frame while a band is dragged, a change of channel.
namespace {

using namespace kelvo;
struct EqConsole : Console<TimedUnit> {
    EqConsole() : Console(Tab::Eq, QSize(1920, 1080)) {}

    LevelSlider *Band(int band) { return Find<LevelSlider>(QString("sclA(%1)").arg(band)); }
};

void Mouse(LevelSlider *slider, QEvent::Type type, int position)
{
    const QPointF at(slider->width() / 2.0, slider->CentreOf(position));
    const bool released = type == QEvent::MouseButtonRelease;
    QMouseEvent event(type, at, slider->mapToGlobal(at),
                      type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton,
                      released ? Qt::NoButton : Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(slider, &event);
}

void Drags(EqConsole &console)
{
    Times frames;
    Times sends;
    double longestWork = 0;
    const int rounds = FullOrBrief(40, 2);
    for (int round = 0; round < rounds; ++round) {
        LevelSlider *slider = console.Band(round % BandCount);
        Mouse(slider, QEvent::MouseButtonPress, slider->value());
        for (int step = 0; step <= slider->maximum(); ++step) {
            const double workBefore = CpuMilliseconds();
            const Moment moved = Now();
            Mouse(slider, QEvent::MouseMove, step);
            QCoreApplication::processEvents();
            frames.Add(moved, Now());
            longestWork = std::max(longestWork, CpuMilliseconds() - workBefore);
        }
        const Moment released = Now();
        Mouse(slider, QEvent::MouseButtonRelease, slider->maximum());
        if (console.unit.audioSent < released)
            qFatal("the release of a slider sent nothing");
        sends.Add(released, console.unit.audioSent);
        slider->setValue(0);
        QCoreApplication::processEvents();
    }
    std::printf("slider release to SetAudio, median: %.0f us (goal: under 200)\n", sends.At(0.5));
    std::printf("dragging a band at 1920 x 1080, frame: median %.2f ms, longest %.2f ms, "
                "longest without other load %.2f ms (goal: none over 16)\n",
                frames.At(0.5) / 1000, frames.At(1) / 1000, longestWork);
}

void Channels(EqConsole &console)
{
    Times switches;
    Times shown;
    const int rounds = FullOrBrief(60, 4);
    for (int round = 0; round < rounds; ++round) {
        const int channel = round % 2 == 0 ? Right : Left;
        for (int band = 0; band < BandCount; ++band)
            console.room.Audio.ChannelEq[std::size_t(channel)].Band[std::size_t(band)] =
                Byte((band * 7 + round) % 25);
        auto *button = console.Find<QPushButton>(QString("cmdEQChan(%1)").arg(channel));
        const Moment clicked = Now();
        button->click();
        const Moment loaded = Now();
        QCoreApplication::processEvents();
        switches.Add(clicked, loaded);
        shown.Add(clicked, Now());
    }
    std::printf(
        "switching channel: median %.2f ms, longest %.2f ms (goal: under 5); painted, median %.2f ms\n",
        switches.At(0.5) / 1000, switches.At(1) / 1000, shown.At(0.5) / 1000);
}

} // namespace

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    QApplication::setStyle("Fusion");
    EqConsole console;
    std::puts("Equaliser tab:");
    Drags(console);
    Channels(console);
    return 0;
}
