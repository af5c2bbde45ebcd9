#pragma once

#include "unit/forwardedlibrary.h"

#include <fstream>

namespace kelvo {

/// Appends one line for each call to a file: local time, operation, arguments, status, what was read,
/// duration. A line is with the system before the call's answer goes on, so a crash keeps it:
///
///     2031-05-17 21:04:09.250 SetPink 2 -1 -> 0 (12.410 ms)
///     2031-05-17 21:04:09.263 GetOptGain -> 0: 504f (1.024 ms)
class LoggedLibrary : public ForwardedLibrary {
  public:
    /// `path` is UTF-8; the file is created when it is missing.
    LoggedLibrary(DeviceLibrary &target, const std::string &path);

    /// Why the file could not be opened, in the system's words; empty = it is open.
    const std::string &Problem() const { return problem_; }

    /// Appends a line that is no call, such as the path of the library that was loaded.
    void Note(const std::string &text);

  protected:
    Status Around(const char *operation, Arguments arguments, const Forward &forward) override;

  private:
    void Append(std::string line);

    std::ofstream file_;
    std::string problem_;
};

} // namespace kelvo
