#include "support/ui/samplesettings.h"

#include <QAction>
#include <QComboBox>
#include <QDir>
#include <QFileDialog>
#include <QLabel>
#include <QPushButton>

using namespace kelvo;

class SaveCommandsTest : public QObject {
    Q_OBJECT

  private slots:
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

void SaveCommandsTest::saveWritesTheOpenFileWithTheChannelBeingEdited()
{
    ConsoleUnderTest console(OnLine, Tab::Eq);
    const QString path = WriteSample(console);
    Open(console, path);
    console.Type("lblBass", "-2");
    QVERIFY(console.file.SettingsChanged);
    console.Trigger("mnuSave");
    QVERIFY(!console.file.SettingsChanged);
    QCOMPARE(console.window->windowTitle(), TitleOf(path));
    RoomSettings saved;
    QVERIFY(!LoadConfigFile(path.toStdString(), saved));
    QCOMPARE(saved.Audio.ChannelEq[Left].BassLevel, Byte(12));
}

void SaveCommandsTest::saveWithoutANameGoesThroughSaveAs()
{
    ConsoleUnderTest console;
    QVERIFY(console.Action("mnuSave")->isEnabled());
    console.ChooseNextFile(console.File("first.zcf"));
    console.Trigger("mnuSave");
    QVERIFY(QFile::exists(console.File("first.zcf")));
    QCOMPARE(console.window->windowTitle(), TitleOf(console.File("first.zcf")));
}

void SaveCommandsTest::saveAsProposesAName_data()
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

void SaveCommandsTest::saveAsProposesAName()
{
    QFETCH(QString, theater);
    QFETCH(QString, proposal);
    ConsoleUnderTest console;
    console.room.TheaterInfo[1] = theater.toStdString();
    console.WithNextDialog([&](QDialog *dialog) {
        auto *files = qobject_cast<QFileDialog *>(dialog);
        QCOMPARE(files->findChild<QLineEdit *>("fileNameEdit")->text(), proposal);
        QCOMPARE(files->nameFilters(), QStringList{"Kelvo Zentra Config Files (*.zcf)"});
        QCOMPARE(files->defaultSuffix(), "");
        dialog->reject();
    });
    console.Trigger("mnuSaveAs");
}

void SaveCommandsTest::saveAsTakesTheNameAsItStands()
{
    ConsoleUnderTest console;
    console.file.SettingsChanged = true;
    console.AnswerNextBox("Save?", QMessageBox::No);
    console.Trigger("mnuNew");
    QVERIFY(!console.Action("mnuSave")->isEnabled());
    console.ChooseNextFile(console.File("no suffix"));
    console.Trigger("mnuSaveAs");
    QVERIFY(QFile::exists(console.File("no suffix")));
    QVERIFY(console.Action("mnuSave")->isEnabled());
    QCOMPARE(console.file.CurrentFileName, console.File("no suffix").toStdString());
    QCOMPARE(console.window->windowTitle(), TitleOf(console.File("no suffix")));
}

void SaveCommandsTest::aCancelledSaveAsWritesNothing()
{
    ConsoleUnderTest console;
    console.file.SettingsChanged = true;
    console.ChooseNextFile("");
    console.Trigger("mnuSaveAs");
    QVERIFY(console.file.SettingsChanged);
    QCOMPARE(console.file.CurrentFileName, std::string());
    QCOMPARE(console.window->windowTitle(), "Kelvo Cinema Processor and EQ Software   <CP Settings>");
}

void SaveCommandsTest::aFailedSaveKeepsTitleNameAndChange()
{
    ConsoleUnderTest console;
    const QString path = WriteSample(console);
    Open(console, path);
    console.file.SettingsChanged = true;
    const QString folder = console.File("folder.zcf");
    QVERIFY(QDir().mkdir(folder));
    console.file.CurrentFileName = folder.toStdString();
    console.AnswerNextBox("File Error", QMessageBox::Ok, {}, [&] {
        QVERIFY(console.OpenBox()->text().startsWith("Cannot save " + folder + ": "));
        QVERIFY(console.OpenBox()->text().endsWith("."));
        QCOMPARE(console.OpenBox()->icon(), QMessageBox::Warning);
    });
    console.Trigger("mnuSave");
    QVERIFY(console.file.SettingsChanged);
    QCOMPARE(console.window->windowTitle(), TitleOf(path));
}

void SaveCommandsTest::saveIsCalledOffByABadValue()
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

void SaveCommandsTest::newShowsTheDefaultsAndSendsNothing()
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

void SaveCommandsTest::newKeepsTheNameAndDisablesSave()
{
    ConsoleUnderTest console;
    const QString path = WriteSample(console);
    Open(console, path);
    console.Trigger("mnuNew");
    QCOMPARE(console.file.CurrentFileName, path.toStdString());
    QVERIFY(!console.file.FileLoaded);
    QVERIFY(!console.Action("mnuSave")->isEnabled());
}

void SaveCommandsTest::newAsksForAChangeAndSavesThroughSaveAs()
{
    ConsoleUnderTest console;
    console.file.SettingsChanged = true;
    console.AnswerNextBox("Save?", QMessageBox::Yes, "Do you want to save your changes?");
    console.ChooseNextFile(console.File("kept.zcf"));
    console.Trigger("mnuNew");
    QVERIFY(QFile::exists(console.File("kept.zcf")));
    QCOMPARE(console.window->windowTitle(), Untitled);
    QVERIFY(!console.file.SettingsChanged);
}

void SaveCommandsTest::newIsCalledOffWhenItsSaveIs()
{
    ConsoleUnderTest console;
    console.file.SettingsChanged = true;
    console.room.TheaterInfo[0] = "typed";
    console.AnswerNextBox("Save?", QMessageBox::Yes);
    console.ChooseNextFile("");
    console.Trigger("mnuNew");
    QCOMPARE(console.room.TheaterInfo[0], "typed");
    QVERIFY(console.file.SettingsChanged);
}

void SaveCommandsTest::newAfterNewNeverOverwritesTheFileBefore()
{
    ConsoleUnderTest console;
    const QString path = WriteSample(console);
    Open(console, path);
    console.Trigger("mnuNew");
    const QByteArray before = ContentOf(path);
    console.file.SettingsChanged = true;
    console.AnswerNextBox("Save?", QMessageBox::Yes);
    console.ChooseNextFile(console.File("other.zcf"));
    console.Trigger("mnuNew");
    QCOMPARE(ContentOf(path), before);
    QVERIFY(QFile::exists(console.File("other.zcf")));
}

void SaveCommandsTest::whatIsTypedIsSavedByTheQuestion()
{
    ConsoleUnderTest console(OnLine, Tab::OutputTrim);
    const QString path = WriteSample(console);
    Open(console, path);
    console.TypeOnly("lblPNG(0)", "1.5");
    console.AnswerNextBox("Save?", QMessageBox::Yes);
    console.Trigger("mnuNew");
    RoomSettings saved;
    QVERIFY(!LoadConfigFile(path.toStdString(), saved));
    QCOMPARE(saved.Audio.ChannelTrim[Left], Byte(9));
    QCOMPARE(console.Find<QLineEdit>("lblPNG(0)")->text(), "0.0");
}

QTEST_MAIN(SaveCommandsTest)
#include "savecommands_test.moc"
