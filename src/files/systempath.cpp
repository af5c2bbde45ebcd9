#include "files/systempath.h"

#include "files/filecalls.h"

namespace kelvo {

std::filesystem::path FromUtf8(const std::string &path)
{
    return std::u8string(path.begin(), path.end());
}

std::string Utf8(const std::filesystem::path &path)
{
    const std::u8string text = path.u8string();
    return std::string(text.begin(), text.end());
}

// Not the standard library's, whose calls on Windows take no path that is over 260 characters long.
bool Exists(const std::string &path)
{
    std::optional<FileMode> mode;
    static_cast<void>(FileCalls().Examine(path, mode));
    return mode.has_value();
}

} // namespace kelvo
