#include "files/preferencesfile.h"

#include "files/text.h"

#include <algorithm>

namespace kelvo {

namespace {

constexpr std::size_t LargestPreferences = 1 << 16;
constexpr Word FirstPort = 1;
constexpr Word LastPort = 4;
constexpr Word AutoRefreshOn = 1; ///< this option alone is kept as a number

constexpr std::string_view LineEnd = "\r\n";

std::string Line(Word number)
{
    return std::to_string(number).append(LineEnd);
}

std::string Line(bool checked)
{
    return std::string(checked ? "True" : "False").append(LineEnd);
}

bool SameLetters(std::string_view left, std::string_view right)
{
    const auto lower = [](char c) { return c >= 'A' && c <= 'Z' ? char(c - 'A' + 'a') : c; };
    return std::ranges::equal(left, right, {}, lower, lower);
}

bool Read(std::string_view text, Word &number)
{
    Word whole = 0;
    if (!TakeNumber(text, whole) || !text.empty())
        return false;
    number = whole;
    return true;
}

bool Read(std::string_view text, bool &checked)
{
    text = Trimmed(text);
    const bool isTrue = SameLetters(text, "True");
    if (!isTrue && !SameLetters(text, "False"))
        return false;
    checked = isTrue;
    return true;
}

/// Takes one line, whose value may stand in quotes; a value that cannot be read stays as it was.
template <typename Value>
bool ReadLine(std::string_view &rest, Value &value)
{
    const auto line = TakeLine(rest);
    if (!line)
        return false;
    return Read(Unquoted(*line).value_or(*line), value);
}

} // namespace

std::string ComposePreferences(const Preferences &options)
{
    return Line(options.ComPort) + Line(options.AutoUpload) + Line(options.ConfirmUpload) +
           Line(options.Shortcuts) + Line(Word(options.AutoRefresh ? AutoRefreshOn : 0)) +
           Line(options.RefreshSeconds);
}

Preferences ParsePreferences(std::string_view bytes)
{
    Preferences options;
    bytes = WithoutByteOrderMark(bytes);
    Word autoRefresh = 0;
    // The first line that cannot be read ends the chain; the defaults stay for it and the rest.
    static_cast<void>(ReadLine(bytes, options.ComPort) && ReadLine(bytes, options.AutoUpload) &&
                      ReadLine(bytes, options.ConfirmUpload) && ReadLine(bytes, options.Shortcuts) &&
                      ReadLine(bytes, autoRefresh) && ReadLine(bytes, options.RefreshSeconds));
    options.AutoRefresh = autoRefresh == AutoRefreshOn;
    if (options.ComPort < FirstPort || options.ComPort > LastPort)
        options.ComPort = FirstPort;
    return options;
}

Preferences ReadPreferences(const std::string &path)
{
    std::string bytes;
    return ReadWhole(path, LargestPreferences, bytes) ? Preferences() : ParsePreferences(bytes);
}

std::optional<FileFailure> WritePreferences(const std::string &path, const Preferences &options,
                                            const FileCalls &calls)
{
    return WriteWhole(path, ComposePreferences(options), calls);
}

} // namespace kelvo
