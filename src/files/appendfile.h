#pragma once

#include "files/filework.h"

#include <string>
#include <string_view>

namespace kelvo {

/// A file that grows. While it is open, this process owns it: whoever else asks for it is told so, and a
/// process that is killed lets go of it.
class AppendFile {
  public:
    explicit AppendFile(const FileCalls &calls) : file_(calls), calls_(calls) {}

    /// A new file at `path` (UTF-8), with the folder that it is in.
    [[nodiscard]] std::error_code Create(const std::string &path);
    bool IsOpen() const { return file_.handle != NoFile; }
    /// Returns when the system has everything: what this process has appended outlives it, but not a power
    /// cut. After a failure the end of the file may be cut.
    [[nodiscard]] std::error_code Append(std::string_view bytes);
    /// Returns when the disk has everything.
    [[nodiscard]] std::error_code Flush();
    void Close() { static_cast<void>(file_.Close()); }

  private:
    OpenFile file_;
    const FileCalls &calls_;
};

/// No running process owns the file at `path` (UTF-8); false also when that cannot be told.
bool IsAbandoned(const std::string &path, const FileCalls &calls = FileCalls());

} // namespace kelvo
