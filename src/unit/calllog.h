#pragma once

#include "unit/call.h"

#include <fstream>
#include <string>

namespace kelvo {

/// Appends one line for each call to a file: local time, operation, arguments, status, what was read,
/// duration. A line is with the system before the call's answer goes on, so a crash keeps it:
///
///     2031-05-17 21:04:09.250 SetPink 2 -1 -> 0 (12.410 ms)
///     2031-05-17 21:04:09.263 GetOptGain -> 0: 504f (1.024 ms)
class CallLog : public CallObserver {
  public:
    /// `path` is UTF-8; the file is created when it is missing.
    explicit CallLog(const std::string &path);

    /// Why the file could not be opened, in the system's words; empty = it is open.
    const std::string &Problem() const { return problem_; }

    /// Appends a line that is no call, such as the path of the library that was loaded.
    void Note(const std::string &text);

    void Before(const Call &call) override;
    void After(const Call &call, Status status, std::chrono::microseconds taken) override;

  private:
    void Append(std::string line);

    std::ofstream file_;
    std::string problem_;
    std::string call_; ///< what was written down before the call that is being made
};

} // namespace kelvo
