#pragma once

#include "unit/call.h"

#include <fstream>
#include <string>
#include <vector>

namespace kelvo {

/// The form of the lines that are written; docs/call-log.md describes it.
inline constexpr int CallLogVersion = 1;

/// The PC's local time.
using LogTime = std::chrono::local_time<std::chrono::milliseconds>;

/// One line of a log of calls.
struct LogLine {
    /// What the line is, as its mark in the file.
    enum class Kind : char {
        Run = '=',     ///< a console begins to write
        Call = '>',    ///< an operation is about to be called
        Answer = '<',  ///< it came back
        Note = '#',    ///< something else that is worth knowing
        Damaged = '?', ///< none of these; no line is written so
    };

    Kind kind = Kind::Damaged;
    LogTime time{};
    int version = 0;                   ///< of a run: the form of the lines that follow
    Operation operation{};             ///< of a call and of its answer
    std::vector<Byte> bytes{};         ///< what a call sends; what an answer left in the caller's storage
    std::vector<Word> words{};         ///< the same
    Status status = Success;           ///< of an answer
    std::chrono::microseconds taken{}; ///< by the call, of an answer
    std::string text{};                ///< of a note; a damaged line as it stands there
    std::string_view problem{};        ///< what is wrong with a damaged line
    std::size_t number = 0;            ///< of the line in its file, from 1

    bool operator==(const LogLine &) const = default;
};

/// The line without its end.
std::string TextOf(const LogLine &line);
/// Never fails: what is no line of a log is a damaged one.
LogLine ReadLogLine(std::string_view text);

/// Reads a log from its first line to its last, the longest evening's too.
class CallLogReader {
  public:
    explicit CallLogReader(std::istream &log) : log_(log) {}

    /// The next line, blank ones passed over; none = the end.
    std::optional<LogLine> Next();

  private:
    std::istream &log_;
    std::size_t number_ = 0;
};

/// Appends a line before and a line after each call to a file, as a run of its own. A line is with the system
/// before the call is made, or its answer goes on, so that the file of a console that crashes or hangs ends
/// with the call that never came back.
class CallLog : public CallObserver {
  public:
    /// `path` is UTF-8; the file is created when it is missing.
    explicit CallLog(const std::string &path);

    /// Why the file cannot be written, in the system's words; empty = it can.
    const std::string &Problem() const { return problem_; }

    /// Appends a line that is no call, such as the path of the library that was loaded.
    void Note(const std::string &text);

    void Before(const Call &call) override;
    void After(const Call &call, Status status, std::chrono::microseconds taken) override;

  private:
    void Append(const LogLine &line);

    std::ofstream file_;
    std::string problem_;
    const char *lineStart_ = ""; ///< what comes before the next line
};

} // namespace kelvo
