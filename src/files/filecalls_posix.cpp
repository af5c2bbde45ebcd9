#include "files/filecalls.h"

#include <array>
#include <cerrno>
#include <climits>
#include <cstdio>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace kelvo {

namespace {

constexpr int LongestLinkChain = 40; // as far as the system itself would follow
constexpr mode_t ModeBits = 07777;

std::error_code LastError()
{
    return {errno, std::system_category()};
}

std::error_code Answer(int result)
{
    return result < 0 ? LastError() : std::error_code();
}

std::error_code Count(ssize_t result, std::size_t &count)
{
    count = result < 0 ? 0 : std::size_t(result);
    return result < 0 ? LastError() : std::error_code();
}

std::string FolderOf(const std::string &path)
{
    return path.substr(0, path.rfind('/') + 1);
}

/// A folder cannot hold settings, and a device or a pipe could keep the console waiting for ever.
std::error_code MustBeFile(const struct stat &facts)
{
    if (S_ISDIR(facts.st_mode))
        return {EISDIR, std::system_category()};
    return S_ISREG(facts.st_mode) ? std::error_code() : std::error_code(ENOTSUP, std::system_category());
}

} // namespace

std::error_code FileCalls::Follow(std::string &path) const
{
    std::array<char, PATH_MAX> target;
    for (int link = 0; link < LongestLinkChain; ++link) {
        const ssize_t length = readlink(path.c_str(), target.data(), target.size());
        if (length < 0)
            return errno == EINVAL || errno == ENOENT ? std::error_code() : LastError();
        const std::string next(target.data(), std::size_t(length));
        path = next.starts_with('/') ? next : FolderOf(path).append(next);
    }
    return {ELOOP, std::system_category()};
}

std::error_code FileCalls::Examine(const std::string &path, std::optional<FileMode> &mode) const
{
    struct stat facts {};
    mode.reset();
    if (stat(path.c_str(), &facts) < 0)
        return errno == ENOENT ? std::error_code() : LastError();
    mode = facts.st_mode & ModeBits;
    if (const std::error_code error = MustBeFile(facts))
        return error;
    return Answer(faccessat(AT_FDCWD, path.c_str(), W_OK, AT_EACCESS));
}

std::error_code FileCalls::OpenFolder(const std::string &path, FileHandle &folder) const
{
    folder = open((FolderOf(path) + ".").c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    return Answer(int(folder));
}

std::error_code FileCalls::Create(const std::string &path, FileHandle &file) const
{
    constexpr mode_t ReadableAndWritable = 0666; // less what the user's mask takes away
    file = open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, ReadableAndWritable);
    return Answer(int(file));
}

std::error_code FileCalls::Lock(FileHandle file) const
{
    return Answer(flock(int(file), LOCK_EX | LOCK_NB));
}

std::error_code FileCalls::SetMode(FileHandle file, FileMode mode) const
{
    return Answer(fchmod(int(file), mode));
}

std::error_code FileCalls::Write(FileHandle file, std::string_view bytes, std::size_t &written) const
{
    return Count(write(int(file), bytes.data(), bytes.size()), written);
}

std::error_code FileCalls::Flush(FileHandle file) const
{
    return Answer(fsync(int(file)));
}

std::error_code FileCalls::Close(FileHandle file) const
{
    return Answer(close(int(file)));
}

std::error_code FileCalls::Rename(const std::string &from, const std::string &to) const
{
    return Answer(rename(from.c_str(), to.c_str()));
}

std::error_code FileCalls::Remove(const std::string &path) const
{
    return Answer(unlink(path.c_str()));
}

std::error_code FileCalls::OpenToRead(const std::string &path, FileHandle &file, std::uint64_t &size) const
{
    // Without O_NONBLOCK a pipe that nobody writes to would hold the console here.
    file = open(path.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
    struct stat facts {};
    if (file < 0 || fstat(int(file), &facts) < 0)
        return LastError();
    size = std::uint64_t(facts.st_size);
    return MustBeFile(facts);
}

std::error_code FileCalls::Read(FileHandle file, std::span<char> room, std::size_t &count) const
{
    return Count(read(int(file), room.data(), room.size()), count);
}

std::string ReasonOf(std::error_code error)
{
    return error.message();
}

std::string TemporaryBeside(const std::string &path, int attempt)
{
    return FolderOf(path) + ".kelvo-" + std::to_string(getpid()) + "-" + std::to_string(attempt) + ".tmp";
}

} // namespace kelvo
