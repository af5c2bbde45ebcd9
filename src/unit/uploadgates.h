#pragma once

#include <array>
#include <optional>

namespace kelvo {

/// What asks for an upload: the upload command, an edit, or the program for itself.
enum class UploadTrigger { Explicit = -1, AfterEdit = 0, Unasked = 1 };

/// What the gates look at before a record is sent.
struct UploadGates {
    UploadTrigger trigger;
    bool automatic; ///< "Automatically Upload" is checked
    bool updating;  ///< the program itself is setting controls
    bool moved;     ///< no key is held, and the slider left the position at which it had the focus
    bool confirm;   ///< "Confirm Message Box" is checked
};

enum class Passage { Closed, AskFirst, Open };

/// One row of the rule; empty = either way.
struct UploadGateRow {
    UploadTrigger trigger;
    std::optional<bool> automatic, updating, moved, confirm;
    Passage passage;
};

/// The first row that fits decides.
inline constexpr std::array<UploadGateRow, 5> UploadGateTable{{
    //                       automatic updating moved confirm
    {UploadTrigger::AfterEdit, true, false, true, {}, Passage::Open},
    {UploadTrigger::AfterEdit, {}, {}, {}, {}, Passage::Closed},
    {UploadTrigger::Explicit, false, {}, {}, true, Passage::AskFirst},
    {UploadTrigger::Explicit, {}, {}, {}, {}, Passage::Open},
    {UploadTrigger::Unasked, {}, {}, {}, {}, Passage::Open},
}};

constexpr Passage PassageOf(const UploadGates &gates)
{
    const auto fits = [](std::optional<bool> row, bool gate) { return !row || *row == gate; };
    for (const UploadGateRow &row : UploadGateTable)
        if (row.trigger == gates.trigger && fits(row.automatic, gates.automatic) &&
            fits(row.updating, gates.updating) && fits(row.moved, gates.moved) &&
            fits(row.confirm, gates.confirm))
            return row.passage;
    return Passage::Closed;
}

} // namespace kelvo
