#include "support/journaledrun.h"

using namespace kelvo;

// Windows lets nobody delete a file that a process owns.
TEST_CASE("a folder that goes while the console runs is made again, and the journal with it")
{
    const TestFolder folder;
    {
        JournaledRun run(folder);
        run.SetField(field::ObeLevel, 3);
        std::filesystem::remove_all(folder.Path("journals"));
        run.SetField(field::Trim(Left), 4);
        CHECK(run.faults.empty());
    }
    const auto found = Found(folder);
    REQUIRE(found.size() == 1);
    CHECK(found[0].done == 2);
    CHECK(found[0].room.Audio.ObeLevel == 3);
}

// There a file that is read is shared with everybody.
TEST_CASE("what was taken stays in the hand of the run that took it")
{
    const TestFolder folder;
    {
        JournaledRun run(folder);
        run.SetField(field::ObeLevel, 3);
    }
    {
        const HeldJournal held(Found(folder).front());
        CHECK(Found(folder).empty());
    }
    CHECK(Found(folder).size() == 1);
}
