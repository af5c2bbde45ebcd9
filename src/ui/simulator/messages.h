#pragma once

namespace kelvo::messages {

inline constexpr auto SimulatorTitle = "Simulated Unit";
inline constexpr auto ReaderCaption = "Optical reader";
inline constexpr auto StreamLockCaption = "Stream lock";
inline constexpr auto FrontPanelCaption = "Front panel and cable";
inline constexpr auto FaderCaption = "Fader";
inline constexpr auto MutedCaption = "Muted";
inline constexpr auto FormatCaption = "Format";
inline constexpr auto PluggedCaption = "Cable plugged in";
inline constexpr auto SlowCaption = "Each call takes";
inline constexpr auto Milliseconds = " ms";
inline constexpr auto NextErrorCaption = "Next error";
inline constexpr auto OperationCaption = "Operation";
inline constexpr auto AnyOperation = "Any";
inline constexpr auto AnswerCaption = "Answers";
inline constexpr auto NoStreamAnswer = "No stream to read yet";
inline constexpr auto TimesCaption = "Times";
inline constexpr auto FailCaption = "Fail";
inline constexpr auto ForgetCaption = "Forget";
inline constexpr auto NothingFails = "Nothing will fail";
inline constexpr auto CallsWillFail = "Calls that will fail: %1";
inline constexpr auto RunningCaption = "What runs in the unit";
inline constexpr auto NothingRuns = "Nothing";
inline constexpr auto StreamRuns = "%1 stream, projector %2";
inline constexpr auto NoiseRuns = "Pink noise: %1";
inline constexpr auto PhaseInverted = "Inverted: %1";
inline constexpr auto ReverberationRuns = "RT60";

} // namespace kelvo::messages
