#pragma once

#include "unit/unitlink.h"

namespace kelvo {

/// An operation of the link and what the library is asked to do for it.
struct LinkOperation {
    UnitOp op;
    Operation operation;
    const char *call;         ///< with the words that `PreparedLink` gives it
    bool clearsErrors = true; ///< between two attempts

    const char *Name() const { return RowOf(operation).name; }
};

/// A switch, so that the compiler tells of an operation that is missing here.
constexpr LinkOperation About(UnitOp op)
{
    switch (op) {
    case UnitOp::GetFormat:
        return {op, Operation::GetFormat, "GetFormat"};
    case UnitOp::GetVol:
        return {op, Operation::GetVol, "GetVol"};
    case UnitOp::GetMute:
        return {op, Operation::GetMute, "GetMute"};
    case UnitOp::SelectFormat:
        return {op, Operation::SelectFormat, "SelectFormat 3"};
    case UnitOp::SetVol:
        return {op, Operation::SetVol, "SetVol 58"};
    case UnitOp::SetMute:
        return {op, Operation::SetMute, "SetMute -1"};
    case UnitOp::SetPink:
        return {op, Operation::SetPink, "SetPink 2 -1"};
    case UnitOp::SetPhase:
        return {op, Operation::SetPhase, "SetPhase 2 -1"};
    case UnitOp::GetUnitVersion:
        return {op, Operation::GetUnitVersion, "GetUnitVersion"};
    case UnitOp::InitDLL:
        return {op, Operation::InitDLL, "InitDLL 4", false};
    case UnitOp::GetAudio:
        return {op, Operation::GetAudio, "GetAudio", false};
    case UnitOp::GetSystem:
        return {op, Operation::GetSystem, "GetSystem", false};
    case UnitOp::SetAudio:
        return {op, Operation::SetAudio, "SetAudio", false};
    case UnitOp::SetSystem:
        return {op, Operation::SetSystem, "SetSystem", false};
    case UnitOp::SetProjector:
        return {op, Operation::SetProjector, "SetProjector 2"};
    case UnitOp::BeginGainStream:
        return {op, Operation::BeginGainStream, "BeginGainStream"};
    case UnitOp::BeginSlitStream:
        return {op, Operation::BeginSlitStream, "BeginSlitStream"};
    case UnitOp::BeginAzimuthStream:
        return {op, Operation::BeginAzimuthStream, "BeginAzimuthStream"};
    case UnitOp::StopStream:
        return {op, Operation::StopStream, "StopStream"};
    case UnitOp::EnableOBE:
        return {op, Operation::EnableOBE, "EnableOBE"};
    case UnitOp::SetRT60:
        return {op, Operation::SetRT60, "SetRT60 -1"};
    case UnitOp::DLLShutdown:
        return {op, Operation::DLLShutdown, "DLLShutdown"};
    case UnitOp::SetDLLBaud:
        return {op, Operation::SetDLLBaud, "SetDLLBaud 2"};
    }
    return {};
}

inline constexpr auto LinkOperations = [] {
    std::array<LinkOperation, std::size_t(UnitOp::SetDLLBaud) + 1> all{};
    for (std::size_t i = 0; i < all.size(); ++i)
        all[i] = About(UnitOp(i));
    return all;
}();
static_assert(!About(UnitOp(LinkOperations.size())).call, "no operation stands behind the last one here");

} // namespace kelvo
