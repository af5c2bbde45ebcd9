#pragma once

#include "model/fields.h"
#include "model/filestate.h"
#include "unit/wallclock.h"

#include <cstddef>
#include <deque>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace kelvo {

/// What one gesture made of the room: each setting and text that it changed, as it was before and after. Live
/// values, reserved bytes and the unit's clock are no part of it.
struct Step {
    struct Value {
        FieldId field;
        int before, after; ///< stored numbers
    };
    struct Text {
        int index; ///< of `TheaterTexts`
        std::string before, after;
    };

    std::string name; ///< "Center, 1 kHz: -1.5 dB"
    LocalTime time{};
    std::size_t number = 0; ///< no other step of the run has it
    std::vector<Value> values{};
    std::vector<Text> texts{};
    bool read = false; ///< values of a unit or of another run took the place of these
    std::optional<std::pair<FileState, FileState>> file{}; ///< before and after, when the step changes that

    bool Empty() const { return values.empty() && texts.empty(); }
    std::vector<FieldId> Fields() const;
    /// Bytes that no control shows are no settings.
    int CountSettings() const;
};

/// The step that leads from one room to the other; without name and time.
Step Between(const RoomSettings &before, const RoomSettings &after);

void TakeBack(const Step &step, RoomSettings &room);
void TakeAgain(const Step &step, RoomSettings &room);

/// The steps of this room, undone ones included until the next step takes their place. The oldest go when
/// there are more than `Most`.
class History {
  public:
    static constexpr std::size_t Most = 10'000;

    void Add(Step step);
    void End();
    /// What stood on the screen before something was read may be another room's: it cannot be gone back to.
    void ForgetReads();

    /// Oldest first.
    const std::deque<Step> &Steps() const { return steps_; }
    /// How many of `Steps` are in effect: the first ones.
    std::size_t Done() const { return done_; }
    /// The same since the room began, steps that went included.
    std::size_t DoneInAll() const { return gone_ + done_; }
    /// What undo takes back and redo takes again, or null.
    const Step *Last() const { return done_ > 0 ? &steps_[done_ - 1] : nullptr; }
    const Step *Next() const { return done_ < steps_.size() ? &steps_[done_] : nullptr; }
    /// Whoever moves on makes the room follow.
    void MoveTo(std::size_t done) { done_ = done; }

  private:
    std::deque<Step> steps_;
    std::size_t done_ = 0;
    std::size_t gone_ = 0;
    std::size_t numbers_ = 0; ///< given out
};

} // namespace kelvo
