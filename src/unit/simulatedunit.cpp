#include "unit/simulatedunit.h"

#include "model/levels.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <numbers>
#include <numeric>
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
        slice.BassLevel = Byte(ShelfRule.zeroAt);
        slice.TrebleLevel = Byte(ShelfRule.zeroAt);
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

// What most operations do; each of these answers that it went well.

Status Keep(const Call &call, Word &place)
{
    place = call.wordsIn[0];
    return Success;
}

Status Tell(const Call &call, Word word)
{
    call.wordsOut[0] = word;
    return Success;
}

template <typename From, typename To>
Status Copy(const From &from, To to)
{
    std::ranges::copy(from, to.begin());
    return Success;
}

Status KeepSwitch(const Call &call, std::array<bool, ChannelCount> &switches)
{
    const Word channel = call.wordsIn[0];
    if (channel >= 0 && channel < ChannelCount)
        switches[std::size_t(channel)] = call.wordsIn[1] != False;
    return Success;
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

void SimulatedUnit::FailNext(std::optional<Operation> operation, Status status, int times)
{
    if (times > 0)
        failures_.push_back({operation, status, times});
}

int SimulatedUnit::FailuresLeft() const
{
    return std::accumulate(failures_.begin(), failures_.end(), 0,
                           [](int sum, const Failure &failure) { return sum + failure.times; });
}

Status SimulatedUnit::Perform(const Call &call)
{
    const Status status = Line(call.operation);
    return status == Success ? Work(call) : status;
}

Status SimulatedUnit::Line(Operation operation)
{
    if (panel.slow.count() > 0)
        time_.wait(panel.slow);
    const auto failure = std::ranges::find_if(failures_, [operation](const Failure &told) {
        return told.operation ? *told.operation == operation : operation != Operation::ClearError;
    });
    if (failure != failures_.end()) {
        const Status status = failure->status;
        if (--failure->times == 0)
            failures_.erase(failure);
        return status;
    }
    return panel.plugged ? Success : UnpluggedStatus;
}

Status SimulatedUnit::Work(const Call &call)
{
    switch (call.operation) {
    case Operation::InitDLL:
        return Keep(call, port);
    case Operation::DLLShutdown:
        port = 0;
        return Success;
    case Operation::DLLCreateIni:
        iniCreated = true;
        return Success;
    case Operation::SetDLLBaud:
        return Keep(call, baudIndex);
    case Operation::GetUnitVersion:
        return Copy(std::bit_cast<std::array<Word, VersionWords>>(version), call.wordsOut);
    case Operation::GetAudio:
        return Copy(BytesOf(audio), call.bytesOut);
    case Operation::SetAudio:
        return Copy(call.bytesIn, BytesOf(audio));
    case Operation::GetSystem:
        return Copy(BytesOf(system), call.bytesOut);
    case Operation::SetSystem:
        return Copy(call.bytesIn, BytesOf(system));
    case Operation::GetVol:
        return Tell(call, panel.level);
    case Operation::SetVol:
        return Keep(call, panel.level);
    case Operation::GetMute:
        return Tell(call, panel.mute);
    case Operation::SetMute:
        return Keep(call, panel.mute);
    case Operation::GetFormat:
        return Tell(call, panel.format);
    case Operation::SelectFormat:
        return Keep(call, panel.format);
    case Operation::SetPink:
        return KeepSwitch(call, testSignals.pink);
    case Operation::SetPhase:
        return KeepSwitch(call, testSignals.inverted);
    case Operation::SetRT60:
        testSignals.rt60 = call.wordsIn[0] != False;
        return Success;
    case Operation::SetProjector:
        return Keep(call, projector);
    case Operation::StopStream:
        stream = Stream::None;
        return Success;
    case Operation::BeginGainStream:
        return Begin(Stream::Gain);
    case Operation::BeginSlitStream:
        return Begin(Stream::SlitLoss);
    case Operation::BeginAzimuthStream:
        return Begin(Stream::Azimuth);
    case Operation::GetOptGain:
        return Locked(Stream::Gain) ? ReadGain(call.bytesOut) : StreamNotLocked;
    case Operation::GetSingleSlitloss:
        return Locked(Stream::SlitLoss) ? ReadSlitLoss(call.bytesOut, call.wordsOut[0]) : StreamNotLocked;
    case Operation::GetOptAzimuth:
        return Locked(Stream::Azimuth) ? ReadAzimuth(call.bytesOut) : StreamNotLocked;
    case Operation::EnableOBE:
    case Operation::GetOptSlitloss:
    case Operation::ClearError:
        return Success;
    }
    return Success;
}

Status SimulatedUnit::Begin(Stream kind)
{
    stream = kind;
    readingsUntilLock_ = ReadingsToLock;
    nextSide_ = 0;
    return Success;
}

bool SimulatedUnit::Locked(Stream kind)
{
    if (stream != kind || !reader.locked)
        return false;
    if (readingsUntilLock_ == 0)
        return true;
    --readingsUntilLock_;
    return false;
}

// The exciter lamp's light wanders by a reading unit or so over some ten seconds, each side for itself.
Status SimulatedUnit::ReadGain(std::span<Byte> reading)
{
    const double seconds = Seconds();
    reading[0] = Reading(reader.gainLeft + 1.2 * std::sin(Turn * seconds / 13) + Noise());
    reading[1] = Reading(reader.gainRight + 1.2 * std::sin(Turn * seconds / 17 + 1) + Noise());
    return Success;
}

// The slit's own width costs more the shorter the wave on the film is, about with the square of the
// frequency. The 11 bands run from 1 to 10 kHz in thirds of an octave; the first is the reference.
Status SimulatedUnit::ReadSlitLoss(std::span<Byte> sample, Word &side)
{
    static constexpr std::array<double, SlitLossBytes> kilohertz{1, 1.25, 1.6, 2, 2.5, 3.15,
                                                                 4, 5,    6.3, 8, 10};
    static constexpr double reference = 64;
    const double sideReference = nextSide_ == 0 ? reference : reference + 2;
    for (std::size_t band = 0; band < SlitLossBytes; ++band) {
        const double share = kilohertz[band] / kilohertz.back();
        sample[band] = Reading(sideReference + reader.slitLoss * share * share + Noise());
    }
    side = nextSide_;
    nextSide_ = nextSide_ == 0 ? 1 : 0;
    return Success;
}

// Both sides of the track carry the same tone: plotted against each other they lie on a line at 45 degrees,
// along which the 14 points travel. A slit that is not square to the film leans the line; it sways a little
// with the film's weave.
Status SimulatedUnit::ReadAzimuth(std::span<Byte> frame)
{
    static constexpr double radius = 96;
    const double seconds = Seconds();
    const double degrees = 45 + reader.azimuthDegrees + 2 * std::sin(Turn * seconds / 11);
    const double angle = Turn * degrees / 360;
    for (std::size_t point = 0; point < AzimuthBytes / 2; ++point) {
        const double along = radius * std::sin(Turn * (double(point) * 2 / AzimuthBytes + seconds / 5));
        frame[2 * point] = Offset(along * std::cos(angle) + Noise());
        frame[2 * point + 1] = Offset(along * std::sin(angle) + Noise());
    }
    return Success;
}

} // namespace kelvo
