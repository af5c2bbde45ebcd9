#pragma once

#include "model/fieldids.h"
#include "model/levels.h"
#include "model/roomsettings.h"

#include <bitset>
#include <span>
#include <string>
#include <vector>

namespace kelvo {

/// Where a setting is kept, which also says what has to be sent after it changed.
enum class Place : Byte { Audio, System, Live, Text };

/// What a setting belongs to, in the order in which settings are listed. `Kept` bytes have no control: they
/// travel in records and files alone.
enum class Section : Byte { Live, Trims, Equaliser, Tone, Obe, Options, Theatre, Kept };

/// How a stored number reads. A number outside 0 to `last` has no control and is told as "raw 200".
struct Scale {
    int last;                               ///< the control offers 0 to this
    int flat = 0;                           ///< what a reset sets
    const LevelRule *level = nullptr;       ///< of a level: stored position 7 <-> "+2.5"
    std::span<const char *const> choices{}; ///< of a list: index = stored number
    std::string (*text)(int stored) = nullptr;
    const char *unit = "";
    bool truth = false; ///< every number but 0 says the same
};

struct Field {
    const char *key;  ///< of a channel's field without the channel: "Eq1k"; see `Key`
    const char *name; ///< of a channel's field without the channel, "bass"; null where the frequency names it
    Section section;
    Place place;
    const Scale *scale;
    std::uint16_t at;         ///< offset in its record; else which live value or text
    Byte bytes = 1;           ///< of a record: high byte first
    Byte channel = NoChannel; ///< of `Channel`
    std::uint16_t hertz = 0;  ///< of a band: its centre frequency

    static constexpr Byte NoChannel = 255;
};

inline constexpr int FieldCount = 153;

/// Some of the fields: a bit for each, by `FieldId`.
using FieldSet = std::bitset<FieldCount>;

std::span<const Field, FieldCount> Fields();
const Field &FieldOf(FieldId id);

/// `visit(id, field)` for each, in order.
template <typename Visit>
void ForEachField(Visit visit)
{
    for (int index = 0; index < FieldCount; ++index)
        visit(FieldId(Byte(index)), Fields()[index]);
}

/// The number that the room holds for a field; of a text field 0.
int Get(const RoomSettings &room, FieldId id);
/// `stored` as it is kept: no range is enforced beyond the bytes of the field. Not for text fields.
void Set(RoomSettings &room, FieldId id, int stored);

/// "Channel Center/Eq1k": the name of a field in files for programs.
std::string Key(FieldId id);
/// "Center, 1 kHz"
std::string Name(FieldId id);
/// What a stored number means, with its unit: "+2.5 dB", "Screen Channels", "raw 200".
std::string TextOf(FieldId id, int stored);
/// "40 Hz", "1.25 kHz"
std::string FrequencyText(int hertz);

struct Difference {
    FieldId field;
    int left, right; ///< stored numbers; of a text field 0

    bool operator==(const Difference &) const = default;
};

/// The settings that differ, in the order of the fields; kept and reserved bytes are no settings.
std::vector<Difference> Compare(const RoomSettings &left, const RoomSettings &right);
/// How many bytes that no control shows differ; the unit's clock runs by itself and is left out.
int OtherBytes(const RoomSettings &left, const RoomSettings &right);

} // namespace kelvo
