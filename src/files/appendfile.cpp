#include "files/appendfile.h"

#include "files/systempath.h"

namespace kelvo {

std::error_code AppendFile::Create(const std::string &path)
{
    std::error_code error;
    std::filesystem::create_directories(SystemPath(path).parent_path(), error);
    if (!error)
        error = Again([&] { return calls_.Create(path, file_.handle); });
    // Where the file system knows no locks the file is kept all the same: others may take it for abandoned.
    if (!error)
        static_cast<void>(Again([&] { return calls_.Lock(file_.handle); }));
    return error;
}

std::error_code AppendFile::Append(std::string_view bytes)
{
    return WriteAll(file_.handle, bytes, calls_);
}

std::error_code AppendFile::Flush()
{
    return Again([&] { return calls_.Flush(file_.handle); });
}

bool IsAbandoned(const std::string &path, const FileCalls &calls)
{
    OpenFile file(calls);
    std::uint64_t size = 0;
    return !Again([&] { return calls.OpenToRead(path, file.handle, size); }) &&
           !Again([&] { return calls.Lock(file.handle); });
}

} // namespace kelvo
