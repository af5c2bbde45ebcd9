#include "ui/walk/witness.h"

#include <algorithm>

namespace kelvo {

namespace {

template <class Record>
Record RecordOf(std::span<const Byte> bytes)
{
    Record record{};
    std::ranges::copy(bytes, BytesOf(record).begin());
    return record;
}

} // namespace

void Witness::Forget()
{
    audio.reset();
    system.reset();
    fader.reset();
    mute.reset();
    format.reset();
}

void Witness::Before(const Call &call)
{
    ++calls;
    ++callsOf[call.operation];
    NoteRead(call);
}

/// The two records are read one after the other, and count when both were.
void Witness::NoteRead(const Call &call)
{
    const bool reads = call.operation == Operation::GetAudio || call.operation == Operation::GetSystem;
    if (reads && !beforeRead_) {
        beforeRead_ = {audio, system, agreedAudio, agreedSystem};
        failuresOfRead_ = 0;
    }
    if (reads || call.operation == Operation::ClearError)
        return;
    if (beforeRead_ && readFailed_) {
        audio = beforeRead_->audio;
        system = beforeRead_->system;
        agreedAudio = beforeRead_->agreedAudio;
        agreedSystem = beforeRead_->agreedSystem;
    }
    beforeRead_.reset();
    readFailed_ = false;
}

void Witness::After(const Call &call, Status status, std::chrono::microseconds)
{
    constexpr int Attempts = 6;
    failuresOfRead_ = status == Success ? 0 : failuresOfRead_ + 1;
    readFailed_ = readFailed_ || (beforeRead_ && failuresOfRead_ == Attempts);
    if (status == Success)
        NoteSuccess(call);
    else
        NoteFailure(call.operation);
}

void Witness::NoteSuccess(const Call &call)
{
    switch (call.operation) {
    case Operation::GetUnitVersion: // asked for where a connection begins, and nowhere else
        Forget();
        connected = true;
        break;
    case Operation::GetAudio:
        audio = RecordOf<AudioBlock>(call.bytesOut);
        agreedAudio = apart ? agreedAudio : audio;
        break;
    case Operation::SetAudio:
        audio = agreedAudio = RecordOf<AudioBlock>(call.bytesIn);
        break;
    case Operation::GetSystem:
        system = RecordOf<SystemBlock>(call.bytesOut);
        agreedSystem = apart ? agreedSystem : system;
        break;
    case Operation::SetSystem:
        system = agreedSystem = RecordOf<SystemBlock>(call.bytesIn);
        break;
    case Operation::GetVol:
        fader = call.wordsOut.front();
        break;
    case Operation::SetVol:
        fader = call.wordsIn.front();
        break;
    case Operation::GetMute:
        mute = call.wordsOut.front();
        break;
    case Operation::SetMute:
        mute = call.wordsIn.front();
        break;
    case Operation::GetFormat:
        format = call.wordsOut.front();
        break;
    case Operation::SelectFormat:
        format = call.wordsIn.front();
        break;
    default:
        break;
    }
}

void Witness::NoteFailure(Operation operation)
{
    using enum Operation;
    constexpr std::array ofSignals{SetPink, SetPhase, SetRT60};
    constexpr std::array ofStreams{StopStream,         BeginGainStream, BeginSlitStream,
                                   BeginAzimuthStream, SetProjector,    SelectFormat};
    lastFailed = operation;
    signalFailed = signalFailed || std::ranges::count(ofSignals, operation);
    streamFailed = streamFailed || std::ranges::count(ofStreams, operation);
}

} // namespace kelvo
