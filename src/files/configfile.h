#pragma once

#include "files/atomicfile.h"
#include "model/roomsettings.h"

#include <optional>
#include <string>
#include <string_view>

namespace kelvo {

/// The text of a ".zcf" file for this room. Fader and format are written within the range that a file is
/// loaded with, control characters of texts are left out.
std::string ComposeConfig(const RoomSettings &room);

/// Takes the content of a ".zcf" file; a byte order mark before its first line and whatever follows its last
/// one are ignored. All or nothing: false leaves `room` as it was.
bool ParseConfig(std::string_view bytes, RoomSettings &room);

/// Takes the content of an old ".cfg" file: both records, 352 bytes. All or nothing.
bool ParseOldConfig(std::string_view bytes, RoomSettings &room);

/// Writes `path` (UTF-8), always in the new format. Empty = done.
std::optional<FileFailure> SaveConfigFile(const std::string &path, const RoomSettings &room,
                                          const FileCalls &calls = FileCalls());

/// What a file holds: named lines (".zcf"), or both records and nothing else (".cfg").
enum class ConfigForm { Lines, Records };

/// Reads `path` (UTF-8) into `room`: the old format when its name ends in ".cfg" and its content does not
/// start with the new header; `form` tells which. `room` changes only when the whole file was good. Empty =
/// done; the reason of a wrong format says where.
std::optional<FileFailure> LoadConfigFile(const std::string &path, RoomSettings &room,
                                          ConfigForm *form = nullptr);

} // namespace kelvo
