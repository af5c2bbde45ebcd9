#include "support/ui/consoleundertest.h"

#include "files/configfile.h"

#include <QDir>
#include <QFile>
#include <QLineEdit>

using namespace kelvo;

/// The unit's settings as they were found, and what becomes of them.
class SnapshotsTest : public QObject {
    Q_OBJECT

  private slots:
    void theTwoUnitEvening();
    void aReconnectionToTheSameUnitKeepsTheFirstSnapshot();
    void aSnapshotLeftByACrashIsKept();
    void aRevertThatIsNotCompletedKeepsTheSnapshot_data();
    void aRevertThatIsNotCompletedKeepsTheSnapshot();
    void anExitOffLineAfterALostLinkKeepsTheSnapshot();
    void anExitThatWantsNothingBackKeepsNothing();
    void theNewestTwentyAreKeptAndOtherFilesLeftAlone();
    void aFolderThatCannotBeMadeIsToldOnceAndTheSnapshotStays();
    void aSecondConsoleKeepsNothing();
};

namespace {

QStringList KeptIn(const ConsoleUnderTest &console)
{
    return QDir(console.File("snapshots")).entryList({"*.zcf"}, QDir::Files, QDir::Name);
}

int KeptTrim(const ConsoleUnderTest &console, int which, int channel)
{
    RoomSettings kept;
    const QString path = QDir(console.File("snapshots")).filePath(KeptIn(console).at(which));
    if (LoadConfigFile(path.toStdString(), kept))
        return -1;
    return kept.Audio.ChannelTrim[channel];
}

void PullCable(ConsoleUnderTest &console)
{
    console.unit.panel.plugged = false;
    console.AnswerNextBox("Connection Error", QMessageBox::Ok);
    console.Tick("tmrPoll");
}

void ConnectTo(ConsoleUnderTest &console)
{
    console.unit.panel.plugged = true;
    console.Click("cmdConnect");
}

} // namespace

void SnapshotsTest::theTwoUnitEvening()
{
    ConsoleUnderTest console(OnLine, Tab::OutputTrim,
                             [](ConsoleUnderTest &test) { test.unit.audio.ChannelTrim[Left] = 5; });
    console.options.AutoUpload = true;
    console.Type("lblPNG(0)", "0");
    PullCable(console);
    console.unit.audio.ChannelTrim[Left] = 20; // the cable goes to another unit
    ConnectTo(console);
    console.Type("lblPNG(0)", "1");
    QCOMPARE(console.unit.audio.ChannelTrim[Left], Byte(10));
    console.AnswerNextBox("Save?", QMessageBox::No);
    console.AnswerNextBox("Revert?", QMessageBox::Yes);
    QVERIFY(console.window->close());
    QCOMPARE(console.unit.audio.ChannelTrim[Left], Byte(20));
    QVERIFY(!QFile::exists(console.File("temp.qm4")));
    QCOMPARE(KeptIn(console).size(), 1);
    QCOMPARE(KeptTrim(console, 0, Left), 5);
}

void SnapshotsTest::aReconnectionToTheSameUnitKeepsTheFirstSnapshot()
{
    ConsoleUnderTest console(OnLine, Tab::OutputTrim,
                             [](ConsoleUnderTest &test) { test.unit.audio.ChannelTrim[Left] = 5; });
    console.options.AutoUpload = true;
    console.Type("lblPNG(0)", "0");
    PullCable(console);
    ConnectTo(console);
    QVERIFY(KeptIn(console).isEmpty());
    console.file.SettingsChanged = false;
    console.AnswerNextBox("Revert?", QMessageBox::Yes);
    QVERIFY(console.window->close());
    QCOMPARE(console.unit.audio.ChannelTrim[Left], Byte(5));
}

void SnapshotsTest::aSnapshotLeftByACrashIsKept()
{
    ConsoleUnderTest console(OnLine, Tab::FormatSelection, [](ConsoleUnderTest &test) {
        RoomSettings left;
        left.Audio.ChannelTrim[Right] = 17;
        QVERIFY(!SaveConfigFile(test.File("temp.qm4").toStdString(), left));
    });
    QCOMPARE(KeptIn(console).size(), 1);
    QCOMPARE(KeptTrim(console, 0, Right), 17);
    QVERIFY(QFile::exists(console.File("temp.qm4"))); // this run's own
}

void SnapshotsTest::aRevertThatIsNotCompletedKeepsTheSnapshot_data()
{
    QTest::addColumn<QString>("what");
    QTest::newRow("the link is lost on the way") << "link";
    QTest::newRow("No at the upload's question") << "no";
    QTest::newRow("the file cannot be read") << "file";
}

void SnapshotsTest::aRevertThatIsNotCompletedKeepsTheSnapshot()
{
    QFETCH(const QString, what);
    ConsoleUnderTest console(OnLine, Tab::OutputTrim,
                             [](ConsoleUnderTest &test) { test.unit.audio.ChannelTrim[Left] = 5; });
    console.options.AutoUpload = true;
    console.Type("lblPNG(0)", "0");
    console.file.SettingsChanged = false;
    console.AnswerNextBox("Revert?", QMessageBox::Yes);
    if (what == "link") {
        console.unit.FailNext(Operation::SetAudio, 16, 6);
        console.AnswerNextBox("Connection Error", QMessageBox::Ok);
    } else if (what == "no") {
        console.options.AutoUpload = false;
        console.options.ConfirmUpload = true;
        console.AnswerNextBox("Confirm Upload!", QMessageBox::No);
    } else {
        QFile broken(console.File("temp.qm4"));
        QVERIFY(broken.resize(40));
        console.AnswerNextBox("File Error", QMessageBox::Ok);
    }
    QVERIFY(console.window->close());
    QVERIFY(!QFile::exists(console.File("temp.qm4")));
    QCOMPARE(KeptIn(console).size(), 1);
    QCOMPARE(KeptTrim(console, 0, Left), what == "file" ? -1 : 5);
}

void SnapshotsTest::anExitOffLineAfterALostLinkKeepsTheSnapshot()
{
    ConsoleUnderTest console(OnLine, Tab::OutputTrim,
                             [](ConsoleUnderTest &test) { test.unit.audio.ChannelTrim[Left] = 5; });
    PullCable(console);
    QVERIFY(console.window->close());
    QCOMPARE(KeptIn(console).size(), 1);
    QCOMPARE(KeptTrim(console, 0, Left), 5);
}

void SnapshotsTest::anExitThatWantsNothingBackKeepsNothing()
{
    for (const auto answer : {QMessageBox::Yes, QMessageBox::No}) {
        ConsoleUnderTest console;
        console.AnswerNextBox("Revert?", answer);
        QVERIFY(console.window->close());
        QVERIFY(!QFile::exists(console.File("temp.qm4")));
        QVERIFY(KeptIn(console).isEmpty());
    }
}

void SnapshotsTest::theNewestTwentyAreKeptAndOtherFilesLeftAlone()
{
    ConsoleUnderTest console(OnLine, Tab::OutputTrim, [](ConsoleUnderTest &test) {
        const QDir folder(test.File("snapshots"));
        QVERIFY(folder.mkpath("."));
        for (int day = 1; day <= 25; ++day) {
            QFile old(folder.filePath(QString("2023-01-%1 10.00.00.zcf").arg(day, 2, 10, QChar('0'))));
            QVERIFY(old.open(QFile::WriteOnly));
        }
        QFile own(folder.filePath("Rex before the rebuild.zcf"));
        QVERIFY(own.open(QFile::WriteOnly));
    });
    PullCable(console);
    QVERIFY(console.window->close());
    const QStringList kept = KeptIn(console);
    QCOMPARE(kept.size(), 21);
    QCOMPARE(kept.first(), "2023-01-07 10.00.00.zcf");
    QVERIFY(kept.contains("Rex before the rebuild.zcf"));
}

void SnapshotsTest::aFolderThatCannotBeMadeIsToldOnceAndTheSnapshotStays()
{
    ConsoleUnderTest console(OnLine, Tab::OutputTrim, [](ConsoleUnderTest &test) {
        QFile inTheWay(test.File("snapshots"));
        QVERIFY(inTheWay.open(QFile::WriteOnly));
        RoomSettings left;
        left.Audio.ChannelTrim[Right] = 17;
        QVERIFY(!SaveConfigFile(test.File("temp.qm4").toStdString(), left));
    });
    QCOMPARE(console.reports.size(), 1);
    QVERIFY(console.reports[0].startsWith("Cannot keep "));
    RoomSettings stays;
    QVERIFY(!LoadConfigFile(console.File("temp.qm4").toStdString(), stays));
    QCOMPARE(stays.Audio.ChannelTrim[Right], Byte(17));
    QVERIFY(console.window->close()); // and no question offers another run's settings to this unit
    QVERIFY(QFile::exists(console.File("temp.qm4")));
}

void SnapshotsTest::aSecondConsoleKeepsNothing()
{
    ConsoleUnderTest console(OnLine, Tab::FormatSelection, [](ConsoleUnderTest &test) {
        test.places.ownsFiles = false;
        QVERIFY(!SaveConfigFile(test.File("temp.qm4").toStdString(), {}));
    });
    PullCable(console);
    QVERIFY(console.window->close());
    QVERIFY(QFile::exists(console.File("temp.qm4")));
    QVERIFY(!QFile::exists(console.File("snapshots")));
}

QTEST_MAIN(SnapshotsTest)
#include "snapshots_test.moc"
