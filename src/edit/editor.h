#pragma once

#include "edit/history.h"
#include "edit/journal.h"
#include "edit/slots.h"
#include "model/changed.h"
#include "model/filestate.h"
#include "unit/unitlink.h"

#include <functional>
#include <string>
#include <vector>

namespace kelvo {

/// One gesture of the user: a drag, a held key, a typed value, a click, a paste, a reset, a recall.
struct Edit {
    struct Change {
        FieldId field;
        int stored;
    };

    std::string name;            ///< where and what: "Center, 1 kHz: -1.5 dB"
    std::vector<FieldId> fields; ///< what it sets, to the same values as before perhaps
    std::function<void(RoomSettings &)> make;
    std::optional<FileState> file{}; ///< the room belongs to this file afterwards; empty = to the same one
    bool read = false;               ///< it brings another room's values

    static Edit Of(std::string name, std::vector<Change> changes);
    /// One field set to a number.
    static Edit One(FieldId field, int stored);
};

/// The mute turned over.
Edit ToggleMute(const RoomSettings &room);

/// When the unit hears of an edit.
enum class Send {
    AfterEdit, ///< now, by the gates of an upload; live values always
    Later,     ///< with a later send: the slider is still held, or stands where it had the focus
};

/// The one door of a change: nothing else of the windows writes settings, marks them changed or sends them.
/// What was changed is a step that can be taken back.
class Editor {
  public:
    /// `show` brings every place that shows settings into line.
    Editor(RoomSettings &room, FileState &file, UnitLink &link, WallClock &clock, Journal &journal,
           std::function<void(const Changed &)> show);

    /// The model first, then its step, then every place that shows it, then the unit; a live value is no step
    /// and no change that a file misses. While the program itself sets controls no setting is taken from
    /// them.
    void Apply(const Edit &edit, Send send = Send::AfterEdit);
    /// The same for a command, which no control's own movement can be mistaken for: it is always taken.
    void Command(const Edit &edit);

    /// Takes settings that were read or reset: they are shown and never sent. A file or a reset ends the
    /// history, and steps that nobody was asked about are left behind; what a revert replaces is a step.
    void Adopt(RoomSettings room, Source source);
    /// The link has taken values from the unit into the room. What a connection or an update replaced is a
    /// step; there is none of a run's first connection, which finds nothing to replace but what was brought
    /// back or recalled.
    void Follow(const Changed &changed);

    /// To the state after the first `done` steps, as one edit.
    void MoveTo(std::size_t done);
    void Undo();
    void Redo();
    /// The room is in the file of this name from now on. No step leads from one file's room into another's.
    void Saved(const std::string &fileName);
    const History &Steps() const { return history_; }

    void KeepSlot(int slot);
    void Recall(int slot);
    const Slots &Kept() const { return slots_; }

    /// Takes settings, texts and file of a run that did not come to its end, as one step called `name`; its
    /// slots come back with it.
    void BringBack(const LeftBehind &left, std::string name);

    const RoomSettings &Room() const { return room_; }

  private:
    void Carry(const Edit &edit, bool moved);
    void ShowAndSend(const std::vector<FieldId> &fields, bool moved);
    void SendAfterEdit(const Changed &changed, bool moved);
    void AddStep(Step step, const FileState &fileBefore);
    void AddRead(const FileState &fileBefore);
    void EndHistory();
    void LeaveHistory();
    Journal::State Now();

    RoomSettings &room_;
    FileState &file_;
    UnitLink &link_;
    WallClock &clock_;
    Journal &journal_;
    std::function<void(const Changed &)> show_;
    History history_;
    Slots slots_;
    RoomSettings seen_; ///< the room at the last look: what a read replaces
    bool unitSeen_ = false;
};

} // namespace kelvo
