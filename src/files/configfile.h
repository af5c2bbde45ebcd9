#pragma once

#include "files/atomicfile.h"
#include "model/settings.h"

#include <optional>
#include <string>
#include <string_view>

namespace kelvo {

/// The text of a ".zcf" file for these settings; the operator's format, not a stream's. Fader and format
/// are written within the range that a file is loaded with, control characters of texts are left out.
std::string ComposeConfig(const Settings &settings);

/// Takes the content of a ".zcf" file; a byte order mark before its first line and whatever follows its last
/// one are ignored. All or nothing: false leaves `settings` as they were.
bool ParseConfig(std::string_view bytes, Settings &settings);

/// Takes the content of an old ".cfg" file: both records, 352 bytes. All or nothing.
bool ParseOldConfig(std::string_view bytes, Settings &settings);

/// Writes `settings.CurrentFileName`, always in the new format. Empty = done.
std::optional<FileFailure> SaveConfigFile(const Settings &settings, const FileCalls &calls = FileCalls());

/// Reads `path` (UTF-8) into `settings`: the old format when its name ends in ".cfg" and its content
/// does not start with the new header. Records, live values and texts alone change, and only when the
/// whole file was good. Empty = done.
std::optional<FileFailure> LoadConfigFile(const std::string &path, Settings &settings);

} // namespace kelvo
