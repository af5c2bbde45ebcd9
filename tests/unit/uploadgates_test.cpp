#include "unit/uploadgates.h"

#include <doctest/doctest.h>
#include <string>

using namespace kelvo;

namespace {

/// The rule as it is told to a technician.
Passage Told(const UploadGates &gates)
{
    if (gates.trigger == UploadTrigger::Unasked)
        return Passage::Open;
    if (gates.trigger == UploadTrigger::Explicit)
        return gates.confirm && !gates.automatic ? Passage::AskFirst : Passage::Open;
    return gates.automatic && !gates.updating && gates.moved ? Passage::Open : Passage::Closed;
}

} // namespace

TEST_CASE(
    "the four gates: an edit is sent when uploads are automatic, the program is still and the slider moved")
{
    for (const UploadTrigger trigger :
         {UploadTrigger::AfterEdit, UploadTrigger::Explicit, UploadTrigger::Unasked})
        for (int bits = 0; bits < 16; ++bits) {
            const UploadGates gates{trigger, (bits & 1) != 0, (bits & 2) != 0, (bits & 4) != 0,
                                    (bits & 8) != 0};
            CAPTURE(int(trigger));
            CAPTURE(bits);
            CHECK(PassageOf(gates) == Told(gates));
        }
}

TEST_CASE("the table of the gates, read out")
{
    const auto word = [](std::optional<bool> gate) { return gate ? (*gate ? "yes" : "no") : "either"; };
    std::string read;
    for (const UploadGateRow &row : UploadGateTable) {
        for (const auto &gate : {row.automatic, row.updating, row.moved, row.confirm})
            read += std::string(word(gate)) + " ";
        read += "-> " + std::to_string(int(row.passage)) + "; ";
    }
    CHECK(read == "yes no yes either -> 2; either either either either -> 0; "
                  "no either either yes -> 1; either either either either -> 2; "
                  "either either either either -> 2; ");
}
