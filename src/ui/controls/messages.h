#pragma once

namespace kelvo::messages {

/// The title above every level rule's own range message.
inline constexpr const char *RangeCheckTitle = "Range Check Error";

inline constexpr const char *OkCaption = "OK";
inline constexpr const char *CancelCaption = "Cancel";

/// What a screen reader adds to a control whose setting the unit does not hold.
inline constexpr const char *NotInUnit = "not in the unit";

inline constexpr const char *CaptionOn = "On";
inline constexpr const char *CaptionOff = "Off";

} // namespace kelvo::messages
