#include "unit/windir.h"

#include "files/systempath.h"

#include <windows.h>

namespace kelvo {

std::string GetWinDir()
{
    wchar_t directory[MAX_PATH] = L"";
    const UINT length = GetWindowsDirectoryW(directory, MAX_PATH);
    return Utf8(std::wstring(directory, length));
}

} // namespace kelvo
