#pragma once

#include "model/fields.h"
#include "unit/testsignals.h"

#include <bitset>
#include <optional>

namespace kelvo {

/// What the unit last took or told.
struct UnitHolds {
    RoomSettings Room{};             ///< as far as it is known
    std::bitset<FieldCount> Known{}; ///< by `FieldId`
    TestSignals Playing{};           ///< what the unit was last told to play

    void TakeRecord(Place record, const RoomSettings &from);
    void TakeLive(FieldId live, Word value);
    /// What the unit holds of a live value, or the other value while that is not known.
    Word LiveOr(FieldId live, Word otherwise) const;
    bool Knows(FieldId id) const { return Known.test(std::size_t(id)); }
    bool KnowsRecords() const { return Knows(field::Trim(Left)) && Knows(field::F1KeyMode); }
};

/// A stream has ended and the operator's format is not sent yet: its link may have gone.
struct LostStream {
    Word format;          ///< the unit is still in it, unless somebody changed it at its panel
    Word operatorsFormat; ///< what is to be selected
};

/// How many settings differ from what the unit holds; empty until both its records are known.
std::optional<int> CountDifferences(const RoomSettings &room, const UnitHolds &holds);

} // namespace kelvo
