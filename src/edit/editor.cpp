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
bool MakesAFileOlder(Place place)
{
    return place == Place::Audio || place == Place::System;
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

Editor::Editor(RoomSettings &room, FileState &file, UnitLink &link, std::function<void(const Changed &)> show)
    : room_(room),
      file_(file),
      link_(link),
      show_(std::move(show))
{
}

void Editor::Apply(const Edit &edit, Send send)
{
    const auto isLive = [](FieldId field) { return FieldOf(field).place == Place::Live; };
    if (link_.Updating && !std::ranges::all_of(edit.fields, isLive))
        return;
    const OneChange change(link_);
    const TheaterTexts texts = room_.TheaterInfo;
    edit.make(room_);
    Changed changed{Source::Edit};
    for (const FieldId field : edit.fields) {
        changed.fields.set(std::size_t(field));
        file_.SettingsChanged = file_.SettingsChanged || MakesAFileOlder(FieldOf(field).place);
    }
    file_.SettingsChanged = file_.SettingsChanged || texts != room_.TheaterInfo;
    show_(changed);
    SendAfterEdit(changed, send == Send::AfterEdit);
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

void Editor::Adopt(RoomSettings room, Source source)
{
    const OneChange change(link_);
    const FlagGuard adopting(link_.Updating);
    room_ = std::move(room);
    show_(Changed::Everything(source));
}

} // namespace kelvo
