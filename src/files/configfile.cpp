#include "files/configfile.h"

#include "files/text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <limits>
#include <span>
#include <utility>

namespace kelvo {

namespace {

constexpr std::string_view Header = "Kelvo CP Settings File: V1.0";
constexpr std::string_view OldSuffix = ".cfg";
constexpr std::size_t LargestConfig = 1 << 20; // far beyond any settings; more is noise, whatever it holds

/// The numbers of a file, apart from the settings until the whole file is known to be good. Bytes of the
/// records that the file does not store come from the settings and go back to them.
struct Content {
    AudioBlock Audio;
    SystemBlock System;
    Word CurrentFormat = 0;
    Word FaderLevel = 0;
    Word MuteState = 0;
};

constexpr Word LastFormat = FormatCount - 1;

constexpr bool InRange(Word value, Word last)
{
    return value >= 0 && value <= last;
}

/// The file line by line, in the one order that reading and writing share. `lines` is a `LineReader` or
/// a `LineWriter`; the first line that it refuses ends the walk.
template <typename Lines, typename FileContent, typename Texts>
bool WalkLines(Lines &lines, FileContent &content, Texts &texts)
{
    auto &audio = content.Audio;
    auto &system = content.System;
    bool good = lines.Fixed(Header) &&
                lines.Numbers(content.CurrentFormat, content.FaderLevel, content.MuteState) &&
                lines.Numbers(system.F1KeyMode, system.DisableMatrix, system.NonsyncMode) &&
                lines.Numbers(system.ReaderDelay[0], system.ReaderDelay[1], system.SurroundDelay) &&
                lines.Numbers(system.stored8, system.stored10[0], system.stored10[1]) &&
                lines.Numbers(system.stored10[2], system.stored10[3], system.NonsyncTrim) &&
                lines.Numbers(system.stored25[0], system.stored25[1], system.stored25[2]) &&
                lines.Numbers(system.stored25[3], system.stored25[4], system.DefaultFormat) &&
                lines.Numbers(audio.ObeLevel, audio.ObeFreq) && lines.List(std::span(audio.ChannelTrim));
    for (auto &slice : audio.ChannelEq)
        good = good && lines.Numbers(slice.BassLevel, slice.TrebleLevel);
    for (int channel = 0; channel < ChannelCount; ++channel) {
        auto &band = audio.ChannelEq[channel].Band;
        good = good && lines.List(std::span(band).first(EqualiserBytes(KindOf(channel))));
    }
    for (auto &text : texts)
        good = good && lines.Text(text);
    return good;
}

class LineWriter {
  public:
    explicit LineWriter(std::string &bytes) : bytes_(bytes) {}

    bool Fixed(std::string_view text) { return Text(text); }

    bool Text(std::string_view text)
    {
        bytes_ += '"';
        bytes_ += WithoutControls(text);
        bytes_ += '"';
        return EndLine();
    }

    template <typename... Integer>
    bool Numbers(Integer... numbers)
    {
        (Append(numbers), ...);
        return EndLine();
    }

    bool List(std::span<const Byte> numbers)
    {
        for (const Byte number : numbers)
            Append(number);
        return EndLine();
    }

  private:
    void Append(int number)
    {
        std::array<char, std::numeric_limits<int>::digits10 + 2> digits;
        if (!atLineStart_)
            bytes_ += ',';
        atLineStart_ = false;
        const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
        bytes_.append(digits.data(), end);
    }

    bool EndLine()
    {
        bytes_ += "\r\n";
        atLineStart_ = true;
        return true;
    }

    std::string &bytes_;
    bool atLineStart_ = true;
};

/// Takes the next line from the front of `rest`; true when it is this text in quotes.
bool TakeFixed(std::string_view &rest, std::string_view text)
{
    const auto line = TakeLine(rest);
    return line && Unquoted(*line) == text;
}

class LineReader {
  public:
    explicit LineReader(std::string_view bytes) : rest_(bytes) {}

    bool Fixed(std::string_view text) { return TakeFixed(rest_, text); }

    /// The text as its bytes stand in the file; which code they are in is told by all texts together.
    bool Text(std::string &text)
    {
        const auto line = TakeLine(rest_);
        const auto quoted = line ? Unquoted(*line) : std::nullopt;
        if (quoted)
            text = *quoted;
        return quoted.has_value();
    }

    template <typename... Integer>
    bool Numbers(Integer &...numbers)
    {
        return StartLine() && (Take(numbers) && ...) && line_.empty();
    }

    bool List(std::span<Byte> numbers)
    {
        return StartLine() && std::ranges::all_of(numbers, [&](Byte &number) { return Take(number); }) &&
               line_.empty();
    }

  private:
    bool StartLine()
    {
        const auto line = TakeLine(rest_);
        line_ = line.value_or(std::string_view());
        atLineStart_ = true;
        return line.has_value();
    }

    template <typename Integer>
    bool Take(Integer &number)
    {
        if (!atLineStart_) {
            if (!line_.starts_with(','))
                return false;
            line_.remove_prefix(1);
        }
        atLineStart_ = false;
        return TakeNumber(line_, number);
    }

    std::string_view rest_;
    std::string_view line_;
    bool atLineStart_ = true;
};

void Decode(TheaterTexts &texts)
{
    const bool utf8 = std::ranges::all_of(texts, IsUtf8);
    for (std::string &text : texts)
        text = WithoutControls(utf8 ? text : FromWindows1252(text));
}

bool StartsWithHeader(std::string_view bytes)
{
    bytes = WithoutByteOrderMark(bytes);
    return TakeFixed(bytes, Header);
}

} // namespace

std::string ComposeConfig(const Settings &settings)
{
    constexpr std::size_t UsualLength = 2048;
    std::string bytes;
    bytes.reserve(UsualLength);
    // A unit may report a fader or a format that no file is loaded with: the nearest one that is goes in.
    const Content content{
        .Audio = settings.Audio,
        .System = settings.System,
        .CurrentFormat = std::clamp(settings.OperatorFormat(), Word(0), LastFormat),
        .FaderLevel = std::clamp(settings.FaderLevel, Word(0), HighestFader),
        .MuteState = settings.MuteState,
    };
    LineWriter lines(bytes);
    WalkLines(lines, content, settings.TheaterInfo);
    return bytes;
}

bool ParseConfig(std::string_view bytes, Settings &settings)
{
    Content content{.Audio = settings.Audio, .System = settings.System};
    TheaterTexts texts;
    LineReader lines(WithoutByteOrderMark(bytes));
    if (!WalkLines(lines, content, texts))
        return false;
    Decode(texts);
    // Fader and format are sent to the unit at once, so they must be ones that it can take.
    if (!InRange(content.FaderLevel, HighestFader) || !InRange(content.CurrentFormat, LastFormat))
        return false;

    settings.Audio = content.Audio;
    settings.System = content.System;
    settings.FaderLevel = content.FaderLevel;
    settings.MuteState = content.MuteState;
    // While a stream forces its own format, the loaded one waits until the stream stops.
    (settings.FormatBeforeStream ? *settings.FormatBeforeStream : settings.CurrentFormat) =
        content.CurrentFormat;
    settings.TheaterInfo = std::move(texts);
    TakeObeFromAudio(settings);
    return true;
}

bool ParseOldConfig(std::string_view bytes, Settings &settings)
{
    const auto system = BytesOf(settings.System);
    const auto audio = BytesOf(settings.Audio);
    if (bytes.size() != system.size() + audio.size())
        return false;
    std::ranges::copy(bytes.substr(0, system.size()), system.begin());
    std::ranges::copy(bytes.substr(system.size()), audio.begin());
    TakeObeFromAudio(settings);
    return true;
}

std::optional<FileFailure> SaveConfigFile(const Settings &settings, const FileCalls &calls)
{
    return WriteWhole(settings.CurrentFileName, ComposeConfig(settings), calls);
}

std::optional<FileFailure> LoadConfigFile(const std::string &path, Settings &settings)
{
    std::string bytes;
    if (auto failure = ReadWhole(path, LargestConfig, bytes))
        return failure;
    // Save writes the new format whatever the name is, so an old name may hold either.
    const bool old = path.ends_with(OldSuffix) && !StartsWithHeader(bytes);
    const bool good = old ? ParseOldConfig(bytes, settings) : ParseConfig(bytes, settings);
    return good ? std::nullopt : std::optional(FileFailure{.reason = {}, .wrongFormat = true});
}

} // namespace kelvo
