#include "unit/simulatedunit.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <numeric>
#include <string_view>
#include <thread>

namespace kelvo {

namespace {

constexpr double Turn = 2 * std::numbers::pi;

/// A hall as it was left by the last technician: the screen channels tuned alike with a gentle fall to the
/// top, small differences between the sides, OBE on at 70 Hz. Bytes that no console knows are not 0, so
/// that it shows when one of them does not travel back.
AudioBlock TunedAudio()
{
    using Bands = std::array<Byte, BandCount>;
    static constexpr Bands screen{14, 13, 12, 11, 11, 12, 12, 13, 12, 12, 12, 11, 12, 12,
                                  12, 11, 11, 12, 12, 13, 13, 14, 14, 15, 15, 16, 17};
    static constexpr Bands surround{11, 12, 12, 13, 12, 12, 11, 13, 14};
    static constexpr Bands subwoofer{10, 2, 3}; // +1 dB, 1 octave, 50 Hz

    AudioBlock audio{};
    audio.UnitClock = {0x93, 0x2F, 0x5E, 0x01};
    audio.reserved4 = {0xA4, 0xA5};
    audio.ChannelTrim = {12, 14, 11, 14, 12, 9};
    for (std::size_t channel = 0; channel < audio.ChannelEq.size(); ++channel) {
        ChannelSlice &slice = audio.ChannelEq[channel];
        const ChannelKind kind = KindOf(int(channel));
        slice.Band = kind == ChannelKind::Screen     ? screen
                     : kind == ChannelKind::Surround ? surround
                                                     : subwoofer;
        for (std::size_t unused = std::size_t(EqualiserBytes(kind)); unused < slice.Band.size(); ++unused)
            slice.Band[unused] = Byte(0x80 + unused);
        slice.BassLevel = FlatShelf;
        slice.TrebleLevel = FlatShelf;
        slice.unused29 = Byte(0xE0 + channel);
    }
    audio.ChannelEq[Right].Band[16] = 13;
    audio.ChannelEq[Right].Band[17] = 13;
    audio.ChannelEq[Center].TrebleLevel = 9; // +1 dB through the screen
    audio.ObeLevel = 9;                      // +1.5 dB
    audio.ObeFreq = 3;                       // 70 Hz
    for (std::size_t i = 0; i < audio.reserved194.size(); ++i)
        audio.reserved194[i] = Byte(0xC2 + i);
    return audio;
}

SystemBlock TunedSystem()
{
    SystemBlock system{};
    for (std::size_t i = 0; i < sizeof system; ++i)
        BytesOf(system)[i] = Byte(0x40 + i);
    system.F1KeyMode = 3;
    system.DisableMatrix = 0;
    system.NonsyncMode = 2;
    SetReaderDelayIndex(system, 84); // 21 frames
    system.SurroundDelay = 2;        // 20 ms
    system.NonsyncTrim = 6;
    system.DefaultFormat = 2;
    return system;
}

Byte Reading(double value)
{
    return Byte(std::lround(std::clamp(value, 0.0, 255.0)));
}

/// The two's-complement byte of an offset from the centre.
Byte Offset(double value)
{
    return Byte(std::lround(std::clamp(value, -127.0, 127.0)) & 0xFF);
}

} // namespace

SimulatedTime SimulatedTime::OfThisPc()
{
    return {[] { return std::chrono::steady_clock::now().time_since_epoch(); },
            [](std::chrono::milliseconds time) { std::this_thread::sleep_for(time); }};
}

SimulatedUnit::SimulatedUnit(SimulatedTime time, unsigned seed)
    : audio(TunedAudio()),
      system(TunedSystem()),
      time_(std::move(time)),
      start_(time_.now()),
      random_(seed)
{
}

double SimulatedUnit::Seconds() const
{
    return (time_.now() - start_).count();
}

void SimulatedUnit::FailNext(const std::string &operation, Status status, int times)
{
    if (times > 0)
        failures_.push_back({operation, status, times});
}

int SimulatedUnit::FailuresLeft() const
{
    return std::accumulate(failures_.begin(), failures_.end(), 0,
                           [](int sum, const Failure &failure) { return sum + failure.times; });
}

Status SimulatedUnit::Answer(const char *operation)
{
    if (panel.slow.count() > 0)
        time_.wait(panel.slow);
    const std::string_view called = operation;
    const auto failure = std::find_if(failures_.begin(), failures_.end(), [called](const Failure &told) {
        return told.operation == called || (told.operation.empty() && called != "ClearError");
    });
    if (failure != failures_.end()) {
        const Status status = failure->status;
        if (--failure->times == 0)
            failures_.erase(failure);
        return status;
    }
    return panel.plugged ? Success : UnpluggedStatus;
}

template <typename Work>
Status SimulatedUnit::Perform(const char *operation, Work work)
{
    const Status status = Answer(operation);
    if (status == Success)
        work();
    return status;
}

template <typename Work>
Status SimulatedUnit::Read(const char *operation, Stream kind, Work work)
{
    const Status status = Answer(operation);
    if (status != Success)
        return status;
    if (stream != kind || !reader.locked)
        return StreamNotLocked;
    if (readingsUntilLock_ > 0) {
        --readingsUntilLock_;
        return StreamNotLocked;
    }
    work(Seconds());
    return Success;
}

Status SimulatedUnit::Begin(const char *operation, Stream kind)
{
    return Perform(operation, [&] {
        stream = kind;
        readingsUntilLock_ = ReadingsToLock;
        nextSide_ = 0;
    });
}

Status SimulatedUnit::InitDLL(Word portNumber)
{
    return Perform("InitDLL", [&] { port = portNumber; });
}

Status SimulatedUnit::DLLShutdown()
{
    return Perform("DLLShutdown", [&] { port = 0; });
}

Status SimulatedUnit::SetDLLBaud(Word index)
{
    return Perform("SetDLLBaud", [&] { baudIndex = index; });
}

Status SimulatedUnit::DLLCreateIni()
{
    return Perform("DLLCreateIni", [&] { iniCreated = true; });
}

Status SimulatedUnit::ClearError()
{
    return Answer("ClearError");
}

Status SimulatedUnit::GetAudio(AudioBlock &block)
{
    return Perform("GetAudio", [&] { block = audio; });
}

Status SimulatedUnit::GetSystem(SystemBlock &block)
{
    return Perform("GetSystem", [&] { block = system; });
}

Status SimulatedUnit::SetAudio(AudioBlock &block)
{
    return Perform("SetAudio", [&] { audio = block; });
}

Status SimulatedUnit::SetSystem(SystemBlock &block)
{
    return Perform("SetSystem", [&] { system = block; });
}

Status SimulatedUnit::GetUnitVersion(UnitVersion &record)
{
    return Perform("GetUnitVersion", [&] { record = version; });
}

Status SimulatedUnit::SetVol(Word level)
{
    return Perform("SetVol", [&] { panel.level = level; });
}

Status SimulatedUnit::GetVol(Word &level)
{
    return Perform("GetVol", [&] { level = panel.level; });
}

Status SimulatedUnit::SetMute(Word word)
{
    return Perform("SetMute", [&] { panel.mute = word; });
}

Status SimulatedUnit::GetMute(Word &word)
{
    return Perform("GetMute", [&] { word = panel.mute; });
}

Status SimulatedUnit::SelectFormat(Word format)
{
    return Perform("SelectFormat", [&] { panel.format = format; });
}

Status SimulatedUnit::GetFormat(Word &format)
{
    return Perform("GetFormat", [&] { format = panel.format; });
}

Status SimulatedUnit::SetPink(Word channel, Word on)
{
    return Perform("SetPink", [&] {
        if (channel >= 0 && channel < ChannelCount)
            testSignals.pink[std::size_t(channel)] = on != False;
    });
}

Status SimulatedUnit::SetPhase(Word channel, Word inverted)
{
    return Perform("SetPhase", [&] {
        if (channel >= 0 && channel < ChannelCount)
            testSignals.inverted[std::size_t(channel)] = inverted != False;
    });
}

Status SimulatedUnit::SetRT60(Word on)
{
    return Perform("SetRT60", [&] { testSignals.rt60 = on != False; });
}

Status SimulatedUnit::SetProjector(Word number)
{
    return Perform("SetProjector", [&] { projector = number; });
}

Status SimulatedUnit::EnableOBE()
{
    return Answer("EnableOBE");
}

Status SimulatedUnit::StopStream()
{
    return Perform("StopStream", [&] { stream = Stream::None; });
}

Status SimulatedUnit::BeginGainStream()
{
    return Begin("BeginGainStream", Stream::Gain);
}

Status SimulatedUnit::BeginSlitStream()
{
    return Begin("BeginSlitStream", Stream::SlitLoss);
}

Status SimulatedUnit::BeginAzimuthStream()
{
    return Begin("BeginAzimuthStream", Stream::Azimuth);
}

// The exciter lamp's light wanders by a reading unit or so over some ten seconds, each side for itself.
Status SimulatedUnit::GetOptGain(std::span<Byte, GainBytes> reading)
{
    return Read("GetOptGain", Stream::Gain, [&](double seconds) {
        reading[0] = Reading(reader.gainLeft + 1.2 * std::sin(Turn * seconds / 13) + Noise());
        reading[1] = Reading(reader.gainRight + 1.2 * std::sin(Turn * seconds / 17 + 1) + Noise());
    });
}

Status SimulatedUnit::GetOptSlitloss()
{
    return Answer("GetOptSlitloss");
}

// The slit's own width costs more the shorter the wave on the film is, about with the square of the
// frequency. The 11 bands run from 1 to 10 kHz in thirds of an octave; the first is the reference.
Status SimulatedUnit::GetSingleSlitloss(std::span<Byte, SlitLossBytes> sample, Word &side)
{
    static constexpr std::array<double, SlitLossBytes> kilohertz{1, 1.25, 1.6, 2, 2.5, 3.15,
                                                                 4, 5,    6.3, 8, 10};
    static constexpr double reference = 64;
    return Read("GetSingleSlitloss", Stream::SlitLoss, [&](double) {
        const double sideReference = nextSide_ == 0 ? reference : reference + 2;
        for (std::size_t band = 0; band < SlitLossBytes; ++band) {
            const double share = kilohertz[band] / kilohertz.back();
            sample[band] = Reading(sideReference + reader.slitLoss * share * share + Noise());
        }
        side = nextSide_;
        nextSide_ = nextSide_ == 0 ? 1 : 0;
    });
}

// Both sides of the track carry the same tone: plotted against each other they lie on a line at 45 degrees,
// along which the 14 points travel. A slit that is not square to the film leans the line; it sways a little
// with the film's weave.
Status SimulatedUnit::GetOptAzimuth(std::span<Byte, AzimuthBytes> frame)
{
    static constexpr double radius = 96;
    return Read("GetOptAzimuth", Stream::Azimuth, [&](double seconds) {
        const double degrees = 45 + reader.azimuthDegrees + 2 * std::sin(Turn * seconds / 11);
        const double angle = Turn * degrees / 360;
        for (std::size_t point = 0; point < AzimuthBytes / 2; ++point) {
            const double along = radius * std::sin(Turn * (double(point) * 2 / AzimuthBytes + seconds / 5));
            frame[2 * point] = Offset(along * std::cos(angle) + Noise());
            frame[2 * point + 1] = Offset(along * std::sin(angle) + Noise());
        }
    });
}

} // namespace kelvo
