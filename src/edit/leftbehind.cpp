#include "edit/journal.h"

#include "edit/journallines.h"
#include "files/atomicfile.h"
#include "files/systempath.h"
#include "files/text.h"

#include <algorithm>
#include <unordered_map>

namespace kelvo {

namespace {

constexpr std::size_t LargestJournal = 64 << 20; // far beyond any evening
constexpr std::chrono::days KeptFor{30};

/// Follows the lines of a journal. After a damaged one nothing counts until a room is told whole.
class JournalReader {
  public:
    JournalReader()
    {
        ForEachField([&](FieldId id, const Field &) { fields_.emplace(Key(id), id); });
    }

    LeftBehind Read(std::string_view lines)
    {
        std::vector<std::string> cells;
        while (!lines.empty()) {
            const bool whole = journal::TakeCells(lines, cells);
            if (whole && !cells.empty())
                Take(cells);
            followed_ = followed_ && whole;
        }
        return std::move(left_);
    }

  private:
    void Take(const std::vector<std::string> &cells)
    {
        if (cells[0] == journal::Slot)
            TakeSlot(cells);
        else if (cells[0] == journal::End)
            left_.done = 0;
        else if (cells[0] == journal::Room || (cells[0] == journal::Step && followed_))
            TakeRoom(cells);
    }

    void TakeRoom(const std::vector<std::string> &cells)
    {
        constexpr std::size_t FirstSetting = 5;
        LocalTime::rep seconds = 0;
        std::size_t done = 0;
        RoomSettings room = left_.room;
        followed_ = cells.size() >= FirstSetting && Number(cells[1], seconds) && Number(cells[2], done) &&
                    std::all_of(cells.begin() + FirstSetting, cells.end(),
                                [&](const std::string &cell) { return TakeSetting(cell, room); });
        if (!followed_)
            return;
        left_.room = std::move(room);
        left_.time = LocalTime(std::chrono::seconds(seconds));
        left_.done = done;
        left_.unitRead = !cells[3].empty();
        left_.fileName = cells[4];
    }

    void TakeSlot(const std::vector<std::string> &cells)
    {
        constexpr std::size_t FirstSetting = 3;
        LocalTime::rep seconds = 0;
        int slot = 0;
        RoomSettings room;
        if (cells.size() < FirstSetting || !Number(cells[1], seconds) || !Number(cells[2], slot) ||
            slot < 0 || slot >= SlotCount)
            return;
        if (std::all_of(cells.begin() + FirstSetting, cells.end(),
                        [&](const std::string &cell) { return TakeSetting(cell, room); })) {
            left_.slotsKept.Keep(slot, room);
            left_.hasSlots = true;
            left_.time = LocalTime(std::chrono::seconds(seconds));
        }
    }

    template <typename Integer>
    static bool Number(std::string_view text, Integer &number)
    {
        return TakeNumber(text, number) && text.empty();
    }

    bool TakeSetting(std::string_view cell, RoomSettings &room) const
    {
        const std::size_t equals = cell.find('=');
        const auto found = fields_.find(std::string(cell.substr(0, equals)));
        if (equals == std::string_view::npos || found == fields_.end())
            return false;
        const std::string_view value = cell.substr(equals + 1);
        const Field &field = FieldOf(found->second);
        int stored = 0;
        if (field.place == Place::Text)
            room.TheaterInfo[field.at] = value;
        else if (Number(value, stored))
            Set(room, found->second, stored);
        else
            return false;
        return true;
    }

    std::unordered_map<std::string, FieldId> fields_;
    LeftBehind left_;
    bool followed_ = false; ///< every line since the room was told whole was good
};

bool HasPassed(std::chrono::days days, const std::filesystem::path &path)
{
    std::error_code error;
    const auto written = std::filesystem::last_write_time(path, error);
    return !error && std::filesystem::file_time_type::clock::now() - written > days;
}

/// Empty when it is still owned, or there is nothing in it. One with nothing in it goes.
std::optional<LeftBehind> TakeUp(const std::string &path)
{
    if (!IsAbandoned(path))
        return {};
    std::string bytes;
    const bool old = HasPassed(KeptFor, SystemPath(path));
    std::optional<LeftBehind> left;
    if (!old && !ReadWhole(path, LargestJournal, bytes))
        left = ReadJournal(bytes);
    if (left)
        left->path = path;
    if (left && (left->done > 0 || left->hasSlots))
        return left;
    if (left || old)
        static_cast<void>(FileCalls().Remove(path));
    return {};
}

} // namespace

std::optional<LeftBehind> ReadJournal(std::string_view bytes)
{
    if (!bytes.starts_with(journal::Header))
        return {};
    return JournalReader().Read(bytes.substr(journal::Header.size()));
}

std::vector<LeftBehind> FindJournals(const std::string &folder)
{
    std::vector<LeftBehind> found;
    std::error_code error;
    for (std::filesystem::directory_iterator entry(SystemPath(folder), error), end; !error && entry != end;
         entry.increment(error)) {
        if (entry->path().extension() != ".journal")
            continue;
        if (auto left = TakeUp(Utf8(FromUtf8(folder) / entry->path().filename())))
            found.push_back(*std::move(left));
    }
    std::ranges::sort(found, std::ranges::greater(),
                      [](const LeftBehind &left) { return std::pair(left.time, left.path); });
    return found;
}

HeldJournal::HeldJournal(LeftBehind left) : left_(std::move(left))
{
    std::uint64_t size = 0;
    if (!hand_->calls.OpenToRead(left_.path, hand_->file.handle, size))
        static_cast<void>(hand_->calls.Lock(hand_->file.handle));
}

void HeldJournal::Remove()
{
    static_cast<void>(hand_->file.Close());
    static_cast<void>(hand_->calls.Remove(left_.path));
}

} // namespace kelvo
