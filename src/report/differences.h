#pragma once

#include "model/fields.h"

#include <bitset>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kelvo {

using FieldSet = std::bitset<FieldCount>; ///< by `FieldId`

/// One of two rooms that are compared, and what of it is known.
struct Side {
    RoomSettings room;
    FieldSet known;
    bool everyByte = false; ///< both records are known whole, bytes that no control shows included
};

Side WholeRoom(RoomSettings room);    ///< everything: what the screen shows
Side FileLines(RoomSettings room);    ///< a ".zcf" file: everything that has a name
Side RecordsAlone(RoomSettings room); ///< an old ".cfg" file: both records, neither live values nor texts
/// The settings of both records, as a reset or a slot sets them.
Side SettingsAlone(RoomSettings room);

/// One setting that differs, in words.
struct DifferenceRow {
    FieldId field;
    std::string_view section;         ///< where it is found: "E.Q"
    std::string setting, left, right; ///< "Center, 1 kHz", "+2.5 dB", "raw 200"
    int size;                         ///< see `SizeOf`

    bool IsLive() const { return FieldOf(field).place == Place::Live; }
};

struct Differences {
    std::vector<DifferenceRow> rows; ///< settings in the order of the fields, behind them live values
    int compared = 0;                ///< how many settings and live values both sides know
    int live = 0;                    ///< how many of the rows are live values
    std::optional<int> otherBytes;   ///< that no control shows; only where both sides know every byte

    int Settings() const { return int(rows.size()) - live; }
    bool None() const { return rows.empty() && otherBytes.value_or(0) == 0; }
};

/// What differs among what both sides know.
Differences DifferencesOf(const Side &left, const Side &right);

/// How far apart two values are: levels in half decibels, anything else that is counted in steps of its
/// scale. Words have no distance and count as a level from one end to the other.
int SizeOf(const Difference &difference);

/// "12 settings, 2 live values, 3 other bytes", without what there is none of; "" where nothing differs.
std::string CountsText(const Differences &differences);

/// A table for spreadsheets, RFC 4180, in UTF-8; the columns are section, setting, left and right. A text of
/// somebody's own that a spreadsheet would compute gets an apostrophe before it.
std::string ToCsv(const std::vector<DifferenceRow> &rows, std::string_view leftName,
                  std::string_view rightName);
/// The same for the clipboard: cells end with tabs, rows with line feeds.
std::string ToTabs(const std::vector<DifferenceRow> &rows, std::string_view leftName,
                   std::string_view rightName);

} // namespace kelvo
