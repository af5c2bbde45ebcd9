#include "files/systempath.h"

#define WIN32_LEAN_AND_MEAN
#include <windows.h>

namespace kelvo {

namespace {

constexpr std::wstring_view LongPath = L"\\\\?\\";       // in front of a path that may have any length
constexpr std::wstring_view LongShare = L"\\\\?\\UNC\\"; // in front of a share's, instead of two backslashes

} // namespace

std::filesystem::path SystemPath(const std::string &path)
{
    const std::filesystem::path given = FromUtf8(path);
    const std::wstring &wide = given.native();
    constexpr std::size_t SurelyShort = 240; // the limit is 260, less for a folder's own calls
    if (wide.size() < SurelyShort || wide.starts_with(LongPath))
        return given;
    std::wstring full(GetFullPathNameW(wide.c_str(), 0, nullptr, nullptr), L'\0');
    full.resize(GetFullPathNameW(wide.c_str(), DWORD(full.size()), full.data(), nullptr));
    return full.starts_with(L"\\\\") ? std::wstring(LongShare) + full.substr(2)
                                     : std::wstring(LongPath) + full;
}

} // namespace kelvo
