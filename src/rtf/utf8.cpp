#include "rtf/utf8.h"

#include <algorithm>
#include <array>

namespace kelvo::rtf {

namespace {

/// Characters of one length: how their first byte begins, and the least that needs as many bytes.
struct Form {
    unsigned char mask, lead;
    char32_t least;
};
constexpr std::array<Form, 4> Forms{
    {{0x80, 0x00, 0}, {0xe0, 0xc0, 0x80}, {0xf0, 0xe0, 0x800}, {0xf8, 0xf0, 0x10000}}};

unsigned char ByteAt(std::string_view bytes, std::size_t at)
{
    return static_cast<unsigned char>(bytes[at]);
}

/// 0 = no character begins so.
std::size_t LengthBy(unsigned char lead)
{
    const auto form =
        std::ranges::find_if(Forms, [lead](const Form &one) { return (lead & one.mask) == one.lead; });
    return form == Forms.end() ? 0 : std::size_t(form - Forms.begin()) + 1;
}

bool IsCharacter(char32_t number, std::size_t length)
{
    const bool surrogate = number >= 0xd800 && number < 0xe000;
    return number >= Forms[length - 1].least && number <= 0x10ffff && !surrogate;
}

} // namespace

std::string_view LeadingHighBytes(std::string_view bytes)
{
    const auto end = std::ranges::find_if(bytes, [](char byte) { return !(byte & 0x80); });
    return bytes.substr(0, std::size_t(end - bytes.begin()));
}

char32_t TakeCharacter(std::string_view &bytes)
{
    const std::size_t length = LengthBy(ByteAt(bytes, 0));
    char32_t number = ByteAt(bytes, 0) & (0xffu ^ Forms[length - 1].mask);
    for (std::size_t at = 1; at < length; ++at)
        number = number << 6 | (ByteAt(bytes, at) & 0x3fu);
    bytes.remove_prefix(length);
    return number;
}

bool IsUtf8(std::string_view bytes)
{
    while (!bytes.empty()) {
        const std::size_t length = LengthBy(ByteAt(bytes, 0));
        if (length == 0 || length > bytes.size())
            return false;
        const std::string_view rest = bytes.substr(1, length - 1);
        if (!std::ranges::all_of(rest, [](char byte) { return (byte & 0xc0) == 0x80; }))
            return false;
        if (!IsCharacter(TakeCharacter(bytes), length))
            return false;
    }
    return true;
}

} // namespace kelvo::rtf
