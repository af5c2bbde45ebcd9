#include "files/configfile.h"
#include "support/ui/consoleprocess.h"

#include <QFile>
#include <QTest>

using namespace kelvo;

/// The console as a program: started, listened to and ended.
class CommandLineTest : public QObject {
    Q_OBJECT

  private slots:
    void aBadCommandLineIsOneLineAndTwo_data();
    void aBadCommandLineIsOneLineAndTwo();
    void helpAndVersionArePrinted_data();
    void helpAndVersionArePrinted();
    void theSimulatedUnitIsConnectedAndLogged();
    void aNamedFileIsOpenedAfterTheStart();
    void aSecondConsoleOnTheSameFolderTakesNoSnapshot();
};

namespace {

QByteArray ContentOf(const QString &path)
{
    QFile file(path);
    return file.open(QFile::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

void CommandLineTest::aBadCommandLineIsOneLineAndTwo_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::newRow("an unknown option") << QStringList{"--simulated"};
    QTest::newRow("a short option") << QStringList{"-s"};
    QTest::newRow("an option with a value it does not take") << QStringList{"--simulate=yes"};
    QTest::newRow("an option without its value") << QStringList{"--simulate", "--log"};
    QTest::newRow("two files") << QStringList{"a.zcf", "b.zcf"};
    QTest::newRow("a program directory that is none") << QStringList{"--program-dir", "/no/such/folder"};
    QTest::newRow("a log that cannot be written")
        << QStringList{"--simulate", "--log", "/no/such/folder/log"};
}

void CommandLineTest::aBadCommandLineIsOneLineAndTwo()
{
    QFETCH(QStringList, arguments);
    ConsoleProcess console(arguments);
    QVERIFY(console.process.waitForFinished());
    QCOMPARE(console.process.exitStatus(), QProcess::NormalExit);
    QCOMPARE(console.process.exitCode(), 2);
    QByteArrayList lines = console.process.readAllStandardError().split('\n');
    lines.removeIf([](const QByteArray &line) { return !line.startsWith("kelvo-console: "); });
    QCOMPARE(lines.size(), 1);
    QCOMPARE(console.process.readAllStandardOutput(), QByteArray());
}

void CommandLineTest::helpAndVersionArePrinted_data()
{
    QTest::addColumn<QString>("option");
    QTest::addColumn<QByteArray>("first");
    QTest::newRow("version") << "--version" << QByteArray("kelvo-console 1.");
    QTest::newRow("help") << "--help" << QByteArray("kelvo-console [options] [FILE]");
}

void CommandLineTest::helpAndVersionArePrinted()
{
    QFETCH(QString, option);
    QFETCH(QByteArray, first);
    ConsoleProcess console({option});
    QVERIFY(console.process.waitForFinished());
    QCOMPARE(console.process.exitCode(), 0);
    const QByteArray text = console.process.readAllStandardOutput();
    QVERIFY(text.startsWith(first));
    if (option == "--help") {
        for (const char *name : {"--simulate", "--library", "--program-dir", "--log", "--version"})
            QVERIFY(text.contains(name));
    }
}

void CommandLineTest::theSimulatedUnitIsConnectedAndLogged()
{
    QTemporaryDir folder;
    const QString log = folder.filePath("calls.log");
    ConsoleProcess console({"--simulate", "--program-dir", folder.path(), "--log=" + log});
    QTRY_VERIFY(ContentOf(log).count("< StopStream 0 ()") == 2);
    QTRY_VERIFY(QFile::exists(folder.filePath("temp.qm4")));
}

void CommandLineTest::aNamedFileIsOpenedAfterTheStart()
{
    QTemporaryDir folder;
    RoomSettings room;
    room.FaderLevel = 21;
    QVERIFY(!SaveConfigFile(folder.filePath("room.zcf").toStdString(), room));
    const QString log = folder.filePath("calls.log");
    ConsoleProcess console(
        {"--simulate", "--program-dir", folder.path(), "--log", log, folder.filePath("room.zcf")});
    QTRY_VERIFY(ContentOf(log).contains("< SetVol 0 ()"));
    const QByteArray calls = ContentOf(log);
    QVERIFY(calls.lastIndexOf("StopStream") < calls.indexOf("> SetVol(21)"));
}

void CommandLineTest::aSecondConsoleOnTheSameFolderTakesNoSnapshot()
{
    QTemporaryDir folder;
    const QString log = folder.filePath("calls.log");
    ConsoleProcess first({"--simulate", "--program-dir", folder.path()});
    const QString snapshot = folder.filePath("temp.qm4");
    QTRY_VERIFY(QFile::exists(snapshot));
    QVERIFY(QFile::remove(snapshot));
    ConsoleProcess second({"--simulate", "--program-dir", folder.path(), "--log", log});
    // Its first poll comes after its start-up is over.
    QTRY_VERIFY_WITH_TIMEOUT(ContentOf(log).count("> GetVol()") == 2, 10000);
    QVERIFY(!QFile::exists(snapshot));
}

QTEST_MAIN(CommandLineTest)
#include "commandline_test.moc"
