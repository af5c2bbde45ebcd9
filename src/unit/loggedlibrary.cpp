#include "unit/loggedlibrary.h"

#include "files/systempath.h"

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstdio>
#include <ctime>
#include <system_error>

namespace kelvo {

namespace {

using std::chrono::duration_cast;
using std::chrono::microseconds;
using std::chrono::milliseconds;
using std::chrono::system_clock;

/// "2031-05-17 21:04:09.250", local time.
std::string TimeStamp(system_clock::time_point now)
{
    const std::time_t seconds = system_clock::to_time_t(now);
    const long long past = duration_cast<milliseconds>(now.time_since_epoch()).count() % 1000;
    char date[32] = "";
    if (const std::tm *local = std::localtime(&seconds))
        std::strftime(date, sizeof date, "%Y-%m-%d %H:%M:%S", local);
    char stamp[48];
    std::snprintf(stamp, sizeof stamp, "%s.%03d", date, int(past));
    return stamp;
}

} // namespace

LoggedLibrary::LoggedLibrary(DeviceLibrary &target, const std::string &path) : ForwardedLibrary(target)
{
    errno = 0;
    file_.open(SystemPath(path), std::ios::app | std::ios::binary);
    if (!file_)
        problem_ = std::generic_category().message(errno);
}

void LoggedLibrary::Note(const std::string &text)
{
    std::string line = TimeStamp(system_clock::now()) + ' ' + text;
    std::replace(line.begin(), line.end(), '\n', ' ');
    Append(std::move(line));
}

Status LoggedLibrary::Around(const char *operation, Arguments arguments, const Forward &forward)
{
    std::string line = TimeStamp(system_clock::now()) + ' ' + operation;
    for (const Argument &argument : arguments)
        if (!argument.result)
            line += ' ' + argument.Text();

    const auto start = std::chrono::steady_clock::now();
    const Status status = forward();
    const auto taken = duration_cast<microseconds>(std::chrono::steady_clock::now() - start).count();

    line += " -> " + std::to_string(status);
    const char *separator = ": ";
    for (const Argument &argument : arguments)
        if (argument.result && status == Success) {
            line += separator + argument.Text();
            separator = " ";
        }
    char duration[32];
    std::snprintf(duration, sizeof duration, " (%d.%03d ms)", int(taken / 1000), int(taken % 1000));
    Append(line + duration);
    return status;
}

void LoggedLibrary::Append(std::string line)
{
    line += '\n';
    file_.clear(); // A line lost to a full disk must not silence those that come after there is room again.
    file_.write(line.data(), std::streamsize(line.size()));
    file_.flush();
}

} // namespace kelvo
