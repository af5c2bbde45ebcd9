#pragma once

#include "edit/history.h"

#include <QString>

#include <map>
#include <vector>

namespace kelvo {

/// The fields that differ but for live values, which no step holds.
FieldSet Differing(const RoomSettings &one, const RoomSettings &other);

/// Follows the history by what the room shows: each step's values before and after it are those that were
/// seen, so that undo and redo are held to the rooms that really were, however they come about.
class Trail {
  public:
    /// What may happen between two looks beside edits and moves in the history.
    struct Between {
        bool file = false;                  ///< the room became another file's, or got its first name
        bool connected = false;             ///< a first connection replaces settings that nobody has set
        const RoomSettings *read = nullptr; ///< the unit was read again: the room as it should be then
    };

    /// A console has started.
    void Begin(const RoomSettings &room);
    /// What is wrong with the room after what was done since the last look; "" = nothing.
    QString Look(const RoomSettings &room, const History &history, const Between &between);
    /// There was a step in this run; nobody can tell when it came and went between two looks.
    bool Touched() const { return touched_; }
    std::size_t Newest() const { return newest_; } ///< the number of the newest step
    /// The room at the start of its history, while that is what undoing everything gives: a re-read that
    /// found other values moves it.
    const RoomSettings *Start() const { return startHolds_ ? &start_ : nullptr; }

  private:
    /// A step as it was seen; of several steps between two looks not all values were.
    struct Seen {
        FieldSet fields;
        RoomSettings before, after;
        FieldSet knownBefore, knownAfter;
    };

    void Pass(std::size_t number, bool back);
    void MoveFrom(std::size_t number, std::size_t to);
    void AddNew(const RoomSettings &room, const History &history, std::size_t first);
    void Restart(const RoomSettings &room);
    bool Follows(const History &history) const;
    void TakeFirstConnection(const RoomSettings &room);
    void LoseSteps(const RoomSettings &room, const History &history);

    std::map<std::size_t, Seen> steps_;
    std::vector<std::size_t> order_; ///< of the steps at the last look
    std::size_t done_ = 0;
    std::size_t newest_ = 0;
    RoomSettings room_; ///< as it should be
    FieldSet unsure_;   ///< of it, what was never seen
    RoomSettings start_;
    bool startHolds_ = true;
    bool touched_ = false;
};

} // namespace kelvo
