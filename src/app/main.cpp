#include "app/commandline.h"
#include "app/process.h"
#include "app/programdirectory.h"
#include "ui/main/frmmain.h"
#include "ui/main/frmsplash.h"
#include "ui/main/look.h"
#include "unit/calllog.h"
#include "unit/qm4slibrary.h"
#include "unit/simulatedunit.h"
#include "unit/windir.h"

#include <QApplication>
#include <QDir>
#include <QIcon>
#include <QLockFile>
#include <QScreen>
#include <QSessionManager>
#include <QSettings>
#include <QStandardPaths>

#include <cstdio>
#include <exception>

using namespace kelvo;

namespace {

constexpr int BadArguments = 2;

int Refuse(const QString &problem)
{
    Print(stderr, "kelvo-console: " + problem + "\n");
    return BadArguments;
}

/// The first console on a program directory owns the files there; a later one leaves them alone. Where no
/// lock can be made nothing can be written either, and the write itself will say so.
bool OwnsFiles(QLockFile &lock)
{
    lock.setStaleLockTime(0);
    if (lock.tryLock(0) || lock.error() != QLockFile::LockFailedError)
        return true;
    // A lock in this process's own number was left by one that was killed and whose number came up again.
    qint64 holder = 0;
    const bool own =
        lock.getLockInfo(&holder, nullptr, nullptr) && holder == QCoreApplication::applicationPid();
    return own && lock.removeStaleLockFile() && lock.tryLock(0);
}

int Run(int argc, char **argv, const CommandLine &line)
{
    QApplication application(argc, argv);
    QApplication::setApplicationName("kelvo-console");
    QApplication::setApplicationVersion(KELVO_VERSION);
    QApplication::setWindowIcon(QIcon(":/icon.png"));
    ApplyLook();

    const QString programDirectory = ProgramDirectory(line.programDirectory);
    std::optional<CallLog> log;
    SimulatedUnit simulated;
    Qm4sLibrary maker({.given = line.library.toStdString(),
                       .programFolder = programDirectory.toStdString(),
                       .executableFolder = QCoreApplication::applicationDirPath().toStdString()},
                      [&log](const std::string &path) {
                          if (log)
                              log->Note("loaded " + path);
                      });
    DeviceLibrary &library = line.simulate ? static_cast<DeviceLibrary &>(simulated) : maker;
    if (!line.log.isEmpty()) {
        log.emplace(line.log.toStdString());
        if (!log->Problem().empty())
            return Refuse(
                QString("cannot write the log %1: %2").arg(line.log, QString::fromStdString(log->Problem())));
        log->Note("kelvo-console " KELVO_VERSION);
        library.Attach(*log);
    }

    const bool libraryMissing = !line.simulate && !maker.TryLoad();

    QLockFile lock(QDir(programDirectory).filePath("kelvo-console.lock"));
    const Places places{
        .programDirectory = programDirectory,
        .dataFolder = QStandardPaths::writableLocation(QStandardPaths::AppDataLocation),
        .memoryFile =
            QSettings(QSettings::IniFormat, QSettings::UserScope, "kelvo", QApplication::applicationName())
                .fileName(),
        .helpFile = HelpFile(programDirectory),
        .ownsFiles = OwnsFiles(lock),
        .missingLibrary = libraryMissing ? QString::fromStdString(maker.Problem()) : QString(),
        .screenHeight = QGuiApplication::primaryScreen()->geometry().height(),
        .serialIniMissing = SerialIniMissing,
        .report = [&log](const QString &text) {
            Print(stderr, text + "\n");
            if (log)
                log->Note(text.toStdString());
        }};

    SystemClock clock;
    RoomSettings room;
    Preferences options;
    FileState file;
    FrmSplash splash;
    splash.ShowNow();
    FrmMain window(room, options, file, library, clock, places);
    QObject::connect(
        &application, &QGuiApplication::commitDataRequest, &window,
        [&window](QSessionManager &session) {
            if (!window.EndSession(session.allowsInteraction()))
                session.cancel();
        },
        Qt::DirectConnection);
    // Told without having been asked, or in spite of the answer: the session is over.
    QObject::connect(&application, &QCoreApplication::aboutToQuit, &window, &FrmMain::LeaveNow);
    OnTermination(&window, [&window] { window.EndRun(); });
    if (line.simulate)
        window.AddSimulatorMenu(simulated);
    window.Form_Load();
    window.show();
    if (!line.file.isEmpty())
        window.OpenFile(QFileInfo(line.file).absoluteFilePath());
    return QApplication::exec();
}

} // namespace

int main(int argc, char **argv)
try {
    PrepareProcess();
    const CommandLine line = ParseCommandLine(ProcessArguments(argc, argv));
    if (!line.problem.isEmpty())
        return Refuse(line.problem);
    if (line.help || line.version) {
        Print(stdout, line.help ? HelpText() : QString("kelvo-console %1\n").arg(KELVO_VERSION));
        return 0;
    }
    const QFileInfo directory(line.programDirectory);
    if (!line.programDirectory.isEmpty() && !(directory.isDir() && directory.isReadable()))
        return Refuse(QString("cannot read the program directory %1").arg(line.programDirectory));
    return Run(argc, argv, line);
} catch (const std::exception &failure) {
    return Refuse(failure.what());
}
