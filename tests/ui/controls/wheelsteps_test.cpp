#include "support/ui/consoleundertest.h"

#include <QComboBox>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QThread>

using namespace kelvo;

namespace {

constexpr int BlockedFor = 60; ///< milliseconds of one send

/// A unit at the end of a slow line, while which the hand goes on turning the wheel.
struct SlowUnit : DeviceLibrary {
    SimulatedUnit unit;
    std::function<void()> meanwhile;

    Status Perform(const Call &call) override
    {
        const bool sends = call.operation == Operation::SetVol || call.operation == Operation::SetSystem;
        if (const auto turn = sends ? std::exchange(meanwhile, {}) : nullptr) {
            turn();
            QThread::msleep(BlockedFor);
        }
        return unit.Do(call);
    }
};

/// The console on that line, and a wheel whose events are stamped as a window system stamps them.
struct SlowConsole : SlowUnit, ConsoleUnderTest {
    SlowConsole() : ConsoleUnderTest(static_cast<DeviceLibrary &>(*static_cast<SlowUnit *>(this)))
    {
        options.AutoUpload = true;
        sinceStart.start();
    }

    static constexpr quint64 Start = 5000; ///< the window system's own clock
    QElapsedTimer sinceStart;

    quint64 Now() const { return Start + quint64(sinceStart.elapsed()); }
    static QWheelEvent *Notch(QWidget *over, int notches, quint64 stamp)
    {
        const QPointF middle = over->rect().center();
        auto *event = new QWheelEvent(middle, over->mapToGlobal(middle), {}, {0, 120 * notches}, Qt::NoButton,
                                      Qt::NoModifier, Qt::NoScrollPhase, false);
        event->setTimestamp(stamp);
        return event;
    }
    /// One that nothing keeps waiting.
    static void TurnNow(QWidget *over, int notches, quint64 stamp)
    {
        const std::unique_ptr<QWheelEvent> event(Notch(over, notches, stamp));
        QApplication::sendEvent(over, event.get());
    }
    /// The hand turns while the next send keeps the thread, one notch every 10 ms.
    void TurnMeanwhile(QWidget *over, std::vector<int> notches)
    {
        meanwhile = [this, over, notches = std::move(notches)] {
            for (quint64 stamp = Now(); const int each : notches)
                QApplication::postEvent(over, Notch(over, each, stamp += 10));
        };
    }
};

} // namespace

class WheelStepsTest : public QObject {
    Q_OBJECT

  private slots:
    void notchesThatWaitAreOneChange()
    {
        SlowConsole console;
        auto *sclVol = console.Find<QSlider>("sclVol");
        sclVol->setFocus();
        console.TurnMeanwhile(sclVol, {1, 1, 1, -1, 1});
        console.TurnNow(sclVol, 1, console.Now());
        QCOMPARE(console.Calls(), Calls{"SetVol 71"});
        QTRY_COMPARE(console.Calls(), (Calls{"SetVol 71", "SetVol 74"}));
        QCOMPARE(console.Find<QLineEdit>("lblVol(3)")->text(), "7.4");
    }

    void whatWaitsForTheSecondSendIsAThirdChange()
    {
        SlowConsole console;
        auto *sclVol = console.Find<QSlider>("sclVol");
        sclVol->setFocus();
        console.TurnMeanwhile(sclVol, {1, 1});
        console.TurnNow(sclVol, 1, console.Now());
        console.TurnMeanwhile(sclVol, {-1, -1, -1});
        QTRY_COMPARE(console.Calls(), (Calls{"SetVol 71", "SetVol 73", "SetVol 70"}));
    }

    void aNotchWithNothingWaitingActsAtOnce()
    {
        SlowConsole console;
        auto *sclVol = console.Find<QSlider>("sclVol");
        sclVol->setFocus();
        console.TurnNow(sclVol, 1, console.Now());
        QCOMPARE(console.Calls(), Calls{"SetVol 71"});
        QThread::msleep(2);
        console.TurnNow(sclVol, 1, console.Now());
        QCOMPARE(console.Calls(), (Calls{"SetVol 71", "SetVol 72"}));
        console.TurnNow(sclVol, 1, 0); // a program's own event bears no time
        QCOMPARE(console.Calls(), (Calls{"SetVol 71", "SetVol 72", "SetVol 73"}));
    }

    void notchesThatWaitForAListAreOneChoice()
    {
        SlowConsole console;
        console.GoTo(Tab::Options);
        auto *list = console.Find<QComboBox>("cboSurroundDelay");
        list->setCurrentIndex(0);
        list->setFocus();
        console.Forget();
        console.TurnMeanwhile(list, {-1, -1, -1});
        console.TurnNow(list, -1, console.Now());
        QCOMPARE(console.Calls(), Calls{"SetSystem"});
        QTRY_COMPARE(console.Calls(), (Calls{"SetSystem", "SetSystem"}));
        QCOMPARE(list->currentIndex(), 4);
        QCOMPARE(console.SlowUnit::unit.system.SurroundDelay, Byte(4));
    }

    void notchesThatWaitAreDroppedWhenTheSliderIsLeft()
    {
        SlowConsole console;
        auto *sclVol = console.Find<QSlider>("sclVol");
        sclVol->setFocus();
        quint64 during = 0;
        console.meanwhile = [&] { during = console.Now() + 10; };
        console.TurnNow(sclVol, 1, console.Now());
        console.TurnNow(sclVol, 1, during);
        QCOMPARE(console.Calls(), Calls{"SetVol 71"});
        console.Find<QWidget>("cmdConnect")->setFocus();
        QApplication::processEvents();
        QCOMPARE(console.Calls(), Calls{"SetVol 71"});
        QCOMPARE(console.room.FaderLevel, Word(71));
    }
};

QTEST_MAIN(WheelStepsTest)
#include "wheelsteps_test.moc"
