#pragma once

#include "ui/controls/boxes.h"

namespace kelvo::messages {

/// The title above every level rule's own range message.
inline constexpr const char *RangeCheckTitle = "Range Check Error";

inline constexpr const char *OkCaption = "OK";
inline constexpr const char *CancelCaption = "Cancel";

/// What a screen reader adds to a control whose setting the unit does not hold.
inline constexpr const char *NotInUnit = "not in the unit";

inline constexpr const char *CaptionOn = "On";
inline constexpr const char *CaptionOff = "Off";

inline constexpr auto SettingsFilter = "Kelvo Zentra Config Files (*.zcf)";
inline constexpr auto OldFilter = "Old Config File format (*.cfg)";
inline constexpr Message CannotSave{Exclamation, "File Error", "Cannot save %1: %2."};

} // namespace kelvo::messages
