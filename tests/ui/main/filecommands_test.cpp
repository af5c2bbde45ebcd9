#include "support/ui/consoleundertest.h"

#include "files/configfile.h"

#include <QAction>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QLabel>
#include <QPushButton>

using namespace kelvo;

class FileCommandsTest : public QObject {
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
    void saveWritesTheOpenFileWithTheChannelBeingEdited();
    void saveWithoutANameGoesThroughSaveAs();
    void saveAsProposesAName_data();
    void saveAsProposesAName();
    void saveAsTakesTheNameAsItStands();
    void aCancelledSaveAsWritesNothing();
    void aFailedSaveKeepsTitleNameAndChange();
    void saveIsCalledOffByABadValue();
    void newShowsTheDefaultsAndSendsNothing();
    void newKeepsTheNameAndDisablesSave();
    void newAsksForAChangeAndSavesThroughSaveAs();
    void newIsCalledOffWhenItsSaveIs();
    void newAfterNewNeverOverwritesTheFileBefore();
    void whatIsTypedIsSavedByTheQuestion();
};

namespace {

constexpr auto Untitled = "Kelvo Cinema Processor and EQ Software   <Untitled>";

QString TitleOf(const QString &path)
{
    return "Kelvo Cinema Processor and EQ Software   <" + path + ">";
}

/// A settings file with something to see on every tab.
QString WriteSample(const ConsoleUnderTest &console, const char *name = "sample.zcf")
{
    Settings sample;
    ResetAll(sample);
    sample.FaderLevel = 42;
    sample.MuteState = True;
    sample.CurrentFormat = 2;
    sample.Audio.ChannelTrim[Center] = 8;
    sample.Audio.ChannelEq[Left].BassLevel = 7;
    sample.Audio.ObeFreq = 3;
    sample.System.SurroundDelay = 5;
    sample.TheaterInfo[1] = "Odeon 3";
    sample.CurrentFileName = console.File(name).toStdString();
    [&] { QVERIFY(!SaveConfigFile(sample)); }();
    return console.File(name);
}

void Open(ConsoleUnderTest &console, const QString &path)
{
    console.ChooseNextFile(path);
    console.Trigger("mnuLoad");
}

QByteArray ContentOf(const QString &path)
{
    QFile file(path);
    return file.open(QFile::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

void FileCommandsTest::openSendsFaderFormatAndMuteOnceInOrder()
{
    ConsoleUnderTest console;
    Open(console, WriteSample(console));
    QCOMPARE(console.Calls(), (Calls{"SetVol 42", "SelectFormat 2", "SetMute -1"}));
    QVERIFY(console.Find<QTimer>("tmrPoll")->isActive());
    QVERIFY(!console.settings.Updating);
}

void FileCommandsTest::openShowsTheFileEverywhere()
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
    QVERIFY(console.settings.FileLoaded);
    QVERIFY(!console.settings.SettingsChanged);
    // The records wait for the upload command.
    QVERIFY(console.Find<QLabel>("lblSent")->text().contains("not in the unit - F2"));
}

void FileCommandsTest::openOffLineSendsNothingAndStillShows()
{
    ConsoleUnderTest console(OffLine);
    const QString path = WriteSample(console);
    Open(console, path);
    QCOMPARE(console.Calls(), Calls());
    QCOMPARE(console.window->windowTitle(), TitleOf(path));
    QCOMPARE(console.Find<QLineEdit>("lblPNG(2)")->text(), "2.0");
}

void FileCommandsTest::openTakesAnOldFileAndLeavesTheLiveValues()
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

void FileCommandsTest::aFileThatIsNoneIsToldAndChangesNothing_data()
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

void FileCommandsTest::aFileThatIsNoneIsToldAndChangesNothing()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, content);
    ConsoleUnderTest console;
    const QString good = WriteSample(console);
    Open(console, good);
    console.settings.SettingsChanged = true;
    console.Forget();
    const Settings before = console.settings;
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
    QCOMPARE(console.settings.CurrentFileName, before.CurrentFileName);
    QVERIFY(console.settings.SettingsChanged);
    QVERIFY(console.settings.FileLoaded);
    QVERIFY(ComposeConfig(console.settings) == ComposeConfig(before));
    QVERIFY(!console.settings.Updating);
    QVERIFY(console.Find<QTimer>("tmrPoll")->isActive());
}

void FileCommandsTest::aCancelledOpenChangesNothing()
{
    ConsoleUnderTest console;
    Open(console, "");
    QCOMPARE(console.Calls(), Calls());
    QCOMPARE(console.window->windowTitle(), "Kelvo Cinema Processor and EQ Software   <CP Settings>");
    QVERIFY(console.Find<QTimer>("tmrPoll")->isActive());
}

void FileCommandsTest::openAsksOnlyForALoadedFileWithAChange_data()
{
    QTest::addColumn<bool>("loaded");
    QTest::addColumn<bool>("changed");
    QTest::newRow("nothing loaded, changed") << false << true;
    QTest::newRow("loaded, unchanged") << true << false;
    QTest::newRow("loaded and changed") << true << true;
}

void FileCommandsTest::openAsksOnlyForALoadedFileWithAChange()
{
    QFETCH(bool, loaded);
    QFETCH(bool, changed);
    ConsoleUnderTest console;
    const QString path = WriteSample(console);
    if (loaded)
        Open(console, path);
    console.settings.SettingsChanged = changed;
    console.settings.TheaterInfo[0] = "changed";
    if (loaded && changed)
        console.AnswerNextBox("Save?", QMessageBox::Yes, "Do you want to save your changes?",
                              [&console] { QCOMPARE(console.OpenBox()->icon(), QMessageBox::Question); });
    Open(console, path);
    QVERIFY(console.AllBoxesSeen());
    // Yes has saved the change before the same file is opened again.
    QCOMPARE(console.settings.TheaterInfo[0], loaded && changed ? "changed" : "");
}

void FileCommandsTest::theOpenDialogNamesBothFormats()
{
    ConsoleUnderTest console;
    console.WithNextDialog([](QDialog *dialog) {
        const QStringList filters{"Kelvo Zentra Config Files (*.zcf)", "Old Config File format (*.cfg)"};
        QCOMPARE(qobject_cast<QFileDialog *>(dialog)->nameFilters(), filters);
        dialog->reject();
    });
    console.Trigger("mnuLoad");
}

void FileCommandsTest::openLeavesThePollOffWhileAStreamRuns()
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

void FileCommandsTest::aLinkLostWhileOpeningStillShowsTheFile()
{
    ConsoleUnderTest console;
    const QString path = WriteSample(console);
    console.unit.FailNext("SelectFormat", 2, 6);
    console.ChooseNextFile(path);
    console.AnswerNextBox("Connection Error", QMessageBox::Ok);
    console.Trigger("mnuLoad");
    QCOMPARE(console.Find<QLabel>("lblStat")->text(), "Off Line");
    QCOMPARE(console.window->windowTitle(), TitleOf(path));
    QCOMPARE(console.Find<QLineEdit>("lblPNG(2)")->text(), "2.0");
    QVERIFY(!console.settings.Updating);
}

void FileCommandsTest::saveWritesTheOpenFileWithTheChannelBeingEdited()
{
    ConsoleUnderTest console(OnLine, Tab::Eq);
    const QString path = WriteSample(console);
    Open(console, path);
    console.Type("lblBass", "-2");
    QVERIFY(console.settings.SettingsChanged);
    console.Trigger("mnuSave");
    QVERIFY(!console.settings.SettingsChanged);
    QCOMPARE(console.window->windowTitle(), TitleOf(path));
    Settings saved;
    QVERIFY(!LoadConfigFile(path.toStdString(), saved));
    QCOMPARE(saved.Audio.ChannelEq[Left].BassLevel, Byte(12));
}

void FileCommandsTest::saveWithoutANameGoesThroughSaveAs()
{
    ConsoleUnderTest console;
    QVERIFY(console.Action("mnuSave")->isEnabled());
    console.ChooseNextFile(console.File("first.zcf"));
    console.Trigger("mnuSave");
    QVERIFY(QFile::exists(console.File("first.zcf")));
    QCOMPARE(console.window->windowTitle(), TitleOf(console.File("first.zcf")));
}

void FileCommandsTest::saveAsProposesAName_data()
{
    QTest::addColumn<QString>("theater");
    QTest::addColumn<QString>("proposal");
    QTest::newRow("no theater name") << ""
                                     << "Untitled.zcf";
    QTest::newRow("a theater name") << "Odeon 3"
                                    << "Odeon 3.zcf";
    QTest::newRow("characters no file can hold") << "Odeon 3/4: \"Rex\"?"
                                                 << "Odeon 3-4- -Rex--.zcf";
}

void FileCommandsTest::saveAsProposesAName()
{
    QFETCH(QString, theater);
    QFETCH(QString, proposal);
    ConsoleUnderTest console;
    console.settings.TheaterInfo[1] = theater.toStdString();
    console.WithNextDialog([&](QDialog *dialog) {
        auto *files = qobject_cast<QFileDialog *>(dialog);
        QCOMPARE(files->findChild<QLineEdit *>("fileNameEdit")->text(), proposal);
        QCOMPARE(files->nameFilters(), QStringList{"Kelvo Zentra Config Files (*.zcf)"});
        QCOMPARE(files->defaultSuffix(), "");
        dialog->reject();
    });
    console.Trigger("mnuSaveAs");
}

void FileCommandsTest::saveAsTakesTheNameAsItStands()
{
    ConsoleUnderTest console;
    console.settings.SettingsChanged = true;
    console.AnswerNextBox("Save?", QMessageBox::No);
    console.Trigger("mnuNew");
    QVERIFY(!console.Action("mnuSave")->isEnabled());
    console.ChooseNextFile(console.File("no suffix"));
    console.Trigger("mnuSaveAs");
    QVERIFY(QFile::exists(console.File("no suffix")));
    QVERIFY(console.Action("mnuSave")->isEnabled());
    QCOMPARE(console.settings.CurrentFileName, console.File("no suffix").toStdString());
    QCOMPARE(console.window->windowTitle(), TitleOf(console.File("no suffix")));
}

void FileCommandsTest::aCancelledSaveAsWritesNothing()
{
    ConsoleUnderTest console;
    console.settings.SettingsChanged = true;
    console.ChooseNextFile("");
    console.Trigger("mnuSaveAs");
    QVERIFY(console.settings.SettingsChanged);
    QCOMPARE(console.settings.CurrentFileName, std::string());
    QCOMPARE(console.window->windowTitle(), "Kelvo Cinema Processor and EQ Software   <CP Settings>");
}

void FileCommandsTest::aFailedSaveKeepsTitleNameAndChange()
{
    ConsoleUnderTest console;
    const QString path = WriteSample(console);
    Open(console, path);
    console.settings.SettingsChanged = true;
    const QString folder = console.File("folder.zcf");
    QVERIFY(QDir().mkdir(folder));
    console.settings.CurrentFileName = folder.toStdString();
    console.AnswerNextBox("File Error", QMessageBox::Ok, {}, [&] {
        QVERIFY(console.OpenBox()->text().startsWith("Cannot save " + folder + ": "));
        QVERIFY(console.OpenBox()->text().endsWith("."));
        QCOMPARE(console.OpenBox()->icon(), QMessageBox::Warning);
    });
    console.Trigger("mnuSave");
    QVERIFY(console.settings.SettingsChanged);
    QCOMPARE(console.window->windowTitle(), TitleOf(path));
}

void FileCommandsTest::saveIsCalledOffByABadValue()
{
    ConsoleUnderTest console(OnLine, Tab::OutputTrim);
    const QString path = WriteSample(console);
    Open(console, path);
    const QByteArray before = ContentOf(path);
    console.TypeOnly("lblPNG(0)", "7");
    console.AnswerNextBox("Range Check Error", QMessageBox::Ok);
    console.Trigger("mnuSave");
    QCOMPARE(ContentOf(path), before);
    console.Type("lblPNG(0)", "0");
}

void FileCommandsTest::newShowsTheDefaultsAndSendsNothing()
{
    ConsoleUnderTest console(OnLine, Tab::OutputTrim);
    Open(console, WriteSample(console));
    console.Click("cmdPN(3)");
    console.Click("cmdPhase(1)");
    console.Forget();
    console.Trigger("mnuNew");
    QCOMPARE(console.Calls(), Calls());
    QCOMPARE(console.window->windowTitle(), Untitled);
    QCOMPARE(console.Find<QLineEdit>("lblVol(3)")->text(), "7.0");
    QCOMPARE(console.Find<QPushButton>("cmdMute5")->text(), "Mute");
    QVERIFY(console.Find<QPushButton>("cmdMode(0)")->font().bold());
    QCOMPARE(console.Find<QSlider>("sclPNG(2)")->value(), 12);
    QCOMPARE(console.Find<QLineEdit>("lblBass")->text(), "0");
    QCOMPARE(console.Find<QPushButton>("cmdOBEEnable")->text(), "OBE Disable");
    QCOMPARE(console.Find<QComboBox>("cboSurroundDelay")->currentText(), "0 mS");
    QCOMPARE(console.Find<QLineEdit>("txtTheaterInfo(1)")->text(), "");
    QCOMPARE(console.Find<QPushButton>("cmdPN(3)")->text(), "Off");
    QCOMPARE(console.Find<QPushButton>("cmdPhase(1)")->text(), "In Phase");
    // What the unit still plays is switched off when the tab is left.
    console.GoTo(Tab::FormatSelection);
    QCOMPARE(console.Calls(), (Calls{"SetPink 3 0", "SetPhase 1 0"}));
}

void FileCommandsTest::newKeepsTheNameAndDisablesSave()
{
    ConsoleUnderTest console;
    const QString path = WriteSample(console);
    Open(console, path);
    console.Trigger("mnuNew");
    QCOMPARE(console.settings.CurrentFileName, path.toStdString());
    QVERIFY(!console.settings.FileLoaded);
    QVERIFY(!console.Action("mnuSave")->isEnabled());
}

void FileCommandsTest::newAsksForAChangeAndSavesThroughSaveAs()
{
    ConsoleUnderTest console;
    console.settings.SettingsChanged = true;
    console.AnswerNextBox("Save?", QMessageBox::Yes, "Do you want to save your changes?");
    console.ChooseNextFile(console.File("kept.zcf"));
    console.Trigger("mnuNew");
    QVERIFY(QFile::exists(console.File("kept.zcf")));
    QCOMPARE(console.window->windowTitle(), Untitled);
    QVERIFY(!console.settings.SettingsChanged);
}

void FileCommandsTest::newIsCalledOffWhenItsSaveIs()
{
    ConsoleUnderTest console;
    console.settings.SettingsChanged = true;
    console.settings.TheaterInfo[0] = "typed";
    console.AnswerNextBox("Save?", QMessageBox::Yes);
    console.ChooseNextFile("");
    console.Trigger("mnuNew");
    QCOMPARE(console.settings.TheaterInfo[0], "typed");
    QVERIFY(console.settings.SettingsChanged);
}

void FileCommandsTest::newAfterNewNeverOverwritesTheFileBefore()
{
    ConsoleUnderTest console;
    const QString path = WriteSample(console);
    Open(console, path);
    console.Trigger("mnuNew");
    const QByteArray before = ContentOf(path);
    console.settings.SettingsChanged = true;
    console.AnswerNextBox("Save?", QMessageBox::Yes);
    console.ChooseNextFile(console.File("other.zcf"));
    console.Trigger("mnuNew");
    QCOMPARE(ContentOf(path), before);
    QVERIFY(QFile::exists(console.File("other.zcf")));
}

void FileCommandsTest::whatIsTypedIsSavedByTheQuestion()
{
    ConsoleUnderTest console(OnLine, Tab::OutputTrim);
    const QString path = WriteSample(console);
    Open(console, path);
    console.TypeOnly("lblPNG(0)", "1.5");
    console.AnswerNextBox("Save?", QMessageBox::Yes);
    console.Trigger("mnuNew");
    Settings saved;
    QVERIFY(!LoadConfigFile(path.toStdString(), saved));
    QCOMPARE(saved.Audio.ChannelTrim[Left], Byte(9));
    QCOMPARE(console.Find<QLineEdit>("lblPNG(0)")->text(), "0.0");
}

QTEST_MAIN(FileCommandsTest)
#include "filecommands_test.moc"
