#include "unit/unitholds.h"

#include <algorithm>

namespace kelvo {

void UnitHolds::TakeRecord(Place record, const RoomSettings &from)
{
    Learn(record, from);
    if (record == Place::Audio)
        Agreed.Audio = from.Audio;
    else
        Agreed.System = from.System;
}

void UnitHolds::Learn(Place record, const RoomSettings &from)
{
    if (record == Place::Audio)
        Room.Audio = from.Audio;
    else
        Room.System = from.System;
    ForEachField([&](FieldId id, const Field &field) {
        if (field.place == record)
            Known.set(std::size_t(id));
    });
}

void UnitHolds::TakeLive(FieldId live, Word value)
{
    Set(Room, live, value);
    Known.set(std::size_t(live));
}

Word UnitHolds::LiveOr(FieldId live, Word otherwise) const
{
    return Knows(live) ? Word(Get(Room, live)) : otherwise;
}

bool UnitHolds::DiffersFromBefore(const RoomSettings &screen) const
{
    return Before && std::ranges::any_of(Compare(*Before, Room), [&](const Difference &difference) {
               const Place place = FieldOf(difference.field).place;
               return (place == Place::Audio || place == Place::System) &&
                      difference.right != Get(screen, difference.field);
           });
}

void KeepUnsent(const RoomSettings &screen, const RoomSettings &agreed, RoomSettings &room)
{
    ForEachField([&](FieldId id, const Field &field) {
        const bool inRecord = field.place == Place::Audio || field.place == Place::System;
        if (inRecord && Get(screen, id) != Get(agreed, id))
            Set(room, id, Get(screen, id));
    });
}

FieldSet Unsent(const RoomSettings &room, const UnitHolds &holds)
{
    FieldSet unsent;
    if (holds.KnowsRecords())
        for (const Difference &difference : Compare(room, holds.Room))
            unsent.set(std::size_t(difference.field), holds.Knows(difference.field));
    return unsent;
}

} // namespace kelvo
