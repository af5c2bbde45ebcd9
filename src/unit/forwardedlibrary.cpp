#include "unit/forwardedlibrary.h"

namespace kelvo {

namespace {

Argument In(const Word &word)
{
    return {false, {&word, 1}, {}};
}

Argument In(std::span<const Byte> bytes)
{
    return {false, {}, bytes};
}

Argument Out(const Word &word)
{
    return {true, {&word, 1}, {}};
}

Argument Out(std::span<const Byte> bytes)
{
    return {true, {}, bytes};
}

Argument Out(const UnitVersion &version)
{
    return {true, {&version.CpuMajor, sizeof version / sizeof version.CpuMajor}, {}};
}

} // namespace

std::string Argument::Text() const
{
    static constexpr char digits[] = "0123456789abcdef";
    std::string text;
    for (Word word : words)
        text += (text.empty() ? "" : " ") + std::to_string(word);
    for (Byte byte : bytes) {
        text += digits[byte / 16];
        text += digits[byte % 16];
    }
    return text;
}

Status ForwardedLibrary::InitDLL(Word port)
{
    return Around("InitDLL", {In(port)}, [&] { return target_.InitDLL(port); });
}

Status ForwardedLibrary::DLLShutdown()
{
    return Around("DLLShutdown", {}, [&] { return target_.DLLShutdown(); });
}

Status ForwardedLibrary::SetDLLBaud(Word index)
{
    return Around("SetDLLBaud", {In(index)}, [&] { return target_.SetDLLBaud(index); });
}

Status ForwardedLibrary::DLLCreateIni()
{
    return Around("DLLCreateIni", {}, [&] { return target_.DLLCreateIni(); });
}

Status ForwardedLibrary::ClearError()
{
    return Around("ClearError", {}, [&] { return target_.ClearError(); });
}

Status ForwardedLibrary::GetAudio(AudioBlock &audio)
{
    return Around("GetAudio", {Out(BytesOf(audio))}, [&] { return target_.GetAudio(audio); });
}

Status ForwardedLibrary::GetSystem(SystemBlock &system)
{
    return Around("GetSystem", {Out(BytesOf(system))}, [&] { return target_.GetSystem(system); });
}

Status ForwardedLibrary::SetAudio(AudioBlock &audio)
{
    return Around("SetAudio", {In(BytesOf(audio))}, [&] { return target_.SetAudio(audio); });
}

Status ForwardedLibrary::SetSystem(SystemBlock &system)
{
    return Around("SetSystem", {In(BytesOf(system))}, [&] { return target_.SetSystem(system); });
}

Status ForwardedLibrary::GetUnitVersion(UnitVersion &version)
{
    return Around("GetUnitVersion", {Out(version)}, [&] { return target_.GetUnitVersion(version); });
}

Status ForwardedLibrary::SetVol(Word level)
{
    return Around("SetVol", {In(level)}, [&] { return target_.SetVol(level); });
}

Status ForwardedLibrary::GetVol(Word &level)
{
    return Around("GetVol", {Out(level)}, [&] { return target_.GetVol(level); });
}

Status ForwardedLibrary::SetMute(Word word)
{
    return Around("SetMute", {In(word)}, [&] { return target_.SetMute(word); });
}

Status ForwardedLibrary::GetMute(Word &word)
{
    return Around("GetMute", {Out(word)}, [&] { return target_.GetMute(word); });
}

Status ForwardedLibrary::SelectFormat(Word format)
{
    return Around("SelectFormat", {In(format)}, [&] { return target_.SelectFormat(format); });
}

Status ForwardedLibrary::GetFormat(Word &format)
{
    return Around("GetFormat", {Out(format)}, [&] { return target_.GetFormat(format); });
}

Status ForwardedLibrary::SetPink(Word channel, Word on)
{
    return Around("SetPink", {In(channel), In(on)}, [&] { return target_.SetPink(channel, on); });
}

Status ForwardedLibrary::SetPhase(Word channel, Word inverted)
{
    return Around("SetPhase", {In(channel), In(inverted)},
                  [&] { return target_.SetPhase(channel, inverted); });
}

Status ForwardedLibrary::SetRT60(Word on)
{
    return Around("SetRT60", {In(on)}, [&] { return target_.SetRT60(on); });
}

Status ForwardedLibrary::SetProjector(Word projector)
{
    return Around("SetProjector", {In(projector)}, [&] { return target_.SetProjector(projector); });
}

Status ForwardedLibrary::EnableOBE()
{
    return Around("EnableOBE", {}, [&] { return target_.EnableOBE(); });
}

Status ForwardedLibrary::StopStream()
{
    return Around("StopStream", {}, [&] { return target_.StopStream(); });
}

Status ForwardedLibrary::BeginGainStream()
{
    return Around("BeginGainStream", {}, [&] { return target_.BeginGainStream(); });
}

Status ForwardedLibrary::BeginSlitStream()
{
    return Around("BeginSlitStream", {}, [&] { return target_.BeginSlitStream(); });
}

Status ForwardedLibrary::BeginAzimuthStream()
{
    return Around("BeginAzimuthStream", {}, [&] { return target_.BeginAzimuthStream(); });
}

Status ForwardedLibrary::GetOptGain(std::span<Byte, GainBytes> reading)
{
    return Around("GetOptGain", {Out(reading)}, [&] { return target_.GetOptGain(reading); });
}

Status ForwardedLibrary::GetOptSlitloss()
{
    return Around("GetOptSlitloss", {}, [&] { return target_.GetOptSlitloss(); });
}

Status ForwardedLibrary::GetSingleSlitloss(std::span<Byte, SlitLossBytes> sample, Word &side)
{
    return Around("GetSingleSlitloss", {Out(sample), Out(side)},
                  [&] { return target_.GetSingleSlitloss(sample, side); });
}

Status ForwardedLibrary::GetOptAzimuth(std::span<Byte, AzimuthBytes> frame)
{
    return Around("GetOptAzimuth", {Out(frame)}, [&] { return target_.GetOptAzimuth(frame); });
}

} // namespace kelvo
