#include "files/text.h"

#include <algorithm>
#include <array>
#include <cstring>

namespace kelvo {

namespace {

constexpr std::string_view Blanks = " \t";
constexpr unsigned char FirstBeyondAscii = 0x80;

bool IsAscii(std::string_view text)
{
    return std::ranges::all_of(text, [](unsigned char c) { return c < FirstBeyondAscii; });
}

/// How many bytes the UTF-8 character at the front of `text` takes; 0 when it is none. The second byte's
/// bounds keep out long forms of short characters, surrogates and what lies beyond the last character.
std::size_t Utf8Length(std::string_view text)
{
    struct Form {
        unsigned char firstLow, firstHigh;   // bounds of the first byte
        unsigned char secondLow, secondHigh; // bounds of the second one; the others are 80 to BF
        std::size_t length;
    };
    static constexpr std::array<Form, 9> Forms{{
        {0x00, 0x7F, 0x00, 0xFF, 1},
        {0xC2, 0xDF, 0x80, 0xBF, 2},
        {0xE0, 0xE0, 0xA0, 0xBF, 3},
        {0xE1, 0xEC, 0x80, 0xBF, 3},
        {0xED, 0xED, 0x80, 0x9F, 3},
        {0xEE, 0xEF, 0x80, 0xBF, 3},
        {0xF0, 0xF0, 0x90, 0xBF, 4},
        {0xF1, 0xF3, 0x80, 0xBF, 4},
        {0xF4, 0xF4, 0x80, 0x8F, 4},
    }};
    const auto byte = [&](std::size_t index) { return static_cast<unsigned char>(text[index]); };
    for (const Form &form : Forms) {
        if (byte(0) < form.firstLow || byte(0) > form.firstHigh)
            continue;
        if (text.size() < form.length)
            return 0;
        if (form.length > 1 && (byte(1) < form.secondLow || byte(1) > form.secondHigh))
            return 0;
        for (std::size_t index = 2; index < form.length; ++index)
            if ((byte(index) & 0xC0) != 0x80)
                return 0;
        return form.length;
    }
    return 0;
}

void AppendUtf8(std::string &text, unsigned character)
{
    const auto append = [&](unsigned byte) { text += static_cast<char>(byte); };
    if (character < 0x80) {
        append(character);
    } else if (character < 0x800) {
        append(0xC0 | character >> 6);
        append(0x80 | (character & 0x3F));
    } else {
        append(0xE0 | character >> 12);
        append(0x80 | (character >> 6 & 0x3F));
        append(0x80 | (character & 0x3F));
    }
}

} // namespace

std::optional<std::string_view> TakeLine(std::string_view &rest)
{
    if (rest.empty())
        return std::nullopt;
    const std::size_t end = std::min(rest.find('\n'), rest.size());
    std::string_view line = rest.substr(0, end);
    rest.remove_prefix(std::min(end + 1, rest.size()));
    if (line.ends_with('\r'))
        line.remove_suffix(1);
    return line;
}

std::string_view Trimmed(std::string_view text)
{
    const std::size_t first = text.find_first_not_of(Blanks);
    if (first == std::string_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(Blanks) - first + 1);
}

std::optional<std::string_view> Unquoted(std::string_view line)
{
    line = Trimmed(line);
    if (line.size() < 2 || !line.starts_with('"') || !line.ends_with('"'))
        return std::nullopt;
    return line.substr(1, line.size() - 2);
}

std::string_view WithoutByteOrderMark(std::string_view bytes)
{
    constexpr std::string_view Mark = "\xEF\xBB\xBF";
    return bytes.starts_with(Mark) ? bytes.substr(Mark.size()) : bytes;
}

bool IsUtf8(std::string_view text)
{
    if (IsAscii(text))
        return true;
    while (!text.empty()) {
        const std::size_t length = Utf8Length(text);
        if (length == 0)
            return false;
        text.remove_prefix(length);
    }
    return true;
}

std::string FromWindows1252(std::string_view text)
{
    // What 80 to 9F stand for; the five that stand for nothing are control characters.
    static constexpr std::array<unsigned, 32> High{
        0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
        0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
        0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};
    std::string decoded;
    for (const char c : text) {
        const unsigned byte = static_cast<unsigned char>(c);
        const bool inTable = byte >= FirstBeyondAscii && byte < FirstBeyondAscii + High.size();
        AppendUtf8(decoded, inTable ? High[byte - FirstBeyondAscii] : byte);
    }
    return decoded;
}

std::string WithoutControls(std::string_view text)
{
    constexpr unsigned char LastLowControl = 0x1F;
    constexpr unsigned char Delete = 0x7F;
    constexpr unsigned char HighControlLead = 0xC2; // U+0080 to U+009F are C2 80 to C2 9F
    constexpr unsigned char LastHighControl = 0x9F;

    std::string kept;
    kept.reserve(text.size());
    for (std::size_t index = 0; index < text.size(); ++index) {
        const auto c = static_cast<unsigned char>(text[index]);
        if (c == HighControlLead && index + 1 < text.size() &&
            static_cast<unsigned char>(text[index + 1]) <= LastHighControl)
            ++index;
        else if (c > LastLowControl && c != Delete)
            kept += text[index];
    }
    return kept;
}

} // namespace kelvo
