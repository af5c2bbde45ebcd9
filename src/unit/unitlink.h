#pragma once

#include "model/preferences.h"
#include "unit/devicelibrary.h"
#include "unit/linkview.h"
#include "unit/unitholds.h"
#include "unit/unitop.h"
#include "unit/uploadclock.h"
#include "unit/uploadgates.h"
#include "unit/wallclock.h"

#include <optional>
#include <string_view>
#include <vector>

namespace kelvo {

/// The one door to the unit: every operation with its retries and its error report, the connection,
/// upload, read-back and polling. Knows no window; what it has to show goes to its `LinkView`.
class UnitLink {
  public:
    UnitLink(RoomSettings &room, const Preferences &options, DeviceLibrary &library, LinkView &view,
             WallClock &clock);

    /// The program itself is setting controls: their handlers neither write the model nor send. See
    /// `FlagGuard`.
    bool Updating = false;

    bool UnitOnline() const { return unitOnline_; }
    /// A call, its report or its question is on the stack: nothing else may touch the unit.
    bool InCall() const { return unitBusy_ || pollActive_ || connecting_ || yielding_; }

    /// Calls the library, up to six times with 300 ms between. Answers 0 for success and when off line
    /// (nothing is called then), else the sixth failure's status: the link is then closed, but for
    /// `StreamNotLocked`. The arguments count for SetPink, SetPhase, SetRT60 (second), SetProjector and
    /// SetDLLBaud; every other value is read from the settings at each attempt.
    Status RetryFunction(UnitOp op, Word first = 0, Word second = 0);

    /// Reports a status and ends the connection; 768 only unlocks the stream, 0 is silent.
    void DispErr(Status code);
    void SetConnectStatus(LinkState state);
    /// The status poll; the view's timer follows.
    void SetPolling(bool on);
    bool Polling() const { return polling_; }
    /// Opens the library, checks the unit's versions, reads and shows the unit. True when accepted.
    bool ConnectToUnit();
    void Close() { unitOnline_ = false; } ///< the farewell is said: whatever comes is not called any more
    /// `moved`: of an edit, the gate of the slider that made it.
    void UploadToUnit(UploadSelector selector, UploadTrigger trigger, bool moved = true);
    /// Reads both records, mute, fader and format, and shows them. False when a record could not be read:
    /// both then stay as they were, here and in what the unit is known to hold.
    bool ShowSettings(Source source);
    void Update(Source source = Source::Update); ///< the "Update" command
    /// The same reads for a comparison: room and screen stay as they are, what the unit told is known to be
    /// held. Answers what could not be read; off line, in a call and during a stream nothing is called.
    std::vector<UnitOp> ReadApart();

    /// Ticks of `tmrPoll` and `tmrRefresh`; the caller keeps them away while a box is open.
    void PollTick();
    /// `mayRead` false: the second counts, and the re-read waits for a later tick.
    void RefreshTick(bool mayRead);

    /// One direct optical read of the running stream, without retries; a failure goes to `DispErr`.
    /// Off line or inside another call nothing is called and the answer is `StreamNotLocked`.
    Status ReadGain(std::span<Byte, GainBytes> reading);
    Status ReadSlitLoss(std::span<Byte, SlitLossBytes> sample, Word &side);
    Status ReadAzimuth(std::span<Byte, AzimuthBytes> frame);

    /// While it is set, SelectFormat sends this format and what the operator chose waits.
    void ForceFormat(Word format) { forcedFormat_ = format; }
    /// The operator's counts again, once it is sent.
    void ReleaseFormat();
    UploadClock &Clock() { return clock_; } ///< what uploads stamp
    const UnitHolds &Holds() const { return holds_; }
    /// What the unit is known not to hold, and how much that is: empty until it was read.
    FieldSet NotInUnit() const;
    std::optional<int> Differences() const;

    void BeginChange() { ++changes_; } ///< for `OneChange` and a fader that is held
    void EndChange();

  private:
    Status CallUpToSixTimes(UnitOp op, Word first, Word second);
    Status CallLibrary(UnitOp op, Word first, Word second);
    Status SendFormat();
    Status SendMute();
    Status ReadLive(Status (DeviceLibrary::*get)(Word &), FieldId live);
    Status ReadRecord(Place record);
    template <class Read>
    Status ReadStream(Read read);
    bool OpenConnection();
    bool Answers(UnitOp op);
    void Refuse(std::string_view title, std::string_view text);
    bool AcceptVersion();
    std::vector<UnitOp> Unread(std::span<const UnitOp> reads);
    bool ReadRecords();
    void ReturnToOperatorsFormat();
    bool MayUpload(UploadTrigger trigger, bool moved);
    void ShowProgress(std::string_view caption, int failures);
    bool ShowBox(LinkBox kind, std::string_view title, std::string_view text);
    void Show(const Changed &changed);

    RoomSettings &room_;
    const Preferences &options_;
    DeviceLibrary &library_;
    LinkView &view_;
    UploadClock clock_;
    UnitVersion version_;
    UnitHolds holds_;
    std::optional<RoomSettings> pending_; ///< takes what is read until all of it is there
    std::optional<Word> forcedFormat_;
    std::optional<LostStream> lostStream_;
    std::string_view progress_;            ///< the step of the connection attempt
    int refreshCounter_ = 0, changes_ = 0; ///< seconds; how many `OneChange` are open
    LinkState lamp_ = LinkState::OffLine;
    bool unitOnline_ = false, connectionAccepted_ = false, connecting_ = false, polling_ = false;
    bool pollActive_ = false, unitBusy_ = false; ///< in a call: of the status poll, any other
    bool yielding_ = false; ///< the view may be running the event loop inside this object's call
};

} // namespace kelvo
