#include "unit/windir.h"

#include <filesystem>

namespace kelvo {

bool SerialIniMissing()
{
    const std::string directory = GetWinDir();
    const std::filesystem::path path(std::u8string(directory.begin(), directory.end()));
    std::error_code ignored;
    return !std::filesystem::exists(path / "kelvoserial.ini", ignored);
}

} // namespace kelvo
