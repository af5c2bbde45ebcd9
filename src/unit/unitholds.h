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
    RoomSettings Agreed{};                ///< what screen and unit last had in common: sent, or shown as read
    std::optional<RoomSettings> Before{}; ///< what it held when the connection before this one was lost
    bool Other = false; ///< this connection found other settings: another unit, or one that somebody changed

    /// The unit has this record, and the screen shows it.
    void TakeRecord(Place record, const RoomSettings &from);
    /// The unit has this record, whatever the screen shows.
    void Learn(Place record, const RoomSettings &from);
    void TakeLive(FieldId live, Word value);
    /// What the unit holds of a live value, or the other value while that is not known.
    Word LiveOr(FieldId live, Word otherwise) const;
    bool Knows(FieldId id) const { return Known.test(std::size_t(id)); }
    /// Compares what a new connection has just read with what was held before it. A setting that stood on the
    /// `screen` is the console's own: its sending may have come through without an answer.
    bool DiffersFromBefore(const RoomSettings &screen) const;
    /// Nothing is known of the unit that is connected now, but what was.
    UnitHolds Anew() const { return {.Playing = Playing, .Before = KnowsRecords() ? Room : Before}; }
    bool KnowsRecords() const { return Knows(field::Trim(Left)) && Knows(field::F1KeyMode); }
};

/// A stream has ended and the operator's format is not sent yet: its link may have gone.
struct LostStream {
    Word format;          ///< the unit is still in it, unless somebody changed it at its panel
    Word operatorsFormat; ///< what is to be selected
};

/// `room` gets back each setting of the records that stood on the `screen` as nobody had sent it: `agreed` is
/// what screen and unit had in common.
void KeepUnsent(const RoomSettings &screen, const RoomSettings &agreed, RoomSettings &room);

/// The settings that differ from what the unit holds; none until both its records are known.
FieldSet Unsent(const RoomSettings &room, const UnitHolds &holds);

} // namespace kelvo
