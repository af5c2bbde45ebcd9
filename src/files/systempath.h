#pragma once

#include <filesystem>
#include <string>

namespace kelvo {

std::filesystem::path FromUtf8(const std::string &path);
std::string Utf8(const std::filesystem::path &path);

/// A path in UTF-8 as the system's calls take it, whatever its length.
std::filesystem::path SystemPath(const std::string &path);

/// True when a file or a folder stands there.
bool Exists(const std::string &path);

} // namespace kelvo
