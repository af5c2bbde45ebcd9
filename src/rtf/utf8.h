#pragma once

#include "rtf/codepages.h"

#include <string_view>

namespace kelvo::rtf {

bool IsUtf8(std::string_view bytes);

/// Takes the first character off bytes that are UTF-8.
char32_t TakeCharacter(std::string_view &bytes);

/// The bytes beyond ASCII at the beginning of a text.
std::string_view LeadingHighBytes(std::string_view bytes);

/// Hands `put` a text's UTF-16 units. Bytes beyond ASCII that stand together are UTF-8 where they can be,
/// else characters of the code page.
template <typename Put>
void DecodeText(std::string_view bytes, const CodePage &codePage, Put put)
{
    while (!bytes.empty()) {
        std::string_view high = LeadingHighBytes(bytes);
        if (high.empty()) {
            put(char16_t(bytes.front()));
            bytes.remove_prefix(1);
            continue;
        }
        bytes.remove_prefix(high.size());
        if (IsUtf8(high)) {
            while (!high.empty()) {
                const char32_t character = TakeCharacter(high);
                if (character >= 0x10000)
                    put(char16_t(0xd7c0 + (character >> 10)));
                put(character >= 0x10000 ? char16_t(0xdc00 + (character & 0x3ff)) : char16_t(character));
            }
        } else {
            for (const char byte : high)
                put(Decode(codePage, static_cast<unsigned char>(byte)));
        }
    }
}

} // namespace kelvo::rtf
