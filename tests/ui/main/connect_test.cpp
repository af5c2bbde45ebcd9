#include "support/ui/consoleundertest.h"

#include <QAction>
#include <QImage>
#include <QLabel>
#include <QMenuBar>
#include <QProgressBar>
#include <QPushButton>
#include <QTabWidget>

using namespace kelvo;

class ConnectTest : public QObject {
    Q_OBJECT

  private slots:
    void connectOnLineDoesNothing();
    void connectShowsTheUnitAgain();
    void theProgressCountsAndCancelOnlyHides();
    void nothingElseStartsWhileAnAttemptRuns();
    void aCloseDuringAnAttemptIsCarriedOutAfterIt();
    void aCloseDuringAReportIsCarriedOutAfterIt();
    void theUnitInformationIsHiddenDuringAnAttemptAndAfterAFailedOne();
    void framesAndButtonsFollowTheConnection();
    void theLampIsOrangeBeforeTheThirdTry();
    void aRecoveredCallTurnsTheLampGreenAgain();
    void aPulledCableIsOneMessage();
    void noTimerTouchesTheUnitWhileABoxIsOpen();
    void aPollReflectsTheFrontPanelAndSendsNothing();
    void theReReadComesAtItsPeriodAndSkipsBusyTicks();
    void theReReadWaitsForTheHand();
    void theReReadWaitsForTheStream();
    void theTitleAfterAReReadIsTheUnits();
    void aUnitThatAnswersNothingButNoStreamIsRefused();
    void theSentLineFollowsEveryEdit();
};

namespace {

/// Runs `work` at every turn of the event loop while it lives: inside an attempt's one pump too.
class AtEveryTurn : public QTimer {
  public:
    explicit AtEveryTurn(std::function<void()> work)
    {
        callOnTimeout(std::move(work));
        start(0);
    }
};

void Unplug(ConsoleUnderTest &console)
{
    console.unit.panel.plugged = false;
    console.AnswerNextBox("Connection Error", QMessageBox::Ok);
}

QString Lamp(const ConsoleUnderTest &console)
{
    return console.Find<QLabel>("lblStat")->text();
}

const Calls Poll{"GetFormat", "GetMute", "GetVol"};
const Calls ReRead{"GetAudio", "GetSystem", "GetMute", "GetVol", "GetFormat"};

} // namespace

void ConnectTest::connectOnLineDoesNothing()
{
    ConsoleUnderTest console;
    console.Click("cmdConnect");
    QCOMPARE(console.Calls(), Calls());
    QVERIFY(console.Find<QPushButton>("cmdConnect")->isEnabled());
}

void ConnectTest::connectShowsTheUnitAgain()
{
    ConsoleUnderTest console(OffLine, Tab::Options);
    console.unit.panel.plugged = true;
    console.unit.panel.level = 31;
    console.unit.system.F1KeyMode = 3;
    console.Click("cmdConnect");
    QCOMPARE(Lamp(console), "On Line");
    QVERIFY(console.Find<QWidget>("frmtabs(5)")->isEnabled());
    QVERIFY(!console.Find<QWidget>("frmtabs(0)")->isEnabled());
    QCOMPARE(console.Find<QLineEdit>("lblVol(3)")->text(), "3.1");
    QCOMPARE(console.Find<QPushButton>("cmdMode(0)")->text(), "Internal SR");
    QCOMPARE(console.window->windowTitle(), "Kelvo Cinema Processor and EQ Software   <CP Settings>");
    auto *tmrPoll = console.Find<QTimer>("tmrPoll");
    QVERIFY(tmrPoll->isActive());
    QCOMPARE(tmrPoll->interval(), 2000);
    QVERIFY(!console.Find<QLabel>("lblHint(5)")->isVisible());
}

void ConnectTest::theProgressCountsAndCancelOnlyHides()
{
    ConsoleUnderTest console(OffLine);
    console.AnswerNextBox("Connection Error", QMessageBox::Ok, "Unable to connect to unit!");
    QList<int> counts;
    bool hidden = false;
    AtEveryTurn watch([&] {
        auto *frmProg = console.window->findChild<QDialog *>("frmProg");
        if (!frmProg || console.OpenBox())
            return;
        auto *pb = frmProg->findChild<QProgressBar *>("pb");
        QCOMPARE(pb->minimum(), 0);
        QCOMPARE(pb->maximum(), 10);
        if (counts.isEmpty() || counts.last() != pb->value())
            counts += pb->value();
        QCOMPARE(frmProg->findChild<QLabel *>("lblCap")->text(), "Connecting to Cinema Processor.");
        QCOMPARE(frmProg->isVisible(), !hidden);
        if (pb->value() == 2) {
            QTest::mouseClick(frmProg->findChild<QPushButton *>("cmdCan"), Qt::LeftButton);
            hidden = true;
        }
    });
    console.Click("cmdConnect");
    counts.removeOne(0); // while the dialog comes up
    QCOMPARE(counts, (QList<int>{1, 2, 3, 4, 5, 6}));
    QCOMPARE(console.Calls(), (Calls{"InitDLL 1", "InitDLL 1", "InitDLL 1", "InitDLL 1", "InitDLL 1",
                                     "InitDLL 1", "DLLShutdown"}));
    QVERIFY(!console.window->findChild<QDialog *>("frmProg"));
}

void ConnectTest::nothingElseStartsWhileAnAttemptRuns()
{
    ConsoleUnderTest console(OffLine, Tab::OutputTrim);
    console.unit.panel.plugged = true;
    console.unit.FailNext(Operation::InitDLL, 1, 2);
    int turns = 0;
    AtEveryTurn watch([&] {
        if (!console.window->findChild<QDialog *>("frmProg"))
            return;
        ++turns;
        QVERIFY(!console.Find<QPushButton>("cmdConnect")->isEnabled());
        QVERIFY(!console.Action("mnuFile")->isEnabled());
        QVERIFY(!console.Action("mnuOpt")->isEnabled());
        console.Click("cmdConnect");
        console.Key(Qt::Key_F1);
        console.Key(Qt::Key_F2);
        console.Trigger("mnuNew");
        console.Trigger("mnuBaud3");
        console.Trigger("mnuAuto");
        console.TickIfActive("tmrPoll");
        console.Tick("tmrRefresh");
        console.GoTo(Tab::Obe);
    });
    console.Click("cmdConnect");
    QVERIFY(turns >= 2); // one after each failure, and those in which the dialog comes up
    QCOMPARE(console.Calls(), (Calls{"InitDLL 1", "InitDLL 1", "InitDLL 1", "GetUnitVersion", "GetAudio",
                                     "GetSystem", "GetMute", "GetVol", "GetFormat", "StopStream"}));
    QVERIFY(console.Action("mnuBaud1")->isChecked());
    QVERIFY(!console.Action("mnuAuto")->isChecked());
    QCOMPARE(console.Find<QTabWidget>("SSTAB1")->currentIndex(), 1);
    QVERIFY(console.Find<QPushButton>("cmdConnect")->isEnabled());
    QVERIFY(console.Action("mnuFile")->isEnabled());
}

void ConnectTest::aCloseDuringAnAttemptIsCarriedOutAfterIt()
{
    ConsoleUnderTest console(OffLine);
    console.unit.panel.plugged = true;
    console.unit.FailNext(Operation::InitDLL, 1, 1);
    AtEveryTurn watch([&] {
        if (console.window->findChild<QDialog *>("frmProg"))
            QVERIFY(!console.window->close());
    });
    console.AnswerNextBox("Revert?", QMessageBox::No);
    console.Click("cmdConnect");
    QVERIFY(console.window->isVisible());
    QTRY_VERIFY(!console.window->isVisible());
    QCOMPARE(console.Calls().back(), "DLLShutdown");
}

void ConnectTest::aCloseDuringAReportIsCarriedOutAfterIt()
{
    ConsoleUnderTest console;
    console.unit.panel.plugged = false;
    console.AnswerNextBox("Connection Error", QMessageBox::Ok, {},
                          [&] { QVERIFY(!console.window->close()); });
    console.Tick("tmrPoll");
    QVERIFY(console.window->isVisible());
    QTRY_VERIFY(!console.window->isVisible());
    QVERIFY(console.AllBoxesSeen());
}

void ConnectTest::theUnitInformationIsHiddenDuringAnAttemptAndAfterAFailedOne()
{
    ConsoleUnderTest console;
    auto *information = console.Find<QWidget>("Frame1(21)");
    QVERIFY(information->isVisible());
    Unplug(console);
    console.Tick("tmrPoll");
    QVERIFY(information->isVisible());
    console.AnswerNextBox("Connection Error", QMessageBox::Ok, "Unable to connect to unit!");
    console.Click("cmdConnect");
    QVERIFY(!information->isVisible());
}

void ConnectTest::framesAndButtonsFollowTheConnection()
{
    ConsoleUnderTest console;
    const auto wrong = [&console](bool enabled) {
        QStringList names;
        for (const char *name : {"cmdUp(0)", "cmdUp(1)", "cmdUp(2)", "cmdUp(3)", "cmdUp(4)", "Frame1(1)",
                                 "Frame1(3)", "Frame1(5)", "Frame8(0)", "Frame8(1)", "cmdMute4"}) {
            // By itself, whatever the tab around it is.
            const auto *control = console.Find<QWidget>(name);
            if (control->isEnabledTo(control->parentWidget()) != enabled)
                names += name;
        }
        return names;
    };
    QCOMPARE(wrong(true), QStringList());
    Unplug(console);
    console.Tick("tmrPoll");
    QCOMPARE(wrong(false), QStringList());
    console.unit.panel.plugged = true;
    console.Click("cmdConnect");
    QCOMPARE(wrong(true), QStringList());
}

void ConnectTest::theLampIsOrangeBeforeTheThirdTry()
{
    ConsoleUnderTest console;
    QStringList lamps;
    console.clock.duringPause = [&] {
        lamps += Lamp(console);
        if (lamps.size() == 2) {
            const QImage lamp = console.Find<QLabel>("lblStat")->grab().toImage();
            QCOMPARE(lamp.pixelColor(2, 2), QColor(255, 128, 0));
        }
    };
    Unplug(console);
    console.Tick("tmrPoll");
    QCOMPARE(lamps, (QStringList{"On Line", "Data?", "Data?", "Data?", "Data?", "Data?"}));
    QCOMPARE(Lamp(console), "Off Line");
    QCOMPARE(console.clock.paused.count(), 1800);
}

void ConnectTest::aRecoveredCallTurnsTheLampGreenAgain()
{
    ConsoleUnderTest console;
    console.unit.FailNext(Operation::GetVol, 4, 3);
    console.Tick("tmrPoll");
    QCOMPARE(Lamp(console), "On Line");
    QVERIFY(console.Find<QWidget>("frmtabs(0)")->isEnabled());
}

void ConnectTest::aPulledCableIsOneMessage()
{
    ConsoleUnderTest console(OnLine, Tab::OutputTrim);
    console.unit.panel.plugged = false;
    console.AnswerNextBox("Connection Error", QMessageBox::Ok,
                          "The following Errors were encountered:\n\n- Serial Port Error\n"
                          "- Error Receiving\n\n\nCannot Continue On Line!\n");
    console.Tick("tmrPoll");
    console.Forget();
    console.Tick("tmrPoll");
    console.Tick("tmrRefresh");
    console.Key(Qt::Key_F2);
    console.GoTo(Tab::Obe);
    QCOMPARE(console.Calls(), Calls());
    QCOMPARE(Lamp(console), "Off Line");
    for (const char *frame : {"frmtabs(1)", "frmtabs(3)", "Frame1(5)", "Frame1(3)"})
        QVERIFY(!console.Find<QWidget>(frame)->isEnabled());
    // The cable is back: one press and everything works again.
    console.unit.panel.plugged = true;
    console.Key(Qt::Key_F1);
    QCOMPARE(Lamp(console), "On Line");
    QVERIFY(console.Find<QWidget>("frmtabs(3)")->isEnabled());
    QVERIFY(console.Find<QWidget>("Frame1(5)")->isEnabled());
}

void ConnectTest::noTimerTouchesTheUnitWhileABoxIsOpen()
{
    ConsoleUnderTest console;
    console.options.AutoRefresh = true;
    console.options.RefreshSeconds = 1;
    console.file.SettingsChanged = true;
    console.AnswerNextBox("Save?", QMessageBox::No, {}, [&] {
        console.Tick("tmrPoll");
        console.Tick("tmrRefresh");
    });
    console.Trigger("mnuNew");
    QCOMPARE(console.Calls(), Calls());
    // A failing poll's own report keeps the next ticks away as well.
    console.unit.panel.plugged = false;
    console.AnswerNextBox("Connection Error", QMessageBox::Ok, {}, [&] {
        const std::size_t before = console.Calls().size();
        console.Tick("tmrPoll");
        console.Tick("tmrRefresh");
        QCOMPARE(console.Calls().size(), before);
    });
    console.Tick("tmrPoll");
    QVERIFY(console.AllBoxesSeen());
}

void ConnectTest::aPollReflectsTheFrontPanelAndSendsNothing()
{
    ConsoleUnderTest console;
    console.unit.panel.level = 12;
    console.unit.panel.mute = 1;
    console.unit.panel.format = 1;
    console.Tick("tmrPoll");
    QCOMPARE(console.Calls(), Poll);
    QCOMPARE(console.Find<QLineEdit>("lblVol(0)")->text(), "1.2");
    QCOMPARE(console.Find<QSlider>("sclVol")->value(), 87);
    QCOMPARE(console.Find<QPushButton>("cmdMute5")->text(), "Un-Mute");
    QVERIFY(console.Find<QPushButton>("cmdMode(1)")->font().bold());
}

void ConnectTest::theReReadComesAtItsPeriodAndSkipsBusyTicks()
{
    ConsoleUnderTest console;
    console.options.RefreshSeconds = 3;
    console.Tick("tmrRefresh");
    QCOMPARE(console.Calls(), Calls());
    console.options.AutoRefresh = true;
    console.Tick("tmrRefresh");
    console.Tick("tmrRefresh");
    QCOMPARE(console.Calls(), Calls());
    console.file.SettingsChanged = true;
    console.AnswerNextBox("Save?", QMessageBox::No, {}, [&] { console.Tick("tmrRefresh"); });
    console.Trigger("mnuNew");
    QCOMPARE(console.Calls(), Calls());
    console.Tick("tmrRefresh");
    QCOMPARE(console.Calls(), ReRead);
}

void ConnectTest::theReReadWaitsForTheHand()
{
    ConsoleUnderTest console(OnLine, Tab::OutputTrim);
    console.options.AutoRefresh = true;
    console.options.RefreshSeconds = 1;
    console.Find<QSlider>("sclPNG(0)")->setFocus();
    console.Press(Qt::Key_Up);
    console.Tick("tmrRefresh");
    QCOMPARE(console.Calls(), Calls());
    console.Release(Qt::Key_Up);
    console.Tick("tmrRefresh");
    QCOMPARE(console.Calls(), ReRead);
}

void ConnectTest::theReReadWaitsForTheStream()
{
    ConsoleUnderTest console(OnLine, Tab::OpticalSetup);
    console.options.AutoRefresh = true;
    console.options.RefreshSeconds = 1;
    console.Click("cmdStart");
    console.Find<QTimer>("tmrOptical")->stop();
    console.Forget();
    console.Tick("tmrRefresh");
    QCOMPARE(console.Calls(), Calls());
    console.Click("cmdStart"); // stop
    console.Forget();
    console.Tick("tmrRefresh");
    QCOMPARE(console.Calls(), ReRead);
}

void ConnectTest::theTitleAfterAReReadIsTheUnits()
{
    ConsoleUnderTest console;
    console.Trigger("mnuNew");
    console.Forget();
    console.Trigger("mnuRef");
    QCOMPARE(console.Calls(), ReRead);
    QCOMPARE(console.window->windowTitle(), "Kelvo Cinema Processor and EQ Software   <CP Settings>");
}

void ConnectTest::aUnitThatAnswersNothingButNoStreamIsRefused()
{
    ConsoleUnderTest console(OffLine);
    console.unit.panel.plugged = true;
    console.unit.FailNext(Operation::GetUnitVersion, StreamNotLocked, 6);
    console.AnswerNextBox("Connection Error", QMessageBox::Ok, "Unable to connect to unit!");
    console.Click("cmdConnect");
    QCOMPARE(Lamp(console), "Off Line");
    QCOMPARE(console.Calls().back(), "DLLShutdown");
}

void ConnectTest::theSentLineFollowsEveryEdit()
{
    ConsoleUnderTest console(OnLine, Tab::OutputTrim);
    auto *lblSent = console.Find<QLabel>("lblSent");
    QCOMPARE(lblSent->text(), "All sent");
    console.Type("lblPNG(0)", "1");
    QCOMPARE(lblSent->text(), "1 change not in the unit - F2");
    console.Type("lblPNG(1)", "2");
    QCOMPARE(lblSent->text(), "2 changes not in the unit - F2");
    console.GoTo(Tab::Eq);
    console.Type("lblBand(0)", "3");
    QCOMPARE(lblSent->text(), "3 changes not in the unit - F2");
    console.GoTo(Tab::Obe);
    console.Type("lblOBE", "3");
    QCOMPARE(lblSent->text(), "4 changes not in the unit - F2");
    console.GoTo(Tab::Options);
    console.Click("optF1Key(0)");
    QCOMPARE(lblSent->text(), "5 changes not in the unit - F2");
    console.Key(Qt::Key_F2);
    QCOMPARE(lblSent->text(), "All sent");
}

QTEST_MAIN(ConnectTest)
#include "connect_test.moc"
