#include "files/filecalls.h"

#include "files/systempath.h"

#include <algorithm>
#include <array>

#define WIN32_LEAN_AND_MEAN
#include <windows.h>

namespace kelvo {

namespace {

constexpr DWORD LongestCall = 1 << 30; // bytes in one read or write; the call counts in 32 bits

std::error_code SystemError(DWORD code)
{
    return {int(code), std::system_category()};
}

std::error_code Answer(bool good)
{
    return good ? std::error_code() : SystemError(GetLastError());
}

HANDLE HandleOf(FileHandle file)
{
    return reinterpret_cast<HANDLE>(file);
}

std::error_code Open(const std::filesystem::path &path, DWORD access, DWORD sharing, DWORD disposition,
                     DWORD flags, FileHandle &file)
{
    const HANDLE handle = CreateFileW(path.c_str(), access, sharing, nullptr, disposition, flags, nullptr);
    file = reinterpret_cast<FileHandle>(handle);
    return Answer(handle != INVALID_HANDLE_VALUE);
}

DWORD CallLength(std::size_t length)
{
    return DWORD(std::min(length, std::size_t(LongestCall)));
}

} // namespace

std::error_code FileCalls::Follow(std::string &path) const
{
    const std::filesystem::path link = SystemPath(path);
    const DWORD attributes = GetFileAttributesW(link.c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES || (attributes & FILE_ATTRIBUTE_REPARSE_POINT) == 0)
        return {};
    FileHandle file = NoFile;
    constexpr DWORD ShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
    if (const std::error_code error =
            Open(link, 0, ShareAll, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, file))
        return error;
    std::wstring target(GetFinalPathNameByHandleW(HandleOf(file), nullptr, 0, 0), L'\0');
    const DWORD length = GetFinalPathNameByHandleW(HandleOf(file), target.data(), DWORD(target.size()), 0);
    const std::error_code error = Answer(length > 0);
    CloseHandle(HandleOf(file));
    target.resize(length);
    if (!error)
        path = Utf8(target);
    return error;
}

std::error_code FileCalls::Examine(const std::string &path, std::optional<FileMode> &mode) const
{
    mode.reset();
    const DWORD attributes = GetFileAttributesW(SystemPath(path).c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES) {
        const DWORD error = GetLastError();
        return error == ERROR_FILE_NOT_FOUND ? std::error_code() : SystemError(error);
    }
    mode = attributes;
    constexpr DWORD NotWritable = FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_READONLY;
    return attributes & NotWritable ? SystemError(ERROR_ACCESS_DENIED) : std::error_code();
}

std::error_code FileCalls::OpenFolder(const std::string &, FileHandle &folder) const
{
    folder = NoFile; // the rename itself writes through
    return {};
}

std::error_code FileCalls::Create(const std::string &path, FileHandle &file) const
{
    return Open(SystemPath(path), GENERIC_WRITE, 0, CREATE_NEW, FILE_ATTRIBUTE_NORMAL, file);
}

std::error_code FileCalls::Lock(FileHandle) const
{
    return {}; // a file that was created here is shared with nobody until it is closed
}

std::error_code FileCalls::SetMode(FileHandle, FileMode) const
{
    return {}; // access is a matter of the folder here, and a new file has it from there
}

std::error_code FileCalls::Write(FileHandle file, std::string_view bytes, std::size_t &written) const
{
    DWORD count = 0;
    const bool good = WriteFile(HandleOf(file), bytes.data(), CallLength(bytes.size()), &count, nullptr);
    written = count;
    return Answer(good);
}

std::error_code FileCalls::Flush(FileHandle file) const
{
    return Answer(file == NoFile || FlushFileBuffers(HandleOf(file)));
}

std::error_code FileCalls::Close(FileHandle file) const
{
    return Answer(CloseHandle(HandleOf(file)));
}

std::error_code FileCalls::Rename(const std::string &from, const std::string &to) const
{
    // A virus scanner or an indexer opens a new file for some milliseconds and keeps it from being moved.
    constexpr int Attempts = 10;
    constexpr DWORD Milliseconds = 20;
    const std::filesystem::path source = SystemPath(from);
    const std::filesystem::path target = SystemPath(to);
    for (int attempt = 1;; ++attempt) {
        if (MoveFileExW(source.c_str(), target.c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH))
            return {};
        const DWORD error = GetLastError();
        const bool held = error == ERROR_SHARING_VIOLATION || error == ERROR_ACCESS_DENIED;
        if (!held || attempt == Attempts)
            return SystemError(error);
        Sleep(Milliseconds);
    }
}

std::error_code FileCalls::Remove(const std::string &path) const
{
    return Answer(DeleteFileW(SystemPath(path).c_str()));
}

std::error_code FileCalls::OpenToRead(const std::string &path, FileHandle &file, std::uint64_t &size) const
{
    constexpr DWORD Sharing = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
    if (const std::error_code error =
            Open(SystemPath(path), GENERIC_READ, Sharing, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, file))
        return error;
    if (GetFileType(HandleOf(file)) != FILE_TYPE_DISK)
        return SystemError(ERROR_NOT_SUPPORTED);
    LARGE_INTEGER length{};
    const bool good = GetFileSizeEx(HandleOf(file), &length);
    size = std::uint64_t(length.QuadPart);
    return Answer(good);
}

std::error_code FileCalls::Read(FileHandle file, std::span<char> room, std::size_t &count) const
{
    DWORD got = 0;
    const bool good = ReadFile(HandleOf(file), room.data(), CallLength(room.size()), &got, nullptr);
    count = got;
    return Answer(good);
}

std::string ReasonOf(std::error_code error)
{
    if (error.category() != std::system_category())
        return error.message();
    std::array<wchar_t, 512> words{};
    const DWORD length = FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr,
                                        DWORD(error.value()), 0, words.data(), DWORD(words.size()), nullptr);
    std::wstring_view reason(words.data(), length);
    while (!reason.empty() && std::wstring_view(L". \r\n").find(reason.back()) != std::wstring_view::npos)
        reason.remove_suffix(1);
    return reason.empty() ? "system error " + std::to_string(error.value()) : Utf8(reason);
}

std::string TemporaryBeside(const std::string &path, int attempt)
{
    return path.substr(0, path.find_last_of("\\/:") + 1) + ".kelvo-" + std::to_string(GetCurrentProcessId()) +
           "-" + std::to_string(attempt) + ".tmp";
}

} // namespace kelvo
