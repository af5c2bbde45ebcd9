#include "measuring.h"

#include <QCoreApplication>
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

Reading Start(const QString &program, const QStringList &arguments, int watchSeconds)
{
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("QT_PLUGIN_PATH", KELVO_PROBE_PLUGINS);
    environment.insert("QT_QPA_GENERIC_PLUGINS", "KelvoProbe");
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
    const int runs = kelvo::FullOrBrief(20, 1);
    const int idleSeconds = kelvo::FullOrBrief(60, 1);
    const bool idleToo = !application.arguments().contains("--no-idle");

    std::vector<Reading> console;
    std::vector<Reading> empty;
    std::vector<Reading> plain;
    for (int run = 0; run < runs; ++run) {
        QTemporaryDir folder;
        console.push_back(Start(KELVO_CONSOLE, {"--simulate", "--program-dir", folder.path()}, 0));
        empty.push_back(Start(KELVO_EMPTY, {}, 0));
        plain.push_back(Start(KELVO_PLAIN, {}, 0));
    }
    const double consoleStart = Median(console, &Reading::seconds);
    const double emptyStart = Median(empty, &Reading::seconds);
    std::printf("start: %.1f ms, empty window %.1f ms, ratio %.2f (goal at most 1.5), medians of %d\n",
                consoleStart * 1e3, emptyStart * 1e3, consoleStart / emptyStart, runs);
    const double consoleWeight = Median(console, &Reading::megabytes);
    const double plainWeight = Median(plain, &Reading::megabytes);
    std::printf("resident memory: %.1f MB, empty window %.1f MB, as many plain controls %.1f MB, "
                "ratio to these %.2f (goal at most 1.25)\n",
                consoleWeight, Median(empty, &Reading::megabytes), plainWeight, consoleWeight / plainWeight);
    if (idleToo) {
        QTemporaryDir folder;
        const Reading idle =
            Start(KELVO_CONSOLE, {"--simulate", "--program-dir", folder.path()}, idleSeconds);
        std::printf("idle and connected: %.2f %% of one core over %d s (goal under 0.5)\n",
                    idle.cpuSeconds / idleSeconds * 100, idleSeconds);
    }
    return 0;
}
