#include "app/process.h"

#include <QFile>
#include <QSocketNotifier>

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>

namespace kelvo {

namespace {

/// A signal's handler may touch nothing else of the process: reading end and writing end of a pipe.
std::array<int, 2> signalled{-1, -1};

extern "C" void WriteSignal(int)
{
    const int before = errno;
    const char byte = 0;
    // A full pipe says what is to be said already.
    [[maybe_unused]] const auto written = write(signalled[1], &byte, 1);
    errno = before;
}

/// What the parent wants ignored, as "nohup" does, stays so.
void Handle(int signal)
{
    struct sigaction before {};
    sigaction(signal, nullptr, &before);
    if (before.sa_handler == SIG_IGN)
        return;
    struct sigaction action {};
    action.sa_handler = WriteSignal;
    action.sa_flags = SA_RESTART; // a serial exchange under way goes on
    sigemptyset(&action.sa_mask);
    sigaction(signal, &action, nullptr);
}

} // namespace

void PrepareProcess()
{
}

void OnTermination(QObject *context, const std::function<void()> &end)
{
    if (pipe(signalled.data()) != 0)
        return;
    for (const int side : signalled) {
        fcntl(side, F_SETFD, FD_CLOEXEC);
        fcntl(side, F_SETFL, O_NONBLOCK);
    }
    auto *notifier = new QSocketNotifier(signalled[0], QSocketNotifier::Read, context);
    QObject::connect(notifier, &QSocketNotifier::activated, context, [end] {
        char byte = 0;
        while (read(signalled[0], &byte, 1) > 0) {
        }
        end();
    });
    for (const int signal : {SIGTERM, SIGINT, SIGHUP})
        Handle(signal);
}

void Print(std::FILE *stream, const QString &text)
{
    std::fputs(text.toLocal8Bit().constData(), stream);
    std::fflush(stream);
}

bool StandsWhereItWasPut(const QString &)
{
    return true;
}

QStringList ProcessArguments(int argc, char **argv)
{
    QStringList arguments;
    for (int index = 1; index < argc; ++index)
        arguments += QFile::decodeName(argv[index]);
    return arguments;
}

} // namespace kelvo
