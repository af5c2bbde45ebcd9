#pragma once

namespace kelvo::messages {

/// The title above every level rule's own range message.
inline constexpr const char *RangeCheckTitle = "Range Check Error";

inline constexpr const char *OkCaption = "OK";
inline constexpr const char *CancelCaption = "Cancel";

inline constexpr const char *CaptionOn = "On";
inline constexpr const char *CaptionOff = "Off";

} // namespace kelvo::messages
