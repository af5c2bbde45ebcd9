#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace kelvo {

/// Why a file could not be read or written, in words ("No space left on device").
struct FileFailure {
    std::string reason;
    bool wrongFormat = false; ///< the file was read, but is not what it should be
};

/// Replaces the file at `path` (UTF-8) by `bytes`, or leaves it exactly as it was: a temporary beside it
/// is written, flushed to the disk and renamed over it. Empty = done.
std::optional<FileFailure> WriteWhole(const std::string &path, std::string_view bytes);

} // namespace kelvo
