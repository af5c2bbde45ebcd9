#pragma once

#include "files/filecalls.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace kelvo {

/// Why a file could not be read or written, in words ("No space left on device"), or what is wrong in it
/// ("line 12 is damaged or missing").
struct FileFailure {
    std::string reason;
    bool wrongFormat = false; ///< the file was read, but is not what it should be
};

/// Replaces the file at `path` (UTF-8) by `bytes`, or leaves it exactly as it was: a temporary beside it
/// is written, flushed to the disk and renamed over it; the mode stays, and a link stays a link to the
/// file that is replaced. Empty = done and on the disk. When only the last step fails, the flush of the
/// folder, the file is the new one, whole, but a power cut might still bring back the old one.
std::optional<FileFailure> WriteWhole(const std::string &path, std::string_view bytes,
                                      const FileCalls &calls = FileCalls());

/// The whole content of the file at `path` (UTF-8); more than `limit` bytes is the wrong format and is
/// not read. Empty = done.
std::optional<FileFailure> ReadWhole(const std::string &path, std::size_t limit, std::string &bytes,
                                     const FileCalls &calls = FileCalls());

} // namespace kelvo
