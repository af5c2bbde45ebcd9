#include "console.h"
#include "measuring.h"
#include "support/testfolder.h"
#include "timedunit.h"

#include <QAction>
#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>

#include <cstdio>

/// What it costs to take an edit back, to recall a slot and to keep a step, in the whole main window with its
/// journal; and what a start has to read of a long one.
namespace {

using namespace kelvo;

constexpr int Steps = 200;

void Type(Console<TimedUnit> &console, int trim, const QString &text)
{
    auto *field = console.Find<QLineEdit>(QString("lblPNG(%1)").arg(trim));
    field->setText(text);
    QKeyEvent enter(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
    QApplication::sendEvent(field, &enter);
}

/// From a command until it is done, and until the unit heard of it.
struct Answers {
    Times done, heard;

    void Take(Console<TimedUnit> &console, const QString &action)
    {
        const Moment pressed = Now();
        console.Find<QAction>(action)->trigger();
        done.Add(pressed, Now());
        if (console.unit.audioSent < pressed)
            qFatal("%s sent nothing", qPrintable(action));
        heard.Add(pressed, console.unit.audioSent);
        QCoreApplication::processEvents();
    }
    void Print(const char *what)
    {
        std::printf(
            "%s: median %.2f ms, longest %.2f ms (goal under 5); SetAudio after %.2f ms (goal under 40)\n",
            what, done.At(0.5) / 1000, done.At(1) / 1000, heard.At(0.5) / 1000);
    }
};

void Undoes(Console<TimedUnit> &console)
{
    Answers undo;
    Answers redo;
    const int times = FullOrBrief(100, 4);
    for (int time = 0; time < times; ++time)
        undo.Take(console, "mnuUndo");
    for (int time = 0; time < times; ++time)
        redo.Take(console, "mnuRedo");
    undo.Print("undo");
    redo.Print("redo");
}

void Recalls(Console<TimedUnit> &console)
{
    console.Find<QAction>("mnuKeep(0)")->trigger();
    for (int channel = 0; channel < ChannelCount; ++channel)
        Type(console, channel, channel % 2 == 0 ? "-2" : "3");
    console.Find<QAction>("mnuKeep(1)")->trigger();
    Answers recall;
    for (int time = 0; time < FullOrBrief(100, 4); ++time)
        recall.Take(console, time % 2 == 0 ? "mnuRecall(0)" : "mnuRecall(1)");
    recall.Print("recall");
}

/// A step on the disk, and what a start has to read of them.
void JournalSteps()
{
    const TestFolder folder;
    const int steps = FullOrBrief(1000, 10);
    RoomSettings room;
    const FileState file;
    const Slots kept;
    Times times;
    {
        Journal journal(folder.Path("journals"), [](const std::string &) { qFatal("no journal"); });
        for (int step = 1; step <= steps; ++step) {
            Set(room, field::Band(Center, 14), step % 25);
            const Moment before = Now();
            journal.Keep({room, file, kept, std::size_t(step), LocalTime(std::chrono::seconds(step))});
            journal.Flush();
            times.Add(before, Now());
        }
    }
    std::printf("a step in the journal, flushed: median %.3f ms, longest %.3f ms (goal under 1)\n",
                times.At(0.5) / 1000, times.At(1) / 1000);
    const Moment before = Now();
    const auto found = FindJournals(folder.Path("journals"));
    if (found.size() != 1 || found[0].done != std::size_t(steps))
        qFatal("the journal does not tell its steps");
    std::printf("a journal of %d steps read at start: %.2f ms\n", steps,
                std::chrono::duration<double, std::milli>(Now() - before).count());
}

} // namespace

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    QApplication::setStyle("Fusion");
    std::puts("Editing:");
    Console<TimedUnit> console(Tab::OutputTrim, QSize(1920, 1080));
    for (int step = 0; step < Steps; ++step)
        Type(console, step % ChannelCount, step % 4 < 2 ? "1.5" : "-4");
    Undoes(console);
    Recalls(console);
    JournalSteps();
    return 0;
}
