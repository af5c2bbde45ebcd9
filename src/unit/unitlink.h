#pragma once

#include "model/settings.h"
#include "unit/devicelibrary.h"
#include "unit/linkview.h"
#include "unit/unitholds.h"
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
enum class UploadTrigger { Explicit = -1, AfterEdit = 0, Unasked = 1 };

/// The one door to the unit: every operation with its retries and its error report, the connection,
/// upload, read-back and polling. Knows no window; what it has to show goes to its `LinkView`.
class UnitLink {
  public:
    UnitLink(Settings &settings, DeviceLibrary &library, LinkView &view, WallClock &clock);

    bool UnitOnline() const { return unitOnline_; }
    bool UnitBusy() const { return unitBusy_; } ///< a call that is not a status poll is in progress
    bool PollActive() const { return pollActive_; }
    bool ConnectionAccepted() const { return connectionAccepted_; }
    /// A call, its report or its question is on the stack: nothing else may touch the unit.
    bool InCall() const { return unitBusy_ || pollActive_ || connecting_ || yielding_; }
    bool Connecting() const { return connecting_; }

    /// Calls the library, up to six times with 300 ms between. Answers 0 for success and when off line
    /// (nothing is called then), else the sixth failure's status: the link is then closed, but for
    /// `StreamNotLocked`. The arguments count for SetPink, SetPhase, SetRT60 (second) and SetDLLBaud; every
    /// other value is read from the settings at each attempt.
    Status RetryFunction(UnitOp op, Word first = 0, Word second = 0);

    /// Reports a status and ends the connection; 768 only unlocks the stream, 0 is silent.
    void DispErr(Status code);
    void SetConnectStatus(LinkState state);
    /// The status poll; the view's timer follows.
    void SetPolling(bool on);
    bool Polling() const { return polling_; }
    /// Opens the library, checks the unit's versions, reads and shows the unit. True when accepted.
    bool ConnectToUnit();

    void UploadToUnit(UploadSelector selector, UploadTrigger trigger);
    /// Reads both records, mute, fader and format, and shows them.
    void ShowSettings();
    void ApplyUnitSystemSettings();
    void ApplyUnitAudioSettings();
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

    /// Switches off whatever the console left running: pink noise, inverted phases, RT60.
    void SwitchOffTestSignals();

    /// Sets the clock that uploads stamp to a time, running on from there; empty = the PC's own.
    void SetConsoleClock(std::optional<LocalTime> time);
    LocalTime ConsoleTime();

    const UnitHolds &Holds() const { return holds_; }
    /// `lblSent` follows an edit for which nothing is sent.
    void ShowSent() { view_.ShowSent(); }
    /// How many fields of the settings the unit does not hold; empty until it was read.
    std::optional<int> Differences() const { return CountDifferences(settings_, holds_); }

  private:
    Status CallUpToSixTimes(UnitOp op, Word first, Word second);
    Status CallLibrary(UnitOp op, Word first, Word second);
    Status SendMute();
    template <class Show>
    Status ReadWord(Status (DeviceLibrary::*get)(Word &), Word &value, std::optional<Word> &held, Show show);
    template <class Read>
    Status ReadStream(Read read);

    bool OpenConnection();
    bool Answers(UnitOp op);
    bool AcceptVersion();
    bool MayUpload(UploadTrigger trigger);
    bool IsPm(LocalTime time);

    void ShowProgress(std::string_view caption);
    void ShowAttempt(int failures);
    void Report(std::string_view title, std::string_view text);
    bool Ask(std::string_view title, std::string_view text);

    Settings &settings_;
    DeviceLibrary &library_;
    LinkView &view_;
    WallClock &clock_;
    UnitVersion version_;
    UnitHolds holds_;
    std::optional<std::chrono::seconds> clockOffset_; ///< of a clock that the user set; empty = the PC's
    int refreshCounter_ = 0;
    bool unitOnline_ = false;
    bool unitBusy_ = false;
    bool pollActive_ = false;
    bool connectionAccepted_ = false;
    bool connecting_ = false;
    bool polling_ = false;
    bool yielding_ = false; ///< the view may be running the event loop inside this object's call
};

} // namespace kelvo
