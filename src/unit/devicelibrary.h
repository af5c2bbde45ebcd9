#pragma once

#include "model/records.h"

#include <span>

namespace kelvo {

/// What an operation answers: 0, or error bits (their texts are in unit/messages.h).
using Status = Word;

inline constexpr Status Success = 0;
/// The optical data stream is not locked; the link itself is well.
inline constexpr Status StreamNotLocked = 768;
/// What every operation answers while the library could not be loaded: "Could Not Initialise".
inline constexpr Status CouldNotInitialise = 64;

/// The versions a unit reports, in the order of the library's record. Minors are hundredths.
struct UnitVersion {
    Word CpuMajor = 0;
    Word CpuMinor = 0;
    Word CpuBuild = 0;
    Word DspControllerMajor = 0;
    Word DspControllerMinor = 0;
    Word DspFirmwareMajor = 0;
    Word DspFirmwareMinor = 0;
};
static_assert(sizeof(UnitVersion) == 14);

inline constexpr std::size_t GainBytes = 2;
inline constexpr std::size_t SlitLossBytes = 11;
inline constexpr std::size_t AzimuthBytes = 28;

/// The maker's device library: one member for each of its 29 operations, named as it names them.
/// Called from the interface thread alone, one call at a time; a call blocks for its serial exchange.
/// Every member answers a `Status` and never throws.
class DeviceLibrary {
  public:
    virtual ~DeviceLibrary() = default;

    /// Opens the serial port (1 to 4). Accepted again after `DLLShutdown`.
    virtual Status InitDLL(Word port) = 0;
    virtual Status DLLShutdown() = 0;
    /// `index` 0 to 3: 9600, 19200, 38400, 57600 baud.
    virtual Status SetDLLBaud(Word index) = 0;
    /// Creates the library's own serial settings file in the Windows directory.
    virtual Status DLLCreateIni() = 0;
    /// Clears the library's error state between two attempts.
    virtual Status ClearError() = 0;

    virtual Status GetAudio(AudioBlock &audio) = 0;
    virtual Status GetSystem(SystemBlock &system) = 0;
    virtual Status SetAudio(AudioBlock &audio) = 0;
    virtual Status SetSystem(SystemBlock &system) = 0;
    virtual Status GetUnitVersion(UnitVersion &version) = 0;

    /// `level` in tenths of the fader, 0 to 99.
    virtual Status SetVol(Word level) = 0;
    virtual Status GetVol(Word &level) = 0;
    /// Muted is any word but 0; the console sends -1 and 0.
    virtual Status SetMute(Word word) = 0;
    virtual Status GetMute(Word &word) = 0;
    /// `format` 0 to 5.
    virtual Status SelectFormat(Word format) = 0;
    virtual Status GetFormat(Word &format) = 0;

    /// Pink noise on one channel; `on` is -1 or 0.
    virtual Status SetPink(Word channel, Word on) = 0;
    /// Polarity of one channel; `inverted` is -1 or 0.
    virtual Status SetPhase(Word channel, Word inverted) = 0;
    /// The reverberation-time switch; `on` is -1 or 0.
    virtual Status SetRT60(Word on) = 0;
    /// `projector` 0 or 1.
    virtual Status SetProjector(Word projector) = 0;
    virtual Status EnableOBE() = 0;

    virtual Status StopStream() = 0;
    virtual Status BeginGainStream() = 0;
    virtual Status BeginSlitStream() = 0;
    virtual Status BeginAzimuthStream() = 0;
    /// The newest gain reading: left, right. Answers `StreamNotLocked` while there is no stream.
    virtual Status GetOptGain(std::span<Byte, GainBytes> reading) = 0;
    /// Part of the library's surface; the console never calls it.
    virtual Status GetOptSlitloss() = 0;
    /// The newest slit-loss sample. `side`: 0 = first reader side, anything else the second.
    virtual Status GetSingleSlitloss(std::span<Byte, SlitLossBytes> sample, Word &side) = 0;
    /// The newest azimuth frame: 14 pairs of signed bytes.
    virtual Status GetOptAzimuth(std::span<Byte, AzimuthBytes> frame) = 0;
};

} // namespace kelvo
