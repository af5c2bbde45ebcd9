#include "model/levels.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <limits>
#include <system_error>

namespace kelvo {

namespace {

bool IsBlank(char c)
{
    return c == ' ' || c == '\t';
}

bool IsDigit(char c)
{
    return c >= '0' && c <= '9';
}

std::string_view SkipBlanks(std::string_view text)
{
    const auto first = std::find_if_not(text.begin(), text.end(), IsBlank);
    return text.substr(std::size_t(first - text.begin()));
}

/// A number at the start of a text, cut into its parts.
struct Numeral {
    bool negative = false;
    std::string digits;     ///< "6.5" for 6.5 and 6,5; never starts with a sign
    std::string exponent;   ///< "-3" of "1e-3"; empty when there is none
    std::size_t length = 0; ///< of the text that it takes; 0 = the text does not start with a number
};

std::size_t TakeDigits(std::string_view text, std::size_t at, std::string &into)
{
    while (at < text.size() && IsDigit(text[at]))
        into += text[at++];
    return at;
}

/// The end of an exponent that starts at `at`, or `at` when what stands there is none.
std::size_t TakeExponent(std::string_view text, std::size_t at, std::string &into)
{
    if (at >= text.size() || (text[at] != 'e' && text[at] != 'E'))
        return at;
    std::size_t next = at + 1;
    std::string exponent;
    if (next < text.size() && (text[next] == '+' || text[next] == '-')) {
        if (text[next] == '-')
            exponent += '-';
        ++next;
    }
    const std::size_t end = TakeDigits(text, next, exponent);
    if (end == next)
        return at;
    into = exponent;
    return end;
}

Numeral TakeNumeral(std::string_view text)
{
    Numeral numeral;
    std::size_t at = 0;
    if (!text.empty() && (text[0] == '-' || text[0] == '+')) {
        numeral.negative = text[0] == '-';
        at = 1;
    }
    at = TakeDigits(text, at, numeral.digits);
    bool any = !numeral.digits.empty();
    if (at < text.size() && (text[at] == '.' || text[at] == ',')) {
        numeral.digits += '.';
        const std::size_t end = TakeDigits(text, at + 1, numeral.digits);
        any = any || end > at + 1;
        at = end;
    }
    if (any)
        numeral.length = TakeExponent(text, at, numeral.exponent);
    return numeral;
}

/// A number too large or too small for a double: its first digit that is not 0 tells which.
double BeyondDouble(const Numeral &numeral)
{
    const std::string &digits = numeral.digits;
    const std::size_t point = std::min(digits.find('.'), digits.size());
    const std::size_t first = digits.find_first_not_of("0.");
    // An exponent is digits alone, so no locale has a say in this conversion.
    const double power = std::strtod(numeral.exponent.c_str(), nullptr);
    return double(point) - double(first) + power > 0 ? std::numeric_limits<double>::infinity() : 0.0;
}

double ValueOf(const Numeral &numeral)
{
    const std::string text =
        numeral.exponent.empty() ? numeral.digits : numeral.digits + 'e' + numeral.exponent;
    double value = 0;
    // Never the C library's conversion: that one follows the locale.
    const auto result = std::from_chars(text.data(), text.data() + text.size(), value);
    if (result.ec == std::errc::result_out_of_range)
        value = BeyondDouble(numeral);
    return numeral.negative ? -value : value;
}

/// `value` is of a size that an int holds.
int RoundHalfToEven(double value)
{
    const double below = std::floor(value);
    const double rest = value - below;
    const bool up = rest > 0.5 || (rest == 0.5 && std::fmod(below, 2.0) != 0.0);
    return int(below) + (up ? 1 : 0);
}

/// No level comes near it, and every conversion below is defined up to it.
constexpr double FarOutside = 1e6;

/// Fader and shelves round to 16 bits: what overflows them is no number to such a field.
LevelEntry ReadRounded(const LevelRule &rule, double steps)
{
    if (std::abs(steps) > FarOutside)
        return {LevelEntry::Unreadable};
    const int rounded = RoundHalfToEven(steps);
    if (rounded > std::numeric_limits<std::int16_t>::max() ||
        rounded < std::numeric_limits<std::int16_t>::min())
        return {LevelEntry::Unreadable};
    if (rounded < rule.lowest || rounded > rule.highest)
        return {LevelEntry::OutOfRange};
    return {LevelEntry::Value, rounded};
}

LevelEntry ReadWholeNumber(const LevelRule &rule, std::string_view text)
{
    const std::string_view start = SkipBlanks(text);
    const Numeral numeral = TakeNumeral(start);
    if (numeral.length == 0 || !SkipBlanks(start.substr(numeral.length)).empty())
        return {LevelEntry::Unreadable};
    const double value = ValueOf(numeral);
    if (rule.parse == LevelParse::WholeInteger)
        return ReadRounded(rule, value * rule.stepsPerUnit);
    if (std::abs(value) > FarOutside)
        return {LevelEntry::OutOfRange};
    // The typed value itself is checked, before it goes down to its step: 6.2 is refused, not 6.0.
    const float single = float(value) * float(rule.stepsPerUnit);
    if (single < float(rule.lowest) || single > float(rule.highest))
        return {LevelEntry::OutOfRange};
    return {LevelEntry::Value, int(std::floor(single))};
}

} // namespace

double LeadingNumber(std::string_view text)
{
    return ValueOf(TakeNumeral(SkipBlanks(text)));
}

std::string LevelRule::TextOf(int steps) const
{
    if (decimals == 0)
        return std::to_string(steps);
    const int tenths = std::abs(steps) * 10 / stepsPerUnit;
    return (steps < 0 ? "-" : "") + std::to_string(tenths / 10) + "." + std::to_string(tenths % 10);
}

LevelEntry ReadLevel(const LevelRule &rule, std::string_view text)
{
    if (rule.parse == LevelParse::LeadingNumber)
        return ReadRounded(rule, LeadingNumber(text) * rule.stepsPerUnit);
    return ReadWholeNumber(rule, text);
}

} // namespace kelvo
