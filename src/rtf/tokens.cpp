#include "rtf/tokens.h"

#include <algorithm>
#include <charconv>

namespace kelvo::rtf {

namespace {

constexpr std::string_view EndOfText("\\{}\r\n\0", 6);

bool IsLetter(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

bool IsDigit(char c)
{
    return c >= '0' && c <= '9';
}

/// A number with its sign, held at the ends of int when it does not fit.
int NumberOf(std::string_view digits)
{
    int number = 0;
    const auto result = std::from_chars(digits.data(), digits.data() + digits.size(), number);
    if (result.ec == std::errc::result_out_of_range)
        return digits.front() == '-' ? -2147483647 : 2147483647;
    return number;
}

} // namespace

int HexDigit(char c)
{
    if (IsDigit(c))
        return c - '0';
    const char lower = char(c | 0x20);
    return lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : -1;
}

Token Tokens::Next()
{
    while (!AtEnd() && (bytes_[at_] == '\r' || bytes_[at_] == '\n' || bytes_[at_] == '\0'))
        ++at_;
    if (AtEnd())
        return {};
    switch (bytes_[at_]) {
    case '{':
        return {TokenKind::GroupStart, bytes_.substr(at_++, 1)};
    case '}':
        return {TokenKind::GroupEnd, bytes_.substr(at_++, 1)};
    case '\\':
        ++at_;
        return AfterBackslash();
    default:
        break;
    }
    const std::size_t start = at_;
    at_ = std::min(bytes_.find_first_of(EndOfText, at_), bytes_.size());
    return {TokenKind::Text, bytes_.substr(start, at_ - start)};
}

Token Tokens::AfterBackslash()
{
    if (AtEnd())
        return {};
    if (IsLetter(bytes_[at_]))
        return ControlWord();
    if (bytes_[at_] == '\'')
        return HexByte();
    return {TokenKind::Symbol, bytes_.substr(at_++, 1)};
}

Token Tokens::HexByte()
{
    ++at_;
    Token token{TokenKind::Byte, bytes_.substr(at_, 0), true, 0};
    for (int digits = 0; digits < 2 && !AtEnd(); ++digits) {
        const int digit = HexDigit(bytes_[at_]);
        if (digit < 0)
            break;
        token.number = token.number * 16 + digit;
        ++at_;
    }
    return token;
}

Token Tokens::ControlWord()
{
    const std::size_t start = at_;
    while (!AtEnd() && IsLetter(bytes_[at_]))
        ++at_;
    Token token{TokenKind::Word, bytes_.substr(start, at_ - start)};

    const std::size_t numberStart = at_;
    const std::size_t sign = !AtEnd() && bytes_[at_] == '-' ? 1 : 0;
    std::size_t end = at_ + sign;
    while (end < bytes_.size() && IsDigit(bytes_[end]))
        ++end;
    if (end > at_ + sign) {
        token.hasNumber = true;
        token.number = NumberOf(bytes_.substr(numberStart, end - numberStart));
        at_ = end;
    }
    if (!AtEnd() && bytes_[at_] == ' ')
        ++at_;
    if (token.text == "bin" && token.number > 0)
        token.binary = TakeBinary(token.number);
    return token;
}

std::string_view Tokens::TakeBinary(int count)
{
    const std::string_view binary = bytes_.substr(at_, std::size_t(count));
    at_ += binary.size();
    return binary;
}

} // namespace kelvo::rtf
