#include "support/ui/consoleundertest.h"

#include "files/configfile.h"

#include <QAction>
#include <QDialog>
#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>

using namespace kelvo;

/// What a run that did not come to its end offers the next one.
class BringBackTest : public QObject {
    Q_OBJECT

  private slots:
    void theLineUnderTheLampOffersWithoutABox();
    void takingItIsOneStepThatGivesTheVerySameSettings();
    void whatAReReadFoundBesideTheStepsComesBackToo();
    void offLineItIsOfferedToo();
    void anOpenedFilesNameComesBack();
    void severalAreASubmenu();
    void theOfferLeavesTheLineWithTheFirstStep();
    void aFirstConnectionThatReplacesWhatWasBroughtBackIsAStep();
    void takenJournalsGoWithAnExitThatLostNothing();
    void anExitThatMayNotAskKeepsUnsavedWork();
    void anExitThatWasAskedKeepsNothing();
    void aJournalThatCannotBeWrittenIsToldOnce();
    void whatCannotBeRememberedIsToldOnce();
    void slotsAloneAreOffered();
};

namespace {

/// A run on this data folder that makes edits and is killed.
void KilledRun(const QString &dataFolder, const std::function<void(ConsoleUnderTest &)> &edits)
{
    ConsoleUnderTest run(OnLine, Tab::OutputTrim, [&](ConsoleUnderTest &test) {
        test.places.dataFolder = dataFolder;
        test.unit.audio.ChannelTrim.fill(12);
        test.clock.Set(2024, 3, 14, 21, 4);
    });
    run.options.AutoUpload = true;
    edits(run);
}

void ThreeEdits(ConsoleUnderTest &run)
{
    run.Type("lblPNG(0)", "3");
    run.Type("lblPNG(1)", "2");
    run.Type("lblPNG(2)", "1");
}

/// The next run, which sends each edit.
struct NextRun : ConsoleUnderTest {
    explicit NextRun(const QString &dataFolder, ConsoleStart start = OnLine)
        : ConsoleUnderTest(start, start == OnLine ? Tab::OutputTrim : Tab::FormatSelection,
                           [&](ConsoleUnderTest &test) {
                               test.places.dataFolder = dataFolder;
                               test.unit.audio.ChannelTrim.fill(12);
                               test.clock.Set(2024, 3, 14, 21, 30);
                           })
    {
        options.AutoUpload = true;
    }
};

QString Line(const ConsoleUnderTest &console)
{
    return console.Find<QLabel>("lblSent")->text();
}

int JournalsIn(const QString &dataFolder)
{
    return int(QDir(QDir(dataFolder).filePath("journals")).entryList({"*.journal"}).size());
}

} // namespace

void BringBackTest::theLineUnderTheLampOffersWithoutABox()
{
    QTemporaryDir data;
    KilledRun(data.path(), ThreeEdits);
    NextRun console(data.path());
    QCOMPARE(Line(console), "Bring back 3 changes of 21:4");
    QCOMPARE(console.Action("mnuRecover")->text(), "Bring back 3 changes of 21:4");
    QCOMPARE(console.Find<QLineEdit>("lblPNG(0)")->text(), "0.0");
    QCOMPARE(console.Calls(), Calls());
}

void BringBackTest::takingItIsOneStepThatGivesTheVerySameSettings()
{
    QTemporaryDir data;
    RoomSettings last;
    KilledRun(data.path(), [&](ConsoleUnderTest &run) {
        ThreeEdits(run);
        last = run.room;
    });
    NextRun console(data.path());
    console.Click("lblSent");
    QCOMPARE(console.Find<QLineEdit>("lblPNG(1)")->text(), "2.0");
    last.Audio.UnitClock = console.room.Audio.UnitClock;
    QVERIFY(console.room == last);
    QCOMPARE(console.Calls(), Calls{"SetAudio"});
    QCOMPARE(Line(console), "All sent");
    QCOMPARE(console.Action("mnuUndo")->text(), "Undo Bring back 3 changes of 21:4");
    QVERIFY(!console.Action("mnuRecover")->isEnabled());
    console.Trigger("mnuUndo");
    QCOMPARE(console.Find<QLineEdit>("lblPNG(1)")->text(), "0.0");
}

void BringBackTest::whatAReReadFoundBesideTheStepsComesBackToo()
{
    QTemporaryDir data;
    KilledRun(data.path(), [&](ConsoleUnderTest &run) {
        ThreeEdits(run);
        run.unit.audio.ChannelTrim[Subwoofer] = 4;
        run.options.AutoRefresh = true;
        run.options.RefreshSeconds = 1;
        run.Tick("tmrRefresh");
        QCOMPARE(run.Find<QLineEdit>("lblPNG(5)")->text(), "4.0");
    });
    NextRun console(data.path());
    QCOMPARE(Line(console), "Bring back 3 changes of 21:4");
    console.Trigger("mnuRecover");
    QCOMPARE(console.Find<QLineEdit>("lblPNG(5)")->text(), "4.0");
    QCOMPARE(console.Find<QLineEdit>("lblPNG(0)")->text(), "3.0");
}

void BringBackTest::offLineItIsOfferedToo()
{
    QTemporaryDir data;
    KilledRun(data.path(), ThreeEdits);
    NextRun console(data.path(), OffLine);
    QCOMPARE(Line(console), "Bring back 3 changes of 21:4");
    console.Trigger("mnuRecover");
    QCOMPARE(console.Find<QLineEdit>("lblPNG(0)")->text(), "3.0");
}

void BringBackTest::anOpenedFilesNameComesBack()
{
    QTemporaryDir data;
    const QString path = data.filePath("Rex 1.zcf");
    RoomSettings rex;
    rex.TheaterInfo[0] = "Rex";
    rex.Audio.ObeLevel = 3;
    Set(rex, field::Kept(3), 44);
    QVERIFY(!SaveConfigFile(path.toStdString(), rex));
    KilledRun(data.path(), [&](ConsoleUnderTest &run) {
        QVERIFY(run.window->OpenFile(path));
        run.Type("lblPNG(0)", "3");
    });
    NextRun console(data.path());
    console.Trigger("mnuRecover");
    QVERIFY(console.window->windowTitle().endsWith("<" + QDir::toNativeSeparators(path) + ">"));
    QCOMPARE(console.file.CurrentFileName, path.toStdString());
    QCOMPARE(console.room.TheaterInfo[0], "Rex");
    QCOMPARE(console.room.Audio.ObeLevel, Byte(3));
    QCOMPARE(Get(console.room, field::Kept(3)), 44);
    QVERIFY(console.file.SettingsChanged);
    console.Trigger("mnuUndo");
    QVERIFY(console.window->windowTitle().endsWith("<CP Settings>"));
    QVERIFY(console.file.CurrentFileName.empty());
    QVERIFY(console.room.TheaterInfo[0].empty());
}

void BringBackTest::severalAreASubmenu()
{
    QTemporaryDir data;
    KilledRun(data.path(), [&](ConsoleUnderTest &run) {
        run.Type("lblPNG(0)", "3");
        KilledRun(data.path(), ThreeEdits);
    });
    NextRun console(data.path());
    QCOMPARE(console.Action("mnuRecover")->text(), "Bring Back ...");
    QMenu *offers = console.Action("mnuRecover")->menu();
    QVERIFY(offers);
    QCOMPARE(offers->actions().size(), 2);
    const int one = offers->actions()[0]->text() == "Bring back 1 change of 21:4" ? 0 : 1;
    QCOMPARE(offers->actions()[1 - one]->text(), "Bring back 3 changes of 21:4");
    offers->actions()[one]->trigger();
    QCOMPARE(console.Find<QLineEdit>("lblPNG(0)")->text(), "3.0");
    QCOMPARE(console.Find<QLineEdit>("lblPNG(1)")->text(), "0.0");
    QCOMPARE(console.Action("mnuRecover")->text(), "Bring back 3 changes of 21:4");
}

void BringBackTest::theOfferLeavesTheLineWithTheFirstStep()
{
    QTemporaryDir data;
    KilledRun(data.path(), ThreeEdits);
    NextRun console(data.path());
    console.Type("lblPNG(4)", "1");
    QCOMPARE(Line(console), "All sent");
    console.Trigger("mnuUndo");
    QCOMPARE(Line(console), "All sent");
    QVERIFY(console.Action("mnuRecover")->isEnabled());
}

void BringBackTest::aFirstConnectionThatReplacesWhatWasBroughtBackIsAStep()
{
    QTemporaryDir data;
    KilledRun(data.path(), ThreeEdits);
    NextRun console(data.path(), OffLine);
    console.Trigger("mnuRecover");
    console.unit.panel.plugged = true;
    console.Click("cmdConnect");
    QCOMPARE(console.Find<QLineEdit>("lblPNG(0)")->text(), "0.0");
    console.Trigger("mnuUndo");
    QCOMPARE(console.Find<QLineEdit>("lblPNG(0)")->text(), "3.0");
}

void BringBackTest::takenJournalsGoWithAnExitThatLostNothing()
{
    QTemporaryDir data;
    KilledRun(data.path(), ThreeEdits);
    {
        NextRun console(data.path());
        console.Trigger("mnuRecover");
        QCOMPARE(JournalsIn(data.path()), 2);
        console.file.SettingsChanged = false;
        console.AnswerNextBox("Revert?", QMessageBox::No);
        QVERIFY(console.window->close());
    }
    QCOMPARE(JournalsIn(data.path()), 0);
}

void BringBackTest::anExitThatMayNotAskKeepsUnsavedWork()
{
    QTemporaryDir data;
    KilledRun(data.path(), [&](ConsoleUnderTest &run) {
        ThreeEdits(run);
        QVERIFY(run.window->EndSession(false));
    });
    NextRun console(data.path());
    QCOMPARE(Line(console), "Bring back 3 changes of 21:4");
}

void BringBackTest::anExitThatWasAskedKeepsNothing()
{
    QTemporaryDir data;
    KilledRun(data.path(), [&](ConsoleUnderTest &run) {
        ThreeEdits(run);
        run.AnswerNextBox("Save?", QMessageBox::No);
        run.AnswerNextBox("Revert?", QMessageBox::No);
        QVERIFY(run.window->close());
    });
    QCOMPARE(JournalsIn(data.path()), 0);
}

void BringBackTest::aJournalThatCannotBeWrittenIsToldOnce()
{
    QTemporaryDir data;
    QFile inTheWay(data.filePath("journals"));
    QVERIFY(inTheWay.open(QFile::WriteOnly));
    NextRun console(data.path());
    ThreeEdits(console);
    QCOMPARE(console.reports.size(), 1);
    QVERIFY(console.reports[0].startsWith("Cannot write the journal in "));
    QCOMPARE(console.unit.audio.ChannelTrim[Center], Byte(10));
}

void BringBackTest::whatCannotBeRememberedIsToldOnce()
{
    QTemporaryDir data;
    QFile inTheWay(data.filePath("settings"));
    QVERIFY(inTheWay.open(QFile::WriteOnly));
    ConsoleUnderTest console(OnLine, Tab::OutputTrim, [&](ConsoleUnderTest &test) {
        test.places.memoryFile = data.filePath("settings/windows.conf");
    });
    for (int time = 0; time < 2; ++time) {
        console.Trigger("mnuHistory");
        console.Find<QDialog>("frmHistory")->close();
        QCoreApplication::processEvents();
        console.Trigger("mnuKeep(0)");
    }
    QCOMPARE(console.reports.size(), 1);
    QVERIFY(console.reports[0].startsWith("Cannot keep window places and recent files in "));
    QCOMPARE(console.Find<QLabel>("lblNotice")->text(), console.reports[0]);
}

void BringBackTest::slotsAloneAreOffered()
{
    QTemporaryDir data;
    KilledRun(data.path(), [&](ConsoleUnderTest &run) { run.Trigger("mnuKeep(1)"); });
    NextRun console(data.path());
    QCOMPARE(Line(console), "Bring back the slots of 21:4");
    QVERIFY(!console.Action("mnuRecall(1)")->isEnabled());
    console.Trigger("mnuRecover");
    QVERIFY(console.Action("mnuRecall(1)")->isEnabled());
    QCOMPARE(console.Find<QLabel>("lblSlot")->text(), "Slot B");
    QVERIFY(!console.Action("mnuUndo")->isEnabled());
}

QTEST_MAIN(BringBackTest)
#include "bringback_test.moc"
