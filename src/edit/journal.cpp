#include "edit/journal.h"

#include "edit/history.h"
#include "edit/journallines.h"
#include "files/systempath.h"

#include <cstdio>
#include <utility>

namespace kelvo {

namespace {

/// Everything of a room that a journal keeps.
std::vector<FieldId> WholeRoom()
{
    std::vector<FieldId> fields;
    ForEachField([&](FieldId id, const Field &field) {
        if (field.place != Place::Live)
            fields.push_back(id);
    });
    return fields;
}

std::string SecondsOf(LocalTime time)
{
    return std::to_string(time.time_since_epoch().count());
}

std::string RoomLine(std::string_view kind, const Journal::State &state, const std::vector<FieldId> &fields)
{
    // With Save disabled a name is that of a file which is not to be written by mistake.
    const std::string name = state.file.MaySave ? state.file.CurrentFileName : std::string();
    std::vector<std::string> cells{std::string(kind), SecondsOf(state.time), std::to_string(state.done),
                                   state.file.UnitRead ? "unit" : "", name};
    for (const FieldId id : fields)
        cells.push_back(journal::Setting(id, state.room));
    return journal::Line(cells);
}

std::string SlotLine(int slot, const RoomSettings &room, LocalTime time)
{
    std::vector<std::string> cells{std::string(journal::Slot), SecondsOf(time), std::to_string(slot)};
    for (const FieldId id : WholeRoom())
        if (FieldOf(id).place != Place::Text)
            cells.push_back(journal::Setting(id, room));
    return journal::Line(cells);
}

/// "2026-11-21 21-04-33"
std::string NameAt(LocalTime time)
{
    const auto day = std::chrono::floor<std::chrono::days>(time);
    const std::chrono::year_month_day date(day);
    const std::chrono::hh_mm_ss clock(time - day);
    std::array<char, 64> name{};
    std::snprintf(name.data(), name.size(), "%04d-%02u-%02u %02d-%02d-%02d", int(date.year()),
                  unsigned(date.month()), unsigned(date.day()), int(clock.hours().count()),
                  int(clock.minutes().count()), int(clock.seconds().count()));
    return name.data();
}

} // namespace

Journal::Journal(std::string folder, std::function<void(const std::string &)> report, const FileCalls &calls)
    : folder_(std::move(folder)),
      report_(std::move(report)),
      calls_(calls),
      file_(calls)
{
}

void Journal::Keep(const State &state)
{
    if (!Begin(state.time))
        return;
    std::string lines;
    if (!kept_) {
        lines = RoomLine(journal::Room, state, WholeRoom());
        for (int slot = 0; slot < SlotCount; ++slot)
            if (const RoomSettings *kept = state.slotsKept.Kept(slot))
                lines += SlotLine(slot, *kept, state.time);
    } else {
        lines = RoomLine(journal::Step, state, Between(*kept_, state.room).Fields());
    }
    kept_ = state.room;
    Append(lines);
}

void Journal::KeepSlot(int slot, const State &state)
{
    if (Begin(state.time))
        Append(SlotLine(slot, *state.slotsKept.Kept(slot), state.time));
}

void Journal::End()
{
    kept_.reset();
    if (file_.IsOpen())
        Append(journal::Line({std::string(journal::End)}));
}

void Journal::Leave()
{
    Flush();
    file_.Close();
    kept_.reset();
}

void Journal::Close(bool remove)
{
    const bool begun = file_.IsOpen();
    Leave();
    folder_.clear();
    if (begun && remove)
        calls_.Remove(path_);
}

/// False when there is no file to write to. A file that somebody has deleted meanwhile is begun anew.
bool Journal::Begin(LocalTime time)
{
    if (folder_.empty())
        return false;
    if (file_.IsOpen() && Exists(path_))
        return true;
    file_.Close();
    kept_.reset();
    constexpr int Attempts = 100; // consoles that make their first step in the same second
    std::error_code error;
    for (int attempt = 0; attempt < Attempts; ++attempt) {
        path_ = Utf8(FromUtf8(folder_) / FromUtf8(NameAt(time) + "-" + std::to_string(attempt) + ".journal"));
        error = file_.Create(path_);
        if (error != std::errc::file_exists)
            break;
    }
    if (!error)
        error = file_.Append(journal::Header);
    if (!error)
        return true;
    file_.Close();
    TellOnce(error);
    return false;
}

void Journal::Append(const std::string &lines)
{
    // A line that was cut ends here, and the room is told whole after it.
    const std::error_code error = file_.Append(std::exchange(cut_, false) ? "\n" + lines : lines);
    flushed_ = false;
    if (!error)
        return;
    cut_ = true;
    kept_.reset();
    TellOnce(error);
}

void Journal::Flush()
{
    if (std::exchange(flushed_, true) || !file_.IsOpen())
        return;
    if (const std::error_code error = file_.Flush())
        TellOnce(error);
}

void Journal::TellOnce(std::error_code error)
{
    if (!std::exchange(told_, true))
        report_(ReasonOf(error));
}

} // namespace kelvo
