#include "files/atomicfile.h"

#include "files/filework.h"

#include <algorithm>
#include <span>
#include <utility>

namespace kelvo {

namespace {

std::error_code CreateBeside(const std::string &path, std::string &temporary, OpenFile &file,
                             const FileCalls &calls)
{
    constexpr int Attempts = 100; // leftovers of consoles that were killed while they saved
    std::error_code error;
    for (int attempt = 0; attempt < Attempts; ++attempt) {
        temporary = TemporaryBeside(path, attempt);
        error = Again([&] { return calls.Create(temporary, file.handle); });
        if (error != std::errc::file_exists)
            break;
    }
    return error;
}

/// The mode comes first, so that what only its owner may read is never readable by others.
std::error_code Fill(OpenFile &file, std::string_view bytes, std::optional<FileMode> mode,
                     const FileCalls &calls)
{
    std::error_code error;
    if (mode)
        error = Again([&] { return calls.SetMode(file.handle, *mode); });
    if (!error)
        error = WriteAll(file.handle, bytes, calls);
    if (!error)
        error = Again([&] { return calls.Flush(file.handle); });
    const std::error_code closeError = file.Close();
    return error ? error : closeError;
}

/// What file systems answer, some of them on a network, that have no flush for a folder.
bool KnowsNoFlush(std::error_code error)
{
    return error == std::errc::invalid_argument || error == std::errc::not_supported ||
           error == std::errc::operation_not_supported || error == std::errc::function_not_supported;
}

/// The rename is certain once the folder is flushed.
std::error_code FlushFolder(OpenFile &folder, const FileCalls &calls)
{
    const std::error_code error = Again([&] { return calls.Flush(folder.handle); });
    return KnowsNoFlush(error) ? std::error_code() : error;
}

std::error_code Replace(std::string path, std::string_view bytes, const FileCalls &calls)
{
    std::optional<FileMode> mode;
    OpenFile folder(calls);
    OpenFile file(calls);
    std::string temporary;
    std::error_code error = Again([&] { return calls.Follow(path); });
    if (!error)
        error = Again([&] { return calls.Examine(path, mode); });
    // The folder is opened before anything changes, so that a folder that cannot be flushed changes nothing.
    if (!error)
        error = Again([&] { return calls.OpenFolder(path, folder.handle); });
    if (!error)
        error = CreateBeside(path, temporary, file, calls);
    if (error)
        return error;

    error = Fill(file, bytes, mode, calls);
    if (!error)
        error = Again([&] { return calls.Rename(temporary, path); });
    if (error) {
        calls.Remove(temporary);
        return error;
    }
    return FlushFolder(folder, calls);
}

/// Reads to the end of the file, or one byte more than `limit`.
std::error_code ReadUpTo(std::size_t limit, FileHandle file, std::string &bytes, const FileCalls &calls)
{
    std::size_t length = 0;
    for (;;) {
        if (length == bytes.size())
            bytes.resize(std::min(limit + 1, 2 * length + 1));
        std::size_t count = 0;
        const std::span<char> room(bytes.data() + length, bytes.size() - length);
        if (const std::error_code error = Again([&] { return calls.Read(file, room, count); }))
            return error;
        length += count;
        if (count == 0 || length > limit)
            break;
    }
    bytes.resize(length);
    return {};
}

std::optional<FileFailure> Failure(std::error_code error)
{
    return error ? std::optional(FileFailure{ReasonOf(error)}) : std::nullopt;
}

} // namespace

std::optional<FileFailure> WriteWhole(const std::string &path, std::string_view bytes, const FileCalls &calls)
{
    return Failure(Replace(path, bytes, calls));
}

std::optional<FileFailure> ReadWhole(const std::string &path, std::size_t limit, std::string &bytes,
                                     const FileCalls &calls)
{
    OpenFile file(calls);
    std::uint64_t size = 0;
    if (const std::error_code error = Again([&] { return calls.OpenToRead(path, file.handle, size); }))
        return Failure(error);
    if (size > limit)
        return FileFailure{.reason = "it is too large", .wrongFormat = true};

    bytes.resize(std::size_t(size) + 1); // one more byte than expected, so that one call can find the end
    if (const std::error_code error = ReadUpTo(limit, file.handle, bytes, calls))
        return Failure(error);
    if (bytes.size() > limit)
        return FileFailure{.reason = "it is too large", .wrongFormat = true};
    return {};
}

} // namespace kelvo
