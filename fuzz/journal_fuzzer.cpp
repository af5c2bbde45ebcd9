#include "fuzzer.h"

#include "edit/journal.h"
#include "edit/journallines.h"

using namespace kelvo;

namespace {

/// A journal of a whole room, a step and a slot.
std::string Sample()
{
    RoomSettings room;
    std::vector<std::string> whole{"room", "1710450240", "1", "unit", "/rooms/Rex 1.zcf"};
    ForEachField([&](FieldId id, const Field &field) {
        if (field.place != Place::Live)
            whole.push_back(journal::Setting(id, room));
    });
    return std::string(journal::Header) + journal::Line(whole) +
           journal::Line({"step", "1710450255", "2", "", "", "Channel Center/Eq1k=15", "Theater/0=Rex"}) +
           journal::Line({"slot", "1710450260", "3", "ObeLevel=3"});
}

/// The text's lines and cells with good sums: chance alone would not find one.
std::string Summed(std::string_view text)
{
    std::string lines(journal::Header);
    std::vector<std::string> cells(1);
    for (const char character : text) {
        if (character == '\t') {
            cells.emplace_back();
        } else if (character == '\n') {
            lines += journal::Line(cells);
            cells.assign(1, {});
        } else {
            cells.back() += character;
        }
    }
    return lines;
}

void Try(const std::string &bytes)
{
    const auto left = ReadJournal(bytes);
    Must(left.has_value() == bytes.starts_with(journal::Header), "one version is read");
    if (!left)
        return;
    bool kept = false;
    for (int slot = 0; slot < SlotCount; ++slot)
        kept = kept || left->slotsKept.Kept(slot);
    Must(kept == left->hasSlots, "slots are told");
    // Right behind the last byte: a line's end in between could make a cut line whole.
    const auto longer = ReadJournal(bytes + "00000000 cut");
    Must(longer && longer->room == left->room && longer->done == left->done, "damage costs the end alone");
}

/// Whatever stands in a cell comes back.
void TryCells(std::string_view text)
{
    const std::size_t middle = text.size() / 2;
    const std::vector<std::string> cells{std::string(text.substr(0, middle)),
                                         std::string(text.substr(middle))};
    const std::string line = journal::Line(cells);
    std::string_view rest = line;
    std::vector<std::string> read;
    Must(journal::TakeCells(rest, read) && rest.empty() && read == cells, "a line gives its cells back");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const std::string text(TextOf(data, size));
    Try(text);
    Try(Patched(Sample(), text));
    Try(Summed(text));
    TryCells(text);
    return 0;
}
