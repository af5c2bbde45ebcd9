#pragma once

#include "unit/call.h"

#include <vector>

namespace kelvo {

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
static_assert(sizeof(UnitVersion) == VersionWords * sizeof(Word));

/// The maker's device library: one member for each of its operations, named as it names them. All of them
/// come through one function, which the loaded library, the simulated unit and every other stand-in
/// implements, and which observers see.
/// Called from the interface thread alone, one call at a time; a call blocks for its serial exchange.
/// Every member answers a `Status` and never throws.
class DeviceLibrary {
  public:
    virtual ~DeviceLibrary() = default;

    /// Tells `observer`, which must live as long as calls are made, of every call from now on.
    void Attach(CallObserver &observer) { observers_.push_back(&observer); }

    /// Makes a call. Every member comes here, and so does a library that stands before this one.
    Status Do(const Call &call);

    /// Opens the serial port (1 to 4). Accepted again after `DLLShutdown`.
    Status InitDLL(Word port) { return Do<Operation::InitDLL>({.wordsIn = {port}}); }
    Status DLLShutdown() { return Do<Operation::DLLShutdown>({}); }
    /// `index` 0 to 3: 9600, 19200, 38400, 57600 baud.
    Status SetDLLBaud(Word index) { return Do<Operation::SetDLLBaud>({.wordsIn = {index}}); }
    /// Creates the library's own serial settings file in the Windows directory.
    Status DLLCreateIni() { return Do<Operation::DLLCreateIni>({}); }
    /// Clears the library's error state between two attempts.
    Status ClearError() { return Do<Operation::ClearError>({}); }

    Status GetAudio(AudioBlock &audio) { return Do<Operation::GetAudio>({.bytesOut = BytesOf(audio)}); }
    Status GetSystem(SystemBlock &system) { return Do<Operation::GetSystem>({.bytesOut = BytesOf(system)}); }
    Status SetAudio(AudioBlock &audio) { return Do<Operation::SetAudio>({.bytesIn = BytesOf(audio)}); }
    Status SetSystem(SystemBlock &system) { return Do<Operation::SetSystem>({.bytesIn = BytesOf(system)}); }
    Status GetUnitVersion(UnitVersion &version);

    /// `level` in tenths of the fader, 0 to 99.
    Status SetVol(Word level) { return Do<Operation::SetVol>({.wordsIn = {level}}); }
    Status GetVol(Word &level) { return Do<Operation::GetVol>({.wordsOut = One(level)}); }
    /// Muted is any word but 0; the console sends -1 and 0.
    Status SetMute(Word word) { return Do<Operation::SetMute>({.wordsIn = {word}}); }
    Status GetMute(Word &word) { return Do<Operation::GetMute>({.wordsOut = One(word)}); }
    /// `format` 0 to 5.
    Status SelectFormat(Word format) { return Do<Operation::SelectFormat>({.wordsIn = {format}}); }
    Status GetFormat(Word &format) { return Do<Operation::GetFormat>({.wordsOut = One(format)}); }

    /// Pink noise on one channel; `on` is -1 or 0.
    Status SetPink(Word channel, Word on) { return Do<Operation::SetPink>({.wordsIn = {channel, on}}); }
    /// Polarity of one channel; `inverted` is -1 or 0.
    Status SetPhase(Word channel, Word inverted)
    {
        return Do<Operation::SetPhase>({.wordsIn = {channel, inverted}});
    }
    /// The reverberation-time switch; `on` is -1 or 0.
    Status SetRT60(Word on) { return Do<Operation::SetRT60>({.wordsIn = {on}}); }
    /// `projector` 0 or 1.
    Status SetProjector(Word projector) { return Do<Operation::SetProjector>({.wordsIn = {projector}}); }
    Status EnableOBE() { return Do<Operation::EnableOBE>({}); }

    Status StopStream() { return Do<Operation::StopStream>({}); }
    Status BeginGainStream() { return Do<Operation::BeginGainStream>({}); }
    Status BeginSlitStream() { return Do<Operation::BeginSlitStream>({}); }
    Status BeginAzimuthStream() { return Do<Operation::BeginAzimuthStream>({}); }
    /// The newest gain reading: left, right. Answers `StreamNotLocked` while there is no stream.
    Status GetOptGain(std::span<Byte, GainBytes> reading)
    {
        return Do<Operation::GetOptGain>({.bytesOut = reading});
    }
    /// Part of the library's surface; the console never calls it.
    Status GetOptSlitloss() { return Do<Operation::GetOptSlitloss>({}); }
    /// The newest slit-loss sample. `side`: 0 = first reader side, anything else the second.
    Status GetSingleSlitloss(std::span<Byte, SlitLossBytes> sample, Word &side)
    {
        return Do<Operation::GetSingleSlitloss>({.bytesOut = sample, .wordsOut = One(side)});
    }
    /// The newest azimuth frame: 14 pairs of signed bytes.
    Status GetOptAzimuth(std::span<Byte, AzimuthBytes> frame)
    {
        return Do<Operation::GetOptAzimuth>({.bytesOut = frame});
    }

  private:
    /// The call itself: fills its results in place, or leaves them, and answers.
    virtual Status Perform(const Call &call) = 0;

    template <Operation operation>
    Status Do(const Arguments<operation> &with)
    {
        return Do(Call{operation, with.wordsIn, with.bytesIn, with.bytesOut, with.wordsOut});
    }

    static std::span<Word, 1> One(Word &word) { return std::span<Word, 1>(&word, 1); }

    std::vector<CallObserver *> observers_;
};

} // namespace kelvo
