#include "unit/unitholds.h"

#include <algorithm>

namespace kelvo {

void UnitHolds::TakeRecord(Place record, const RoomSettings &from)
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

std::optional<int> CountDifferences(const RoomSettings &room, const UnitHolds &holds)
{
    if (!holds.KnowsRecords())
        return std::nullopt;
    return int(std::ranges::count_if(Compare(room, holds.Room), [&](const Difference &difference) {
        return holds.Knows(difference.field);
    }));
}

} // namespace kelvo
