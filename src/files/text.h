#pragma once

#include <charconv>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>

namespace kelvo {

/// Takes the next line from the front of `rest`, without its end (CR LF or LF); none when nothing is left.
std::optional<std::string_view> TakeLine(std::string_view &rest);

/// The text without the blanks and tabs around it.
std::string_view Trimmed(std::string_view text);

/// The text between the line's first and its last double quote, with nothing but blanks around them; a
/// quote inside survives. None when a quote is missing.
std::optional<std::string_view> Unquoted(std::string_view line);

/// Takes a plain decimal number and the blanks around it from the front of `text`; false when there is none
/// or it does not fit its type, and `number` keeps its value.
template <typename Integer>
bool TakeNumber(std::string_view &text, Integer &number)
{
    text = Trimmed(text);
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    text.remove_prefix(std::size_t(end - text.data()));
    text = Trimmed(text);
    return error == std::errc();
}

/// A file's content without the UTF-8 byte order mark that some editors put before its first line.
std::string_view WithoutByteOrderMark(std::string_view bytes);

bool IsUtf8(std::string_view text);

/// Windows-1252 as UTF-8.
std::string FromWindows1252(std::string_view text);

/// UTF-8 without its control characters, which no field lets a user type.
std::string WithoutControls(std::string_view text);

} // namespace kelvo
