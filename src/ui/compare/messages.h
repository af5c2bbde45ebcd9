#pragma once

namespace kelvo::messages {

inline constexpr auto HistoryTitle = "History";
inline constexpr auto HistoryBegin = "Before the first step";
inline constexpr auto HistoryName = "Steps, oldest first";
inline constexpr auto DiffersTitle = "What Differs";
inline constexpr auto LeftName = "Left side of the comparison";
inline constexpr auto RightName = "Right side of the comparison";
inline constexpr auto AgainstCaption = "and";
inline constexpr auto FilterHint = "Filter";
inline constexpr auto FilterName = "Show the rows with this text";
inline constexpr auto TableName = "Settings that differ";

inline constexpr auto ScreenName = "Screen";
inline constexpr auto UnitName = "Unit";
inline constexpr auto SlotName = "Slot %1";
inline constexpr auto FactoryName = "Factory values";
inline constexpr auto FileCaption = "File ...";

inline constexpr auto SectionColumn = "Section";
inline constexpr auto SettingColumn = "Setting";

inline constexpr auto ReadAgainCaption = "Read Again Now";
inline constexpr auto ReadAgainHint = "Reads the unit and leaves the screen as it is";
inline constexpr auto TakeCaption = "Take";
inline constexpr auto TakeHint = "Takes the chosen rows of the other side into the screen";
inline constexpr auto CopyCaption = "Copy Table";
inline constexpr auto SaveCaption = "Save Table ...";
inline constexpr auto TableFilter = "Tables for spreadsheets (*.csv)";
inline constexpr auto TableFile = "differences.csv";

inline constexpr auto TakeOne = "Take 1 setting from %1";
inline constexpr auto TakeMany = "Take %1 settings from %2";

inline constexpr auto NoDifference = "No difference";
inline constexpr auto Differs = " differs";
inline constexpr auto Differ = " differ";
inline constexpr auto CannotCompare = "%1: %2.";
inline constexpr auto NotReadYet = "the unit has not been read yet";

inline constexpr auto VerifyTitle = "Verify the Unit";
inline constexpr auto UnitHoldsScreen = "The unit holds what the screen shows (%1 settings)";
inline constexpr auto UnitDiffers = "The unit differs from the screen in %1";
inline constexpr auto Outdated = "Before the latest change: ";
inline constexpr auto NotReadAgain = "The unit was not read again: %1 could not be read";
inline constexpr auto NotVerified = "Not verified: %1 could not be read";

} // namespace kelvo::messages
