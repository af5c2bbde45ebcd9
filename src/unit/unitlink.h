#pragma once

#include "model/preferences.h"
#include "unit/devicelibrary.h"
#include "unit/linkview.h"
#include "unit/unitholds.h"
#include "unit/uploadgates.h"
#include "unit/wallclock.h"

#include <optional>
#include <string_view>

namespace kelvo {

/// The operations that go through `RetryFunction`.
enum class UnitOp {
    GetFormat,
    GetVol,
    GetMute,
    SelectFormat,
    SetVol,
    SetMute,
    SetPink,
    SetPhase,
    GetUnitVersion,
    InitDLL,
    GetAudio,
    GetSystem,
    SetAudio,
    SetSystem,
    SetProjector,
    BeginGainStream,
    BeginSlitStream,
    BeginAzimuthStream,
    StopStream,
    EnableOBE,
    SetRT60,
    DLLShutdown,
    SetDLLBaud,
};

enum class UploadSelector { Both, SystemOnly, AudioOnly };

/// The one door to the unit: every operation with its retries and its error report, the connection,
/// upload, read-back and polling. Knows no window; what it has to show goes to its `LinkView`.
class UnitLink {
  public:
    UnitLink(RoomSettings &room, const Preferences &options, DeviceLibrary &library, LinkView &view,
             WallClock &clock);

    /// The program itself is setting controls: their change handlers neither write the model nor send.
    /// Raised through a `FlagGuard` wherever the raise ends with its scope.
    bool Updating = false;

    bool UnitOnline() const { return unitOnline_; }
    bool UnitBusy() const { return unitBusy_; } ///< a call that is not a status poll is in progress
    bool PollActive() const { return pollActive_; }
    bool ConnectionAccepted() const { return connectionAccepted_; }
    /// A call, its report or its question is on the stack: nothing else may touch the unit.
    bool InCall() const { return unitBusy_ || pollActive_ || connecting_ || yielding_; }
    bool Connecting() const { return connecting_; }

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

    /// `moved`: of an edit, the gate of the slider that made it.
    void UploadToUnit(UploadSelector selector, UploadTrigger trigger, bool moved = true);
    /// Reads both records, mute, fader and format, and shows them. False when a record could not be read:
    /// both then stay as they were, here and in what the unit is known to hold.
    bool ShowSettings(Source source);
    /// The "Update" command.
    void Update();

    /// Ticks of `tmrPoll` and `tmrRefresh`; the caller keeps them away while a box is open.
    void PollTick();
    /// `mayRead` false: the second counts, and the re-read waits for a later tick.
    void RefreshTick(bool mayRead);
    int RefreshCounter() const { return refreshCounter_; }

    /// One direct optical read of the running stream, without retries; a failure goes to `DispErr`.
    /// Off line or inside another call nothing is called and the answer is `StreamNotLocked`.
    Status ReadGain(std::span<Byte, GainBytes> reading);
    Status ReadSlitLoss(std::span<Byte, SlitLossBytes> sample, Word &side);
    Status ReadAzimuth(std::span<Byte, AzimuthBytes> frame);

    /// While it is set, SelectFormat sends this format and what the operator chose waits.
    void ForceFormat(Word format) { forcedFormat_ = format; }
    /// The operator's counts again, once it is sent.
    void ReleaseFormat();

    /// Sets the clock that uploads stamp to a time, running on from there; empty = the PC's own.
    void SetConsoleClock(std::optional<LocalTime> time);
    LocalTime ConsoleTime();

    const UnitHolds &Holds() const { return holds_; }
    /// How many settings the unit does not hold; empty until it was read.
    std::optional<int> Differences() const;

    /// One change, whatever calls it makes: `lblSent` follows once, at its end.
    class OneChange {
      public:
        explicit OneChange(UnitLink &link) : link_(link) { ++link_.changes_; }
        ~OneChange();
        OneChange(const OneChange &) = delete;
        OneChange &operator=(const OneChange &) = delete;

      private:
        UnitLink &link_;
    };

  private:
    Status CallUpToSixTimes(UnitOp op, Word first, Word second);
    Status CallLibrary(UnitOp op, Word first, Word second);
    Status SendFormat();
    Status SendMute();
    Status ReadLive(Status (DeviceLibrary::*get)(Word &), FieldId live);
    template <class Block>
    Status ReadRecord(Status (DeviceLibrary::*get)(Block &), Block &block, Place record);
    template <class Read>
    Status ReadStream(Read read);

    bool OpenConnection();
    bool Answers(UnitOp op);
    void Refuse(std::string_view title, std::string_view text);
    bool AcceptVersion();
    bool ReadRecords();
    void ReturnToOperatorsFormat();
    bool MayUpload(UploadTrigger trigger, bool moved);
    bool IsPm(LocalTime time);

    void ShowProgress(std::string_view caption, int failures);
    bool ShowBox(LinkBox kind, std::string_view title, std::string_view text);
    void Show(const Changed &changed);

    /// A stream has ended and the operator's format is not sent yet: its link may have gone.
    struct LostStream {
        Word format;          ///< the unit is still in it, unless somebody changed it at its panel
        Word operatorsFormat; ///< what is to be selected
    };

    RoomSettings &room_;
    const Preferences &options_;
    DeviceLibrary &library_;
    LinkView &view_;
    WallClock &clock_;
    UnitVersion version_;
    UnitHolds holds_;
    std::optional<Word> forcedFormat_;
    std::optional<LostStream> lostStream_;
    std::optional<std::chrono::seconds> clockOffset_; ///< of a clock that the user set; empty = the PC's
    std::string_view progress_;                       ///< the step of the connection attempt
    int refreshCounter_ = 0;
    int changes_ = 0; ///< how many `OneChange` are open
    LinkState lamp_ = LinkState::OffLine;
    bool unitOnline_ = false;
    bool unitBusy_ = false;
    bool pollActive_ = false;
    bool connectionAccepted_ = false;
    bool connecting_ = false;
    bool polling_ = false;
    bool yielding_ = false; ///< the view may be running the event loop inside this object's call
};

} // namespace kelvo
