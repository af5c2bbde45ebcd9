#include "unit/calllog.h"

#include "files/systempath.h"
#include "files/text.h"

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <cstdio>
#include <ctime>
#include <istream>
#include <optional>
#include <system_error>

namespace kelvo {

namespace {

using namespace std::chrono;
using Kind = LogLine::Kind;

constexpr std::string_view RunText = "call log, version ";

LogTime LocalNow()
{
    const system_clock::time_point now = system_clock::now();
    const std::time_t seconds = system_clock::to_time_t(now);
    const auto past = floor<milliseconds>(now.time_since_epoch()) % 1000;
    const std::tm *local = std::localtime(&seconds);
    if (!local)
        return {};
    const local_days day(year(local->tm_year + 1900) / (local->tm_mon + 1) / local->tm_mday);
    return day + hours(local->tm_hour) + minutes(local->tm_min) + std::chrono::seconds(local->tm_sec) + past;
}

// Writing

/// "2031-05-17 21:04:09.250"
std::string TimeText(LogTime time)
{
    const auto day = floor<days>(time);
    const year_month_day date(day);
    const hh_mm_ss clock(time - day);
    char text[64];
    std::snprintf(text, sizeof text, "%04d-%02u-%02u %02d:%02d:%02d.%03d", int(date.year()),
                  unsigned(date.month()), unsigned(date.day()), int(clock.hours().count()),
                  int(clock.minutes().count()), int(clock.seconds().count()),
                  int(clock.subseconds().count()));
    return text;
}

/// Bytes as pairs of hexadecimal digits, words in decimal: "(504f)", "(2 -1)", "(40..4a 1)".
std::string ArgumentsText(const LogLine &line)
{
    static constexpr char digits[] = "0123456789abcdef";
    std::string text = "(";
    for (Byte byte : line.bytes) {
        text += digits[byte / 16];
        text += digits[byte % 16];
    }
    for (Word word : line.words) {
        if (text.size() > 1)
            text += ' ';
        text += std::to_string(word);
    }
    return text + ')';
}

/// "12.410 ms"
std::string DurationText(microseconds taken)
{
    char text[48];
    std::snprintf(text, sizeof text, "%d.%03d ms", int(taken.count() / 1000), int(taken.count() % 1000));
    return text;
}

// Reading: each function takes what it is named by from the front of `rest`; false = it does not stand there.

bool Take(std::string_view &rest, std::string_view text)
{
    if (!rest.starts_with(text))
        return false;
    rest.remove_prefix(text.size());
    return true;
}

bool TakeDigits(std::string_view &rest, std::size_t count, unsigned &number)
{
    std::string_view digits = rest.substr(0, count);
    rest.remove_prefix(digits.size());
    return digits.size() == count &&
           std::ranges::all_of(digits, [](char c) { return c >= '0' && c <= '9'; }) &&
           TakeNumber(digits, number);
}

bool TakeTime(std::string_view &rest, LogTime &time)
{
    unsigned y = 0, m = 0, d = 0, hour = 0, minute = 0, second = 0, thousandths = 0;
    const bool digits = TakeDigits(rest, 4, y) && Take(rest, "-") && TakeDigits(rest, 2, m) &&
                        Take(rest, "-") && TakeDigits(rest, 2, d) && Take(rest, " ") &&
                        TakeDigits(rest, 2, hour) && Take(rest, ":") && TakeDigits(rest, 2, minute) &&
                        Take(rest, ":") && TakeDigits(rest, 2, second) && Take(rest, ".") &&
                        TakeDigits(rest, 3, thousandths);
    const year_month_day date{year(int(y)), month(m), day(d)};
    if (!digits || !date.ok() || hour > 23 || minute > 59 || second > 59)
        return false;
    time = local_days(date) + hours(hour) + minutes(minute) + seconds(second) + milliseconds(thousandths);
    return true;
}

bool TakeByte(std::string_view &rest, Byte &byte)
{
    const std::string_view digits = rest.substr(0, 2);
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), byte, 16);
    rest.remove_prefix(digits.size());
    return error == std::errc() && end == digits.data() + 2;
}

/// What stands between the brackets, as much as the operation's row tells.
bool TakeArguments(std::string_view &rest, std::size_t byteCount, std::size_t wordCount, LogLine &line)
{
    line.bytes.resize(byteCount);
    line.words.resize(wordCount);
    bool good = Take(rest, "(");
    for (Byte &byte : line.bytes)
        good = good && TakeByte(rest, byte);
    for (Word &word : line.words)
        good = good && TakeNumber(rest, word);
    return good && Take(rest, ")");
}

bool TakeDuration(std::string_view &rest, microseconds &taken)
{
    std::uint32_t whole = 0;
    unsigned thousandths = 0;
    const bool good =
        TakeNumber(rest, whole) && Take(rest, ".") && TakeDigits(rest, 3, thousandths) && Take(rest, " ms");
    taken = milliseconds(whole) + microseconds(thousandths);
    return good;
}

/// The name up to `end`, which is left.
bool TakeOperation(std::string_view &rest, char end, Operation &operation)
{
    const std::string_view name = rest.substr(0, rest.find(end));
    const std::optional<Operation> known = OperationNamed(name);
    rest.remove_prefix(name.size());
    operation = known.value_or(operation);
    return known.has_value();
}

constexpr std::string_view Cut = "it is cut or damaged";

// These read what follows the mark and answer what is wrong with it, or nothing.

std::string_view ReadRun(std::string_view rest, LogLine &line)
{
    return Take(rest, RunText) && TakeNumber(rest, line.version) && rest.empty() ? "" : Cut;
}

std::string_view ReadCall(std::string_view rest, LogLine &line)
{
    if (!TakeOperation(rest, '(', line.operation))
        return "no operation has this name";
    const Shape &shape = RowOf(line.operation).shape;
    return TakeArguments(rest, shape.bytesIn, shape.wordsIn, line) && rest.empty() ? "" : Cut;
}

std::string_view ReadAnswer(std::string_view rest, LogLine &line)
{
    if (!TakeOperation(rest, ' ', line.operation))
        return "no operation has this name";
    const Shape &shape = RowOf(line.operation).shape;
    const bool whole = TakeNumber(rest, line.status) &&
                       TakeArguments(rest, shape.bytesOut, shape.wordsOut, line) && Take(rest, " ") &&
                       TakeDuration(rest, line.taken);
    return whole && rest.empty() ? "" : Cut;
}

std::string_view ReadLine(std::string_view rest, LogLine &line)
{
    if (!TakeTime(rest, line.time) || rest.size() < 3 || rest[0] != ' ' || rest[2] != ' ')
        return "it does not begin with a date, a time and a mark";
    line.kind = Kind(rest[1]);
    rest.remove_prefix(3);
    switch (line.kind) {
    case Kind::Run:
        return ReadRun(rest, line);
    case Kind::Call:
        return ReadCall(rest, line);
    case Kind::Answer:
        return ReadAnswer(rest, line);
    case Kind::Note:
        line.text = rest;
        return "";
    case Kind::Damaged:
        break;
    }
    return "its mark is not known";
}

} // namespace

std::string TextOf(const LogLine &line)
{
    std::string text = TimeText(line.time) + ' ' + char(line.kind) + ' ';
    switch (line.kind) {
    case Kind::Run:
        return text.append(RunText) + std::to_string(line.version);
    case Kind::Call:
        return text + RowOf(line.operation).name + ArgumentsText(line);
    case Kind::Answer:
        return text + RowOf(line.operation).name + ' ' + std::to_string(line.status) + ' ' +
               ArgumentsText(line) + ' ' + DurationText(line.taken);
    case Kind::Note:
        return text + line.text;
    case Kind::Damaged:
        break;
    }
    return line.text;
}

LogLine ReadLogLine(std::string_view text)
{
    LogLine line;
    const std::string_view problem = ReadLine(text, line);
    return problem.empty() ? line : LogLine{.text = std::string(text), .problem = problem};
}

std::optional<LogLine> CallLogReader::Next()
{
    for (std::string text; std::getline(log_, text);) {
        ++number_;
        if (text.ends_with('\r')) // what mail and editors make of a line's end
            text.pop_back();
        if (text.empty())
            continue;
        LogLine line = ReadLogLine(text);
        line.number = number_;
        return line;
    }
    return std::nullopt;
}

CallLog::CallLog(const std::string &path)
{
    // Without a buffer of its own a line is with the system as soon as it is written, and what a full disk
    // did not take never comes later, in the middle of another line.
    file_.rdbuf()->pubsetbuf(nullptr, 0);
    errno = 0;
    file_.open(SystemPath(path), std::ios::app | std::ios::binary);
    if (file_) {
        const bool hasLines = file_.seekp(0, std::ios::end).tellp() > 0; // never so in a pipe
        lineStart_ = hasLines ? "\n" : ""; // it also ends a line that a crash cut
        Append({.kind = Kind::Run, .time = LocalNow(), .version = CallLogVersion});
    }
    if (!file_)
        problem_ = std::generic_category().message(errno);
}

void CallLog::Note(const std::string &text)
{
    LogLine line{.kind = Kind::Note, .time = LocalNow(), .text = text};
    std::ranges::replace_if(
        line.text, [](char c) { return c >= '\0' && c < ' '; }, ' ');
    Append(line);
}

void CallLog::Before(const Call &call)
{
    Append({.kind = Kind::Call,
            .time = LocalNow(),
            .operation = call.operation,
            .bytes = {call.bytesIn.begin(), call.bytesIn.end()},
            .words = {call.wordsIn.begin(), call.wordsIn.end()}});
}

void CallLog::After(const Call &call, Status status, microseconds taken)
{
    Append({.kind = Kind::Answer,
            .time = LocalNow(),
            .operation = call.operation,
            .bytes = {call.bytesOut.begin(), call.bytesOut.end()},
            .words = {call.wordsOut.begin(), call.wordsOut.end()},
            .status = status,
            .taken = taken});
}

void CallLog::Append(const LogLine &line)
{
    const std::string text = lineStart_ + TextOf(line) + '\n';
    file_.clear(); // A line lost to a full disk must not silence those that come after there is room again.
    file_.write(text.data(), std::streamsize(text.size()));
    lineStart_ = file_ ? "" : "\n"; // what the disk took of this line ends here
}

} // namespace kelvo
