#pragma once

#include "model/fields.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace kelvo::journal {

inline constexpr std::string_view Header = "kelvo-console journal 1\n";
inline constexpr std::string_view Room = "room", Step = "step", Slot = "slot", End = "end";

/// A line of cells with the sum that tells whether all of it is there.
std::string Line(const std::vector<std::string> &cells);
/// Takes the next line from the front of `rest`. False when it is cut or damaged; nothing left is an empty
/// one.
bool TakeCells(std::string_view &rest, std::vector<std::string> &cells);

/// "Channel Center/Eq1k=7" or "TheaterInfo0=Rex".
std::string Setting(FieldId id, const RoomSettings &room);

} // namespace kelvo::journal
