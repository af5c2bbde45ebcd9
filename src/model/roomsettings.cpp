#include "model/fields.h"

namespace kelvo {

namespace {

bool HasControl(Section section)
{
    return section != Section::Theatre && section != Section::Kept;
}

} // namespace

void ResetChannelData(RoomSettings &room, int channel)
{
    // A surround's slice is flat over its whole length, also where no control reaches.
    if (KindOf(channel) == ChannelKind::Surround)
        room.Audio.ChannelEq[channel].Band.fill(Byte(HalfDecibelRule.zeroAt));
    for (int index = 0; index < FieldCount; ++index) {
        const Field &field = Fields()[index];
        if (field.channel == channel &&
            (field.section == Section::Equaliser || field.section == Section::Tone))
            Set(room, FieldId(Byte(index)), field.scale->flat);
    }
}

void ResetAll(RoomSettings &room)
{
    for (int channel = 0; channel < ChannelCount; ++channel)
        ResetChannelData(room, channel);
    ForEachField([&](FieldId id, const Field &field) {
        if (HasControl(field.section))
            Set(room, id, field.scale->flat);
    });
}

} // namespace kelvo
