#include "files/filework.h"

namespace kelvo {

std::error_code WriteAll(FileHandle file, std::string_view bytes, const FileCalls &calls)
{
    while (!bytes.empty()) {
        std::size_t written = 0;
        if (const std::error_code error = Again([&] { return calls.Write(file, bytes, written); }))
            return error;
        if (written == 0)
            return std::make_error_code(std::errc::io_error);
        bytes.remove_prefix(written);
    }
    return {};
}

} // namespace kelvo
