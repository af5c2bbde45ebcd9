#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <system_error>

namespace kelvo {

/// An open file or folder of the system: a descriptor or a handle.
using FileHandle = std::intptr_t;
inline constexpr FileHandle NoFile = -1;

/// Who may read and write a file, in the system's own bits.
using FileMode = unsigned;

/// The system's calls that reading and replacing a file take, one member a call. Here they are the real
/// ones; a test derives and makes each of them fail, come up short or be the last. Paths are UTF-8.
/// Every member answers the system's error, or none; nothing here tries twice.
class FileCalls {
  public:
    virtual ~FileCalls() = default;

    /// Goes on from a link to the file that it names; any other path stays as it is.
    [[nodiscard]] virtual std::error_code Follow(std::string &path) const;
    /// The mode of the file at `path`, none when nothing stands there. What must not be replaced is an
    /// error: a folder, a device, a file that the user may not write.
    [[nodiscard]] virtual std::error_code Examine(const std::string &path,
                                                  std::optional<FileMode> &mode) const;
    /// The folder that holds `path`, for `Flush`; `NoFile` where folders need no flush.
    [[nodiscard]] virtual std::error_code OpenFolder(const std::string &path, FileHandle &folder) const;
    /// A new file for writing; an error when something stands there.
    [[nodiscard]] virtual std::error_code Create(const std::string &path, FileHandle &file) const;
    /// This process owns the open file until it is closed; an error when another one does.
    [[nodiscard]] virtual std::error_code Lock(FileHandle file) const;
    [[nodiscard]] virtual std::error_code SetMode(FileHandle file, FileMode mode) const;
    /// May write less than `bytes`: `written` tells.
    [[nodiscard]] virtual std::error_code Write(FileHandle file, std::string_view bytes,
                                                std::size_t &written) const;
    /// Returns when the disk has everything.
    [[nodiscard]] virtual std::error_code Flush(FileHandle file) const;
    [[nodiscard]] virtual std::error_code Close(FileHandle file) const;
    /// Puts `from` in the place of `to` in one step.
    [[nodiscard]] virtual std::error_code Rename(const std::string &from, const std::string &to) const;
    virtual std::error_code Remove(const std::string &path) const;

    /// A file for reading and its size; a folder or a device is an error.
    [[nodiscard]] virtual std::error_code OpenToRead(const std::string &path, FileHandle &file,
                                                     std::uint64_t &size) const;
    /// May read less than there is room for; nothing read means the end of the file.
    [[nodiscard]] virtual std::error_code Read(FileHandle file, std::span<char> room,
                                               std::size_t &count) const;
};

/// The system's words for an error, without a full stop: "No space left on device".
std::string ReasonOf(std::error_code error);

/// A name for a temporary file in the folder of `path`. It holds this process's number, so that two
/// consoles never share one, and does not grow with the target's name, which may already be the longest.
std::string TemporaryBeside(const std::string &path, int attempt);

} // namespace kelvo
