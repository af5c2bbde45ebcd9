#pragma once

#include "model/changed.h"
#include "model/filestate.h"
#include "unit/unitlink.h"

#include <functional>
#include <string>
#include <vector>

namespace kelvo {

/// One gesture of the user: a drag, a held key, a typed value, a click, a paste, a reset.
struct Edit {
    struct Change {
        FieldId field;
        int stored;
    };

    std::string name;            ///< where and what: "Center, 1 kHz: -1.5 dB"
    std::vector<FieldId> fields; ///< what it sets, to the same values as before perhaps
    std::function<void(RoomSettings &)> make;

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
class Editor {
  public:
    /// `show` brings every place that shows settings into line.
    Editor(RoomSettings &room, FileState &file, UnitLink &link, std::function<void(const Changed &)> show);

    /// The model first, then every place that shows it, then the unit; a live value is no change that a file
    /// misses. While the program itself sets controls nothing but a live value is taken.
    void Apply(const Edit &edit, Send send = Send::AfterEdit);

    /// Takes settings that were read or reset: they are shown and never sent.
    void Adopt(RoomSettings room, Source source);

    const RoomSettings &Room() const { return room_; }

  private:
    void SendAfterEdit(const Changed &changed, bool moved);

    RoomSettings &room_;
    FileState &file_;
    UnitLink &link_;
    std::function<void(const Changed &)> show_;
};

} // namespace kelvo
