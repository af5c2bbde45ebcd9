#include "unit/unitlink.h"

#include "model/flagguard.h"
#include "unit/messages.h"
#include "unit/unitclock.h"
#include "unit/versions.h"

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

/// Passes a status on; after a success what the unit holds is known.
template <class Held, class Value>
Status Keep(Status status, Held &held, const Value &value)
{
    if (status == Success)
        held = value;
    return status;
}

Status KeepSwitch(Status status, std::array<bool, ChannelCount> &held, Word channel, Word on)
{
    if (status == Success && channel >= 0 && channel < ChannelCount)
        held[channel] = on != False;
    return status;
}

} // namespace

UnitLink::UnitLink(Settings &settings, DeviceLibrary &library, LinkView &view, WallClock &clock)
    : settings_(settings),
      library_(library),
      view_(view),
      clock_(clock)
{
}

// Calls and their reports

Status UnitLink::RetryFunction(UnitOp op, Word first, Word second)
{
    Status result = Success;
    const bool reachable = unitOnline_ || op == UnitOp::InitDLL;
    if (reachable && !yielding_) {
        // A poll tells its calls by its own flag, so that `UnitBusy` stays the sign of every other call.
        const FlagGuard calling(pollActive_ ? pollActive_ : unitBusy_);
        result = CallUpToSixTimes(op, first, second);
    }
    view_.ShowSent();
    return result;
}

Status UnitLink::CallUpToSixTimes(UnitOp op, Word first, Word second)
{
    int failures = 0;
    Status status = CallLibrary(op, first, second);
    while (status != Success) {
        if (failures == 1) {
            SetConnectStatus(LinkState::InDoubt);
            view_.RepaintWindow();
        }
        ++failures;
        clock_.Pause(RetryPause);
        if (ShowsAttempts(op))
            ShowAttempt(failures);
        if (ClearsErrors(op))
            library_.ClearError();
        if (failures == MaxAttempts) {
            DispErr(status);
            return status;
        }
        status = CallLibrary(op, first, second);
    }
    if (op == UnitOp::InitDLL || failures >= 2) {
        SetConnectStatus(LinkState::OnLine);
        view_.RepaintWindow();
    }
    return Success;
}

Status UnitLink::CallLibrary(UnitOp op, Word first, Word second)
{
    switch (op) {
    case UnitOp::GetFormat:
        return ReadWord(&DeviceLibrary::GetFormat, settings_.CurrentFormat, holds_.CurrentFormat,
                        [this] { view_.ReflectModeStatus(); });
    case UnitOp::GetVol:
        return ReadWord(&DeviceLibrary::GetVol, settings_.FaderLevel, holds_.FaderLevel, [this] {
            view_.ReflectVolumeLevel(true);
            view_.RepaintWindow();
        });
    case UnitOp::GetMute:
        return ReadWord(&DeviceLibrary::GetMute, settings_.MuteState, holds_.MuteState, [this] {
            view_.ReflectMuteStatus();
            view_.RepaintWindow();
        });
    case UnitOp::SelectFormat:
        return Keep(library_.SelectFormat(settings_.CurrentFormat), holds_.CurrentFormat,
                    settings_.CurrentFormat);
    case UnitOp::SetVol:
        return Keep(library_.SetVol(settings_.FaderLevel), holds_.FaderLevel, settings_.FaderLevel);
    case UnitOp::SetMute:
        return SendMute();
    case UnitOp::SetPink:
        return KeepSwitch(library_.SetPink(first, second), holds_.Pink, first, second);
    case UnitOp::SetPhase:
        return KeepSwitch(library_.SetPhase(first, second), holds_.Inverted, first, second);
    case UnitOp::GetUnitVersion: {
        UnitVersion version;
        return Keep(library_.GetUnitVersion(version), version_, version);
    }
    case UnitOp::InitDLL:
        return library_.InitDLL(settings_.Options.ComPort);
    case UnitOp::GetAudio:
        return Keep(library_.GetAudio(settings_.Audio), holds_.Audio, settings_.Audio);
    case UnitOp::GetSystem:
        return Keep(library_.GetSystem(settings_.System), holds_.System, settings_.System);
    case UnitOp::SetAudio:
        return Keep(library_.SetAudio(settings_.Audio), holds_.Audio, settings_.Audio);
    case UnitOp::SetSystem:
        return Keep(library_.SetSystem(settings_.System), holds_.System, settings_.System);
    case UnitOp::SetProjector:
        return library_.SetProjector(settings_.Projector);
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
        return Keep(library_.SetRT60(second), holds_.RT60, second != False);
    case UnitOp::DLLShutdown:
        return library_.DLLShutdown();
    case UnitOp::SetDLLBaud:
        return library_.SetDLLBaud(first);
    }
    return Success;
}

template <class Show>
Status UnitLink::ReadWord(Status (DeviceLibrary::*get)(Word &), Word &value, std::optional<Word> &held,
                          Show show)
{
    Word read = 0;
    const Status status = Keep((library_.*get)(read), held, read);
    if (status == Success && read != value) {
        value = read;
        const FlagGuard fromUnit(settings_.Updating);
        show();
    }
    return status;
}

Status UnitLink::SendMute()
{
    // A file or a unit may hold any word for "muted"; what is sent is one of two.
    const Word word = settings_.MuteState == False ? False : True;
    return Keep(library_.SetMute(word), holds_.MuteState, word);
}

void UnitLink::DispErr(Status code)
{
    if (code == StreamNotLocked) {
        view_.StreamLock(false);
        return;
    }
    if (code != Success)
        Report(messages::ConnectionErrorTitle,
               connectionAccepted_ ? messages::ErrorReport(code) : messages::UnableToConnect);
    connectionAccepted_ = false;
    SetConnectStatus(LinkState::OffLine);
    view_.EnableFrames(false);
    library_.DLLShutdown();
    view_.StopRunningStream();
}

void UnitLink::SetConnectStatus(LinkState state)
{
    if (state != LinkState::InDoubt)
        unitOnline_ = state == LinkState::OnLine;
    view_.ShowConnectStatus(state);
}

void UnitLink::ShowProgress(std::string_view caption)
{
    const FlagGuard yielding(yielding_);
    view_.ShowProgress(caption);
}

void UnitLink::ShowAttempt(int failures)
{
    const FlagGuard yielding(yielding_);
    view_.ShowAttempt(failures);
}

void UnitLink::Report(std::string_view title, std::string_view text)
{
    const FlagGuard yielding(yielding_);
    view_.ShowError(title, text);
}

bool UnitLink::Ask(std::string_view title, std::string_view text)
{
    const FlagGuard yielding(yielding_);
    return view_.Ask(title, text);
}

// The connection

bool UnitLink::ConnectToUnit()
{
    if (unitOnline_ || InCall())
        return false;
    const FlagGuard connecting(connecting_);
    return OpenConnection();
}

bool UnitLink::OpenConnection()
{
    // Deliberate: an attempt that fails leaves this set; the next good connection clears it.
    settings_.Updating = true;
    SetPolling(false);
    SetConnectStatus(LinkState::OffLine);
    view_.EnableFrames(false);

    ShowProgress(messages::Connecting);
    view_.HideUnitVersion();
    if (!Answers(UnitOp::InitDLL))
        return false;
    ShowProgress(messages::ReadingVersion);
    if (!Answers(UnitOp::GetUnitVersion))
        return false;
    if (!AcceptVersion())
        return false;

    connectionAccepted_ = true;
    view_.EnableFrames(true);
    holds_ = UnitHolds{.Pink = holds_.Pink, .Inverted = holds_.Inverted, .RT60 = holds_.RT60};
    ShowSettings();
    view_.LoadChannelData();
    view_.ShowF1Format();
    RetryFunction(UnitOp::StopStream);

    settings_.Updating = false;
    if (unitOnline_)
        view_.ShowSettingsFromUnit();
    SetPolling(true);
    return true;
}

bool UnitLink::Answers(UnitOp op)
{
    const Status status = RetryFunction(op);
    if (status == StreamNotLocked) {
        // Six times this while opening is no connection, but it was not reported and the link stayed open.
        Report(messages::ConnectionErrorTitle, messages::UnableToConnect);
        DispErr(Success);
    }
    return status == Success;
}

bool UnitLink::AcceptVersion()
{
    view_.ShowUnitVersion(VersionCaptions(version_));
    if (!OutOfDate(version_))
        return true;
    Report(messages::OutOfDateTitle, messages::OutOfDate);
    DispErr(Success);
    return false;
}

// Upload and read-back

void UnitLink::UploadToUnit(UploadSelector selector, UploadTrigger trigger)
{
    if (MayUpload(trigger)) {
        const LocalTime now = ConsoleTime();
        StampUnitClock(settings_.Audio, now, IsPm(now));
        if (selector == UploadSelector::Both || selector == UploadSelector::SystemOnly)
            RetryFunction(UnitOp::SetSystem);
        if (selector == UploadSelector::Both || selector == UploadSelector::AudioOnly)
            RetryFunction(UnitOp::SetAudio);
        view_.ShowDate();
    }
    view_.ShowSent();
}

bool UnitLink::MayUpload(UploadTrigger trigger)
{
    if (!unitOnline_ || yielding_)
        return false;
    const Preferences &options = settings_.Options;
    switch (trigger) {
    case UploadTrigger::AfterEdit:
        return options.AutoUpload && !settings_.Updating;
    case UploadTrigger::Explicit:
        return !options.ConfirmUpload || options.AutoUpload ||
               Ask(messages::ConfirmUploadTitle, messages::ConfirmUpload);
    case UploadTrigger::Unasked:
        return true;
    }
    return true;
}

void UnitLink::ShowSettings()
{
    for (const UnitOp read :
         {UnitOp::GetAudio, UnitOp::GetSystem, UnitOp::GetMute, UnitOp::GetVol, UnitOp::GetFormat})
        RetryFunction(read);
    // After a lost link this still brings the controls into line with what was read before.
    const FlagGuard fromUnit(settings_.Updating);
    view_.ReflectMuteStatus();
    view_.ReflectModeStatus();
    view_.ReflectVolumeLevel(true);
    ApplyUnitSystemSettings();
    ApplyUnitAudioSettings();
    view_.ShowSent();
}

void UnitLink::ApplyUnitSystemSettings()
{
    view_.ShowSystemSettings();
}

void UnitLink::ApplyUnitAudioSettings()
{
    TakeObeFromAudio(settings_);
    view_.ShowAudioSettings();
}

void UnitLink::Update()
{
    if (InCall() || !unitOnline_)
        return;
    ShowSettings();
    view_.LoadChannelData();
    if (unitOnline_)
        view_.ShowSettingsFromUnit();
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
    const FlagGuard polling(pollActive_);
    RetryFunction(UnitOp::GetFormat);
    RetryFunction(UnitOp::GetMute);
    RetryFunction(UnitOp::GetVol);
}

void UnitLink::RefreshTick(bool mayRead)
{
    if (InCall() || !unitOnline_ || settings_.Options.AutoRefresh != 1)
        return;
    ++refreshCounter_;
    if (mayRead && refreshCounter_ >= settings_.Options.RefreshSeconds) {
        Update();
        refreshCounter_ = 0;
    }
}

// Optical reads and test signals

template <class Read>
Status UnitLink::ReadStream(Read read)
{
    if (InCall() || !unitOnline_)
        return StreamNotLocked;
    const Status status = read();
    if (status != Success)
        DispErr(status);
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

void UnitLink::SwitchOffTestSignals()
{
    for (Word channel = 0; channel < ChannelCount; ++channel) {
        if (holds_.Pink[channel])
            RetryFunction(UnitOp::SetPink, channel, False);
    }
    for (Word channel = 0; channel < ChannelCount; ++channel) {
        if (holds_.Inverted[channel])
            RetryFunction(UnitOp::SetPhase, channel, False);
    }
    if (holds_.RT60)
        RetryFunction(UnitOp::SetRT60, 0, False);
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
