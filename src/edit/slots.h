#pragma once

#include "model/fields.h"

#include <array>
#include <optional>
#include <vector>

namespace kelvo {

inline constexpr int SlotCount = 4; ///< A to D

/// Tunings that are kept for a moment, to be compared by ear: the settings of both records. Live values,
/// texts, the clock and bytes that no control shows are left alone by a recall.
class Slots {
  public:
    void Keep(int slot, const RoomSettings &room) { kept_[slot] = room; }
    /// Null while nothing was kept there.
    const RoomSettings *Kept(int slot) const { return kept_[slot] ? &*kept_[slot] : nullptr; }
    /// Which settings a recall changes in this room.
    std::vector<FieldId> Changes(int slot, const RoomSettings &room) const;
    /// The room has all settings of the slot.
    bool Equals(int slot, const RoomSettings &room) const
    {
        return kept_[slot] && Changes(slot, room).empty();
    }

    static constexpr char NameOf(int slot) { return char('A' + slot); }

  private:
    std::array<std::optional<RoomSettings>, SlotCount> kept_{};
};

} // namespace kelvo
