#pragma once

#include "unit/devicelibrary.h"

#include <functional>
#include <initializer_list>
#include <string>

namespace kelvo {

/// One argument of an operation as a decorator sees it: the caller's own words or bytes, valid for the
/// time of the call.
struct Argument {
    bool result; ///< the library fills it: worth reading after a successful call only
    std::span<const Word> words;
    std::span<const Byte> bytes;

    /// Words in decimal with blanks between, bytes as pairs of hexadecimal digits: "2 -1", "504f".
    std::string Text() const;
};

/// A library that hands every operation on to another one through a single hook, so that a decorator
/// overrides one function.
class ForwardedLibrary : public DeviceLibrary {
  public:
    explicit ForwardedLibrary(DeviceLibrary &target) : target_(target) {}

    Status InitDLL(Word port) override;
    Status DLLShutdown() override;
    Status SetDLLBaud(Word index) override;
    Status DLLCreateIni() override;
    Status ClearError() override;
    Status GetAudio(AudioBlock &audio) override;
    Status GetSystem(SystemBlock &system) override;
    Status SetAudio(AudioBlock &audio) override;
    Status SetSystem(SystemBlock &system) override;
    Status GetUnitVersion(UnitVersion &version) override;
    Status SetVol(Word level) override;
    Status GetVol(Word &level) override;
    Status SetMute(Word word) override;
    Status GetMute(Word &word) override;
    Status SelectFormat(Word format) override;
    Status GetFormat(Word &format) override;
    Status SetPink(Word channel, Word on) override;
    Status SetPhase(Word channel, Word inverted) override;
    Status SetRT60(Word on) override;
    Status SetProjector(Word projector) override;
    Status EnableOBE() override;
    Status StopStream() override;
    Status BeginGainStream() override;
    Status BeginSlitStream() override;
    Status BeginAzimuthStream() override;
    Status GetOptGain(std::span<Byte, GainBytes> reading) override;
    Status GetOptSlitloss() override;
    Status GetSingleSlitloss(std::span<Byte, SlitLossBytes> sample, Word &side) override;
    Status GetOptAzimuth(std::span<Byte, AzimuthBytes> frame) override;

  protected:
    using Arguments = std::initializer_list<Argument>;
    using Forward = std::function<Status()>;

    /// Every operation comes through here. `forward` makes the target's call and may be left out or
    /// repeated; what is answered goes to the caller.
    virtual Status Around(const char *operation, Arguments arguments, const Forward &forward) = 0;

  private:
    DeviceLibrary &target_;
};

} // namespace kelvo
