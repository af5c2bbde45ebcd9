#pragma once

#include "edit/slots.h"
#include "files/appendfile.h"
#include "model/filestate.h"
#include "unit/wallclock.h"

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace kelvo {

/// The steps of a run on disk, each appended before it is shown, so that a console that is killed loses none,
/// and flushed after it is sent, so that the unit does not wait for the disk. One file a run, made with the
/// first step. docs/journal.md gives its form.
class Journal {
  public:
    /// What is kept with a step.
    struct State {
        const RoomSettings &room;
        const FileState &file;
        const Slots &slotsKept;
        std::size_t done; ///< steps in effect
        LocalTime time;
    };

    /// `folder` is UTF-8 and made when it is missing; "" = nothing is kept. `report` is told, once, why the
    /// journal cannot be written; every later step tries again.
    Journal(std::string folder, std::function<void(const std::string &reason)> report)
        : Journal(std::move(folder), std::move(report), system_)
    {
    }
    Journal(std::string folder, std::function<void(const std::string &reason)> report,
            const FileCalls &calls);

    /// The room has made a step, or gone back one.
    void Keep(const State &state);
    void KeepSlot(int slot, const State &state);
    /// Whatever was kept is on the disk when this returns.
    void Flush();
    /// There are no steps any more; slots stay.
    void End();
    /// What it keeps is left behind for `FindJournals`; the next step begins another one.
    void Leave();
    /// The run is over: the file goes, or is left behind. Whatever comes is not kept.
    void Close(bool remove);

  private:
    bool Begin(LocalTime time);
    void Append(const std::string &lines);
    void TellOnce(std::error_code error);

    FileCalls system_;
    std::string folder_;
    std::function<void(const std::string &)> report_;
    const FileCalls &calls_;
    AppendFile file_;
    std::string path_;
    std::optional<RoomSettings> kept_; ///< the room as the file tells it; empty = it is told whole next time
    bool cut_ = false;                 ///< the last line may be half a line
    bool flushed_ = true;
    bool told_ = false;
};

/// What a run left that did not come to its end.
struct LeftBehind {
    std::string path;
    RoomSettings room{};   ///< settings and texts; no live values
    std::string fileName;  ///< of the file that it belongs to; "" = none
    bool unitRead = false; ///< see `FileState::UnitRead`
    std::size_t done = 0;  ///< steps that were in effect
    LocalTime time{};      ///< of the last one, or of the last slot that was kept
    Slots slotsKept{};
    bool hasSlots = false;
};

/// What a journal's bytes tell, as far as they are undamaged; empty when that is nothing, or the journal is
/// of another version.
std::optional<LeftBehind> ReadJournal(std::string_view bytes);

/// The journals in a folder that no running console owns and that have something to bring back, newest first.
/// Those that have not, and those older than 30 days, are removed.
std::vector<LeftBehind> FindJournals(const std::string &folder);

/// What was left behind, in the hand of this process until it ends.
class HeldJournal {
  public:
    explicit HeldJournal(LeftBehind left);
    const LeftBehind &Left() const { return left_; }
    void Remove();

  private:
    struct Hand {
        FileCalls calls{};
        OpenFile file{calls};
    };

    LeftBehind left_;
    std::unique_ptr<Hand> hand_ = std::make_unique<Hand>();
};

} // namespace kelvo
