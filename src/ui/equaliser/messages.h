#pragma once

#include "ui/controls/boxes.h"

namespace kelvo::messages {

inline constexpr Message CopyChannel{Question, "Copy?", "Are you sure you want to copy %1 to %2?"};
inline constexpr Message ResetChannel{Question, "Reset Channel?", "Are you sure you want to reset %1?"};
inline constexpr Message NothingToPaste{Exclamation, "Error", "Nothing to Paste!"};
inline constexpr Message IncompatibleChannel{Exclamation, "Error", "Incompatable Channel Format!"};

} // namespace kelvo::messages
