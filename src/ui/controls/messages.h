#pragma once

namespace kelvo::messages {

/// The title above every level rule's own range message.
inline constexpr const char *RangeCheckTitle = "Range Check Error";

} // namespace kelvo::messages
