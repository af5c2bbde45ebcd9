#pragma once

namespace kelvo::messages {

inline constexpr auto HistoryTitle = "History";
inline constexpr auto HistoryBegin = "Before the first step";
inline constexpr auto HistoryName = "Steps, oldest first";

} // namespace kelvo::messages
