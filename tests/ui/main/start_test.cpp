#include "support/ui/consoleundertest.h"

#include "files/configfile.h"
#include "files/preferencesfile.h"
#include "ui/main/frmsplash.h"

#include <QAction>
#include <QDialog>
#include <QFile>
#include <QGroupBox>
#include <QLabel>
#include <QTabWidget>

using namespace kelvo;

class StartTest : public QObject {
    Q_OBJECT

  private slots:
    void aUnitAtStartIsReadInOrderAndNamedInTheTitle();
    void theSnapshotHoldsTheUnitAndChangesNothing();
    void noUnitAtStartShowsTheDefaultsAfterOneMessage();
    void aUnitThatFailsWhileItIsReadLeavesTheConsoleOffLine();
    void aRefusedUnitIsToldOnce();
    void theVersionsOfTheUnitAreShown();
    void aMissingSerialSettingsFileIsAskedForFirst();
    void thePreferencesAreShownInTheMenus_data();
    void thePreferencesAreShownInTheMenus();
    void aLeftOverSnapshotIsDeleted();
    void aScreenBelowSixHundredIsToldAndTolerated();
    void aScreenOfSixHundredHasTheWindowAtItsTop();
    void aMissingLibraryIsToldOnceAndNothingIsTried();
    void theFirstFocusIsNoSlider();
    void theSplashShowsItsTextAndClosesItself();
};

namespace {

/// What an accepted connection asks of the library.
const Calls Connection{"InitDLL 1", "GetUnitVersion", "GetAudio",  "GetSystem",
                       "GetMute",   "GetVol",         "GetFormat", "StopStream"};

Calls operator+(Calls first, const Calls &second)
{
    first.insert(first.end(), second.begin(), second.end());
    return first;
}

} // namespace

void StartTest::aUnitAtStartIsReadInOrderAndNamedInTheTitle()
{
    ConsoleUnderTest console;
    QCOMPARE(console.startCalls, Connection + Calls{"StopStream"});
    QCOMPARE(console.window->windowTitle(), "Kelvo Cinema Processor and EQ Software   <CP Settings>");
    QCOMPARE(console.Find<QLabel>("lblStat")->text(), "On Line");
    QVERIFY(console.Find<QWidget>("frmtabs(0)")->isEnabled());
    for (int tab = 1; tab < TabCount; ++tab)
        QVERIFY(!console.Find<QTabWidget>("SSTAB1")->widget(tab)->isEnabled());
    QVERIFY(console.TakesEdits());
    QVERIFY(!console.window->findChild<QWidget *>("frmProg"));
}

void StartTest::theSnapshotHoldsTheUnitAndChangesNothing()
{
    ConsoleUnderTest console(OnLine, Tab::FormatSelection, [](ConsoleUnderTest &test) {
        test.unit.panel.level = 55;
        test.unit.audio.ChannelTrim[Center] = 3;
    });
    RoomSettings snapshot;
    QVERIFY(!LoadConfigFile(console.File("temp.qm4").toStdString(), snapshot));
    QCOMPARE(snapshot.FaderLevel, Word(55));
    QCOMPARE(snapshot.Audio.ChannelTrim[Center], Byte(3));
    QCOMPARE(console.file.CurrentFileName, std::string());
    QVERIFY(!console.file.SettingsChanged);
    QVERIFY(!console.file.FileLoaded);
}

void StartTest::noUnitAtStartShowsTheDefaultsAfterOneMessage()
{
    ConsoleUnderTest console(OffLine);
    const Calls six(6, "InitDLL 1");
    QCOMPARE(console.startCalls, six + Calls{"DLLShutdown"});
    QCOMPARE(console.window->windowTitle(), "Kelvo Cinema Processor and EQ Software   <Untitled>");
    QCOMPARE(console.Find<QLabel>("lblStat")->text(), "Off Line");
    QVERIFY(!QFile::exists(console.File("temp.qm4")));
    for (int tab = 0; tab < TabCount; ++tab)
        QVERIFY(!console.Find<QTabWidget>("SSTAB1")->widget(tab)->isEnabled());
    QVERIFY(!console.Find<QWidget>("Frame1(5)")->isEnabled());
    QCOMPARE(console.Find<QLineEdit>("lblVol(3)")->text(), "7.0");
    QCOMPARE(console.Find<QSlider>("sclPNG(5)")->value(), 12);
    QVERIFY(!console.Action("mnuSave")->isEnabled());
    QVERIFY(console.TakesEdits());
    QVERIFY(!console.window->findChild<QWidget *>("frmProg"));
}

void StartTest::aUnitThatFailsWhileItIsReadLeavesTheConsoleOffLine()
{
    ConsoleUnderTest console(OnLine, Tab::FormatSelection, [](ConsoleUnderTest &test) {
        test.unit.FailNext(Operation::GetSystem, 8, 6);
        test.AnswerNextBox("Connection Error", QMessageBox::Ok,
                           "The following Errors were encountered:\n\n"
                           "- Error Communicating System Block\n\n\nCannot Continue On Line!\n");
    });
    QCOMPARE(console.Find<QLabel>("lblStat")->text(), "Off Line");
    QCOMPARE(console.window->windowTitle(), "Kelvo Cinema Processor and EQ Software   <Untitled>");
    QVERIFY(!QFile::exists(console.File("temp.qm4")));
    // As after a refused unit: what was not read is nobody's, and the poll waits for a connection.
    QVERIFY(!console.Find<QTimer>("tmrPoll")->isActive());
    QCOMPARE(console.Find<QSlider>("sclPNG(5)")->value(), 12);
}

void StartTest::aRefusedUnitIsToldOnce()
{
    ConsoleUnderTest console(OnLine, Tab::FormatSelection, [](ConsoleUnderTest &test) {
        test.unit.version.CpuMinor = 4;
        test.AnswerNextBox("Cinema Processor Error", QMessageBox::Ok,
                           "Error cinema processor bios is out of date, contact Kelvo for an update.");
    });
    QCOMPARE(console.startCalls, (Calls{"InitDLL 1", "GetUnitVersion", "DLLShutdown"}));
    QCOMPARE(console.Find<QLabel>("lblStat")->text(), "Off Line");
    QVERIFY(console.Find<QWidget>("Frame1(21)")->isVisible());
    QCOMPARE(console.Find<QLabel>("lnlInfo(0)")->text(), "CPU Version: 1.04");
}

void StartTest::theVersionsOfTheUnitAreShown()
{
    ConsoleUnderTest console(OnLine, Tab::FormatSelection, [](ConsoleUnderTest &test) {
        test.unit.version = {.CpuMajor = 1,
                             .CpuMinor = 5,
                             .CpuBuild = 77,
                             .DspControllerMajor = 1,
                             .DspControllerMinor = 3,
                             .DspFirmwareMajor = 1,
                             .DspFirmwareMinor = 9};
    });
    QCOMPARE(console.Find<QGroupBox>("Frame1(21)")->title(), "Processor Unit Information");
    QCOMPARE(console.Find<QLabel>("lnlInfo(0)")->text(), "CPU Version: 1.05.0077");
    QCOMPARE(console.Find<QLabel>("lnlInfo(1)")->text(), "DSP Controller: 1.03");
    QCOMPARE(console.Find<QLabel>("lnlInfo(2)")->text(), "DSP Firmware: 1.09");
}

void StartTest::aMissingSerialSettingsFileIsAskedForFirst()
{
    ConsoleUnderTest console(OnLine, Tab::FormatSelection, [](ConsoleUnderTest &test) {
        test.places.serialIniMissing = [] { return true; };
    });
    QCOMPARE(console.startCalls, Calls{"DLLCreateIni"} + Connection + Calls{"StopStream"});
}

void StartTest::thePreferencesAreShownInTheMenus_data()
{
    QTest::addColumn<bool>("automatic");
    QTest::newRow("uploads are automatic") << true;
    QTest::newRow("uploads wait for the command") << false;
}

void StartTest::thePreferencesAreShownInTheMenus()
{
    QFETCH(bool, automatic);
    ConsoleUnderTest console(OnLine, Tab::FormatSelection, [automatic](ConsoleUnderTest &test) {
        const Preferences kept{.ComPort = 3,
                               .AutoUpload = automatic,
                               .ConfirmUpload = true,
                               .Shortcuts = true,
                               .AutoRefresh = true,
                               .RefreshSeconds = 20};
        QVERIFY(!WritePreferences(test.File("settings.dat").toStdString(), kept));
    });
    QCOMPARE(console.startCalls.front(), "InitDLL 3");
    QVERIFY(console.Action("mnuCom3")->isChecked());
    QVERIFY(!console.Action("mnuCom1")->isChecked());
    QCOMPARE(console.Action("mnuAuto")->isChecked(), automatic);
    QVERIFY(console.Action("mnuConfirm")->isChecked());
    QVERIFY(console.Action("mnuShort")->isChecked());
    QVERIFY(console.Action("mnuAutoRef")->isChecked());
    QVERIFY(console.Action("mnuSys")->isChecked());
    QVERIFY(console.Action("mnuBaud1")->isChecked());
    // Deliberate: at start both are disabled while uploads are not automatic; the later toggle is the other
    // way.
    QCOMPARE(console.Action("mnuConfirm")->isEnabled(), automatic);
    QCOMPARE(console.Action("mnuShort")->isEnabled(), automatic);
}

void StartTest::aLeftOverSnapshotIsDeleted()
{
    ConsoleUnderTest console(OffLine, Tab::FormatSelection, [](ConsoleUnderTest &test) {
        QFile left(test.File("temp.qm4"));
        QVERIFY(left.open(QFile::WriteOnly));
    });
    QVERIFY(!QFile::exists(console.File("temp.qm4")));
}

void StartTest::aScreenBelowSixHundredIsToldAndTolerated()
{
    ConsoleUnderTest console(OnLine, Tab::FormatSelection, [](ConsoleUnderTest &test) {
        test.places.screenHeight = 599;
        test.AnswerNextBox("Screen Resolution Error", QMessageBox::Ok,
                           "Error, screen resolution too low. Please select a screen resolution of at least "
                           "800 x 600.",
                           [&test] { QCOMPARE(test.OpenBox()->icon(), QMessageBox::Critical); });
    });
    QCOMPARE(console.Find<QLabel>("lblStat")->text(), "On Line");
}

void StartTest::aScreenOfSixHundredHasTheWindowAtItsTop()
{
    ConsoleUnderTest console(OnLine, Tab::FormatSelection,
                             [](ConsoleUnderTest &test) { test.places.screenHeight = 600; });
    QCOMPARE(console.window->pos().y(), 0);
    QVERIFY(console.window->minimumSizeHint().height() <= 600);
    QVERIFY(console.window->minimumSizeHint().width() <= 800);
}

void StartTest::aMissingLibraryIsToldOnceAndNothingIsTried()
{
    ConsoleUnderTest console(OnLine, Tab::FormatSelection, [](ConsoleUnderTest &test) {
        test.places.missingLibrary = "libqm4slib.so was not found.";
        test.AnswerNextBox("Device Library", QMessageBox::Ok, "libqm4slib.so was not found.",
                           [&test] { QCOMPARE(test.OpenBox()->icon(), QMessageBox::Information); });
    });
    QCOMPARE(console.startCalls, Calls());
    QCOMPARE(console.window->windowTitle(), "Kelvo Cinema Processor and EQ Software   <Untitled>");
    for (int tab = 0; tab < TabCount; ++tab)
        QVERIFY(!console.Find<QTabWidget>("SSTAB1")->widget(tab)->isEnabled());
    // By the time Connect is pressed the library has been put in its place.
    console.Click("cmdConnect");
    QCOMPARE(console.Calls(), Connection);
    QCOMPARE(console.Find<QLabel>("lblStat")->text(), "On Line");
}

void StartTest::theFirstFocusIsNoSlider()
{
    ConsoleUnderTest console;
    QVERIFY(QApplication::focusWidget());
    QVERIFY(!qobject_cast<QSlider *>(QApplication::focusWidget()));
    for (const Tab tab : {Tab::OutputTrim, Tab::Eq, Tab::Obe}) {
        console.GoTo(tab);
        QVERIFY(!qobject_cast<QSlider *>(QApplication::focusWidget()));
    }
}

void StartTest::theSplashShowsItsTextAndClosesItself()
{
    FrmSplash splash;
    QCOMPARE(splash.objectName(), "frmSplash");
    splash.ShowNow();
    QVERIFY(splash.isVisible());
    QCOMPARE(splash.findChild<QLabel *>()->text(), "Loading Please Wait...");
    QVERIFY(splash.findChild<QTimer *>("Timer1"));
    QTRY_VERIFY(!splash.isVisible());
}

QTEST_MAIN(StartTest)
#include "start_test.moc"
