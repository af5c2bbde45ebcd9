#pragma once

#include "edit/editor.h"
#include "support/recordingview.h"
#include "support/testclock.h"
#include "ui/controls/entrywindow.h"
#include "unit/simulatedunit.h"

#include <QStringList>

namespace kelvo {

/// A unit that writes down when the audio settings are sent.
class ListeningUnit : public SimulatedUnit {
  public:
    explicit ListeningUnit(QStringList &events) : events_(events) {}

  protected:
    Status Perform(const Call &call) override
    {
        if (call.operation == Operation::SetAudio)
            events_ << "send";
        return SimulatedUnit::Perform(call);
    }

  private:
    QStringList &events_;
};

/// A room, its editor and a connected unit, which outlive the controls over them, for controls without the
/// main window. Edits are written down as "bass=7", uploads as "send".
struct EditedRoom {
    QStringList events;
    EntryWindow entries;
    std::function<void(const Changed &)> show = [](const Changed &) {};

    RoomSettings room;
    Preferences options{.AutoUpload = true};
    FileState file;
    ListeningUnit unit{events};
    Trace trace;
    RecordingView view{trace};
    TestClock clock{trace};
    UnitLink link{room, options, unit, view, clock};
    Journal journal{{}, [](const std::string &) {}};
    Editor editor{room, file, link, clock, journal, [this](const Changed &changed) {
                      if (!changed.Adopted())
                          WriteDown(changed);
                      show(changed);
                  }};

    EditedRoom()
    {
        view.link = &link;
        link.ConnectToUnit();
        ResetAll(room);
    }

  private:
    void WriteDown(const Changed &changed)
    {
        ForEachField([&](FieldId id, const Field &field) {
            if (changed.Has(id))
                events << QString("%1=%2").arg(field.name ? field.name : "band").arg(Get(room, id));
        });
    }
};

} // namespace kelvo
