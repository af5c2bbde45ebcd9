#include "unit/unitlink.h"

#include "model/flagguard.h"
#include "unit/messages.h"
#include "unit/onechange.h"
#include "unit/unitclock.h"
#include "unit/versions.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace kelvo {

namespace {

// In the order in which the unit is read.
constexpr std::array RecordReads{UnitOp::GetAudio, UnitOp::GetSystem};
constexpr std::array LiveReads{UnitOp::GetMute, UnitOp::GetVol, UnitOp::GetFormat};

} // namespace

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
    holds_ = holds_.Anew();
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
    const LocalTime now = clock_.Now();
    StampUnitClock(room_.Audio, now, clock_.IsPm(now));
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
    const RoomSettings screen = room_;
    const RoomSettings agreed = holds_.Agreed;
    const bool read = ReadRecords();
    // What nobody asked for takes nothing away.
    if (read && source == Source::Reread)
        KeepUnsent(screen, agreed, room_);
    if (read && source == Source::Connection)
        holds_.Other = holds_.DiffersFromBefore(screen);
    for (const UnitOp live : LiveReads)
        RetryFunction(live);
    if (read)
        Show(Changed::Unit(source));
    return read;
}

/// Makes the reads in their order and answers those that brought nothing.
std::vector<UnitOp> UnitLink::Unread(std::span<const UnitOp> reads)
{
    std::vector<UnitOp> unread;
    for (const UnitOp read : reads) {
        const bool called = unitOnline_ && !yielding_;
        if (RetryFunction(read) != Success || !called)
            unread.push_back(read);
    }
    return unread;
}

/// Both or none: half a unit's settings beside half a screen's are nobody's. Until both are here the room
/// stays as it is, and takes what is half typed when the link goes meanwhile.
bool UnitLink::ReadRecords()
{
    pending_ = room_;
    const bool read = Unread(RecordReads).empty();
    const RoomSettings records = *std::exchange(pending_, std::nullopt);
    if (!read)
        return false;
    room_.Audio = records.Audio;
    room_.System = records.System;
    holds_.TakeRecord(Place::Audio, room_);
    holds_.TakeRecord(Place::System, room_);
    return true;
}

std::vector<UnitOp> UnitLink::ReadApart()
{
    std::vector<UnitOp> unread(RecordReads.begin(), RecordReads.end());
    unread.insert(unread.end(), LiveReads.begin(), LiveReads.end());
    if (InCall() || !unitOnline_ || forcedFormat_)
        return unread;
    const OneChange change(*this);
    pending_ = room_;
    unread = Unread(RecordReads);
    const bool records = unread.empty();
    std::ranges::copy(Unread(LiveReads), std::back_inserter(unread));
    const RoomSettings read = *std::exchange(pending_, std::nullopt);
    if (records) {
        holds_.Learn(Place::Audio, read);
        holds_.Learn(Place::System, read);
    }
    return unread;
}

void UnitLink::Update(Source source)
{
    if (!InCall() && unitOnline_)
        ShowSettings(source);
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
        Update(Source::Reread);
        refreshCounter_ = 0;
    }
}

} // namespace kelvo
