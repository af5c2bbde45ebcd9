#include "support/ui/samplesettings.h"

#include <QAction>
#include <QDir>
#include <QFileDialog>
#include <QLabel>
#include <QMenu>
#include <QSettings>

using namespace kelvo;

class RecentFilesTest : public QObject {
    Q_OBJECT

  private slots:
    void theyStandWithTheGuideAtTheEndOfTheMenu();
    void nothingIsListedBeforeTheFirstFile();
    void filesOpenedAndSavedAreListedNewestFirst();
    void twelveAreKept();
    void eachTellsItsRoom_data();
    void eachTellsItsRoom();
    void anOldFileTellsNothingOfTheRoomBeforeIt();
    void aListedFileOpensAsOpenDoes();
    void theQuestionComesFirst_data();
    void theQuestionComesFirst();
    void aFileThatIsGoneIsToldAndLeavesTheList();
    void aDamagedFileIsToldAndStays();
    void theUnitsFormerSettingsAreNeverListed();
    void theListOutlivesTheRun();
    void aDamagedMemoryIsIgnored_data();
    void aDamagedMemoryIsIgnored();
    void theDialogsStartInTheFolderOfTheLastFile();
    void theFolderOutlivesTheRunAndItsLoss();
};

namespace {

/// The submenu's items as they stand there once the menu Tools is opened.
QList<QAction *> Listed(const ConsoleUnderTest &console)
{
    emit console.Find<QMenu>("mnuTools")->aboutToShow();
    return console.Find<QMenu>("mnuRecent")->actions();
}

QStringList Captions(const ConsoleUnderTest &console)
{
    QStringList captions;
    for (const QAction *action : Listed(console))
        captions += action->text();
    return captions;
}

QString WriteRoom(const ConsoleUnderTest &console, const QString &name, const std::string &theater,
                  const std::string &screen)
{
    RoomSettings room;
    ResetAll(room);
    room.TheaterInfo[1] = theater;
    room.TheaterInfo[8] = screen;
    [&] { QVERIFY(!SaveConfigFile(console.File(name.toUtf8()).toStdString(), room)); }();
    return console.File(name.toUtf8());
}

/// Where the next file dialog starts.
QString StartOf(ConsoleUnderTest &console, const char *action)
{
    QString folder;
    console.WithNextDialog([&folder](QDialog *dialog) {
        folder = qobject_cast<QFileDialog *>(dialog)->directory().absolutePath();
        dialog->reject();
    });
    console.Trigger(action);
    return folder;
}

} // namespace

void RecentFilesTest::theyStandWithTheGuideAtTheEndOfTheMenu()
{
    ConsoleUnderTest console;
    QStringList names;
    for (const QAction *action : console.Find<QMenu>("mnuTools")->actions())
        names += action->isSeparator() ? "-" : action->objectName();
    QCOMPARE(names.mid(names.size() - 4), (QStringList{"mnuVerify", "-", "mnuRecent", "mnuGuide"}));
}

void RecentFilesTest::nothingIsListedBeforeTheFirstFile()
{
    ConsoleUnderTest console;
    QCOMPARE(Captions(console), QStringList());
    QVERIFY(!console.Action("mnuRecent")->isEnabled());
    QCOMPARE(console.Action("mnuRecent")->text(), "Recent Files");
    Open(console, "");
    QCOMPARE(Captions(console), QStringList());
}

void RecentFilesTest::filesOpenedAndSavedAreListedNewestFirst()
{
    ConsoleUnderTest console;
    Open(console, WriteSample(console, "first.zcf"));
    Open(console, WriteSample(console, "second.zcf"));
    QCOMPARE(Captions(console), (QStringList{"second.zcf - Odeon 3", "first.zcf - Odeon 3"}));
    QVERIFY(console.Action("mnuRecent")->isEnabled());
    console.ChooseNextFile(console.File("third.zcf"));
    console.Trigger("mnuSaveAs");
    Open(console, console.File("first.zcf"));
    QCOMPARE(Captions(console),
             (QStringList{"first.zcf - Odeon 3", "third.zcf - Odeon 3", "second.zcf - Odeon 3"}));
    // A save tells what stands in the file from now on.
    console.room.TheaterInfo[1] = "Rex";
    console.Trigger("mnuSave");
    QCOMPARE(Captions(console).constFirst(), "first.zcf - Rex");
    QCOMPARE(Listed(console).constFirst()->toolTip(), QDir::toNativeSeparators(console.File("first.zcf")));
    QVERIFY(console.Find<QMenu>("mnuRecent")->toolTipsVisible());
}

void RecentFilesTest::twelveAreKept()
{
    ConsoleUnderTest console;
    for (int file = 1; file <= 14; ++file)
        QVERIFY(console.window->OpenFile(WriteRoom(console, QString("%1.zcf").arg(file), "", "")));
    const QStringList captions = Captions(console);
    QCOMPARE(captions.size(), 12);
    QCOMPARE(captions.constFirst(), "14.zcf");
    QCOMPARE(captions.constLast(), "3.zcf");
}

void RecentFilesTest::eachTellsItsRoom_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("theater");
    QTest::addColumn<QString>("screen");
    QTest::addColumn<QString>("caption");
    QTest::newRow("theatre and screen") << "a.zcf"
                                        << "Odeon"
                                        << "3"
                                        << "a.zcf - Odeon, screen 3";
    QTest::newRow("a screen alone") << "a.zcf"
                                    << ""
                                    << "3"
                                    << "a.zcf - screen 3";
    QTest::newRow("neither") << "a.zcf"
                             << ""
                             << ""
                             << "a.zcf";
    QTest::newRow("a sign that would be a key") << "a&b.zcf"
                                                << "R & B"
                                                << ""
                                                << "a&&b.zcf - R && B";
    QTest::newRow("a name without end") << "a.zcf" << QString(300, 'x') << ""
                                        << "a.zcf - " + QString(39, 'x') + QChar(0x2026);
}

void RecentFilesTest::eachTellsItsRoom()
{
    QFETCH(QString, name);
    QFETCH(QString, theater);
    QFETCH(QString, screen);
    QFETCH(QString, caption);
    ConsoleUnderTest console;
    Open(console, WriteRoom(console, name, theater.toStdString(), screen.toStdString()));
    QCOMPARE(Captions(console), QStringList{caption});
}

void RecentFilesTest::anOldFileTellsNothingOfTheRoomBeforeIt()
{
    ConsoleUnderTest console;
    Open(console, WriteSample(console));
    QFile old(console.File("old.cfg"));
    QVERIFY(old.open(QFile::WriteOnly) && old.write(QByteArray(352, '\0')) == 352);
    old.close();
    Open(console, old.fileName());
    QCOMPARE(console.room.TheaterInfo[1], "Odeon 3"); // it has no texts, so these stand
    QCOMPARE(Captions(console), (QStringList{"old.cfg", "sample.zcf - Odeon 3"}));
}

void RecentFilesTest::aListedFileOpensAsOpenDoes()
{
    ConsoleUnderTest console;
    const QString sample = WriteSample(console);
    Open(console, sample);
    Open(console, WriteRoom(console, "other.zcf", "", ""));
    console.Forget();
    Listed(console).constLast()->trigger();
    QCOMPARE(console.window->windowTitle(), TitleOf(sample));
    QCOMPARE(console.Calls(), (Calls{"SetVol 42", "SelectFormat 2", "SetMute -1"}));
    QCOMPARE(console.Find<QLineEdit>("lblPNG(2)")->text(), "2.0");
    QCOMPARE(Captions(console), (QStringList{"sample.zcf - Odeon 3", "other.zcf"}));
}

void RecentFilesTest::theQuestionComesFirst_data()
{
    QTest::addColumn<bool>("save");
    QTest::newRow("yes") << true;
    QTest::newRow("no") << false;
}

void RecentFilesTest::theQuestionComesFirst()
{
    QFETCH(bool, save);
    ConsoleUnderTest console;
    const QString first = WriteRoom(console, "first.zcf", "", "");
    const QString second = WriteRoom(console, "second.zcf", "", "");
    Open(console, first);
    Open(console, second);
    console.room.TheaterInfo[0] = "changed";
    console.file.SettingsChanged = true;
    console.AnswerNextBox("Save?", save ? QMessageBox::Yes : QMessageBox::No,
                          "Do you want to save your changes?");
    Listed(console).constLast()->trigger();
    QVERIFY(console.AllBoxesSeen());
    QCOMPARE(console.window->windowTitle(), TitleOf(first));
    RoomSettings saved;
    QVERIFY(!LoadConfigFile(second.toStdString(), saved));
    QCOMPARE(saved.TheaterInfo[0], save ? "changed" : "");
}

void RecentFilesTest::aFileThatIsGoneIsToldAndLeavesTheList()
{
    ConsoleUnderTest console;
    Open(console, WriteRoom(console, "gone.zcf", "", ""));
    Open(console, WriteRoom(console, "here.zcf", "", ""));
    QVERIFY(QFile::remove(console.File("gone.zcf")));
    QCOMPARE(Captions(console), (QStringList{"here.zcf", "gone.zcf"}));
    console.AnswerNextBox("File Error", QMessageBox::Ok);
    Listed(console).constLast()->trigger();
    QVERIFY(console.AllBoxesSeen());
    QCOMPARE(Captions(console), QStringList{"here.zcf"});
    QCOMPARE(console.window->windowTitle(), TitleOf(console.File("here.zcf")));
}

void RecentFilesTest::aDamagedFileIsToldAndStays()
{
    ConsoleUnderTest console;
    const QString path = WriteRoom(console, "a.zcf", "", "");
    Open(console, path);
    QFile file(path);
    QVERIFY(file.open(QFile::WriteOnly));
    file.close();
    console.AnswerNextBox("File Error", QMessageBox::Ok);
    Listed(console).constFirst()->trigger();
    QVERIFY(console.AllBoxesSeen());
    QCOMPARE(Captions(console), QStringList{"a.zcf"});
}

void RecentFilesTest::theUnitsFormerSettingsAreNeverListed()
{
    QTemporaryDir memory;
    const auto withMemory = [&memory](ConsoleUnderTest &test) {
        test.places.memoryFile = memory.filePath("windows.conf");
    };
    {
        ConsoleUnderTest console(OnLine, Tab::FormatSelection, withMemory);
        Open(console, WriteSample(console));
        QVERIFY(QFile::exists(console.File("temp.qm4")));
        QVERIFY(console.window->OpenFile(console.File("temp.qm4")));
        QCOMPARE(Captions(console), QStringList{"sample.zcf - Odeon 3"});
        console.AnswerNextBox("Revert?", QMessageBox::Yes);
        console.window->close();
    }
    ConsoleUnderTest console(OnLine, Tab::FormatSelection, withMemory);
    QCOMPARE(Captions(console), QStringList{"sample.zcf - Odeon 3"});
}

void RecentFilesTest::theListOutlivesTheRun()
{
    QTemporaryDir folder;
    const auto withMemory = [&folder](ConsoleUnderTest &test) {
        test.places.memoryFile = folder.filePath("windows.conf");
    };
    const QString path = folder.filePath("kept.zcf");
    {
        ConsoleUnderTest console(OnLine, Tab::FormatSelection, withMemory);
        QVERIFY(QFile::copy(WriteRoom(console, "kept.zcf", "R\xc3\xa9publique", "4"), path));
        Open(console, path);
    }
    ConsoleUnderTest console(OnLine, Tab::FormatSelection, withMemory);
    QCOMPARE(Captions(console), QStringList{QString::fromUtf8("kept.zcf - R\xc3\xa9publique, screen 4")});
    Listed(console).constFirst()->trigger();
    QCOMPARE(console.window->windowTitle(), TitleOf(path));
}

void RecentFilesTest::aDamagedMemoryIsIgnored_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::newRow("noise") << QByteArray("\0\xff[recentFiles\nsize=x", 22);
    QTest::newRow("a count without files") << QByteArray("[recentFiles]\nsize=2000000000\n");
    QTest::newRow("a negative count") << QByteArray("[recentFiles]\nsize=-5\n1\\file=/a.zcf\n");
    QTest::newRow("files without a path")
        << QByteArray("[recentFiles]\nsize=2\n1\\theater=Odeon\n2\\file=\n");
    QTest::newRow("a value of another kind")
        << QByteArray("[recentFiles]\nsize=1\n1\\file=@Variant(\\0\\0\\0\\xff)\n");
}

void RecentFilesTest::aDamagedMemoryIsIgnored()
{
    QFETCH(QByteArray, content);
    ConsoleUnderTest console(OnLine, Tab::FormatSelection, [&content](ConsoleUnderTest &test) {
        QFile file(test.places.memoryFile);
        QVERIFY(file.open(QFile::WriteOnly) && file.write(content) == content.size());
    });
    QCOMPARE(Captions(console), QStringList());
    Open(console, WriteSample(console));
    QCOMPARE(Captions(console), QStringList{"sample.zcf - Odeon 3"});
}

void RecentFilesTest::theDialogsStartInTheFolderOfTheLastFile()
{
    ConsoleUnderTest console;
    QVERIFY(QDir(console.places.programDirectory).mkdir("rooms"));
    const QString folder = QDir(console.File("rooms")).absolutePath();
    const QString path = WriteRoom(console, "rooms/a.zcf", "", "");
    QVERIFY(StartOf(console, "mnuLoad") != folder);
    QVERIFY(console.window->OpenFile(path));
    QCOMPARE(StartOf(console, "mnuLoad"), folder);
    QCOMPARE(StartOf(console, "mnuSaveAs"), folder);
    // New is a fresh name in the same place.
    console.Trigger("mnuNew");
    console.WithNextDialog([&folder](QDialog *dialog) {
        auto *files = qobject_cast<QFileDialog *>(dialog);
        QCOMPARE(files->directory().absolutePath(), folder);
        QCOMPARE(files->findChild<QLineEdit *>("fileNameEdit")->text(), "Untitled.zcf");
        dialog->reject();
    });
    console.Trigger("mnuSaveAs");
    QCOMPARE(StartOf(console, "mnuLoad"), folder);
}

void RecentFilesTest::theFolderOutlivesTheRunAndItsLoss()
{
    QTemporaryDir folder;
    const auto withMemory = [&folder](ConsoleUnderTest &test) {
        test.places.memoryFile = folder.filePath("windows.conf");
    };
    QVERIFY(QDir(folder.path()).mkdir("rooms"));
    const QString rooms = folder.filePath("rooms");
    {
        ConsoleUnderTest console(OnLine, Tab::FormatSelection, withMemory);
        QVERIFY(QFile::copy(WriteRoom(console, "a.zcf", "", ""), rooms + "/a.zcf"));
        QVERIFY(console.window->OpenFile(rooms + "/a.zcf"));
    }
    ConsoleUnderTest console(OnLine, Tab::FormatSelection, withMemory);
    QCOMPARE(StartOf(console, "mnuLoad"), QDir(rooms).absolutePath());
    QVERIFY(QDir(rooms).removeRecursively());
    QVERIFY(StartOf(console, "mnuLoad") != QDir(rooms).absolutePath());
}

QTEST_MAIN(RecentFilesTest)
#include "recentfiles_test.moc"
