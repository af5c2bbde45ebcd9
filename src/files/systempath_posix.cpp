#include "files/systempath.h"

namespace kelvo {

std::filesystem::path SystemPath(const std::string &path)
{
    return FromUtf8(path);
}

} // namespace kelvo
