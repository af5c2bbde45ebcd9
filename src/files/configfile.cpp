#include "files/configfile.h"

#include "files/text.h"
#include "model/fields.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <initializer_list>
#include <limits>
#include <span>
#include <utility>

namespace kelvo {

namespace {

constexpr std::string_view Header = "Kelvo CP Settings File: V1.0";
constexpr std::string_view OldSuffix = ".cfg";
constexpr std::size_t LargestConfig = 1 << 20; // far beyond any settings; more is noise, whatever it holds

/// The fields of one line of numbers. A field of two bytes is two numbers, high byte first.
struct NumberLine {
    std::array<FieldId, BandCount> fields{};
    int count = 0;

    constexpr NumberLine() = default;
    constexpr NumberLine(std::initializer_list<FieldId> ids)
    {
        for (const FieldId id : ids)
            Add(id);
    }
    constexpr void Add(FieldId id) { fields[count++] = id; }
    std::span<const FieldId> Fields() const { return std::span(fields).first(count); }
};

/// The lines of numbers in the order that they have had since the first version: it is history, not sense.
consteval auto MakeLayout()
{
    using namespace field;
    constexpr int Singles = 8;
    std::array<NumberLine, Singles + 1 + 2 * ChannelCount> lines{{{Format, Fader, Mute},
                                                                  {F1KeyMode, DisableMatrix, NonsyncMode},
                                                                  {ReaderDelay, SurroundDelay},
                                                                  {Kept(0), Kept(1), Kept(2)},
                                                                  {Kept(3), Kept(4), NonsyncTrim},
                                                                  {Kept(5), Kept(6), Kept(7)},
                                                                  {Kept(8), Kept(9), DefaultFormat},
                                                                  {ObeLevel, ObeFreq}}};
    for (int channel = 0; channel < ChannelCount; ++channel) {
        lines[Singles].Add(Trim(channel));
        lines[Singles + 1 + channel] = {Bass(channel), Treble(channel)};
        for (int band = 0; band < EqualiserBytes(KindOf(channel)); ++band)
            lines[Singles + 1 + ChannelCount + channel].Add(Band(channel, band));
    }
    return lines;
}

constexpr auto Layout = MakeLayout();

/// The file line by line, in the one order that reading and writing share. `lines` is a `LineReader` or
/// a `LineWriter`; the first line that it refuses ends the walk.
template <typename Lines, typename Room>
bool WalkLines(Lines &lines, Room &room)
{
    return lines.Fixed(Header) &&
           std::ranges::all_of(Layout, [&](const NumberLine &line) { return lines.Numbers(line, room); }) &&
           std::ranges::all_of(room.TheaterInfo, [&](auto &text) { return lines.Text(text); });
}

/// A live value goes to the unit as soon as it is loaded, so it must be one that the unit can take.
bool MayBeLoaded(const Scale &scale, int value)
{
    return scale.truth || (value >= 0 && value <= scale.last);
}

/// A unit may report a fader or a format that no file is loaded with: the nearest one that is goes in.
int NearestLoadable(const Scale &scale, int value)
{
    return scale.truth ? value : std::clamp(value, 0, scale.last);
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

    bool Numbers(const NumberLine &line, const RoomSettings &room)
    {
        for (const FieldId id : line.Fields()) {
            const Field &field = FieldOf(id);
            const int stored = Get(room, id);
            if (field.place == Place::Live)
                Append(NearestLoadable(*field.scale, stored));
            else
                for (int byte = field.bytes - 1; byte >= 0; --byte)
                    Append(stored >> 8 * byte & 0xFF);
        }
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

    /// The line that was taken last, or that there was none of any more.
    int Line() const { return line_; }

    bool Fixed(std::string_view text)
    {
        ++line_;
        return TakeFixed(rest_, text);
    }

    /// The text as its bytes stand in the file; which code they are in is told by all texts together.
    bool Text(std::string &text)
    {
        ++line_;
        const auto line = TakeLine(rest_);
        const auto quoted = line ? Unquoted(*line) : std::nullopt;
        if (quoted)
            text = *quoted;
        return quoted.has_value();
    }

    bool Numbers(const NumberLine &line, RoomSettings &room)
    {
        return StartLine() &&
               std::ranges::all_of(line.Fields(), [&](FieldId id) { return Take(id, room); }) &&
               numbers_.empty();
    }

  private:
    bool StartLine()
    {
        ++line_;
        const auto line = TakeLine(rest_);
        numbers_ = line.value_or(std::string_view());
        atLineStart_ = true;
        return line.has_value();
    }

    bool Take(FieldId id, RoomSettings &room)
    {
        const Field &field = FieldOf(id);
        int stored = 0;
        if (field.place == Place::Live) {
            Word word = 0;
            if (!TakeNext(word) || !MayBeLoaded(*field.scale, word))
                return false;
            stored = word;
        } else
            for (int count = 0; count < field.bytes; ++count) {
                Byte byte = 0;
                if (!TakeNext(byte))
                    return false;
                stored = stored * 256 + byte;
            }
        Set(room, id, stored);
        return true;
    }

    template <typename Integer>
    bool TakeNext(Integer &number)
    {
        if (!atLineStart_) {
            if (!numbers_.starts_with(','))
                return false;
            numbers_.remove_prefix(1);
        }
        atLineStart_ = false;
        return TakeNumber(numbers_, number);
    }

    std::string_view rest_;
    std::string_view numbers_; ///< of the line that is being read
    int line_ = 0;
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

/// All or nothing. Answers the line that is not as it should be, 0 for none.
int ParseLines(std::string_view bytes, RoomSettings &room)
{
    // Bytes of the records that the file does not hold keep their values.
    RoomSettings loaded{.Audio = room.Audio, .System = room.System, .TheaterInfo = {}};
    LineReader lines(WithoutByteOrderMark(bytes));
    if (!WalkLines(lines, loaded))
        return lines.Line();
    Decode(loaded.TheaterInfo);
    room = std::move(loaded);
    return 0;
}

std::optional<FileFailure> Damaged(std::string where)
{
    return FileFailure{.reason = std::move(where), .wrongFormat = true};
}

} // namespace

std::string ComposeConfig(const RoomSettings &room)
{
    constexpr std::size_t UsualLength = 2048;
    std::string bytes;
    bytes.reserve(UsualLength);
    LineWriter lines(bytes);
    WalkLines(lines, room);
    return bytes;
}

bool ParseConfig(std::string_view bytes, RoomSettings &room)
{
    return ParseLines(bytes, room) == 0;
}

bool ParseOldConfig(std::string_view bytes, RoomSettings &room)
{
    const auto system = BytesOf(room.System);
    const auto audio = BytesOf(room.Audio);
    if (bytes.size() != system.size() + audio.size())
        return false;
    std::ranges::copy(bytes.substr(0, system.size()), system.begin());
    std::ranges::copy(bytes.substr(system.size()), audio.begin());
    return true;
}

std::optional<FileFailure> SaveConfigFile(const std::string &path, const RoomSettings &room,
                                          const FileCalls &calls)
{
    return WriteWhole(path, ComposeConfig(room), calls);
}

std::optional<FileFailure> LoadConfigFile(const std::string &path, RoomSettings &room, ConfigForm *form)
{
    std::string bytes;
    if (auto failure = ReadWhole(path, LargestConfig, bytes))
        return failure;
    // Save writes the new format whatever the name is, so an old name may hold either.
    const bool old = path.ends_with(OldSuffix) && !StartsWithHeader(bytes);
    if (form)
        *form = old ? ConfigForm::Records : ConfigForm::Lines;
    if (old)
        return ParseOldConfig(bytes, room) ? std::nullopt : Damaged("it does not hold 352 bytes");
    if (const int line = ParseLines(bytes, room); line != 0)
        return Damaged("line " + std::to_string(line) + " is damaged or missing");
    return {};
}

} // namespace kelvo
