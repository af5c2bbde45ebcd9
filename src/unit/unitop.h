#pragma once

namespace kelvo {

/// The operations that go through `RetryFunction`.
enum class UnitOp {
    GetFormat,
    GetVol,
    GetMute,
    SelectFormat,
    SetVol,
    SetMute,
    SetPink,
    SetPhase,
    GetUnitVersion,
    InitDLL,
    GetAudio,
    GetSystem,
    SetAudio,
    SetSystem,
    SetProjector,
    BeginGainStream,
    BeginSlitStream,
    BeginAzimuthStream,
    StopStream,
    EnableOBE,
    SetRT60,
    DLLShutdown,
    SetDLLBaud,
};

enum class UploadSelector { Both, SystemOnly, AudioOnly };

} // namespace kelvo
