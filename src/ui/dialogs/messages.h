#pragma once

namespace kelvo::messages {

inline constexpr auto Loading = "Loading Please Wait...";

inline constexpr auto ConnectingTitle = "Connecting";
inline constexpr auto CancelCaption = "Cancel";

inline constexpr auto AutomaticUpdateTitle = "Automatic Update";
inline constexpr auto EnableAutomaticUpdate = "Enable Automatic Update";
inline constexpr auto Every = "Every";
inline constexpr auto Seconds = "seconds";
inline constexpr auto RefreshPeriodName = "Period of the automatic update, seconds";
inline constexpr auto CloseCaption = "Close";

} // namespace kelvo::messages
