#pragma once

namespace kelvo::messages {

inline constexpr auto ContentsName = "Contents of the guide";
inline constexpr auto GuideName = "User's guide";
inline constexpr auto OtherPicture = "[A picture of a kind that cannot be shown here]";
inline constexpr auto DamagedPicture = "[A picture that cannot be read]";
inline constexpr auto GuideCutOff = "The file says more than this page shows.";

inline constexpr auto SearchCaption = "Find:";
inline constexpr auto SearchName = "Text to find in the guide";
inline constexpr auto NextCaption = "Next";
inline constexpr auto NextHint = "Next place (F3)";
inline constexpr auto PreviousCaption = "Previous";
inline constexpr auto PreviousHint = "Previous place (Shift+F3)";
inline constexpr auto CloseSearchCaption = "Close";
inline constexpr auto CloseSearchHint = "Close the search (Esc)";
inline constexpr auto NotFound = "not found";
inline constexpr auto FoundPlace = "%1 of %2";
inline constexpr auto FoundMany = "%1 of more than %2";

} // namespace kelvo::messages
