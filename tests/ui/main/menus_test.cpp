#include "support/ui/consoleundertest.h"

#include <QAction>
#include <QCloseEvent>
#include <QLabel>
#include <QMenu>
#include <QPushButton>

using namespace kelvo;

class MenusTest : public QObject {
    Q_OBJECT

  private slots:
    void theMenusStandAsGiven();
    void aComPortIsForTheNextConnection();
    void aBaudRateIsSentAtOnce();
    void aFailingBaudRateMovesItsMarkOnlyAfterwards();
    void automaticUploadsDisableTheTwoOthers();
    void confirmAndShortcutsToggleTheirOwnMarks();
    void aSecondClickOnAChosenItemKeepsItsMark();
    void automaticUpdateDisablesTheWindowAndTurnsUploadsOn();
    void automaticUpdateUncheckedLeavesUploadsAlone();
    void closingAutomaticUpdateGivesTheFocusBack();
    void closingAutomaticUpdateTakesItsValues();
    void aPollThatFailsUnderAutomaticUpdateIsTold();
    void theClockOfTheDialogIsStampedAndSent();
    void aCancelledClockDialogKeepsTheSystemsTime();
    void theSystemsTimeComesBack();
    void theTheatreDialogIsOpenedFromMenuAndTab();
    void theClockShowsThePcsTime();
};

namespace {

QStringList Captions(const QMenu *menu)
{
    QStringList captions;
    for (const QAction *action : menu->actions())
        captions += action->isSeparator() ? "-" : action->objectName() + " " + action->text();
    return captions;
}

bool Checked(const ConsoleUnderTest &console, const char *action)
{
    return console.Action(action)->isChecked();
}

} // namespace

void MenusTest::theMenusStandAsGiven()
{
    ConsoleUnderTest console;
    QCOMPARE(console.Find<QMenu>("mnuFile")->title(), "&File");
    QCOMPARE(Captions(console.Find<QMenu>("mnuFile")),
             (QStringList{"mnuNew New", "mnuLoad Open", "-", "mnuSave Save", "mnuSaveAs Save As ...", "-",
                          "mnuRef Update", "-", "mnuend E&xit"}));
    QCOMPARE(console.Find<QMenu>("mnuOpt")->title(), "&Options");
    QCOMPARE(Captions(console.Find<QMenu>("mnuOpt")),
             (QStringList{"mnuCom COM Port Selection", "mnuBaud Baud Rate", "mnuUopt Upload Options",
                          "mnuAutoRef Automatic Update", "mnuSys Use System Date/Time", "-",
                          "mnuSet Set Theater Information"}));
    QCOMPARE(Captions(console.Find<QMenu>("mnuCom")),
             (QStringList{"mnuCom1 COM 1", "mnuCom2 COM 2", "mnuCom3 COM 3", "mnuCom4 COM 4"}));
    QCOMPARE(Captions(console.Find<QMenu>("mnuBaud")),
             (QStringList{"mnuBaud1 9600", "mnuBaud2 19200", "mnuBaud3 38400", "mnuBaud4 57600"}));
    QCOMPARE(Captions(console.Find<QMenu>("mnuUopt")),
             (QStringList{"mnuAuto Automatically Upload", "mnuConfirm Confirm Message Box",
                          "mnuShort Enable Shortcuts"}));
}

void MenusTest::aComPortIsForTheNextConnection()
{
    ConsoleUnderTest console;
    console.Trigger("mnuCom4");
    QCOMPARE(console.Calls(), Calls());
    QCOMPARE(console.options.ComPort, Word(4));
    for (const char *other : {"mnuCom1", "mnuCom2", "mnuCom3"})
        QVERIFY(!Checked(console, other));
    QVERIFY(Checked(console, "mnuCom4"));
    console.unit.panel.plugged = false;
    console.AnswerNextBox("Connection Error", QMessageBox::Ok);
    console.Tick("tmrPoll");
    console.unit.panel.plugged = true;
    console.Forget();
    console.Click("cmdConnect");
    QCOMPARE(console.Calls().front(), "InitDLL 4");
}

void MenusTest::aBaudRateIsSentAtOnce()
{
    ConsoleUnderTest console;
    console.Trigger("mnuBaud3");
    QCOMPARE(console.Calls(), Calls{"SetDLLBaud 2"});
    QVERIFY(Checked(console, "mnuBaud3"));
    QVERIFY(!Checked(console, "mnuBaud1"));
}

void MenusTest::aFailingBaudRateMovesItsMarkOnlyAfterwards()
{
    ConsoleUnderTest console;
    console.unit.FailNext(Operation::SetDLLBaud, 2, 6);
    console.AnswerNextBox("Connection Error", QMessageBox::Ok, {}, [&] {
        QVERIFY(Checked(console, "mnuBaud1"));
        QVERIFY(!Checked(console, "mnuBaud2"));
    });
    console.Trigger("mnuBaud2");
    QVERIFY(Checked(console, "mnuBaud2"));
    QVERIFY(!Checked(console, "mnuBaud1"));
}

void MenusTest::automaticUploadsDisableTheTwoOthers()
{
    ConsoleUnderTest console;
    console.options.ConfirmUpload = true;
    console.Trigger("mnuAuto");
    QVERIFY(Checked(console, "mnuAuto"));
    QVERIFY(Checked(console, "mnuConfirm"));
    QVERIFY(!console.Action("mnuConfirm")->isEnabled());
    QVERIFY(!console.Action("mnuShort")->isEnabled());
    console.Trigger("mnuAuto");
    QVERIFY(!Checked(console, "mnuAuto"));
    QVERIFY(Checked(console, "mnuConfirm"));
    QVERIFY(console.Action("mnuConfirm")->isEnabled());
    QVERIFY(console.Action("mnuShort")->isEnabled());
}

void MenusTest::confirmAndShortcutsToggleTheirOwnMarks()
{
    ConsoleUnderTest console;
    console.Trigger("mnuAuto");
    console.Trigger("mnuAuto");
    console.Trigger("mnuConfirm");
    QVERIFY(Checked(console, "mnuConfirm"));
    QVERIFY(!Checked(console, "mnuShort"));
    console.Trigger("mnuShort");
    console.Trigger("mnuConfirm");
    QVERIFY(!Checked(console, "mnuConfirm"));
    QVERIFY(Checked(console, "mnuShort"));
}

void MenusTest::aSecondClickOnAChosenItemKeepsItsMark()
{
    ConsoleUnderTest console;
    console.Trigger("mnuCom1");
    QVERIFY(Checked(console, "mnuCom1"));
    console.Trigger("mnuBaud1");
    QVERIFY(Checked(console, "mnuBaud1"));
}

void MenusTest::automaticUpdateDisablesTheWindowAndTurnsUploadsOn()
{
    ConsoleUnderTest console;
    console.options.AutoRefresh = true;
    console.options.RefreshSeconds = 30;
    console.Trigger("mnuAutoRef");
    QVERIFY(!console.window->isEnabled());
    QVERIFY(console.window->isVisible());
    auto *frmRef = console.Find<QDialog>("frmRef");
    QVERIFY(frmRef->isVisible());
    QVERIFY(frmRef->isEnabled());
    QVERIFY(!frmRef->isModal());
    QCOMPARE(frmRef->windowTitle(), "Automatic Update");
    QCOMPARE(frmRef->findChild<QLineEdit *>("txtRef")->text(), "30");
    // At once, without waiting for the dialog.
    QVERIFY(Checked(console, "mnuAuto"));
    QVERIFY(!console.Action("mnuConfirm")->isEnabled());
    QVERIFY(Checked(console, "mnuAutoRef"));
    QCloseEvent refused;
    QApplication::sendEvent(console.window.get(), &refused);
    QVERIFY(!refused.isAccepted());
    QTest::mouseClick(frmRef->findChild<QPushButton *>("Command1"), Qt::LeftButton);
    QVERIFY(!frmRef->isVisible());
    QVERIFY(console.window->isEnabled());
}

void MenusTest::automaticUpdateUncheckedLeavesUploadsAlone()
{
    ConsoleUnderTest console;
    console.Trigger("mnuAutoRef");
    QVERIFY(!Checked(console, "mnuAuto"));
    QVERIFY(!Checked(console, "mnuAutoRef"));
    console.Find<QDialog>("frmRef")->close();
}

void MenusTest::closingAutomaticUpdateGivesTheFocusBack()
{
    ConsoleUnderTest console(OnLine, Tab::Eq);
    console.options.AutoUpload = true;
    auto *sclBass = console.Find<QSlider>("sclBass");
    sclBass->setFocus();
    console.Key(Qt::Key_Up);
    QCOMPARE(console.Calls(), Calls{"SetAudio"});
    console.Trigger("mnuAutoRef");
    QTest::mouseClick(console.Find<QPushButton>("Command1"), Qt::LeftButton);
    QCOMPARE(QApplication::activeWindow(), console.window.get());
    QCOMPARE(QApplication::focusWidget(), sclBass);
    // It was never left: the position at which it was come to still counts.
    console.Forget();
    console.Key(Qt::Key_Down);
    QCOMPARE(console.Calls(), Calls());
}

void MenusTest::closingAutomaticUpdateTakesItsValues()
{
    ConsoleUnderTest console;
    console.Trigger("mnuAutoRef");
    auto *frmRef = console.Find<QDialog>("frmRef");
    frmRef->findChild<QAbstractButton *>("chkRef")->click();
    frmRef->findChild<QLineEdit *>("txtRef")->setText("45");
    frmRef->close();
    QVERIFY(console.window->isEnabled());
    QVERIFY(Checked(console, "mnuAutoRef"));
    QCOMPARE(console.options.RefreshSeconds, Word(45));
}

void MenusTest::aPollThatFailsUnderAutomaticUpdateIsTold()
{
    ConsoleUnderTest console;
    console.Trigger("mnuAutoRef");
    console.unit.panel.plugged = false;
    console.AnswerNextBox("Connection Error", QMessageBox::Ok, {},
                          [&] { QVERIFY(console.OpenBox()->isEnabled()); });
    console.Tick("tmrPoll");
    QCOMPARE(console.Find<QLabel>("lblStat")->text(), "Off Line");
    console.Find<QDialog>("frmRef")->close();
    QVERIFY(console.window->isEnabled());
}

void MenusTest::theClockOfTheDialogIsStampedAndSent()
{
    ConsoleUnderTest console;
    console.clock.Set(2024, 3, 14, 15, 0);
    console.WithNextDialog([&](QDialog *dialog) {
        QCOMPARE(dialog->objectName(), "frmTime");
        dialog->findChild<QLineEdit *>("txtHour")->setText("9");
        dialog->findChild<QLineEdit *>("txtMin")->setText("30");
        dialog->findChild<QLineEdit *>("txtSec")->setText("0");
        QTest::mouseClick(dialog->findChild<QPushButton *>("cmdOK"), Qt::LeftButton);
    });
    console.Trigger("mnuSys");
    QVERIFY(!Checked(console, "mnuSys"));
    QCOMPARE(console.Calls(), Calls{"SetAudio"});
    // 14 March 2024 at 9:30 in the evening: the dialog's hour on its dial, the month one up, Thursday 6, PM
    // as chosen, though the PC's time text has no "PM".
    QCOMPARE(int(console.unit.audio.UnitClock[0]), 4 * 16 + 9);
    QCOMPARE(int(console.unit.audio.UnitClock[1]), 6 * 32 + 14);
    QCOMPARE(int(console.unit.audio.UnitClock[2]), 64 + 30);
    QCOMPARE(int(console.unit.audio.UnitClock[3]), 24);
}

void MenusTest::aCancelledClockDialogKeepsTheSystemsTime()
{
    ConsoleUnderTest console;
    console.WithNextDialog([](QDialog *dialog) {
        QTest::mouseClick(dialog->findChild<QPushButton *>("cmdCan"), Qt::LeftButton);
    });
    console.Trigger("mnuSys");
    QVERIFY(Checked(console, "mnuSys"));
    QCOMPARE(console.Calls(), Calls());
}

void MenusTest::theSystemsTimeComesBack()
{
    ConsoleUnderTest console;
    console.clock.Set(2024, 3, 14, 15, 0);
    console.WithNextDialog([](QDialog *dialog) {
        dialog->findChild<QLineEdit *>("txtMin")->setText("44");
        QTest::mouseClick(dialog->findChild<QPushButton *>("cmdOK"), Qt::LeftButton);
    });
    console.Trigger("mnuSys");
    QCOMPARE(int(console.unit.audio.UnitClock[2]), 64 + 44);
    console.Forget();
    console.Trigger("mnuSys");
    QVERIFY(Checked(console, "mnuSys"));
    QCOMPARE(console.Calls(), Calls());
    console.Key(Qt::Key_F2);
    QCOMPARE(int(console.unit.audio.UnitClock[2]), 0);
}

void MenusTest::theTheatreDialogIsOpenedFromMenuAndTab()
{
    ConsoleUnderTest console(OnLine, Tab::TheaterInformation);
    const auto edit = [&](const char *text) {
        console.WithNextDialog([text](QDialog *dialog) {
            QCOMPARE(dialog->objectName(), "frmTheater");
            dialog->findChild<QLineEdit *>("txtTheaterInfo(1)")->setText(text);
            QTest::mouseClick(dialog->findChild<QPushButton *>("cmdOK"), Qt::LeftButton);
        });
    };
    auto *name = console.Find<QWidget>("frmtabs(6)")->findChild<QLineEdit *>("txtTheaterInfo(1)");
    edit("Rex");
    console.Trigger("mnuSet");
    QCOMPARE(name->text(), "Rex");
    edit("Odeon");
    console.Click("cmdEdit");
    QCOMPARE(name->text(), "Odeon");
    QVERIFY(console.file.SettingsChanged);
    QCOMPARE(console.Calls(), Calls());
}

void MenusTest::theClockShowsThePcsTime()
{
    ConsoleUnderTest console;
    console.clock.Set(2024, 3, 14, 21, 45);
    auto *tmrClock = console.Find<QTimer>("tmrClock");
    QCOMPARE(tmrClock->interval(), 1000);
    console.Tick("tmrClock");
    QCOMPARE(console.Find<QLabel>("lblClock")->text(), "21:45");
}

QTEST_MAIN(MenusTest)
#include "menus_test.moc"
