#pragma once

namespace kelvo::messages {

inline constexpr auto TheaterTitle = "Set Theater Information";
inline constexpr auto EditCaption = "Edit ...";
inline constexpr auto EditName = "Edit the theater information";

inline constexpr auto TimeTitle = "Please choose date and time";
inline constexpr auto TimeCaption = "Time:";
inline constexpr auto DateName = "Date";
inline constexpr auto HourName = "Hour, 1 to 12";
inline constexpr auto MinuteName = "Minutes";
inline constexpr auto SecondName = "Seconds";
inline constexpr auto HalfDayName = "AM or PM";
inline constexpr auto HalfDayHint = "Click or press the space bar to change between AM and PM";

} // namespace kelvo::messages
