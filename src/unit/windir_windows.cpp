#include "unit/windir.h"

#include <filesystem>
#include <windows.h>

namespace kelvo {

std::string GetWinDir()
{
    wchar_t directory[MAX_PATH] = L"";
    const UINT length = GetWindowsDirectoryW(directory, MAX_PATH);
    const std::u8string text = std::filesystem::path(std::wstring(directory, length)).u8string();
    return std::string(text.begin(), text.end());
}

} // namespace kelvo
