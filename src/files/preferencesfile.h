#pragma once

#include "files/atomicfile.h"
#include "model/preferences.h"

#include <optional>
#include <string>
#include <string_view>

namespace kelvo {

std::string ComposePreferences(const Preferences &options);

/// Reads the lines of `settings.dat` in order; the first that cannot be read ends the reading and leaves
/// the defaults for the rest.
Preferences ParsePreferences(std::string_view bytes);

/// A missing or unreadable file gives the defaults, silently.
Preferences ReadPreferences(const std::string &path);
std::optional<FileFailure> WritePreferences(const std::string &path, const Preferences &options,
                                            const FileCalls &calls = FileCalls());

} // namespace kelvo
