#include "edit/editor.h"

#include "model/flagguard.h"
#include "unit/onechange.h"

#include <algorithm>
#include <array>
#include <utility>

namespace kelvo {

namespace {

bool Touches(const Changed &changed, Place place)
{
    bool touches = false;
    ForEachField([&](FieldId id, const Field &field) {
        touches = touches || (field.place == place && changed.Has(id));
    });
    return touches;
}

/// Live values are no settings, and a text is a change only when it differs.
bool OfARecord(FieldId field)
{
    const Place place = FieldOf(field).place;
    return place == Place::Audio || place == Place::System;
}

/// "12 settings", or what no control shows when that is all.
std::string CountText(const Step &step)
{
    const int settings = step.CountSettings();
    const int count = settings > 0 ? settings : int(step.values.size());
    return std::to_string(count) + (settings > 0 ? " setting" : " other byte") + (count == 1 ? "" : "s");
}

constexpr std::array<std::pair<FieldId, UnitOp>, 3> LiveSends{
    {{field::Fader, UnitOp::SetVol}, {field::Mute, UnitOp::SetMute}, {field::Format, UnitOp::SelectFormat}}};

} // namespace

Edit Edit::Of(std::string name, std::vector<Change> changes)
{
    std::vector<FieldId> fields;
    fields.reserve(changes.size());
    for (const Change &change : changes)
        fields.push_back(change.field);
    return {std::move(name), std::move(fields), [changes = std::move(changes)](RoomSettings &room) {
                for (const auto &[field, stored] : changes)
                    Set(room, field, stored);
            }};
}

Edit Edit::One(FieldId field, int stored)
{
    return Of(Name(field) + ": " + TextOf(field, stored), {{field, stored}});
}

Edit ToggleMute(const RoomSettings &room)
{
    return Edit::One(field::Mute, room.MuteState == False ? True : False);
}

Editor::Editor(RoomSettings &room, FileState &file, UnitLink &link, WallClock &clock, Journal &journal,
               std::function<void(const Changed &)> show)
    : room_(room),
      file_(file),
      link_(link),
      clock_(clock),
      journal_(journal),
      show_(std::move(show)),
      seen_(room)
{
}

// Edits

void Editor::Apply(const Edit &edit, Send send)
{
    if (!link_.Updating || std::ranges::none_of(edit.fields, OfARecord))
        Carry(edit, send == Send::AfterEdit);
}

void Editor::Command(const Edit &edit)
{
    Carry(edit, true);
}

void Editor::Carry(const Edit &edit, bool moved)
{
    const OneChange change(link_);
    const RoomSettings before = room_;
    const FileState fileBefore = file_;
    edit.make(room_);
    file_ = edit.file.value_or(file_);
    file_.SettingsChanged = file_.SettingsChanged || std::ranges::any_of(edit.fields, OfARecord) ||
                            before.TheaterInfo != room_.TheaterInfo;
    Step step = Between(before, room_);
    step.name = edit.name;
    step.read = edit.read;
    AddStep(std::move(step), fileBefore);
    ShowAndSend(edit.fields, moved);
}

void Editor::ShowAndSend(const std::vector<FieldId> &fields, bool moved)
{
    Changed changed{Source::Edit};
    for (const FieldId field : fields)
        changed.fields.set(std::size_t(field));
    show_(changed);
    SendAfterEdit(changed, moved);
    journal_.Flush();
}

void Editor::SendAfterEdit(const Changed &changed, bool moved)
{
    if (moved)
        for (const auto &[live, op] : LiveSends)
            if (changed.Has(live))
                link_.RetryFunction(op);
    const bool system = Touches(changed, Place::System);
    const bool audio = Touches(changed, Place::Audio);
    if (system || audio)
        link_.UploadToUnit(system && audio ? UploadSelector::Both
                           : system        ? UploadSelector::SystemOnly
                                           : UploadSelector::AudioOnly,
                           UploadTrigger::AfterEdit, moved);
}

// What is read

void Editor::Adopt(RoomSettings room, Source source)
{
    const OneChange change(link_);
    const FlagGuard adopting(link_.Updating);
    room_ = std::move(room);
    if (source == Source::Revert)
        AddRead(file_);
    else if (source == Source::File && file_.SettingsChanged && !file_.FileLoaded)
        LeaveHistory();
    else
        EndHistory();
    seen_ = room_;
    show_(Changed::Everything(source));
}

void Editor::Follow(const Changed &changed)
{
    const bool connection = changed.source == Source::Connection;
    // A first connection finds the factory defaults, unless settings were brought back or recalled before it.
    const auto setSomething = [](const Step &step) { return !step.values.empty(); };
    const bool replaces = unitSeen_ || std::ranges::any_of(history_.Steps(), setSomething);
    unitSeen_ = unitSeen_ || connection;
    const bool asked = connection || changed.source == Source::Update;
    if (!asked && changed.source != Source::Reread)
        return; // no setting came with it, and those that a read has just brought are still to be told
    const FileState fileBefore = file_;
    file_.UnitRead = file_.UnitRead || asked;
    if (asked && (replaces || !connection))
        AddRead(fileBefore);
    else if (history_.DoneInAll() > 0 && !Between(seen_, room_).Empty())
        journal_.Keep(Now()); // no step, but what the steps' room shows
    seen_ = room_;
    journal_.Flush();
}

// Steps

Journal::State Editor::Now()
{
    return {room_, file_, slots_, history_.DoneInAll(), clock_.Now()};
}

void Editor::AddStep(Step step, const FileState &fileBefore)
{
    seen_ = room_;
    const bool otherFile = file_.CurrentFileName != fileBefore.CurrentFileName;
    if (step.Empty() && !otherFile)
        return;
    if (otherFile || file_.UnitRead != fileBefore.UnitRead || file_.MaySave != fileBefore.MaySave)
        step.file = {fileBefore, file_};
    step.time = clock_.Now();
    history_.Add(std::move(step));
    journal_.Keep(Now());
}

void Editor::AddRead(const FileState &fileBefore)
{
    Step step = Between(seen_, room_);
    step.name = "Read from the unit (" + CountText(step) + ")";
    step.read = true;
    AddStep(std::move(step), fileBefore);
}

void Editor::MoveTo(std::size_t done)
{
    if (done > history_.Steps().size() || done == history_.Done())
        return;
    const OneChange change(link_);
    const RoomSettings before = room_;
    const auto pass = [&](const Step &step, bool back) {
        (back ? TakeBack : TakeAgain)(step, room_);
        if (step.file)
            file_ = back ? step.file->first : step.file->second;
    };
    for (std::size_t at = history_.Done(); at > done; --at)
        pass(history_.Steps()[at - 1], true);
    for (std::size_t at = history_.Done(); at < done; ++at)
        pass(history_.Steps()[at], false);
    history_.MoveTo(done);
    file_.SettingsChanged = true;
    seen_ = room_;
    journal_.Keep(Now());
    ShowAndSend(Between(before, room_).Fields(), true);
}

void Editor::Undo()
{
    if (history_.Last())
        MoveTo(history_.Done() - 1);
}

void Editor::Redo()
{
    if (history_.Next())
        MoveTo(history_.Done() + 1);
}

void Editor::EndHistory()
{
    history_.End();
    journal_.End();
    journal_.Flush();
}

/// The room that gives way was never saved, and nobody was asked: it can be brought back from where it is
/// left.
void Editor::LeaveHistory()
{
    history_.End();
    journal_.Leave();
    for (int slot = 0; slot < SlotCount; ++slot)
        if (slots_.Kept(slot))
            journal_.KeepSlot(slot, Now()); // they stay in this run
    journal_.Flush();
}

void Editor::Saved(const std::string &fileName)
{
    const OneChange change(link_);
    if (file_.CurrentFileName.empty() || !file_.MaySave)
        history_.ForgetReads();
    else if (file_.CurrentFileName != fileName)
        EndHistory();
    file_.CurrentFileName = fileName;
    file_.SettingsChanged = false;
    file_.UnitRead = false;
    file_.MaySave = true;
    if (history_.DoneInAll() > 0)
        journal_.Keep(Now());
    journal_.Flush();
}

// Slots

void Editor::KeepSlot(int slot)
{
    const OneChange change(link_);
    slots_.Keep(slot, room_);
    journal_.KeepSlot(slot, Now());
    journal_.Flush();
}

void Editor::Recall(int slot)
{
    const RoomSettings *kept = slots_.Kept(slot);
    if (!kept)
        return;
    std::vector<Edit::Change> changes;
    for (const FieldId field : slots_.Changes(slot, room_))
        changes.push_back({field, Get(*kept, field)});
    if (!changes.empty())
        Command(Edit::Of(std::string("Recall ") + Slots::NameOf(slot), std::move(changes)));
}

void Editor::BringBack(const LeftBehind &left, std::string name)
{
    const OneChange change(link_);
    for (int slot = 0; slot < SlotCount; ++slot)
        if (const RoomSettings *kept = left.slotsKept.Kept(slot)) {
            slots_.Keep(slot, *kept);
            journal_.KeepSlot(slot, Now());
        }
    journal_.Flush();
    if (left.done == 0)
        return;
    const Step step = Between(room_, left.room);
    Edit edit{.name = std::move(name),
              .fields = step.Fields(),
              .make = [&step](RoomSettings &room) { TakeAgain(step, room); },
              .read = true};
    edit.file = {.CurrentFileName = left.fileName,
                 .FileLoaded = !left.fileName.empty(),
                 .SettingsChanged = true,
                 .UnitRead = left.unitRead};
    Command(edit);
}

} // namespace kelvo
