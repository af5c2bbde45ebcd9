#include "report/differences.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <utility>

namespace kelvo {

namespace {

constexpr int SizeOfWords = 24; // as a level of 12 dB

/// In the order of `Section`, as the tabs are called.
constexpr std::array<std::string_view, 8> SectionName{"Live", "Output Trim", "E.Q",     "Tone",
                                                      "OBE",  "Options",     "Theater", ""};

template <typename Wanted>
FieldSet FieldsThat(Wanted wanted)
{
    FieldSet fields;
    ForEachField([&](FieldId id, const Field &field) { fields.set(std::size_t(id), wanted(field)); });
    return fields;
}

bool InRecord(const Field &field)
{
    return field.place == Place::Audio || field.place == Place::System;
}

std::string ValueText(const RoomSettings &room, const Field &field, FieldId id, int stored)
{
    return field.place == Place::Text ? room.TheaterInfo[field.at] : TextOf(id, stored);
}

bool HasControl(const Scale &scale, int stored)
{
    return stored >= 0 && stored <= scale.last;
}

std::string Counted(int count, const char *one, const char *many)
{
    return std::to_string(count) + (count == 1 ? one : many);
}

/// A cell whose text is somebody's own: a spreadsheet must not take it for a formula.
std::string Harmless(std::string_view text)
{
    const bool formula = !text.empty() && std::string_view("=+-@").find(text.front()) != text.npos;
    return (formula ? "'" : "") + std::string(text);
}

std::string CsvCell(std::string_view text)
{
    if (text.find_first_of(",\"\r\n") == text.npos)
        return std::string(text);
    std::string quoted = "\"";
    for (const char character : text) {
        if (character == '"')
            quoted += '"';
        quoted += character;
    }
    return quoted + '"';
}

std::string TabCell(std::string_view text)
{
    std::string cell(text);
    std::ranges::replace_if(
        cell, [](char c) { return c == '\t' || c == '\r' || c == '\n'; }, ' ');
    return cell;
}

struct Form {
    std::string (*cell)(std::string_view);
    std::string_view between, end;
};

std::string Table(const std::vector<DifferenceRow> &rows, std::string_view leftName,
                  std::string_view rightName, const Form &form)
{
    std::string table;
    const auto line = [&](const std::array<std::string, 4> &cells) {
        for (std::size_t column = 0; column < cells.size(); ++column)
            table.append(column == 0 ? "" : form.between).append(form.cell(cells[column]));
        table += form.end;
    };
    line({"Section", "Setting", Harmless(leftName), Harmless(rightName)});
    for (const DifferenceRow &row : rows) {
        const bool own = FieldOf(row.field).place == Place::Text;
        line({std::string(row.section), row.setting, own ? Harmless(row.left) : row.left,
              own ? Harmless(row.right) : row.right});
    }
    return table;
}

} // namespace

Side WholeRoom(RoomSettings room)
{
    return {std::move(room), FieldSet().set(), true};
}

Side FileLines(RoomSettings room)
{
    return {std::move(room), FieldSet().set()};
}

Side RecordsAlone(RoomSettings room)
{
    return {std::move(room), FieldsThat(InRecord), true};
}

Side SettingsAlone(RoomSettings room)
{
    return {std::move(room),
            FieldsThat([](const Field &field) { return InRecord(field) && field.section != Section::Kept; })};
}

Differences DifferencesOf(const Side &left, const Side &right)
{
    const FieldSet kept = FieldsThat([](const Field &field) { return field.section == Section::Kept; });
    const FieldSet both = left.known & right.known & ~kept;
    Differences found;
    found.compared = int(both.count());
    const std::vector<Difference> differences = Compare(left.room, right.room);
    found.rows.reserve(differences.size());
    for (const Difference &difference : differences) {
        const FieldId id = difference.field;
        if (!both.test(std::size_t(id)))
            continue;
        const Field &field = FieldOf(id);
        found.rows.push_back({id, SectionName[std::size_t(field.section)], Name(id),
                              ValueText(left.room, field, id, difference.left),
                              ValueText(right.room, field, id, difference.right), SizeOf(difference)});
        found.live += field.place == Place::Live;
    }
    // The live fields are the table's first.
    // Not the ranges' own, which clang 14 cannot compile with this standard library.
    std::rotate(found.rows.begin(), found.rows.begin() + found.live, found.rows.end());
    if (left.everyByte && right.everyByte)
        found.otherBytes = OtherBytes(left.room, right.room);
    return found;
}

int SizeOf(const Difference &difference)
{
    const Field &field = FieldOf(difference.field);
    const Scale &scale = *field.scale;
    if (field.place == Place::Text || !scale.choices.empty())
        return SizeOfWords;
    const int steps = std::abs(difference.left - difference.right);
    const bool measured = HasControl(scale, difference.left) && HasControl(scale, difference.right);
    return scale.level && measured ? 2 * steps / scale.level->stepsPerUnit : steps;
}

std::string CountsText(const Differences &differences)
{
    std::string text;
    const auto tell = [&text](int count, const char *one, const char *many) {
        if (count != 0)
            text += (text.empty() ? "" : ", ") + Counted(count, one, many);
    };
    tell(differences.Settings(), " setting", " settings");
    tell(differences.live, " live value", " live values");
    tell(differences.otherBytes.value_or(0), " other byte", " other bytes");
    return text;
}

std::string ToCsv(const std::vector<DifferenceRow> &rows, std::string_view leftName,
                  std::string_view rightName)
{
    return Table(rows, leftName, rightName, {CsvCell, ",", "\r\n"});
}

std::string ToTabs(const std::vector<DifferenceRow> &rows, std::string_view leftName,
                   std::string_view rightName)
{
    return Table(rows, leftName, rightName, {TabCell, "\t", "\n"});
}

} // namespace kelvo
