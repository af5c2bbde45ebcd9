#include "model/fields.h"

#include "model/tables.h"

#include <algorithm>
#include <cstddef>

namespace kelvo {

namespace {

constexpr std::array SubWidths{"1/3 octave", "2/3 octave", "1 octave"};
constexpr std::array SubFrequencies{"25 Hz", "31.5 Hz", "40 Hz", "50 Hz", "63 Hz", "80 Hz", "100 Hz"};
constexpr std::array ObeFrequencies{"Off",   "50 Hz",  "60 Hz",  "70 Hz", "80 Hz",
                                    "90 Hz", "100 Hz", "110 Hz", "120 Hz"};
constexpr std::array Muting{"Off", "On"};
constexpr std::array Matrix{"On", "Disabled"};
constexpr std::array NonsyncModes{"Screen Channels", "Surround Channels", "Screen And Surround Channels",
                                  "Matrix Decoded"};
constexpr std::array PowerOnFormats{"EXTERNAL 6-TRK", "NON-SYNC", "SR TYPE", "A TYPE",
                                    "F1 ('Mono' button on unit)"};
constexpr std::array F1Formats{"Optical Mono", "External N.R.",
                               "External 2-Trk Return W/ Internal A Type N.R.",
                               "External 2-Trk Return W/ Internal SR Type N.R."};

std::string FaderText(int tenths)
{
    return FaderRule.TextOf(tenths);
}

std::string TrimText(int attenuation)
{
    return std::to_string(-attenuation) + " dB";
}

std::string SurroundDelayText(int tens)
{
    return std::to_string(10 * tens) + " mS";
}

constexpr Scale Level(const LevelRule &rule)
{
    return {rule.lastPosition, rule.zeroAt, &rule, {}, nullptr, "dB"};
}

constexpr Scale Choice(std::span<const char *const> choices)
{
    return {int(choices.size()) - 1, 0, nullptr, choices};
}

constexpr Scale Counted(int last, std::string (*text)(int))
{
    return {last, 0, nullptr, {}, text};
}

constexpr Scale FaderScale{FaderRule.highest, NominalFader, nullptr, {}, FaderText};
constexpr Scale MuteScale{1, 0, nullptr, Muting, nullptr, "", true};
constexpr Scale FormatScale = Choice(ModeCaption);
constexpr Scale HalfDecibels = Level(HalfDecibelRule);
constexpr Scale Decibels = Level(ShelfRule);
constexpr Scale SubWidthScale = Choice(SubWidths);
constexpr Scale SubFreqScale = Choice(SubFrequencies);
constexpr Scale ObeFreqScale = Choice(ObeFrequencies);
constexpr Scale F1Scale = Choice(F1Formats);
constexpr Scale MatrixScale = Choice(Matrix);
constexpr Scale NonsyncScale = Choice(NonsyncModes);
constexpr Scale ReaderDelayScale = Counted(ReaderDelayCount - 1, ReaderDelayText);
constexpr Scale SurroundDelayScale = Counted(10, SurroundDelayText);
constexpr Scale NonsyncTrimScale = Counted(20, TrimText);
constexpr Scale PowerOnScale = Choice(PowerOnFormats);
constexpr Scale Raw{255};

constexpr std::array<std::uint16_t, BandCount> ThirdOctaves{
    40,   50,   63,   80,   100,  125,  160,  200,  250,  315,  400,   500,   630,  800,
    1000, 1250, 1600, 2000, 2500, 3150, 4000, 5000, 6300, 8000, 10000, 12500, 16000};
constexpr std::array<std::uint16_t, SurroundBandCount> Octaves{63,   125,  250,  500,  1000,
                                                               2000, 4000, 8000, 16000};

/// The subwoofer's bytes, index = `SubwooferByte`.
constexpr std::array<Field, SubwooferByteCount> SubBass{
    {{"SubGain", "gain", Section::Equaliser, Place::Audio, &HalfDecibels, 0},
     {"SubWidth", "bandwidth", Section::Equaliser, Place::Audio, &SubWidthScale, 0},
     {"SubFreq", "centre frequency", Section::Equaliser, Place::Audio, &SubFreqScale, 0}}};

constexpr std::array<Field, 9> Others{
    {{"ObeLevel", "OBE level", Section::Obe, Place::Audio, &HalfDecibels, offsetof(AudioBlock, ObeLevel)},
     {"ObeFreq", "OBE frequency", Section::Obe, Place::Audio, &ObeFreqScale, offsetof(AudioBlock, ObeFreq)},
     {"F1KeyMode", "F1 key", Section::Options, Place::System, &F1Scale, offsetof(SystemBlock, F1KeyMode)},
     {"DisableMatrix", "Matrix decoding", Section::Options, Place::System, &MatrixScale,
      offsetof(SystemBlock, DisableMatrix)},
     {"NonsyncMode", "Non-sync outputs", Section::Options, Place::System, &NonsyncScale,
      offsetof(SystemBlock, NonsyncMode)},
     {"ReaderDelay", "Optical reader delay", Section::Options, Place::System, &ReaderDelayScale,
      offsetof(SystemBlock, ReaderDelay), 2},
     {"SurroundDelay", "Surround delay", Section::Options, Place::System, &SurroundDelayScale,
      offsetof(SystemBlock, SurroundDelay)},
     {"NonsyncTrim", "Non-sync trim", Section::Options, Place::System, &NonsyncTrimScale,
      offsetof(SystemBlock, NonsyncTrim)},
     {"DefaultFormat", "Power-on format", Section::Options, Place::System, &PowerOnScale,
      offsetof(SystemBlock, DefaultFormat)}}};

constexpr std::array<std::pair<const char *, std::uint16_t>, 10> KeptBytes{{{"System8", 8},
                                                                            {"System10", 10},
                                                                            {"System11", 11},
                                                                            {"System12", 12},
                                                                            {"System13", 13},
                                                                            {"System25", 25},
                                                                            {"System26", 26},
                                                                            {"System27", 27},
                                                                            {"System28", 28},
                                                                            {"System29", 29}}};

constexpr std::uint16_t SliceAt(int channel, std::size_t byte)
{
    return std::uint16_t(offsetof(AudioBlock, ChannelEq) + sizeof(ChannelSlice) * std::size_t(channel) +
                         byte);
}

constexpr Field BandField(int channel, int band)
{
    const std::uint16_t at = SliceAt(channel, std::size_t(band));
    const Byte owner = Byte(channel);
    switch (KindOf(channel)) {
    case ChannelKind::Screen:
        return {BandKey[band], nullptr,           Section::Equaliser, Place::Audio, &HalfDecibels, at, 1,
                owner,         ThirdOctaves[band]};
    case ChannelKind::Surround:
        return {SurroundBandKey[band], nullptr, Section::Equaliser, Place::Audio, &HalfDecibels, at, 1, owner,
                Octaves[band]};
    case ChannelKind::Subwoofer:
        break;
    }
    Field field = SubBass[band];
    field.at = at;
    field.channel = owner;
    return field;
}

consteval std::array<Field, FieldCount> MakeFields()
{
    std::array<Field, FieldCount> fields{};
    auto next = fields.begin();
    *next++ = {"FaderLevel", "Fader", Section::Live, Place::Live, &FaderScale, 0};
    *next++ = {"MuteState", "Mute", Section::Live, Place::Live, &MuteScale, 1};
    *next++ = {"CurrentFormat", "Format", Section::Live, Place::Live, &FormatScale, 2};
    for (int channel = 0; channel < ChannelCount; ++channel)
        *next++ = {"ChannelTrim",
                   "output trim",
                   Section::Trims,
                   Place::Audio,
                   &HalfDecibels,
                   std::uint16_t(offsetof(AudioBlock, ChannelTrim) + std::size_t(channel)),
                   1,
                   Byte(channel)};
    for (int channel = 0; channel < ChannelCount; ++channel)
        for (int band = 0; band < EqualiserBytes(KindOf(channel)); ++band)
            *next++ = BandField(channel, band);
    for (int channel = 0; channel < ChannelCount; ++channel)
        *next++ = {"BassLevel",
                   "bass",
                   Section::Tone,
                   Place::Audio,
                   &Decibels,
                   SliceAt(channel, offsetof(ChannelSlice, BassLevel)),
                   1,
                   Byte(channel)};
    for (int channel = 0; channel < ChannelCount; ++channel)
        *next++ = {"TrebleLevel",
                   "treble",
                   Section::Tone,
                   Place::Audio,
                   &Decibels,
                   SliceAt(channel, offsetof(ChannelSlice, TrebleLevel)),
                   1,
                   Byte(channel)};
    next = std::copy(Others.begin(), Others.end(), next);
    for (std::uint16_t text = 0; text < TheaterTextCount; ++text)
        *next++ = {TheaterName[text], TheaterName[text], Section::Theatre, Place::Text, &Raw, text};
    for (const auto &[key, at] : KeptBytes)
        *next++ = {key, key, Section::Kept, Place::System, &Raw, at};
    return fields;
}

constexpr std::array<Field, FieldCount> Table = MakeFields();

struct Range {
    std::size_t at, bytes;
};

/// Not interpreted, or the unit's own clock: they travel in the record alone.
constexpr std::array<Range, 12> ReservedAudio{{{0, 4},
                                               {4, 2},
                                               {SliceAt(Left, 29), 1},
                                               {SliceAt(LeftSurround, 9), 18},
                                               {SliceAt(LeftSurround, 29), 1},
                                               {SliceAt(Center, 29), 1},
                                               {SliceAt(RightSurround, 9), 18},
                                               {SliceAt(RightSurround, 29), 1},
                                               {SliceAt(Right, 29), 1},
                                               {SliceAt(Subwoofer, 3), 24},
                                               {SliceAt(Subwoofer, 29), 1},
                                               {194, 30}}};
constexpr std::array<Range, 5> ReservedSystem{{{2, 1}, {7, 1}, {9, 1}, {14, 10}, {31, 97}}};

/// Each byte of a record belongs to exactly one field or one reserved range.
template <std::size_t Size>
consteval bool EachByteOnce(Place place, std::span<const Range> reserved)
{
    std::array<int, Size> owners{};
    const auto own = [&owners](std::size_t at, std::size_t bytes) {
        for (std::size_t byte = at; byte < at + bytes; ++byte)
            ++owners.at(byte);
    };
    for (const Field &field : Table)
        if (field.place == place)
            own(field.at, field.bytes);
    for (const Range &range : reserved)
        own(range.at, range.bytes);
    return std::ranges::all_of(owners, [](int count) { return count == 1; });
}

static_assert(EachByteOnce<sizeof(AudioBlock)>(Place::Audio, ReservedAudio));
static_assert(EachByteOnce<sizeof(SystemBlock)>(Place::System, ReservedSystem));

consteval const Field &At(FieldId id)
{
    return Table[int(id)];
}

// The ids of fields.h name the rows that they say.
static_assert(At(field::Format).scale == &FormatScale && At(field::Trim(Subwoofer)).at == 11);
static_assert(At(field::Band(LeftSurround, 0)).at == 42 && At(field::Band(Right, 26)).at == 158);
static_assert(At(field::Band(Subwoofer, SubFreq)).scale == &SubFreqScale);
static_assert(At(field::Bass(Left)).at == 39 && At(field::Treble(Subwoofer)).at == 190);
static_assert(At(field::ObeFreq).at == 193 && At(field::DefaultFormat).at == 30);
static_assert(At(field::Theater(0)).place == Place::Text && At(field::Kept(9)).at == 29);

constexpr std::array LiveValues{&RoomSettings::FaderLevel, &RoomSettings::MuteState,
                                &RoomSettings::CurrentFormat};

std::span<const Byte> RecordOf(const RoomSettings &room, Place place)
{
    return place == Place::Audio ? std::span<const Byte>(BytesOf(room.Audio)) : BytesOf(room.System);
}

bool Differs(const RoomSettings &left, const RoomSettings &right, const Field &field)
{
    switch (field.place) {
    case Place::Audio:
    case Place::System:
        return !std::ranges::equal(RecordOf(left, field.place).subspan(field.at, field.bytes),
                                   RecordOf(right, field.place).subspan(field.at, field.bytes));
    case Place::Live: {
        const auto value = LiveValues[field.at];
        return field.scale->truth ? (left.*value != 0) != (right.*value != 0) : left.*value != right.*value;
    }
    case Place::Text:
        return left.TheaterInfo[field.at] != right.TheaterInfo[field.at];
    }
    return false;
}

int DifferentBytes(const RoomSettings &left, const RoomSettings &right, Place place,
                   std::span<const Range> ranges)
{
    int count = 0;
    for (const auto &[at, bytes] : ranges)
        for (std::size_t byte = at; byte < at + bytes; ++byte)
            count += RecordOf(left, place)[byte] != RecordOf(right, place)[byte];
    return count;
}

/// "+2.5": levels are told with their sign.
std::string Signed(int steps, const LevelRule &rule)
{
    return (steps > 0 ? "+" : "") + rule.TextOf(steps);
}

} // namespace

std::span<const Field, FieldCount> Fields()
{
    return Table;
}

const Field &FieldOf(FieldId id)
{
    return Table[int(id)];
}

int Get(const RoomSettings &room, FieldId id)
{
    const Field &field = FieldOf(id);
    switch (field.place) {
    case Place::Audio:
    case Place::System: {
        int stored = 0;
        for (const Byte byte : RecordOf(room, field.place).subspan(field.at, field.bytes))
            stored = stored * 256 + byte;
        return stored;
    }
    case Place::Live:
        return room.*LiveValues[field.at];
    case Place::Text:
        break;
    }
    return 0;
}

void Set(RoomSettings &room, FieldId id, int stored)
{
    const Field &field = FieldOf(id);
    if (field.place == Place::Live)
        room.*LiveValues[field.at] = Word(stored);
    if (field.place != Place::Audio && field.place != Place::System)
        return;
    const auto record =
        field.place == Place::Audio ? std::span<Byte>(BytesOf(room.Audio)) : BytesOf(room.System);
    for (int byte = field.bytes - 1; byte >= 0; --byte) {
        record[field.at + byte] = Byte(stored % 256);
        stored /= 256;
    }
}

std::string Key(FieldId id)
{
    const Field &field = FieldOf(id);
    if (field.channel == Field::NoChannel)
        return field.key;
    return std::string(ChannelSection[field.channel]) + "/" + field.key;
}

std::string Name(FieldId id)
{
    const Field &field = FieldOf(id);
    const std::string name = field.name ? field.name : FrequencyText(field.hertz);
    return field.channel == Field::NoChannel ? name : std::string(ChannelName[field.channel]) + ", " + name;
}

std::string TextOf(FieldId id, int stored)
{
    const Scale &scale = *FieldOf(id).scale;
    if (scale.truth)
        stored = stored != 0;
    if (stored < 0 || stored > scale.last)
        return "raw " + std::to_string(stored);
    if (scale.level)
        return Signed(scale.level->StepsAt(stored), *scale.level) + " " + scale.unit;
    if (scale.text)
        return scale.text(stored);
    return scale.choices.empty() ? std::to_string(stored) : scale.choices[stored];
}

std::string FrequencyText(int hertz)
{
    if (hertz < 1000)
        return std::to_string(hertz) + " Hz";
    std::string text = std::to_string(hertz / 1000);
    if (const int rest = hertz % 1000 / 10; rest != 0)
        text += "." + std::to_string(rest % 10 == 0 ? rest / 10 : rest);
    return text + " kHz";
}

std::vector<Difference> Compare(const RoomSettings &left, const RoomSettings &right)
{
    std::vector<Difference> differences;
    ForEachField([&](FieldId id, const Field &field) {
        if (field.section != Section::Kept && Differs(left, right, field))
            differences.push_back({id, Get(left, id), Get(right, id)});
    });
    return differences;
}

int OtherBytes(const RoomSettings &left, const RoomSettings &right)
{
    constexpr std::span<const Range> withoutClock = std::span(ReservedAudio).subspan<1>();
    int count = DifferentBytes(left, right, Place::Audio, withoutClock) +
                DifferentBytes(left, right, Place::System, ReservedSystem);
    for (const Field &field : Table)
        count += field.section == Section::Kept && Differs(left, right, field);
    return count;
}

} // namespace kelvo
