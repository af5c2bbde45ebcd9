#pragma once

#include "model/records.h"

#include <optional>
#include <string_view>

namespace kelvo {

inline constexpr std::size_t VersionWords = 7;
inline constexpr std::size_t GainBytes = 2;
inline constexpr std::size_t SlitLossBytes = 11;
inline constexpr std::size_t AzimuthBytes = 28;

/// The operations of the maker's device library, named as it names them. What each of them does is told at
/// its member of `DeviceLibrary`.
enum class Operation : Byte {
    InitDLL,
    DLLShutdown,
    DLLCreateIni,
    SetDLLBaud,
    GetUnitVersion,
    GetAudio,
    SetAudio,
    GetSystem,
    SetSystem,
    GetVol,
    SetVol,
    GetMute,
    SetMute,
    GetFormat,
    SelectFormat,
    SetPink,
    SetPhase,
    SetRT60,
    EnableOBE,
    SetProjector,
    StopStream,
    BeginGainStream,
    BeginSlitStream,
    BeginAzimuthStream,
    GetOptGain,
    GetOptSlitloss,
    GetSingleSlitloss,
    GetOptAzimuth,
    ClearError,
};

/// The arguments of an operation: words by value or, each with a pointer of its own and in this order, bytes
/// and words. 0 = it has none of the kind.
struct Shape {
    std::size_t wordsIn = 0;
    std::size_t bytesIn = 0;    ///< what the library reads
    std::size_t bytesOut = 0;   ///< what the library fills
    std::size_t wordsOut = 0;   ///< what the library fills
    bool unusedPointer = false; ///< it is taken and points nowhere

    constexpr int Pointers() const
    {
        return int(bytesIn > 0) + int(bytesOut > 0) + int(wordsOut > 0) + int(unusedPointer);
    }
    constexpr int Arguments() const { return int(wordsIn) + Pointers(); }
};

struct OperationRow {
    Operation operation;
    const char *name; ///< as the library exports it
    Shape shape;
    bool required = true; ///< a library that lacks it is refused
};

/// One row for each operation. Whoever binds, writes, reads or answers calls takes their shape from here.
inline constexpr auto Operations = std::to_array<OperationRow>({
    {Operation::InitDLL, "InitDLL", {.wordsIn = 1}},
    {Operation::DLLShutdown, "DLLShutdown", {}},
    {Operation::DLLCreateIni, "DLLCreateIni", {}},
    {Operation::SetDLLBaud, "SetDLLBaud", {.wordsIn = 1}},
    {Operation::GetUnitVersion, "GetUnitVersion", {.wordsOut = VersionWords}},
    {Operation::GetAudio, "GetAudio", {.bytesOut = sizeof(AudioBlock)}},
    {Operation::SetAudio, "SetAudio", {.bytesIn = sizeof(AudioBlock)}},
    {Operation::GetSystem, "GetSystem", {.bytesOut = sizeof(SystemBlock)}},
    {Operation::SetSystem, "SetSystem", {.bytesIn = sizeof(SystemBlock)}},
    {Operation::GetVol, "GetVol", {.wordsOut = 1}},
    {Operation::SetVol, "SetVol", {.wordsIn = 1}},
    {Operation::GetMute, "GetMute", {.wordsOut = 1}},
    {Operation::SetMute, "SetMute", {.wordsIn = 1}},
    {Operation::GetFormat, "GetFormat", {.wordsOut = 1}},
    {Operation::SelectFormat, "SelectFormat", {.wordsIn = 1}},
    {Operation::SetPink, "SetPink", {.wordsIn = 2}},
    {Operation::SetPhase, "SetPhase", {.wordsIn = 2}},
    {Operation::SetRT60, "SetRT60", {.wordsIn = 1}},
    {Operation::EnableOBE, "EnableOBE", {}},
    {Operation::SetProjector, "SetProjector", {.wordsIn = 1}},
    {Operation::StopStream, "StopStream", {}},
    {Operation::BeginGainStream, "BeginGainStream", {}},
    {Operation::BeginSlitStream, "BeginSlitStream", {}},
    {Operation::BeginAzimuthStream, "BeginAzimuthStream", {}},
    {Operation::GetOptGain, "GetOptGain", {.bytesOut = GainBytes}},
    {Operation::GetOptSlitloss, "GetOptSlitloss", {.unusedPointer = true}, false},
    {Operation::GetSingleSlitloss, "GetSingleSlitloss", {.bytesOut = SlitLossBytes, .wordsOut = 1}},
    {Operation::GetOptAzimuth, "GetOptAzimuth", {.bytesOut = AzimuthBytes}},
    {Operation::ClearError, "ClearError", {}},
});

/// The row of an operation; while compiling, an operation without one is an error.
constexpr const OperationRow &RowOf(Operation operation)
{
    return Operations[std::size_t(operation)];
}

std::optional<Operation> OperationNamed(std::string_view name);

} // namespace kelvo
