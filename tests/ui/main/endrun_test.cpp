#include "support/ui/consoleprocess.h"
#include "support/ui/samplesettings.h"

#include <QMenuBar>
#include <QTimer>

#ifdef Q_OS_UNIX
#include <csignal>
#endif

using namespace kelvo;

using Act = std::function<void(ConsoleUnderTest &)>;

/// A run that a signal ends.
class EndRunTest : public QObject {
    Q_OBJECT

  private slots:
    void aSignalEndsTheProgram_data();
    void aSignalEndsTheProgram();
    void whatPlaysIsSwitchedOffAndNobodyIsAsked();
    void whatIsOpenIsClosedAsEscapeWould_data();
    void whatIsOpenIsClosedAsEscapeWould();
    void aCallUnderWayComesToItsEndFirst();
    void theReportOfALostLinkIsClosed();
    void aConnectionUnderWayComesToItsEndFirst();
};

namespace {

const Calls Farewell{"StopStream", "SetDLLBaud 0", "DLLShutdown"};

/// Runs the event loop as main() does until the act has ended it.
int Run(ConsoleUnderTest &console, const Act &act)
{
    QObject::connect(qApp, &QCoreApplication::aboutToQuit, console.window.get(), &FrmMain::LeaveNow);
    QTimer::singleShot(0, console.window.get(), [&] { act(console); });
    return QApplication::exec();
}

void EndRun(ConsoleUnderTest &console)
{
    console.window->EndRun();
}

} // namespace

void EndRunTest::aSignalEndsTheProgram_data()
{
#ifdef Q_OS_UNIX
    QTest::addColumn<int>("number");
    QTest::newRow("SIGTERM") << SIGTERM;
    QTest::newRow("SIGINT") << SIGINT;
    QTest::newRow("SIGHUP") << SIGHUP;
#endif
}

void EndRunTest::aSignalEndsTheProgram()
{
#ifdef Q_OS_UNIX
    QFETCH(int, number);
    QTemporaryDir folder;
    const QString log = folder.filePath("calls.log");
    ConsoleProcess console({"--simulate", "--program-dir", folder.path(), "--log", log});
    QTRY_VERIFY(ContentOf(log).count("< StopStream 0 ()") == 2);
    QTRY_VERIFY(QFile::exists(folder.filePath("temp.qm4")));

    const auto process = pid_t(console.process.processId());
    kill(process, number);
    kill(process, number); // a second one does nothing worse
    QVERIFY(console.process.waitForFinished());

    QCOMPARE(console.process.exitStatus(), QProcess::NormalExit);
    QCOMPARE(console.process.exitCode(), 0);
    QVERIFY(!QFile::exists(folder.filePath("temp.qm4")));
    QVERIFY(QFile::exists(folder.filePath("settings.dat")));
    const QByteArray calls = ContentOf(log);
    QCOMPARE(calls.count("< StopStream 0 ()"), 3);
    QCOMPARE(calls.count("> SetDLLBaud(0)"), 1);
    QCOMPARE(calls.count("< DLLShutdown 0"), 1);
    QVERIFY(calls.lastIndexOf("> ") == calls.lastIndexOf("> DLLShutdown"));
#else
    QSKIP("no signals here");
#endif
}

void EndRunTest::whatPlaysIsSwitchedOffAndNobodyIsAsked()
{
    ConsoleUnderTest console(OnLine, Tab::OutputTrim);
    console.Click("cmdPN(2)");
    console.Click("cmdPhase(0)");
    console.file.SettingsChanged = true;
    console.TypeOnly("lblPNG(1)", "abc");
    console.Forget();
    const int exitCode = Run(console, [](ConsoleUnderTest &run) {
        EndRun(run);
        EndRun(run);
    });
    QCOMPARE(exitCode, 0);
    QCOMPARE(console.Calls(),
             (Calls{"SetPink 2 0", "SetPhase 0 0", "StopStream", "SetDLLBaud 0", "DLLShutdown"}));
    QVERIFY(!QFile::exists(console.File("temp.qm4")));
    QVERIFY(QFile::exists(console.File("settings.dat")));
}

void EndRunTest::whatIsOpenIsClosedAsEscapeWould_data()
{
    QTest::addColumn<Act>("open");
    QTest::newRow("a question") << Act([](auto &console) { console.Click("cmdClear"); });
    QTest::newRow("a dialog") << Act([](auto &console) { console.Trigger("mnuSet"); });
    QTest::newRow("a file dialog") << Act([](auto &console) { console.Trigger("mnuLoad"); });
    QTest::newRow("the questions of a close") << Act([](auto &console) { console.window->close(); });
    QTest::newRow("the dialog that disables the window") << Act([](auto &console) {
        console.Trigger("mnuAutoRef");
        EndRun(console);
    });
    QTest::newRow("a menu") << Act([](auto &console) {
        console.window->menuBar()->actions()[0]->menu()->popup(QPoint());
        EndRun(console);
    });
}

void EndRunTest::whatIsOpenIsClosedAsEscapeWould()
{
    QFETCH(Act, open);
    ConsoleUnderTest console(OnLine, Tab::Eq);
    console.options.AutoUpload = true;
    console.WithEveryDialog([&console](QDialog *) { EndRun(console); });
    const RoomSettings before = console.room;
    QCOMPARE(Run(console, open), 0);
    QCOMPARE(console.Calls(), Farewell);
    QVERIFY(console.room == before);
    QCOMPARE(QApplication::activeModalWidget(), nullptr);
    QVERIFY(!QFile::exists(console.File("temp.qm4")));
}

void EndRunTest::aCallUnderWayComesToItsEndFirst()
{
    ConsoleUnderTest console;
    console.unit.FailNext(Operation::SetVol, 8, 1);
    console.clock.duringPause = [&console] { EndRun(console); };
    QCOMPARE(Run(console, [](auto &run) { run.Type("lblVol(3)", "6"); }), 0);
    QCOMPARE(console.Calls(),
             (Calls{"SetVol 60", "ClearError", "SetVol 60", "StopStream", "SetDLLBaud 0", "DLLShutdown"}));
}

void EndRunTest::theReportOfALostLinkIsClosed()
{
    ConsoleUnderTest console;
    console.unit.panel.plugged = false;
    console.WithEveryDialog([&console](QDialog *) { EndRun(console); });
    QCOMPARE(Run(console, [](auto &run) { run.Type("lblVol(3)", "6"); }), 0);
    QCOMPARE(console.Calls().back(), "DLLShutdown");
    QVERIFY(!QFile::exists(console.File("temp.qm4")));
}

void EndRunTest::aConnectionUnderWayComesToItsEndFirst()
{
    ConsoleUnderTest console(OffLine);
    console.clock.duringPause = [&console] { EndRun(console); };
    QCOMPARE(Run(console, [](auto &run) { run.Click("cmdConnect"); }), 0);
    QVERIFY(console.AllBoxesSeen());
    QCOMPARE(console.Calls().back(), "DLLShutdown");
    QVERIFY(QFile::exists(console.File("settings.dat")));
}

QTEST_MAIN(EndRunTest)
#include "endrun_test.moc"
