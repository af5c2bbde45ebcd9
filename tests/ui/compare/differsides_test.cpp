#include "support/ui/differsconsole.h"

#include <QDir>

using namespace kelvo;

class DifferSidesTest : public QObject {
    Q_OBJECT

  private slots:
    void theSidesAreOffered();
    void factoryValuesAreWhatAResetSets();
    void theStartSnapshotIsWhatTheRunFound();
    void keptSnapshotsAreOfferedTheNewestFirst();
    void aFileIsChosenThroughTheDialog();
    void aCancelledDialogKeepsTheSide();
    void anOldFileKnowsTheRecordsAlone();
    void aDamagedFileIsToldInTheTablesPlace();
    void aFileThatIsSavedAgainIsReadAgain();
    void twoFilesOfOneNameAreTold();
    void readAgainNowReadsAndShowsWhatTheUnitHolds();
    void readAgainNowIsForAUnitThatMayBeRead();
    void aLinkLostInReadAgainIsToldOnce();
    void beforeTheUnitWasReadThereIsNothingToCompare();
};

void DifferSidesTest::theSidesAreOffered()
{
    {
        DiffersConsole offLine(OffLine);
        offLine.OpenDiffers();
        QCOMPARE(offLine.Choices("cboLeft"), (QStringList{"Screen", "Unit", "Factory values", "File ..."}));
    }
    DiffersConsole console;
    console.OpenDiffers();
    const QStringList sides{"Screen", "Unit", "Start-up snapshot", "Factory values", "File ..."};
    QCOMPARE(console.Choices("cboLeft"), sides);
    QCOMPARE(console.Choices("cboRight"), sides);
}

void DifferSidesTest::factoryValuesAreWhatAResetSets()
{
    DiffersConsole console(OffLine, Tab::FormatSelection); // off line the screen shows the defaults
    console.room.TheaterInfo[1] = "Odeon";
    console.room.FaderLevel = 50;
    console.room.System.stored8 = 7;
    console.room.System.SurroundDelay = 3;
    console.OpenDiffers();
    console.ChooseItem("cboRight", "Factory values");
    QCOMPARE(console.Rows(), QStringList{"Options | Surround delay | 30 mS | 0 mS"});
    QCOMPARE(console.Total(), "1 setting differs");
}

void DifferSidesTest::theStartSnapshotIsWhatTheRunFound()
{
    DiffersConsole console(OnLine, Tab::OutputTrim);
    console.options.AutoUpload = true;
    MoveThreeTrims(console);
    console.OpenDiffers();
    QCOMPARE(console.Rows(), QStringList());
    console.ChooseItem("cboRight", "Start-up snapshot");
    QCOMPARE(console.Rows(), (QStringList{LeftTrim, CenterTrim, RightTrim}));
    QCOMPARE(console.Table()->model()->headerData(3, Qt::Horizontal).toString(), "Start-up snapshot");
    QCOMPARE(console.Total(), "3 settings differ");
}

void DifferSidesTest::keptSnapshotsAreOfferedTheNewestFirst()
{
    DiffersConsole console;
    QVERIFY(QDir(console.File("")).mkdir("snapshots"));
    const auto keep = [&](const char *name, int hoursAgo) {
        const QString path = WriteSample(console, name);
        QFile file(path);
        QVERIFY(file.open(QFile::ReadWrite));
        QVERIFY(file.setFileTime(QDateTime::currentDateTime().addSecs(-3600 * hoursAgo),
                                 QFileDevice::FileModificationTime));
    };
    keep("snapshots/2024-03-14 21.04.00.zcf", 1);
    keep("snapshots/2024-03-12 11.00.59.zcf", 9);
    keep("snapshots/2024-03-15 09.00.00.zcf", 0);
    console.OpenDiffers();
    QCOMPARE(console.Choices("cboRight"),
             (QStringList{"Screen", "Unit", "Start-up snapshot", "Snapshot 2024-03-15 09.00.00",
                          "Snapshot 2024-03-14 21.04.00", "Snapshot 2024-03-12 11.00.59", "Factory values",
                          "File ..."}));
    console.ChooseItem("cboRight", "Snapshot 2024-03-14 21.04.00");
    QVERIFY(console.Rows().contains("Theater | Theater Name |  | Odeon 3"));
}

void DifferSidesTest::aFileIsChosenThroughTheDialog()
{
    DiffersConsole console;
    const QString path = WriteSample(console, "house.zcf");
    console.OpenDiffers();
    console.ChooseNextFile(path);
    console.ChooseItem("cboRight", "File ...");
    QCOMPARE(console.Find<QComboBox>("cboRight")->currentText(), "house.zcf");
    QCOMPARE(console.Choices("cboLeft").mid(3), (QStringList{"Factory values", "house.zcf", "File ..."}));
    const QStringList rows = console.Rows();
    // As `WriteSample` wrote it, beside the simulated unit.
    QVERIFY(rows.contains("Output Trim | Center, output trim | +0.5 dB | +2.0 dB"));
    QVERIFY(rows.contains("Theater | Theater Name |  | Odeon 3"));
    QVERIFY(rows.contains("Live | Fader | 7.0 | 4.2"));
    QCOMPARE(console.Calls(), Calls());
    QCOMPARE(console.window->windowTitle(), TitleOf("CP Settings"));
}

void DifferSidesTest::aCancelledDialogKeepsTheSide()
{
    DiffersConsole console;
    console.OpenDiffers();
    console.ChooseNextFile("");
    console.ChooseItem("cboRight", "File ...");
    QCOMPARE(console.Find<QComboBox>("cboRight")->currentText(), "Unit");
    QCOMPARE(console.Total(), "No difference");
}

void DifferSidesTest::anOldFileKnowsTheRecordsAlone()
{
    DiffersConsole console;
    QFile file(console.File("old.cfg"));
    QVERIFY(file.open(QFile::WriteOnly));
    SystemBlock system = console.room.System;
    system.SurroundDelay = 9;
    system.stored8 ^= 1;
    const auto put = [&](auto bytes) {
        file.write(reinterpret_cast<const char *>(bytes.data()), bytes.size());
    };
    put(BytesOf(system));
    put(BytesOf(console.room.Audio));
    file.close();
    console.room.TheaterInfo[1] = "Odeon";
    console.OpenDiffers();
    console.ChooseNextFile(file.fileName());
    console.ChooseItem("cboRight", "File ...");
    QCOMPARE(console.Rows(), QStringList{"Options | Surround delay | 20 mS | 90 mS"});
    QCOMPARE(console.Total(), "1 setting differs, 1 other byte");
}

void DifferSidesTest::aDamagedFileIsToldInTheTablesPlace()
{
    DiffersConsole console(OnLine, Tab::OutputTrim);
    MoveThreeTrims(console);
    const QString path = WriteSample(console, "broken.zcf");
    QFile file(path);
    QVERIFY(file.open(QFile::ReadWrite));
    QVERIFY(file.resize(60)); // the header's line is 32 bytes long, the next ones about ten each
    file.close();
    console.OpenDiffers();
    console.ChooseNextFile(path);
    console.ChooseItem("cboLeft", "File ...");
    auto *problem = console.Find<QLabel>("lblProblem");
    QVERIFY(problem->isVisible());
    QVERIFY(!console.Table()->isVisible());
    QVERIFY2(problem->text().startsWith(path + ": line "), qPrintable(problem->text()));
    QVERIFY2(problem->text().endsWith(" is damaged or missing."), qPrintable(problem->text()));
    QCOMPARE(console.Total(), "");
    for (const char *button : {"cmdTake", "cmdCopyTable", "cmdSaveTable"})
        QVERIFY(!console.Find<QPushButton>(button)->isEnabled());
    console.ChooseItem("cboLeft", "Screen");
    QVERIFY(!problem->isVisible());
    QCOMPARE(console.Rows(), (QStringList{LeftTrim, CenterTrim, RightTrim}));
}

void DifferSidesTest::aFileThatIsSavedAgainIsReadAgain()
{
    DiffersConsole console(OnLine, Tab::OutputTrim);
    const QString path = console.File("house.zcf");
    console.ChooseNextFile(path);
    console.Trigger("mnuSaveAs");
    console.OpenDiffers();
    console.ChooseNextFile(path);
    console.ChooseItem("cboRight", "File ...");
    console.ToFront(console.window.get());
    MoveThreeTrims(console);
    QCOMPARE(console.Rows(), (QStringList{LeftTrim, CenterTrim, RightTrim}));
    console.Trigger("mnuSave");
    console.ToFront(console.Differs());
    QTRY_COMPARE(console.Total(), "No difference");
}

void DifferSidesTest::twoFilesOfOneNameAreTold()
{
    DiffersConsole console;
    QVERIFY(QDir(console.File("")).mkdir("rex"));
    const QString one = WriteSample(console, "screen.zcf");
    const QString other = WriteSample(console, "rex/screen.zcf");
    console.OpenDiffers();
    console.ChooseNextFile(one);
    console.ChooseItem("cboLeft", "File ...");
    console.ChooseNextFile(other);
    console.ChooseItem("cboRight", "File ...");
    QCOMPARE(console.Find<QComboBox>("cboLeft")->currentText(), "screen.zcf");
    QCOMPARE(console.Find<QComboBox>("cboRight")->currentText(), QDir::toNativeSeparators(other));
    QCOMPARE(console.Total(), "No difference");
    console.ChooseNextFile(one);
    console.ChooseItem("cboRight", "File ...");
    QCOMPARE(console.Find<QComboBox>("cboRight")->currentText(), "screen.zcf");
    QCOMPARE(console.Choices("cboRight").size(), 7); // none is offered twice
}

void DifferSidesTest::readAgainNowReadsAndShowsWhatTheUnitHolds()
{
    DiffersConsole console(OnLine, Tab::OutputTrim);
    console.OpenDiffers();
    console.unit.audio.ChannelTrim[Center] = 8;
    QCOMPARE(console.Rows(), QStringList());
    console.Click("cmdReadAgain");
    QCOMPARE(console.Calls(), (Calls{"GetAudio", "GetSystem", "GetMute", "GetVol", "GetFormat"}));
    QCOMPARE(console.Rows(), QStringList{"Output Trim | Center, output trim | +0.5 dB | +2.0 dB"});
    QCOMPARE(console.Find<QLineEdit>("lblPNG(2)")->text(), "0.5");
    QCOMPARE(console.Find<QLabel>("lblSent")->text(), "1 change not in the unit - F2");
    QCOMPARE(console.window->windowTitle(), TitleOf("CP Settings"));
}

void DifferSidesTest::readAgainNowIsForAUnitThatMayBeRead()
{
    DiffersConsole console(OnLine, Tab::OpticalSetup);
    console.OpenDiffers();
    auto *cmdReadAgain = console.Find<QPushButton>("cmdReadAgain");
    const auto may = [&] {
        QCoreApplication::processEvents();
        return cmdReadAgain->isEnabled();
    };
    QVERIFY(may());
    console.ChooseItem("cboRight", "Factory values");
    QVERIFY(!may());
    console.ChooseItem("cboLeft", "Unit");
    QVERIFY(may());
    console.Click("cmdStart");
    QVERIFY(!may());
    console.Click("cmdStart");
    QVERIFY(may());
    console.unit.panel.plugged = false;
    console.AnswerNextBox("Connection Error", QMessageBox::Ok);
    console.Tick("tmrPoll");
    QVERIFY(!may());
}

void DifferSidesTest::aLinkLostInReadAgainIsToldOnce()
{
    DiffersConsole console(OnLine, Tab::OutputTrim);
    MoveThreeTrims(console);
    console.OpenDiffers();
    console.unit.panel.plugged = false;
    console.AnswerNextBox("Connection Error", QMessageBox::Ok);
    console.Click("cmdReadAgain");
    QVERIFY(console.AllBoxesSeen());
    QVERIFY(!console.Find<QPushButton>("cmdReadAgain")->isEnabled());
    QCOMPARE(console.Rows(), (QStringList{LeftTrim, CenterTrim, RightTrim}));
}

void DifferSidesTest::beforeTheUnitWasReadThereIsNothingToCompare()
{
    DiffersConsole console(OffLine);
    console.OpenDiffers();
    QCOMPARE(console.Find<QLabel>("lblProblem")->text(), "Unit: the unit has not been read yet.");
    QVERIFY(!console.Table()->isVisible());
    console.unit.panel.plugged = true;
    console.Click("cmdConnect");
    QTRY_COMPARE(console.Total(), "No difference");
    QVERIFY(console.Table()->isVisible());
}

QTEST_MAIN(DifferSidesTest)
#include "differsides_test.moc"
