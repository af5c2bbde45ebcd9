#pragma once

#include "model/fields.h"
#include "unit/testsignals.h"

#include <optional>

namespace kelvo {

/// What the unit last took or told.
struct UnitHolds {
    RoomSettings Room{}; ///< as far as it is known
    FieldSet Known{};
    TestSignals Playing{};                ///< what the unit was last told to play
    std::optional<RoomSettings> Before{}; ///< what it held when the connection before this one was lost

    void TakeRecord(Place record, const RoomSettings &from);
    void TakeLive(FieldId live, Word value);
    /// What the unit holds of a live value, or the other value while that is not known.
    Word LiveOr(FieldId live, Word otherwise) const;
    bool Knows(FieldId id) const { return Known.test(std::size_t(id)); }
    /// The unit of this connection holds other settings than that of the one before: it is another one, or
    /// somebody changed it. Asked before anything is sent.
    bool FoundOther() const;
    /// Nothing is known of the unit that is connected now, but what was.
    UnitHolds Anew() const { return {.Playing = Playing, .Before = KnowsRecords() ? Room : Before}; }
    bool KnowsRecords() const { return Knows(field::Trim(Left)) && Knows(field::F1KeyMode); }
};

/// A stream has ended and the operator's format is not sent yet: its link may have gone.
struct LostStream {
    Word format;          ///< the unit is still in it, unless somebody changed it at its panel
    Word operatorsFormat; ///< what is to be selected
};

/// `room` gets back each setting of the records that stood on the `screen` and was not what the unit `held`.
void KeepUnsent(const RoomSettings &screen, const RoomSettings &held, RoomSettings &room);

/// The settings that differ from what the unit holds; none until both its records are known.
FieldSet Unsent(const RoomSettings &room, const UnitHolds &holds);

} // namespace kelvo
