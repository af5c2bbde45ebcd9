#include "ui/main/frmmain.h"
#include "ui/main/look.h"
#include "unit/simulatedunit.h"

#include <QApplication>
#include <QTemporaryDir>
#include <QTimer>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <memory>

using namespace kelvo;

namespace {

/// Ends the program once the window has been painted and nothing waits any more, and tells how long it took
/// since KELVO_BENCH_STARTED, in seconds of the clock of the day.
class UntilIdle : public QObject {
  public:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (!seen_ && event->type() == QEvent::Paint && qobject_cast<QMainWindow *>(watched)) {
            seen_ = true;
            QTimer::singleShot(0, Qt::PreciseTimer, [] {
                const std::chrono::duration<double> now = std::chrono::system_clock::now().time_since_epoch();
                std::printf("%.3f\n", now.count() - qEnvironmentVariable("KELVO_BENCH_STARTED").toDouble());
                std::fflush(stdout);
                std::_Exit(0);
            });
        }
        return false;
    }

  private:
    bool seen_ = false;
};

} // namespace

/// The console's start with the simulated unit; with "--empty" that of an empty window in the same program.
int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    ApplyLook();
    UntilIdle untilIdle;
    application.installEventFilter(&untilIdle);
    QTemporaryDir folder;
    Settings settings;
    SystemClock clock;
    SimulatedUnit unit;
    std::unique_ptr<QMainWindow> window;
    if (application.arguments().contains("--empty")) {
        window = std::make_unique<QMainWindow>();
        window->resize(800, 600);
    } else {
        const Places places{.programDirectory = folder.path(),
                            .serialIniMissing = [] { return false; },
                            .report = [](const QString &) {}};
        auto console = std::make_unique<FrmMain>(settings, unit, clock, places);
        console->Form_Load();
        window = std::move(console);
    }
    window->show();
    return QApplication::exec();
}
