#include "unit/calllog.h"

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

/// Bytes as pairs of hexadecimal digits, words in decimal, a blank before each: " 504f", " 2 -1".
std::string Text(std::span<const Byte> bytes, std::span<const Word> words)
{
    static constexpr char digits[] = "0123456789abcdef";
    std::string text = bytes.empty() ? "" : " ";
    for (Byte byte : bytes) {
        text += digits[byte / 16];
        text += digits[byte % 16];
    }
    for (Word word : words)
        text += ' ' + std::to_string(word);
    return text;
}

} // namespace

CallLog::CallLog(const std::string &path)
{
    errno = 0;
    file_.open(SystemPath(path), std::ios::app | std::ios::binary);
    if (!file_)
        problem_ = std::generic_category().message(errno);
}

void CallLog::Note(const std::string &text)
{
    std::string line = TimeStamp(system_clock::now()) + ' ' + text;
    std::replace(line.begin(), line.end(), '\n', ' ');
    Append(std::move(line));
}

void CallLog::Before(const Call &call)
{
    call_ =
        TimeStamp(system_clock::now()) + ' ' + RowOf(call.operation).name + Text(call.bytesIn, call.wordsIn);
}

void CallLog::After(const Call &call, Status status, microseconds taken)
{
    std::string line = call_ + " -> " + std::to_string(status);
    if (status == Success && call.bytesOut.size() + call.wordsOut.size() > 0)
        line += ':' + Text(call.bytesOut, call.wordsOut);
    char duration[32];
    std::snprintf(duration, sizeof duration, " (%d.%03d ms)", int(taken.count() / 1000),
                  int(taken.count() % 1000));
    Append(line + duration);
}

void CallLog::Append(std::string line)
{
    line += '\n';
    file_.clear(); // A line lost to a full disk must not silence those that come after there is room again.
    file_.write(line.data(), std::streamsize(line.size()));
    file_.flush();
}

} // namespace kelvo
