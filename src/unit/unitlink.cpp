#include "unit/unitlink.h"

#include "model/flagguard.h"
#include "unit/messages.h"
#include "unit/unitclock.h"
#include "unit/versions.h"

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

UnitLink::OneChange::~OneChange()
{
    if (--link_.changes_ == 0)
        link_.view_.ShowSent();
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
        return ReadRecord(&DeviceLibrary::GetAudio, room_.Audio, Place::Audio);
    case UnitOp::GetSystem:
        return ReadRecord(&DeviceLibrary::GetSystem, room_.System, Place::System);
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

Status UnitLink::ReadLive(Status (DeviceLibrary::*get)(Word &), FieldId live)
{
    Word read = 0;
    const Status status = (library_.*get)(read);
    if (status != Success)
        return status;
    holds_.TakeLive(live, read);
    if (read != Get(room_, live)) {
        Set(room_, live, read);
        Show(Changed::Of(Source::Poll, {live}));
    }
    return Success;
}

/// The library fills the console's own record in place, so that bytes it leaves alone keep their values. What
/// a failed call has left there was never read.
template <class Block>
Status UnitLink::ReadRecord(Status (DeviceLibrary::*get)(Block &), Block &block, Place record)
{
    const Block before = block;
    const Status status = (library_.*get)(block);
    if (status == Success)
        holds_.TakeRecord(record, room_);
    else
        block = before;
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

// The connection

bool UnitLink::ConnectToUnit()
{
    if (unitOnline_ || InCall())
        return false;
    const OneChange change(*this);
    const FlagGuard connecting(connecting_);
    return OpenConnection();
}

bool UnitLink::OpenConnection()
{
    // Deliberate: an attempt that fails leaves this set; the next good connection clears it.
    Updating = true;
    SetPolling(false);
    SetConnectStatus(LinkState::OffLine);
    view_.EnableFrames(false);

    ShowProgress(messages::Connecting, 0);
    view_.ShowUnitVersion({});
    if (!Answers(UnitOp::InitDLL))
        return false;
    ShowProgress(messages::ReadingVersion, 0);
    if (!Answers(UnitOp::GetUnitVersion) || !AcceptVersion())
        return false;

    connectionAccepted_ = true;
    view_.EnableFrames(true);
    holds_ = UnitHolds{.Playing = holds_.Playing};
    if (!ShowSettings(Source::Connection)) {
        if (unitOnline_)
            Refuse(messages::ConnectionErrorTitle, messages::UnableToConnect);
        return false;
    }
    RetryFunction(UnitOp::StopStream);
    ReturnToOperatorsFormat();

    Updating = false;
    SetPolling(true);
    return true;
}

bool UnitLink::Answers(UnitOp op)
{
    const Status status = RetryFunction(op);
    // Six times this while opening is no connection, but it was not reported and the link stayed open.
    if (status == StreamNotLocked)
        Refuse(messages::ConnectionErrorTitle, messages::UnableToConnect);
    return status == Success;
}

void UnitLink::Refuse(std::string_view title, std::string_view text)
{
    ShowBox(LinkBox::Report, title, text);
    DispErr(Success);
}

bool UnitLink::AcceptVersion()
{
    view_.ShowUnitVersion(VersionCaptions(version_));
    if (!OutOfDate(version_))
        return true;
    Refuse(messages::OutOfDateTitle, messages::OutOfDate);
    return false;
}

/// The stream ended with its link and nobody selected the operator's format.
void UnitLink::ReturnToOperatorsFormat()
{
    const auto lost = std::exchange(lostStream_, std::nullopt);
    if (!unitOnline_ || !lost || room_.CurrentFormat != lost->format || lost->format == lost->operatorsFormat)
        return;
    room_.CurrentFormat = lost->operatorsFormat;
    Show(Changed::Of(Source::Poll, {field::Format}));
    RetryFunction(UnitOp::SelectFormat);
}

// Upload and read-back

void UnitLink::UploadToUnit(UploadSelector selector, UploadTrigger trigger, bool moved)
{
    const OneChange change(*this);
    if (!MayUpload(trigger, moved))
        return;
    const LocalTime now = ConsoleTime();
    StampUnitClock(room_.Audio, now, IsPm(now));
    if (selector == UploadSelector::Both || selector == UploadSelector::SystemOnly)
        RetryFunction(UnitOp::SetSystem);
    if (selector == UploadSelector::Both || selector == UploadSelector::AudioOnly)
        RetryFunction(UnitOp::SetAudio);
    view_.Show({Source::Upload});
}

bool UnitLink::MayUpload(UploadTrigger trigger, bool moved)
{
    if (!unitOnline_ || yielding_)
        return false;
    switch (PassageOf({trigger, options_.AutoUpload, Updating, moved, options_.ConfirmUpload})) {
    case Passage::Closed:
        return false;
    case Passage::AskFirst:
        return ShowBox(LinkBox::YesOrNo, messages::ConfirmUploadTitle, messages::ConfirmUpload);
    case Passage::Open:
        return true;
    }
    return false;
}

bool UnitLink::ShowSettings(Source source)
{
    const OneChange change(*this);
    const bool read = ReadRecords();
    for (const UnitOp live : {UnitOp::GetMute, UnitOp::GetVol, UnitOp::GetFormat})
        RetryFunction(live);
    if (read)
        Show(Changed::Unit(source));
    return read;
}

/// Both or none: half a unit's settings beside half a screen's are nobody's.
bool UnitLink::ReadRecords()
{
    const AudioBlock audio = room_.Audio;
    const SystemBlock system = room_.System;
    const UnitHolds holds = holds_;
    bool read = true;
    for (const UnitOp record : {UnitOp::GetAudio, UnitOp::GetSystem}) {
        const bool called = unitOnline_ && !yielding_;
        read = RetryFunction(record) == Success && called && read;
    }
    if (!read) {
        room_.Audio = audio;
        room_.System = system;
        holds_ = holds;
    }
    return read;
}

void UnitLink::Update()
{
    if (!InCall() && unitOnline_)
        ShowSettings(Source::Update);
}

// Timers

void UnitLink::SetPolling(bool on)
{
    polling_ = on;
    view_.SetPolling(on);
}

void UnitLink::PollTick()
{
    if (InCall() || !unitOnline_)
        return;
    const OneChange change(*this);
    const FlagGuard polling(pollActive_);
    RetryFunction(UnitOp::GetFormat);
    RetryFunction(UnitOp::GetMute);
    RetryFunction(UnitOp::GetVol);
}

void UnitLink::RefreshTick(bool mayRead)
{
    if (InCall() || !unitOnline_ || !options_.AutoRefresh)
        return;
    ++refreshCounter_;
    if (mayRead && refreshCounter_ >= options_.RefreshSeconds) {
        Update();
        refreshCounter_ = 0;
    }
}

std::optional<int> UnitLink::Differences() const
{
    if (!forcedFormat_)
        return CountDifferences(room_, holds_);
    // The unit is meant to hold the stream's format; the operator's waits.
    RoomSettings meant = room_;
    meant.CurrentFormat = *forcedFormat_;
    return CountDifferences(meant, holds_);
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

// The clock

void UnitLink::SetConsoleClock(std::optional<LocalTime> time)
{
    clockOffset_.reset();
    if (time)
        clockOffset_ = *time - clock_.Now();
}

LocalTime UnitLink::ConsoleTime()
{
    return clock_.Now() + clockOffset_.value_or(std::chrono::seconds(0));
}

bool UnitLink::IsPm(LocalTime time)
{
    // A time that the user chose with AM or PM counts as chosen; the PC's own as its time text shows it.
    if (clockOffset_)
        return time - std::chrono::floor<std::chrono::days>(time) >= std::chrono::hours(12);
    return clock_.TimeText(time).ends_with("PM");
}

} // namespace kelvo
