#include "support/ui/consoleundertest.h"

#include "files/configfile.h"
#include "files/preferencesfile.h"

#include <QAction>
#include <QCloseEvent>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

using namespace kelvo;

class ExitTest : public QObject {
    Q_OBJECT

  private slots:
    void aQuietExitAsksToRevertAndEndsTheConnection();
    void offLineNothingIsAskedAndNothingSent();
    void cancelKeepsTheProgramRunningAndWritesNothing();
    void yesSavesTheOpenFile();
    void yesWithoutAFileGoesThroughSaveAs();
    void aSaveThatIsCancelledCallsTheExitOff();
    void aSaveThatFailsCallsTheExitOff();
    void aBadValueCallsTheExitOff();
    void revertLoadsTheSnapshotAndSendsBothRecords();
    void revertAsksNoSaveAgain();
    void withoutASnapshotNothingIsReverted();
    void theFirstLaterConnectionTakesTheSnapshot();
    void thePreferencesAreWritten();
    void preferencesThatCannotBeWrittenAreReported();
    void whatTheConsoleLeftRunningIsSwitchedOff();
    void aRunningStreamIsStoppedAsItsButtonWould();
    void aLinkLostOnTheWayOutIsToldOnce();
    void aSecondCloseDuringAQuestionIsIgnored();
    void aSecondConsoleLeavesTheFirstOnesFilesAlone();
    void exitIsTheMenusLastItem();
    void theEndOfASessionAsksWhenItMay();
    void theEndOfASessionAsksForUnsavedWorkAlone();
    void theEndOfASessionThatMayNotAskJustCloses();
    void theEndOfASessionThatMayNotAskShowsNoLostLink();
    void aFaderInTheHandSendsNothingAfterTheFarewell();
    void aSessionThatEndsDuringAQuestionLeavesUnitAndFilesInOrder();
    void everyWindowGoes();
    void theProgramEndsWithItsWindow();
    void aWindowThatIsTakenAwayMayHoldWhatWasNotTaken_data();
    void aWindowThatIsTakenAwayMayHoldWhatWasNotTaken();
};

namespace {

const Calls End{"StopStream", "SetDLLBaud 0", "DLLShutdown"};

void AnswerRevert(ConsoleUnderTest &console, QMessageBox::StandardButton answer)
{
    console.AnswerNextBox("Revert?", answer, "Do you want to revert back to original settings?",
                          [&console] { QCOMPARE(console.OpenBox()->icon(), QMessageBox::Question); });
}

void AnswerSave(ConsoleUnderTest &console, QMessageBox::StandardButton answer)
{
    console.AnswerNextBox("Save?", answer, "Do you want to save changes before you exit?",
                          [&console] { QCOMPARE(console.OpenBox()->icon(), QMessageBox::Question); });
}

} // namespace

void ExitTest::aQuietExitAsksToRevertAndEndsTheConnection()
{
    ConsoleUnderTest console;
    AnswerRevert(console, QMessageBox::No);
    QVERIFY(console.window->close());
    QCOMPARE(console.Calls(), End);
    QVERIFY(!QFile::exists(console.File("temp.qm4")));
    QVERIFY(QFile::exists(console.File("settings.dat")));
    console.Forget();
    console.TickIfActive("tmrPoll");
    console.TickIfActive("tmrRefresh");
    QCOMPARE(console.Calls(), Calls());
}

void ExitTest::offLineNothingIsAskedAndNothingSent()
{
    ConsoleUnderTest console(OffLine);
    QVERIFY(console.window->close());
    QCOMPARE(console.Calls(), Calls());
    QVERIFY(QFile::exists(console.File("settings.dat")));
}

void ExitTest::cancelKeepsTheProgramRunningAndWritesNothing()
{
    ConsoleUnderTest console;
    console.file.SettingsChanged = true;
    AnswerSave(console, QMessageBox::Cancel);
    QVERIFY(!console.window->close());
    QVERIFY(console.window->isVisible());
    QCOMPARE(console.Calls(), Calls());
    QVERIFY(QFile::exists(console.File("temp.qm4")));
    QVERIFY(!QFile::exists(console.File("settings.dat")));
    QVERIFY(console.Find<QTimer>("tmrPoll")->isActive());
    console.Tick("tmrPoll");
    QCOMPARE(console.Calls(), (Calls{"GetFormat", "GetMute", "GetVol"}));
}

void ExitTest::yesSavesTheOpenFile()
{
    ConsoleUnderTest console;
    console.file.CurrentFileName = console.File("open.zcf").toStdString();
    console.file.UnitRead = false; // opened after the connection
    console.file.SettingsChanged = true;
    AnswerSave(console, QMessageBox::Yes);
    AnswerRevert(console, QMessageBox::No);
    QVERIFY(console.window->close());
    QVERIFY(QFile::exists(console.File("open.zcf")));
}

void ExitTest::yesWithoutAFileGoesThroughSaveAs()
{
    ConsoleUnderTest console;
    console.file.SettingsChanged = true;
    AnswerSave(console, QMessageBox::Yes);
    console.ChooseNextFile(console.File("chosen.zcf"));
    AnswerRevert(console, QMessageBox::No);
    QVERIFY(console.window->close());
    QVERIFY(QFile::exists(console.File("chosen.zcf")));
}

void ExitTest::aSaveThatIsCancelledCallsTheExitOff()
{
    ConsoleUnderTest console;
    console.file.SettingsChanged = true;
    AnswerSave(console, QMessageBox::Yes);
    console.ChooseNextFile("");
    QVERIFY(!console.window->close());
    QVERIFY(console.file.SettingsChanged);
    QCOMPARE(console.Calls(), Calls());
}

void ExitTest::aSaveThatFailsCallsTheExitOff()
{
    ConsoleUnderTest console;
    QVERIFY(QDir().mkdir(console.File("folder.zcf")));
    console.file.CurrentFileName = console.File("folder.zcf").toStdString();
    console.file.UnitRead = false;
    console.file.SettingsChanged = true;
    AnswerSave(console, QMessageBox::Yes);
    console.AnswerNextBox("File Error", QMessageBox::Ok);
    QVERIFY(!console.window->close());
    QVERIFY(console.file.SettingsChanged);
}

void ExitTest::aBadValueCallsTheExitOff()
{
    ConsoleUnderTest console(OnLine, Tab::OutputTrim);
    console.TypeOnly("lblPNG(0)", "8");
    console.AnswerNextBox("Range Check Error", QMessageBox::Ok);
    QVERIFY(!console.window->close());
    QCOMPARE(console.Calls(), Calls());
    console.Type("lblPNG(0)", "0");
}

void ExitTest::revertLoadsTheSnapshotAndSendsBothRecords()
{
    ConsoleUnderTest console(OnLine, Tab::OutputTrim, [](ConsoleUnderTest &test) {
        test.unit.panel.level = 70;
        test.unit.audio.ChannelTrim[Center] = 5;
    });
    console.options.AutoUpload = true;
    console.Type("lblPNG(2)", "-1");
    QCOMPARE(console.unit.audio.ChannelTrim[Center], Byte(14));
    console.Type("lblVol(0)", "3");
    console.Forget();
    console.file.SettingsChanged = false;
    AnswerRevert(console, QMessageBox::Yes);
    QVERIFY(console.window->close());
    const Calls reverted{"SetVol 70", "SelectFormat 4", "SetMute 0",    "SetSystem",
                         "SetAudio",  "StopStream",     "SetDLLBaud 0", "DLLShutdown"};
    QCOMPARE(console.Calls(), reverted);
    QCOMPARE(console.unit.audio.ChannelTrim[Center], Byte(5));
    QVERIFY(!QFile::exists(console.File("temp.qm4")));
}

void ExitTest::revertAsksNoSaveAgain()
{
    ConsoleUnderTest console;
    console.file.FileLoaded = true;
    console.file.SettingsChanged = true;
    AnswerSave(console, QMessageBox::No);
    AnswerRevert(console, QMessageBox::Yes);
    QVERIFY(console.window->close());
    QVERIFY(console.AllBoxesSeen());
}

void ExitTest::withoutASnapshotNothingIsReverted()
{
    ConsoleUnderTest console(OnLine, Tab::FormatSelection,
                             [](ConsoleUnderTest &test) { test.places.ownsFiles = false; });
    QVERIFY(console.window->close());
    QCOMPARE(console.Calls(), End);
}

void ExitTest::theFirstLaterConnectionTakesTheSnapshot()
{
    ConsoleUnderTest console(OffLine);
    console.unit.panel.plugged = true;
    console.file.SettingsChanged = true;
    console.Click("cmdConnect");
    QVERIFY(QFile::exists(console.File("temp.qm4")));
    QVERIFY(console.file.SettingsChanged);
    QCOMPARE(console.window->windowTitle(), "Kelvo Cinema Processor and EQ Software   <CP Settings>");
    AnswerSave(console, QMessageBox::No);
    AnswerRevert(console, QMessageBox::No);
    QVERIFY(console.window->close());
    QVERIFY(!QFile::exists(console.File("temp.qm4")));
}

void ExitTest::thePreferencesAreWritten()
{
    ConsoleUnderTest console;
    console.Trigger("mnuCom2");
    console.Trigger("mnuAuto");
    console.options.RefreshSeconds = 15;
    AnswerRevert(console, QMessageBox::No);
    QVERIFY(console.window->close());
    const Preferences kept{.ComPort = 2, .AutoUpload = true, .RefreshSeconds = 15};
    QVERIFY(ReadPreferences(console.File("settings.dat").toStdString()) == kept);
}

void ExitTest::preferencesThatCannotBeWrittenAreReported()
{
    ConsoleUnderTest console(OffLine);
    QVERIFY(QDir().mkdir(console.File("settings.dat")));
    QVERIFY(console.window->close());
    QCOMPARE(console.reports.size(), 1);
    QVERIFY(console.reports.front().startsWith("Cannot save " + console.File("settings.dat") + ": "));
}

void ExitTest::whatTheConsoleLeftRunningIsSwitchedOff()
{
    ConsoleUnderTest console(OnLine, Tab::OutputTrim);
    console.Click("cmdPN(3)");
    console.Click("cmdPhase(1)");
    console.Forget();
    AnswerRevert(console, QMessageBox::No);
    QVERIFY(console.window->close());
    QCOMPARE(console.Calls(),
             (Calls{"SetPink 3 0", "SetPhase 1 0", "StopStream", "SetDLLBaud 0", "DLLShutdown"}));
}

void ExitTest::aRunningStreamIsStoppedAsItsButtonWould()
{
    ConsoleUnderTest console(OnLine, Tab::OpticalSetup);
    console.Click("cmdRT60");
    console.Click("cmdStart");
    console.Find<QTimer>("tmrOptical")->stop();
    console.Forget();
    AnswerRevert(console, QMessageBox::No);
    QVERIFY(console.window->close());
    const Calls stopped{"SetProjector 0", "StopStream", "SetProjector 0", "SelectFormat 4",
                        "SetRT60 0",      "StopStream", "SetDLLBaud 0",   "DLLShutdown"};
    QCOMPARE(console.Calls(), stopped);
}

void ExitTest::aLinkLostOnTheWayOutIsToldOnce()
{
    ConsoleUnderTest console;
    AnswerRevert(console, QMessageBox::No);
    console.unit.panel.plugged = false;
    console.AnswerNextBox("Connection Error", QMessageBox::Ok);
    QVERIFY(console.window->close());
    QVERIFY(!console.window->isVisible());
    QCOMPARE(console.Calls().back(), "DLLShutdown");
}

void ExitTest::aSecondCloseDuringAQuestionIsIgnored()
{
    ConsoleUnderTest console;
    console.AnswerNextBox("Revert?", QMessageBox::No, {}, [&console] {
        QCloseEvent second;
        QApplication::sendEvent(console.window.get(), &second);
        QVERIFY(!second.isAccepted());
    });
    QVERIFY(console.window->close());
    QCOMPARE(console.Calls(), End);
}

void ExitTest::aSecondConsoleLeavesTheFirstOnesFilesAlone()
{
    ConsoleUnderTest console(OnLine, Tab::FormatSelection, [](ConsoleUnderTest &test) {
        test.places.ownsFiles = false;
        QFile first(test.File("temp.qm4"));
        QVERIFY(first.open(QFile::WriteOnly));
    });
    QCOMPARE(QFileInfo(console.File("temp.qm4")).size(), 0);
    QVERIFY(console.window->close());
    QVERIFY(QFile::exists(console.File("temp.qm4")));
    QVERIFY(!QFile::exists(console.File("settings.dat")));
}

void ExitTest::exitIsTheMenusLastItem()
{
    ConsoleUnderTest console;
    AnswerRevert(console, QMessageBox::No);
    console.Trigger("mnuend");
    QVERIFY(!console.window->isVisible());
}

void ExitTest::theEndOfASessionAsksWhenItMay()
{
    ConsoleUnderTest console;
    console.file.SettingsChanged = true;
    AnswerSave(console, QMessageBox::Cancel);
    QVERIFY(!console.window->EndSession(true));
    QVERIFY(console.window->isVisible());
}

void ExitTest::theEndOfASessionAsksForUnsavedWorkAlone()
{
    ConsoleUnderTest console;
    console.file.SettingsChanged = true;
    AnswerSave(console, QMessageBox::No);
    QVERIFY(console.window->EndSession(true));
    QVERIFY(console.AllBoxesSeen());
    QCOMPARE(console.Calls(), End);
}

void ExitTest::theEndOfASessionThatMayNotAskJustCloses()
{
    ConsoleUnderTest console;
    console.file.SettingsChanged = true;
    console.Trigger("mnuAutoRef");
    QVERIFY(console.window->EndSession(false));
    QCOMPARE(console.Calls(), End);
    QVERIFY(QFile::exists(console.File("settings.dat")));
}

void ExitTest::aFaderInTheHandSendsNothingAfterTheFarewell()
{
    ConsoleUnderTest console;
    console.DragTo("sclVol", 0);
    QVERIFY(console.window->EndSession(false));
    console.window.reset();
    QCOMPARE(console.Calls(), End);
}

void ExitTest::theEndOfASessionThatMayNotAskShowsNoLostLink()
{
    ConsoleUnderTest console;
    console.unit.panel.plugged = false;
    QVERIFY(console.window->EndSession(false));
    QVERIFY(!console.window->isVisible());
    QCOMPARE(console.Calls().back(), "DLLShutdown");
}

void ExitTest::aSessionThatEndsDuringAQuestionLeavesUnitAndFilesInOrder()
{
    ConsoleUnderTest console;
    console.AnswerNextBox("Revert?", QMessageBox::No, {}, [&console] {
        console.window->LeaveNow();
        QCOMPARE(console.Calls(), End);
        QVERIFY(QFile::exists(console.File("settings.dat")));
        QVERIFY(!QFile::exists(console.File("temp.qm4")));
    });
    QVERIFY(console.window->close());
    QCOMPARE(console.Calls(), End);
}

void ExitTest::everyWindowGoes()
{
    ConsoleUnderTest console(OnLine, Tab::OutputTrim);
    console.Click("cmdAdjust(0)");
    auto *frmFader = console.Find<QWidget>("frmFader");
    QVERIFY(frmFader->isVisible());
    AnswerRevert(console, QMessageBox::No);
    QVERIFY(console.window->close());
    QVERIFY(!frmFader->isVisible());
}

void ExitTest::theProgramEndsWithItsWindow()
{
    ConsoleUnderTest console(OnLine, Tab::OutputTrim);
    console.Click("cmdAdjust(0)");
    AnswerRevert(console, QMessageBox::No);
    QTimer::singleShot(0, console.window.get(), [&console] { console.window->close(); });
    QTimer::singleShot(5000, &console, [] { QApplication::exit(1); });
    QCOMPARE(QApplication::exec(), 0);
}

void ExitTest::aWindowThatIsTakenAwayMayHoldWhatWasNotTaken_data()
{
    QTest::addColumn<bool>("dialogOpen");
    QTest::addColumn<QString>("typedIn");
    QTest::addColumn<QString>("heldSlider");
    QTest::newRow("a text in the fader dialog") << true << "frmFader"
                                                << "";
    QTest::newRow("a text in the window") << false << "lblVol(3)"
                                          << "";
    QTest::newRow("a trim in the window") << false << "lblPNG(0)"
                                          << "";
    QTest::newRow("a held slider") << false << ""
                                   << "sclPNG(0)";
}

void ExitTest::aWindowThatIsTakenAwayMayHoldWhatWasNotTaken()
{
    QFETCH(bool, dialogOpen);
    QFETCH(QString, typedIn);
    QFETCH(QString, heldSlider);
    ConsoleUnderTest console(OnLine, Tab::OutputTrim);
    if (dialogOpen) {
        console.Click("cmdAdjust(0)");
        auto *field = console.Find<QWidget>("frmFader")->findChild<QLineEdit *>("lblVol");
        field->setFocus();
        field->selectAll();
        QTest::keyClicks(field, "3.3");
    } else if (!typedIn.isEmpty()) {
        console.TypeOnly(typedIn, "3.3");
    } else {
        console.Find<QSlider>(heldSlider)->setFocus();
        console.Press(Qt::Key_Up);
    }
    console.Forget();
    console.window.reset();
    QCOMPARE(console.Calls(), Calls());
}

QTEST_MAIN(ExitTest)
#include "exit_test.moc"
