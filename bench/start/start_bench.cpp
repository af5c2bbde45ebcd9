#include "edit/journal.h"
#include "measuring.h"

#include <QCoreApplication>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <vector>

/// Starts the console and its peers by turns and prints what the probe inside them told.
namespace {

struct Reading {
    double seconds;
    double megabytes;
    double cpuSeconds;
};

double Now()
{
    timespec time{};
    clock_gettime(CLOCK_MONOTONIC, &time);
    return double(time.tv_sec) + double(time.tv_nsec) * 1e-9;
}

/// `folder` takes what the program keeps.
Reading Start(const QString &program, const QStringList &arguments, int watchSeconds, const QString &folder)
{
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("QT_PLUGIN_PATH", KELVO_PROBE_PLUGINS);
    environment.insert("QT_QPA_GENERIC_PLUGINS", "KelvoProbe");
    environment.insert("XDG_DATA_HOME", folder + "/data");
    environment.insert("XDG_CONFIG_HOME", folder + "/config");
    environment.insert("KELVO_BENCH_WATCH", QString::number(watchSeconds));
    environment.insert("KELVO_BENCH_STARTED", QString::number(Now(), 'f', 9));
    process.setProcessEnvironment(environment);
    process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process.start(program, arguments);
    Reading reading{};
    if (!process.waitForFinished((watchSeconds + 30) * 1000))
        qFatal("%s did not finish", qPrintable(program));
    const QByteArray told = process.readAllStandardOutput();
    const auto at = told.indexOf("probe ");
    if (at < 0 || std::sscanf(told.constData() + at, "probe %lf %lf %lf", &reading.seconds,
                              &reading.megabytes, &reading.cpuSeconds) != 3)
        qFatal("%s told nothing: %s", qPrintable(program), told.constData());
    return reading;
}

Reading StartConsole(const QString &folder, int watchSeconds)
{
    return Start(KELVO_CONSOLE, {"--simulate", "--program-dir", folder}, watchSeconds, folder);
}

/// What a run of many steps leaves that is killed.
void LeaveJournal(const QString &folder, std::size_t steps)
{
    kelvo::RoomSettings room;
    const kelvo::FileState file;
    const kelvo::Slots kept;
    kelvo::Journal journal(folder.toStdString() + "/data/kelvo-console/journals",
                           [](const std::string &) { qFatal("no journal"); });
    for (std::size_t step = 1; step <= steps; ++step) {
        kelvo::Set(room, kelvo::field::Band(kelvo::Center, 14), int(step % 25));
        journal.Keep({room, file, kept, step, kelvo::LocalTime(std::chrono::seconds(step))});
    }
}

template <typename Field>
double Median(std::vector<Reading> readings, Field field)
{
    std::sort(readings.begin(), readings.end(),
              [&](const Reading &left, const Reading &right) { return left.*field < right.*field; });
    return readings[readings.size() / 2].*field;
}

} // namespace

int main(int argc, char **argv)
{
    QCoreApplication application(argc, argv);
    const std::size_t JournalSteps = 10'000;
    const int runs = kelvo::FullOrBrief(20, 1);
    const int idleSeconds = kelvo::FullOrBrief(60, 1);
    const bool idleToo = !application.arguments().contains("--no-idle");

    std::vector<Reading> console;
    std::vector<Reading> withJournal;
    std::vector<Reading> empty;
    std::vector<Reading> plain;
    QTemporaryDir left;
    LeaveJournal(left.path(), JournalSteps);
    for (int run = 0; run < runs; ++run) {
        QTemporaryDir folder;
        console.push_back(StartConsole(folder.path(), 0));
        QFile::remove(left.filePath("temp.qm4")); // a run that ends here never tidies up
        withJournal.push_back(StartConsole(left.path(), 0));
        empty.push_back(Start(KELVO_EMPTY, {}, 0, folder.path()));
        plain.push_back(Start(KELVO_PLAIN, {}, 0, folder.path()));
    }
    const double consoleStart = Median(console, &Reading::seconds);
    const double emptyStart = Median(empty, &Reading::seconds);
    std::printf("start: %.1f ms, empty window %.1f ms, ratio %.2f (goal at most 1.5), medians of %d\n",
                consoleStart * 1e3, emptyStart * 1e3, consoleStart / emptyStart, runs);
    const double journalStart = Median(withJournal, &Reading::seconds);
    std::printf("start with a journal of %zu steps: %.1f ms, %.2f times without (goal under 1.2)\n",
                JournalSteps, journalStart * 1e3, journalStart / consoleStart);
    const double consoleWeight = Median(console, &Reading::megabytes);
    const double plainWeight = Median(plain, &Reading::megabytes);
    std::printf("resident memory: %.1f MB, empty window %.1f MB, as many plain controls %.1f MB, "
                "ratio to these %.2f (goal at most 1.25)\n",
                consoleWeight, Median(empty, &Reading::megabytes), plainWeight, consoleWeight / plainWeight);
    if (idleToo) {
        QTemporaryDir folder;
        const Reading idle = StartConsole(folder.path(), idleSeconds);
        std::printf("idle and connected: %.2f %% of one core over %d s (goal under 0.5)\n",
                    idle.cpuSeconds / idleSeconds * 100, idleSeconds);
    }
    return 0;
}
