#include "support/ui/consoleundertest.h"

#include <QElapsedTimer>
#include <QLabel>
#include <QScreen>
#include <QWindow>

using namespace kelvo;

namespace {

QDialog *Progress(const ConsoleUnderTest &console)
{
    return console.window->findChild<QDialog *>("frmProg");
}

QImage OnScreen(const QWidget &widget)
{
    return widget.screen()->grabWindow(widget.winId()).toImage().convertToFormat(QImage::Format_RGB32);
}

} // namespace

class FrmProgTest : public QObject {
    Q_OBJECT

  private slots:
    void itIsOnTheScreenBeforeTheFirstCallBlocks()
    {
        ConsoleUnderTest console(OffLine);
        console.unit.panel.plugged = true;
        console.unit.FailNext(Operation::InitDLL, 1, 1);
        bool seen = false;
        console.clock.duringPause = [&] {
            QDialog *frmProg = Progress(console);
            QVERIFY(frmProg && frmProg->windowHandle()->isExposed());
            QCOMPARE(frmProg->findChild<QLabel *>("lblCap")->text(), "Connecting to Cinema Processor.");
            QCOMPARE(OnScreen(*frmProg), frmProg->grab().toImage().convertToFormat(QImage::Format_RGB32));
            seen = true;
        };
        console.Click("cmdConnect");
        QVERIFY(seen);
        QCOMPARE(console.Find<QLabel>("lblStat")->text(), "On Line");
    }

    void aCloseThatComesMeanwhileIsCarriedOutAfterTheAttempt()
    {
        ConsoleUnderTest console(OffLine);
        console.unit.panel.plugged = true;
        bool came = false;
        QTimer::singleShot(0, console.window.get(), [&] {
            came = Progress(console);
            QCOMPARE(console.Calls(), Calls());
            QVERIFY(!console.window->close());
        });
        console.AnswerNextBox("Revert?", QMessageBox::No);
        console.Click("cmdConnect");
        QVERIFY(came);
        QVERIFY(console.window->isVisible());
        QCOMPARE(console.Find<QLabel>("lblStat")->text(), "On Line");
        QTRY_VERIFY(!console.window->isVisible());
        QCOMPARE(console.Calls().back(), "DLLShutdown");
    }

    void noTimerTouchesTheUnitMeanwhile()
    {
        ConsoleUnderTest console(OffLine);
        console.unit.panel.plugged = true;
        console.options.AutoRefresh = true;
        console.options.RefreshSeconds = 1;
        bool came = false;
        QTimer::singleShot(0, console.window.get(), [&] {
            came = Progress(console);
            for (const char *timer : {"tmrPoll", "tmrRefresh", "tmrOptical", "tmrClock", "Timer2"})
                console.TickIfActive(timer);
            QCOMPARE(console.Calls(), Calls());
        });
        console.Click("cmdConnect");
        QVERIFY(came);
        QCOMPARE(console.Calls(), (Calls{"InitDLL 1", "GetUnitVersion", "GetAudio", "GetSystem", "GetMute",
                                         "GetVol", "GetFormat", "StopStream"}));
    }

    void whereItCanNotBeShownTheCallWaitsATenthOfASecondAtMost()
    {
        FrmProg frmProg(nullptr);
        frmProg.setAttribute(Qt::WA_DontShowOnScreen);
        QElapsedTimer waited;
        waited.start();
        frmProg.ShowNow();
        QVERIFY(waited.elapsed() >= 90);
        QVERIFY(waited.elapsed() < 5000); // whatever else the machine does
    }
};

QTEST_MAIN(FrmProgTest)
#include "frmprog_test.moc"
