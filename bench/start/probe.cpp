#include <QApplication>
#include <QGenericPlugin>
#include <QMainWindow>
#include <QTimer>

#include <cstdio>
#include <ctime>
#include <fstream>
#include <string>
#include <unistd.h>

/// Loaded into any windowed program through the toolkit's own plugin mechanism, so that the console and its
/// empty peer are measured by the same eyes. Tells when the main window has been painted and the event loop
/// is idle, then what the process weighs, and, when asked, what it costs to sit there.
class Probe : public QObject {
    Q_OBJECT

  public:
    Probe() { qApp->installEventFilter(this); }

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (!seen_ && event->type() == QEvent::Paint && qobject_cast<QMainWindow *>(watched)) {
            seen_ = true;
            QTimer::singleShot(0, Qt::PreciseTimer, this, &Probe::Idle);
        }
        return false;
    }

  private:
    static double Seconds(clockid_t clock)
    {
        timespec time{};
        clock_gettime(clock, &time);
        return double(time.tv_sec) + double(time.tv_nsec) * 1e-9;
    }

    /// Private and shared pages in memory, in MB.
    static double ResidentMegabytes()
    {
        long total = 0;
        long resident = 0;
        std::ifstream("/proc/self/statm") >> total >> resident;
        return double(resident) * double(sysconf(_SC_PAGESIZE)) / 1e6;
    }

    void Idle()
    {
        const double started = qEnvironmentVariable("KELVO_BENCH_STARTED").toDouble();
        const double ready = Seconds(CLOCK_MONOTONIC) - started;
        const int watch = qEnvironmentVariableIntValue("KELVO_BENCH_WATCH");
        const double cpuBefore = Seconds(CLOCK_PROCESS_CPUTIME_ID);
        QTimer::singleShot(watch * 1000, this, [=] {
            const double cpu = Seconds(CLOCK_PROCESS_CPUTIME_ID) - cpuBefore;
            std::printf("probe %.6f %.3f %.6f\n", ready, ResidentMegabytes(), cpu);
            std::fflush(stdout);
            _exit(0); // the exit questions are no part of the start
        });
    }

    bool seen_ = false;
};

class ProbePlugin : public QGenericPlugin {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QGenericPluginFactoryInterface_iid FILE "probe.json")

  public:
    QObject *create(const QString &, const QString &) override { return new Probe; }
};

#include "probe.moc"
