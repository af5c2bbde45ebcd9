#pragma once

#include <array>

namespace kelvo::rtf {

/// The upper half of a single-byte character set; its lower half is ASCII.
using CodePage = std::array<char16_t, 128>;

/// By number: 437, 1250 to 1254 or 1257. Any other one is read as 1252.
const CodePage &CodePageByNumber(int number);

/// By the character set of a font: 161 Greek, 162 Turkish, 186 Baltic, 204 Cyrillic, 238 Eastern Europe,
/// 255 the old PC's; null = the document's.
const CodePage *CodePageByCharset(int charset);

inline char16_t Decode(const CodePage &page, unsigned char byte)
{
    return byte < 0x80 ? char16_t(byte) : page[byte - 0x80u];
}

} // namespace kelvo::rtf
