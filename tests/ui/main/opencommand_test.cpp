#include "support/ui/samplesettings.h"

#include <QAction>
#include <QComboBox>
#include <QDir>
#include <QFileDialog>
#include <QLabel>
#include <QPushButton>

using namespace kelvo;

class OpenCommandTest : public QObject {
    Q_OBJECT

  private slots:
    void openSendsFaderFormatAndMuteOnceInOrder();
    void openShowsTheFileEverywhere();
    void openOffLineSendsNothingAndStillShows();
    void openTakesAnOldFileAndLeavesTheLiveValues();
    void aFileThatIsNoneIsToldAndChangesNothing_data();
    void aFileThatIsNoneIsToldAndChangesNothing();
    void aCancelledOpenChangesNothing();
    void openAsksOnlyForALoadedFileWithAChange_data();
    void openAsksOnlyForALoadedFileWithAChange();
    void theOpenDialogNamesBothFormats();
    void openLeavesThePollOffWhileAStreamRuns();
    void aLinkLostWhileOpeningStillShowsTheFile();
};

void OpenCommandTest::openSendsFaderFormatAndMuteOnceInOrder()
{
    ConsoleUnderTest console;
    Open(console, WriteSample(console));
    QCOMPARE(console.Calls(), (Calls{"SetVol 42", "SelectFormat 2", "SetMute -1"}));
    QVERIFY(console.Find<QTimer>("tmrPoll")->isActive());
    QVERIFY(console.TakesEdits());
}

void OpenCommandTest::openShowsTheFileEverywhere()
{
    ConsoleUnderTest console;
    const QString path = WriteSample(console);
    Open(console, path);
    QCOMPARE(console.window->windowTitle(), TitleOf(path));
    QCOMPARE(console.Find<QLineEdit>("lblVol(3)")->text(), "4.2");
    QCOMPARE(console.Find<QPushButton>("cmdMute5")->text(), "Un-Mute");
    QVERIFY(console.Find<QPushButton>("cmdMode(2)")->font().bold());
    QCOMPARE(console.Find<QLineEdit>("lblPNG(2)")->text(), "2.0");
    QCOMPARE(console.Find<QLineEdit>("lblBass")->text(), "3");
    QCOMPARE(console.Find<QComboBox>("cboObeF")->currentText(), "70 Hz");
    QCOMPARE(console.Find<QComboBox>("cboSurroundDelay")->currentText(), "50 mS");
    QCOMPARE(console.Find<QLineEdit>("txtTheaterInfo(1)")->text(), "Odeon 3");
    QVERIFY(console.Action("mnuSave")->isEnabled());
    QVERIFY(console.file.FileLoaded);
    QVERIFY(!console.file.SettingsChanged);
    // The records wait for the upload command.
    QVERIFY(console.Find<QLabel>("lblSent")->text().contains("not in the unit - F2"));
}

void OpenCommandTest::openOffLineSendsNothingAndStillShows()
{
    ConsoleUnderTest console(OffLine);
    const QString path = WriteSample(console);
    Open(console, path);
    QCOMPARE(console.Calls(), Calls());
    QCOMPARE(console.window->windowTitle(), TitleOf(path));
    QCOMPARE(console.Find<QLineEdit>("lblPNG(2)")->text(), "2.0");
}

void OpenCommandTest::openTakesAnOldFileAndLeavesTheLiveValues()
{
    ConsoleUnderTest console(OnLine, Tab::FormatSelection,
                             [](ConsoleUnderTest &test) { test.unit.panel.level = 33; });
    QByteArray old(352, '\0');
    old[6] = 4;            // surround delay
    old[128 + 6 + 2] = 10; // trim of Center
    QFile file(console.File("room.cfg"));
    QVERIFY(file.open(QFile::WriteOnly) && file.write(old) == old.size());
    file.close();
    Open(console, file.fileName());
    QCOMPARE(console.Calls(), (Calls{"SetVol 33", "SelectFormat 4", "SetMute 0"}));
    QCOMPARE(console.Find<QLineEdit>("lblPNG(2)")->text(), "1.0");
    QCOMPARE(console.Find<QComboBox>("cboSurroundDelay")->currentText(), "40 mS");
    QCOMPARE(console.Find<QLineEdit>("lblVol(0)")->text(), "3.3");
}

void OpenCommandTest::aFileThatIsNoneIsToldAndChangesNothing_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("content");
    QTest::newRow("another header") << "a.zcf"
                                    << QByteArray("\"Kelvo CP Settings File: V2.0\"\r\n4,70,0\r\n");
    QTest::newRow("cut after the header") << "a.zcf" << QByteArray("\"Kelvo CP Settings File: V1.0\"\r\n4,7");
    QTest::newRow("an old file under an upper-case name") << "A.CFG" << QByteArray(352, '\1');
    QTest::newRow("an old file of another length") << "a.cfg" << QByteArray(351, '\1');
    QTest::newRow("an empty file") << "a.zcf" << QByteArray();
}

void OpenCommandTest::aFileThatIsNoneIsToldAndChangesNothing()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, content);
    ConsoleUnderTest console;
    const QString good = WriteSample(console);
    Open(console, good);
    console.file.SettingsChanged = true;
    console.Forget();
    const RoomSettings before = console.room;
    QFile file(QDir(console.places.programDirectory).filePath(name));
    QVERIFY(file.open(QFile::WriteOnly) && file.write(content) == content.size());
    file.close();

    console.AnswerNextBox("Save?", QMessageBox::No);
    console.ChooseNextFile(file.fileName());
    console.AnswerNextBox("File Error", QMessageBox::Ok, "Error open opening file! Incorrect format!",
                          [&console] { QCOMPARE(console.OpenBox()->icon(), QMessageBox::Warning); });
    console.Trigger("mnuLoad");
    QCOMPARE(console.Calls(), Calls());
    QCOMPARE(console.window->windowTitle(), TitleOf(good));
    QCOMPARE(console.file.CurrentFileName, good.toStdString());
    QVERIFY(console.file.SettingsChanged);
    QVERIFY(console.file.FileLoaded);
    QVERIFY(console.room == before);
    QVERIFY(console.TakesEdits());
    QVERIFY(console.Find<QTimer>("tmrPoll")->isActive());
}

void OpenCommandTest::aCancelledOpenChangesNothing()
{
    ConsoleUnderTest console;
    Open(console, "");
    QCOMPARE(console.Calls(), Calls());
    QCOMPARE(console.window->windowTitle(), "Kelvo Cinema Processor and EQ Software   <CP Settings>");
    QVERIFY(console.Find<QTimer>("tmrPoll")->isActive());
}

void OpenCommandTest::openAsksOnlyForALoadedFileWithAChange_data()
{
    QTest::addColumn<bool>("loaded");
    QTest::addColumn<bool>("changed");
    QTest::newRow("nothing loaded, changed") << false << true;
    QTest::newRow("loaded, unchanged") << true << false;
    QTest::newRow("loaded and changed") << true << true;
}

void OpenCommandTest::openAsksOnlyForALoadedFileWithAChange()
{
    QFETCH(bool, loaded);
    QFETCH(bool, changed);
    ConsoleUnderTest console;
    const QString path = WriteSample(console);
    if (loaded)
        Open(console, path);
    console.file.SettingsChanged = changed;
    console.room.TheaterInfo[0] = "changed";
    if (loaded && changed)
        console.AnswerNextBox("Save?", QMessageBox::Yes, "Do you want to save your changes?",
                              [&console] { QCOMPARE(console.OpenBox()->icon(), QMessageBox::Question); });
    Open(console, path);
    QVERIFY(console.AllBoxesSeen());
    // Yes has saved the change before the same file is opened again.
    QCOMPARE(console.room.TheaterInfo[0], loaded && changed ? "changed" : "");
}

void OpenCommandTest::theOpenDialogNamesBothFormats()
{
    ConsoleUnderTest console;
    console.WithNextDialog([](QDialog *dialog) {
        const QStringList filters{"Kelvo Zentra Config Files (*.zcf)", "Old Config File format (*.cfg)"};
        QCOMPARE(qobject_cast<QFileDialog *>(dialog)->nameFilters(), filters);
        dialog->reject();
    });
    console.Trigger("mnuLoad");
}

void OpenCommandTest::openLeavesThePollOffWhileAStreamRuns()
{
    ConsoleUnderTest console(OnLine, Tab::OpticalSetup);
    console.Click("cmdStart");
    console.Find<QTimer>("tmrOptical")->stop();
    console.Forget();
    Open(console, WriteSample(console));
    QVERIFY(!console.Find<QTimer>("tmrPoll")->isActive());
    QCOMPARE(console.Calls(), (Calls{"SetVol 42", "StopStream", "SetMute -1", "BeginGainStream"}));
    console.Forget();
    console.Click("cmdStart");
    // The format of the file is the one that the stop selects.
    QCOMPARE(console.Calls().back(), "SelectFormat 2");
    QVERIFY(console.Find<QTimer>("tmrPoll")->isActive());
}

void OpenCommandTest::aLinkLostWhileOpeningStillShowsTheFile()
{
    ConsoleUnderTest console;
    const QString path = WriteSample(console);
    console.unit.FailNext(Operation::SelectFormat, 2, 6);
    console.ChooseNextFile(path);
    console.AnswerNextBox("Connection Error", QMessageBox::Ok);
    console.Trigger("mnuLoad");
    QCOMPARE(console.Find<QLabel>("lblStat")->text(), "Off Line");
    QCOMPARE(console.window->windowTitle(), TitleOf(path));
    QCOMPARE(console.Find<QLineEdit>("lblPNG(2)")->text(), "2.0");
    QVERIFY(console.TakesEdits());
}

QTEST_MAIN(OpenCommandTest)
#include "opencommand_test.moc"
