#include "unit/unitlink.h"

#include "model/flagguard.h"
#include "unit/messages.h"
#include "unit/onechange.h"

#include <span>
#include <utility>

namespace kelvo {

namespace {

constexpr int MaxAttempts = 6;
constexpr std::chrono::milliseconds RetryPause{300};

/// Deliberate: opening the library and exchanging whole records are tried again without clearing its
/// error state.
bool ClearsErrors(UnitOp op)
{
    return op != UnitOp::InitDLL && op != UnitOp::GetAudio && op != UnitOp::GetSystem &&
           op != UnitOp::SetAudio && op != UnitOp::SetSystem;
}

bool ShowsAttempts(UnitOp op)
{
    return op == UnitOp::InitDLL || op == UnitOp::GetUnitVersion;
}

/// Passes a status on; after a success what the unit plays is known.
Status KeepSwitch(Status status, std::span<bool> held, Word channel, Word on)
{
    if (status == Success && channel >= 0 && std::size_t(channel) < held.size())
        held[channel] = on != False;
    return status;
}

} // namespace

UnitLink::UnitLink(RoomSettings &room, const Preferences &options, DeviceLibrary &library, LinkView &view,
                   WallClock &clock)
    : room_(room),
      options_(options),
      library_(library),
      view_(view),
      clock_(clock)
{
}

void UnitLink::EndChange()
{
    if (--changes_ == 0)
        view_.ShowSent();
}

// Calls and their reports

Status UnitLink::RetryFunction(UnitOp op, Word first, Word second)
{
    const OneChange change(*this);
    const bool reachable = unitOnline_ || op == UnitOp::InitDLL;
    if (!reachable || yielding_)
        return Success;
    // A poll tells its calls by its own flag, so that `UnitBusy` stays the sign of every other call.
    const FlagGuard calling(pollActive_ ? pollActive_ : unitBusy_);
    return CallUpToSixTimes(op, first, second);
}

Status UnitLink::CallUpToSixTimes(UnitOp op, Word first, Word second)
{
    int failures = 0;
    Status status = CallLibrary(op, first, second);
    while (status != Success) {
        if (failures == 1)
            SetConnectStatus(LinkState::InDoubt);
        ++failures;
        clock_.Pause(RetryPause);
        if (ShowsAttempts(op))
            ShowProgress(progress_, failures);
        if (ClearsErrors(op))
            library_.ClearError();
        if (failures == MaxAttempts) {
            DispErr(status);
            return status;
        }
        status = CallLibrary(op, first, second);
    }
    if (op == UnitOp::InitDLL || lamp_ == LinkState::InDoubt)
        SetConnectStatus(LinkState::OnLine);
    return Success;
}

Status UnitLink::CallLibrary(UnitOp op, Word first, Word second)
{
    const auto sent = [this](Status status, FieldId live, Word value) {
        if (status == Success)
            holds_.TakeLive(live, value);
        return status;
    };
    const auto sentRecord = [this](Status status, Place record) {
        if (status == Success)
            holds_.TakeRecord(record, room_);
        return status;
    };
    switch (op) {
    case UnitOp::GetFormat:
        return ReadLive(&DeviceLibrary::GetFormat, field::Format);
    case UnitOp::GetVol:
        return ReadLive(&DeviceLibrary::GetVol, field::Fader);
    case UnitOp::GetMute:
        return ReadLive(&DeviceLibrary::GetMute, field::Mute);
    case UnitOp::SelectFormat:
        return SendFormat();
    case UnitOp::SetVol:
        return sent(library_.SetVol(room_.FaderLevel), field::Fader, room_.FaderLevel);
    case UnitOp::SetMute:
        return SendMute();
    case UnitOp::SetPink:
        return KeepSwitch(library_.SetPink(first, second), holds_.Playing.Pink, first, second);
    case UnitOp::SetPhase:
        return KeepSwitch(library_.SetPhase(first, second), holds_.Playing.Inverted, first, second);
    case UnitOp::GetUnitVersion:
        return library_.GetUnitVersion(version_);
    case UnitOp::InitDLL:
        return library_.InitDLL(options_.ComPort);
    case UnitOp::GetAudio:
        return ReadRecord(Place::Audio);
    case UnitOp::GetSystem:
        return ReadRecord(Place::System);
    case UnitOp::SetAudio:
        return sentRecord(library_.SetAudio(room_.Audio), Place::Audio);
    case UnitOp::SetSystem:
        return sentRecord(library_.SetSystem(room_.System), Place::System);
    case UnitOp::SetProjector:
        return library_.SetProjector(first);
    case UnitOp::BeginGainStream:
        return library_.BeginGainStream();
    case UnitOp::BeginSlitStream:
        return library_.BeginSlitStream();
    case UnitOp::BeginAzimuthStream:
        return library_.BeginAzimuthStream();
    case UnitOp::StopStream:
        return library_.StopStream();
    case UnitOp::EnableOBE:
        return library_.EnableOBE();
    case UnitOp::SetRT60:
        return KeepSwitch(library_.SetRT60(second), std::span(&holds_.Playing.RT60, 1), 0, second);
    case UnitOp::DLLShutdown:
        return library_.DLLShutdown();
    case UnitOp::SetDLLBaud:
        return library_.SetDLLBaud(first);
    }
    return Success;
}

/// What is read apart from the room is not shown either.
Status UnitLink::ReadLive(Status (DeviceLibrary::*get)(Word &), FieldId live)
{
    Word read = 0;
    const Status status = (library_.*get)(read);
    if (status != Success)
        return status;
    holds_.TakeLive(live, read);
    if (!pending_ && read != Get(room_, live)) {
        Set(room_, live, read);
        Show(Changed::Of(Source::Poll, {live}));
    }
    return Success;
}

/// The library fills the console's own record in place, so that bytes it leaves alone keep their values. What
/// a failed call has left there was never read.
Status UnitLink::ReadRecord(Place record)
{
    RoomSettings &into = pending_ ? *pending_ : room_;
    const AudioBlock audio = into.Audio;
    const SystemBlock system = into.System;
    const Status status =
        record == Place::Audio ? library_.GetAudio(into.Audio) : library_.GetSystem(into.System);
    if (status != Success) {
        into.Audio = audio;
        into.System = system;
    } else if (!pending_) {
        holds_.TakeRecord(record, room_);
    }
    return status;
}

Status UnitLink::SendFormat()
{
    const Word format = forcedFormat_.value_or(room_.CurrentFormat);
    const Status status = library_.SelectFormat(format);
    if (status != Success)
        return status;
    holds_.TakeLive(field::Format, format);
    if (!forcedFormat_)
        lostStream_.reset();
    return Success;
}

void UnitLink::ReleaseFormat()
{
    if (const auto forced = std::exchange(forcedFormat_, std::nullopt))
        lostStream_ = {*forced, room_.CurrentFormat};
}

Status UnitLink::SendMute()
{
    // A file or a unit may hold any word for "muted"; what is sent is one of two.
    const Word word = room_.MuteState == False ? False : True;
    const Status status = library_.SetMute(word);
    if (status == Success)
        holds_.TakeLive(field::Mute, word);
    return status;
}

void UnitLink::DispErr(Status code)
{
    if (code == StreamNotLocked) {
        view_.StreamLock(false);
        return;
    }
    const OneChange change(*this);
    if (code != Success)
        ShowBox(LinkBox::Report, messages::ConnectionErrorTitle,
                connectionAccepted_ ? messages::ErrorReport(code) : messages::UnableToConnect);
    connectionAccepted_ = false;
    SetConnectStatus(LinkState::OffLine);
    view_.EnableFrames(false);
    library_.DLLShutdown();
}

void UnitLink::SetConnectStatus(LinkState state)
{
    lamp_ = state;
    if (state != LinkState::InDoubt)
        unitOnline_ = state == LinkState::OnLine;
    view_.ShowConnectStatus(state);
}

void UnitLink::ShowProgress(std::string_view caption, int failures)
{
    const FlagGuard yielding(yielding_);
    progress_ = caption;
    view_.ShowProgress(caption, failures);
}

bool UnitLink::ShowBox(LinkBox kind, std::string_view title, std::string_view text)
{
    const FlagGuard yielding(yielding_);
    return view_.ShowBox(kind, title, text);
}

void UnitLink::Show(const Changed &changed)
{
    const FlagGuard fromUnit(Updating);
    view_.Show(changed);
}

FieldSet UnitLink::NotInUnit() const
{
    FieldSet unsent = Unsent(room_, holds_);
    // The unit is meant to hold a stream's format; the operator's waits.
    if (forcedFormat_ && holds_.KnowsRecords())
        unsent.set(std::size_t(field::Format),
                   holds_.LiveOr(field::Format, *forcedFormat_) != *forcedFormat_);
    // Off line nothing will send a mute: the hall is as the unit last said.
    if (!unitOnline_)
        unsent.reset(std::size_t(field::Mute));
    return unsent;
}

std::optional<int> UnitLink::Differences() const
{
    return holds_.KnowsRecords() ? std::optional(int(NotInUnit().count())) : std::nullopt;
}

// Optical reads

template <class Read>
Status UnitLink::ReadStream(Read read)
{
    if (InCall() || !unitOnline_)
        return StreamNotLocked;
    const Status status = read();
    if (status != Success)
        DispErr(status);
    else if (lamp_ == LinkState::InDoubt)
        SetConnectStatus(LinkState::OnLine);
    return status;
}

Status UnitLink::ReadGain(std::span<Byte, GainBytes> reading)
{
    return ReadStream([&] { return library_.GetOptGain(reading); });
}

Status UnitLink::ReadSlitLoss(std::span<Byte, SlitLossBytes> sample, Word &side)
{
    return ReadStream([&] { return library_.GetSingleSlitloss(sample, side); });
}

Status UnitLink::ReadAzimuth(std::span<Byte, AzimuthBytes> frame)
{
    return ReadStream([&] { return library_.GetOptAzimuth(frame); });
}

} // namespace kelvo
