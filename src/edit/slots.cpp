#include "edit/slots.h"

namespace kelvo {

std::vector<FieldId> Slots::Changes(int slot, const RoomSettings &room) const
{
    std::vector<FieldId> changes;
    ForEachField([&](FieldId id, const Field &field) {
        const bool held =
            (field.place == Place::Audio || field.place == Place::System) && field.section != Section::Kept;
        if (held && Get(room, id) != Get(*kept_[slot], id))
            changes.push_back(id);
    });
    return changes;
}

} // namespace kelvo
