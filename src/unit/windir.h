#pragma once

#include <string>

namespace kelvo {

/// The operating system's Windows directory (UTF-8, no separator at its end). Where there is none, a folder
/// of the user's configuration stands in for it; it is created on first use.
std::string GetWinDir();

/// The library's serial settings file does not exist yet: the library is then asked to create it.
bool SerialIniMissing();

} // namespace kelvo
