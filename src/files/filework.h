#pragma once

#include "files/filecalls.h"

#include <utility>

namespace kelvo {

/// A signal may interrupt a call before it did anything; then it is simply made again.
template <typename Call>
std::error_code Again(Call call)
{
    std::error_code error;
    do
        error = call();
    while (error == std::errc::interrupted);
    return error;
}

/// Closes what it holds at the end of its scope, unless `Close` did before.
class OpenFile {
  public:
    explicit OpenFile(const FileCalls &calls) : calls_(calls) {}
    ~OpenFile() { static_cast<void>(Close()); }
    OpenFile(const OpenFile &) = delete;
    OpenFile &operator=(const OpenFile &) = delete;

    FileHandle handle = NoFile;

    /// An interrupted close has closed all the same, and a second one might hit somebody else's file.
    std::error_code Close()
    {
        const std::error_code error =
            handle == NoFile ? std::error_code() : calls_.Close(std::exchange(handle, NoFile));
        return error == std::errc::interrupted ? std::error_code() : error;
    }

  private:
    const FileCalls &calls_;
};

/// Writes all of `bytes`, in as many calls as it takes.
[[nodiscard]] std::error_code WriteAll(FileHandle file, std::string_view bytes, const FileCalls &calls);

} // namespace kelvo
