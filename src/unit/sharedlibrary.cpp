#include "unit/sharedlibrary.h"

#include <utility>

namespace kelvo {

SharedLibrary::SharedLibrary(SharedLibrary &&other) noexcept : handle_(std::exchange(other.handle_, nullptr))
{
}

SharedLibrary &SharedLibrary::operator=(SharedLibrary &&other) noexcept
{
    std::swap(handle_, other.handle_);
    return *this;
}

} // namespace kelvo
