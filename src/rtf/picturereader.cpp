#include "rtf/picturereader.h"

#include "rtf/tokens.h"

#include <utility>

namespace kelvo::rtf {

void PictureReader::Add(char byte)
{
    begun_ = true;
    // One more than there is room for tells that there were too many.
    if (picture_.bytes.size() <= left_)
        picture_.bytes += byte;
}

void PictureReader::AddHex(std::string_view digits)
{
    for (const char digit : digits) {
        const int value = HexDigit(digit);
        if (value < 0)
            continue;
        if (halfByte_ < 0) {
            halfByte_ = value;
            continue;
        }
        Add(char(std::exchange(halfByte_, -1) << 4 | value));
    }
}

void PictureReader::AddBytes(std::string_view bytes)
{
    for (const char byte : bytes)
        Add(byte);
}

Picture PictureReader::Take()
{
    if (picture_.kind == PictureKind::Other || picture_.bytes.size() > left_)
        picture_.bytes = {};
    left_ -= picture_.bytes.size();
    picture_.bytes.shrink_to_fit();
    return std::exchange(picture_, {});
}

} // namespace kelvo::rtf
