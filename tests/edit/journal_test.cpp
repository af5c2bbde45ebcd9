#include "support/faultycalls.h"
#include "support/journaledrun.h"
#include "support/testfolder.h"

using namespace kelvo;

namespace {

/// The only journal's file.
std::filesystem::path FileIn(const TestFolder &folder)
{
    for (const auto &entry : std::filesystem::directory_iterator(folder.Path("journals")))
        return entry.path();
    return {};
}

std::string Bytes(const std::filesystem::path &path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

void Overwrite(const std::filesystem::path &path, const std::string &bytes)
{
    std::ofstream(path, std::ios::binary | std::ios::trunc) << bytes;
}

/// A run of three steps that is killed.
RoomSettings ThreeSteps(const TestFolder &folder)
{
    JournaledRun run(folder);
    run.SetField(field::Band(Center, 14), 9);
    run.clock.now += std::chrono::minutes(2);
    run.SetField(field::ReaderDelay, 300);
    run.SetText(0, "Rex = \"one\"\t\\n");
    return run.room;
}

} // namespace

TEST_CASE("a run that is killed leaves each of its steps")
{
    const TestFolder folder;
    const RoomSettings last = ThreeSteps(folder);
    const auto found = Found(folder);
    REQUIRE(found.size() == 1);
    CHECK(found[0].done == 3);
    CHECK(Between(found[0].room, last).Empty());
    CHECK(found[0].time == LocalTime(std::chrono::local_days(std::chrono::year(2024) / 3 / 14)) +
                               std::chrono::hours(15) + std::chrono::minutes(2));
}

TEST_CASE("nothing is written before the first step, and live values are none")
{
    const TestFolder folder;
    JournaledRun run(folder);
    run.SetField(field::Fader, 3);
    CHECK_FALSE(std::filesystem::exists(folder.Path("journals")));
}

TEST_CASE("a journal that a running console owns is not found; an exit that lost nothing leaves none")
{
    const TestFolder folder;
    JournaledRun run(folder);
    run.SetField(field::ObeLevel, 3);
    CHECK(Found(folder).empty());
    run.journal.Close(true);
    CHECK(std::filesystem::is_empty(folder.Path("journals")));
}

TEST_CASE("two consoles keep a journal each; the newest is offered first")
{
    const TestFolder folder;
    {
        JournaledRun first(folder);
        JournaledRun second(folder);
        first.SetField(field::ObeLevel, 3);
        second.clock.now += std::chrono::hours(1);
        second.SetField(field::ObeLevel, 5);
        second.SetField(field::ObeLevel, 6);
    }
    const auto found = Found(folder);
    REQUIRE(found.size() == 2);
    CHECK(found[0].done == 2);
    CHECK(found[1].done == 1);
}

TEST_CASE("undo and redo are kept: what comes back is what was on the screen")
{
    const TestFolder folder;
    RoomSettings last;
    {
        JournaledRun run(folder);
        run.SetField(field::ObeLevel, 3);
        run.SetField(field::Trim(Left), 4);
        run.SetField(field::Trim(Right), 4);
        run.editor.MoveTo(1);
        run.editor.Redo();
        last = run.room;
    }
    const auto found = Found(folder);
    REQUIRE(found.size() == 1);
    CHECK(found[0].done == 2);
    CHECK(Between(found[0].room, last).Empty());
}

TEST_CASE("a journal without a step in effect is nobody's loss and goes")
{
    const TestFolder folder;
    {
        JournaledRun run(folder);
        run.SetField(field::ObeLevel, 3);
        run.editor.Undo();
    }
    CHECK(Found(folder).empty());
    CHECK(std::filesystem::is_empty(folder.Path("journals")));
}

TEST_CASE("what changed without a step is kept with the next one")
{
    const TestFolder folder;
    {
        JournaledRun run(folder);
        run.SetField(field::ObeLevel, 3);
        run.room.Audio.ObeFreq = 6; // as an automatic re-read may find it
        run.SetField(field::Trim(Left), 4);
    }
    const auto found = Found(folder);
    REQUIRE(found.size() == 1);
    CHECK(found[0].room.Audio.ObeFreq == 6);
    CHECK(found[0].done == 2);
}

TEST_CASE("an opened file's name is kept; New and Open begin anew")
{
    const TestFolder folder;
    {
        JournaledRun run(folder);
        run.SetField(field::ObeLevel, 3);
        run.file = {.CurrentFileName = "/rooms/Rex 1.zcf", .FileLoaded = true}; // asked, and saved
        run.editor.Adopt(run.room, Source::File);
        run.SetField(field::Trim(Left), 4);
    }
    const auto found = Found(folder);
    REQUIRE(found.size() == 1);
    CHECK(found[0].done == 1);
    CHECK(found[0].fileName == "/rooms/Rex 1.zcf");
    CHECK(found[0].room.Audio.ObeLevel == 3);
}

TEST_CASE(
    "edits of a room that is in no file give way to an opened one without a question, and are left behind")
{
    const TestFolder folder;
    JournaledRun run(folder);
    run.SetField(field::ObeLevel, 3);
    run.SetField(field::Trim(Left), 4);
    run.editor.Adopt({}, Source::File);
    const auto found = Found(folder);
    REQUIRE(found.size() == 1);
    CHECK(found[0].done == 2);
    CHECK(found[0].room.Audio.ObeLevel == 3);
}

TEST_CASE("what a re-read finds is kept even where every step that can be undone is")
{
    struct : FileCalls {
        std::error_code Flush(FileHandle) const override { return {}; } // ten thousand take their time
    } calls;
    const TestFolder folder;
    {
        JournaledRun run(folder, calls);
        for (std::size_t step = 0; step <= History::Most; ++step)
            run.SetField(field::ObeLevel, 3 + int(step % 2));
        run.editor.MoveTo(0);
        run.room.Audio.ChannelTrim[Left] = 4;
        run.editor.Follow({Source::Reread});
    }
    const auto found = Found(folder);
    REQUIRE(found.size() == 1);
    CHECK(found[0].done == 1);
    CHECK(found[0].room.Audio.ObeLevel == 3);
    CHECK(found[0].room.Audio.ChannelTrim[Left] == 4);
}

TEST_CASE("a save is kept with its name; one that New has put out of use is none")
{
    const TestFolder folder;
    {
        JournaledRun run(folder);
        run.SetField(field::ObeLevel, 3);
        run.editor.Saved("/rooms/a.zcf");
    }
    auto found = Found(folder);
    REQUIRE(found.size() == 1);
    CHECK(found[0].fileName == "/rooms/a.zcf");
    CHECK(found[0].done == 1);
    HeldJournal(found[0]).Remove();
    {
        JournaledRun run(folder);
        run.file = {.CurrentFileName = "/rooms/a.zcf", .MaySave = false, .UnitRead = true};
        run.SetField(field::ObeLevel, 3);
    }
    found = Found(folder);
    REQUIRE(found.size() == 1);
    CHECK(found[0].fileName.empty());
    CHECK(found[0].unitRead);
}

TEST_CASE("slots are kept beside the steps, also when New ends those")
{
    const TestFolder folder;
    {
        JournaledRun run(folder);
        run.SetField(field::ObeLevel, 3);
        run.editor.KeepSlot(2);
        run.editor.Adopt({}, Source::Reset);
    }
    const auto found = Found(folder);
    REQUIRE(found.size() == 1);
    CHECK(found[0].done == 0);
    REQUIRE(found[0].hasSlots);
    REQUIRE(found[0].slotsKept.Kept(2));
    CHECK(found[0].slotsKept.Kept(2)->Audio.ObeLevel == 3);
    CHECK_FALSE(found[0].slotsKept.Kept(0));
}

TEST_CASE("bringing back is one step, with name and slots, and goes into the new run's own journal")
{
    const TestFolder folder;
    RoomSettings last;
    {
        JournaledRun run(folder);
        run.editor.Adopt(run.room, Source::File);
        run.file = {.CurrentFileName = "/rooms/a.zcf", .FileLoaded = true};
        run.SetField(field::ObeLevel, 3);
        run.SetText(3, "Booth");
        run.editor.KeepSlot(0);
        run.SetField(field::Trim(Left), 4);
        last = run.room;
    }
    const auto left = Found(folder);
    REQUIRE(left.size() == 1);
    {
        JournaledRun next(folder);
        next.room.Audio.ObeFreq = 0;
        const RoomSettings before = next.room;
        next.editor.BringBack(left[0], "Bring back 3 changes of 15:00");
        CHECK(Between(next.room, last).Empty());
        CHECK(next.file.CurrentFileName == "/rooms/a.zcf");
        CHECK(next.file.SettingsChanged);
        CHECK(next.editor.Kept().Kept(0));
        CHECK(next.editor.Steps().Steps().size() == 1);
        next.editor.Undo();
        CHECK(next.room == before);
        CHECK(next.file.CurrentFileName.empty());
        next.editor.Redo();
        CHECK(next.file.CurrentFileName == "/rooms/a.zcf");
        HeldJournal(left[0]).Remove();
    }
    const auto found = Found(folder);
    REQUIRE(found.size() == 1);
    CHECK(found[0].fileName == "/rooms/a.zcf");
    CHECK(Between(found[0].room, last).Empty());
    CHECK(found[0].slotsKept.Kept(0));
}

TEST_CASE(
    "a journal cut at any byte gives a state that was on the screen, and never more steps than whole lines")
{
    const TestFolder folder;
    ThreeSteps(folder);
    const std::string whole = Bytes(FileIn(folder));
    std::size_t lines = 0;
    for (std::size_t length = 0; length <= whole.size(); ++length) {
        const auto left = ReadJournal(std::string_view(whole).substr(0, length));
        if (length > 0 && whole[length - 1] == '\n')
            ++lines;
        if (!left) {
            CHECK(lines == 0);
            continue;
        }
        CHECK(left->done == lines - 1); // the first line is the journal's name
        CHECK(Get(left->room, field::Band(Center, 14)) == (lines > 1 ? 9 : 0));
        CHECK(Get(left->room, field::ReaderDelay) == (lines > 2 ? 300 : 0));
    }
    CHECK(lines == 4);
}

TEST_CASE("a damaged byte costs what comes after it, until the room is told whole again")
{
    const TestFolder folder;
    ThreeSteps(folder);
    const std::string whole = Bytes(FileIn(folder));
    const std::size_t second = whole.find("\n", whole.find("room")) + 1;
    std::string damaged = whole;
    damaged[second + 12] ^= 1;
    const auto left = ReadJournal(damaged);
    REQUIRE(left);
    CHECK(left->done == 1);
    CHECK(left->room.TheaterInfo[0].empty());
}

TEST_CASE("another version is nothing to bring back; it stays on the disk")
{
    const TestFolder folder;
    ThreeSteps(folder);
    const auto path = FileIn(folder);
    std::string other = Bytes(path);
    other.replace(other.find(" 1\n"), 3, " 2\n");
    Overwrite(path, other);
    CHECK(Found(folder).empty());
    CHECK(std::filesystem::exists(path));
}

TEST_CASE("after 30 days a journal goes")
{
    const TestFolder folder;
    ThreeSteps(folder);
    const auto path = FileIn(folder);
    const auto now = std::filesystem::file_time_type::clock::now();
    std::filesystem::last_write_time(path, now - std::chrono::hours(24 * 30 - 1));
    CHECK(Found(folder).size() == 1);
    std::filesystem::last_write_time(path, now - std::chrono::hours(24 * 30 + 1));
    CHECK(Found(folder).empty());
    CHECK_FALSE(std::filesystem::exists(path));
}

TEST_CASE("a disk that fails is told once, whichever call it is, and the next step that is written is whole")
{
    // Create, Lock, Write of the name, then Write and Flush of each step but the last.
    for (std::size_t at = 1; at <= 9; ++at)
        for (const Fault fault : {Fault::Fails, Fault::Short, Fault::NothingTaken, Fault::Interrupted}) {
            CAPTURE(at);
            const TestFolder folder;
            const FaultyCalls calls(fault, at);
            RoomSettings last;
            {
                JournaledRun run(folder, calls);
                run.SetField(field::ObeLevel, 3);
                run.SetField(field::Trim(Left), 4);
                run.SetField(field::Trim(Right), 5);
                run.SetField(field::Trim(Center), 6);
                CHECK(run.faults.size() <= 1);
                last = run.room;
            }
            const auto found = Found(folder);
            REQUIRE_FALSE(found.empty());
            CHECK(found[0].done == 4);
            CHECK(Between(found[0].room, last).Empty());
        }
}

TEST_CASE("a folder that cannot be made is told once; steps go on")
{
    const TestFolder folder;
    folder.Put("journals", "a file stands where the folder should");
    JournaledRun run(folder);
    run.SetField(field::ObeLevel, 3);
    run.SetField(field::ObeLevel, 4);
    CHECK(run.faults.size() == 1);
    CHECK(run.editor.Steps().Done() == 2);
}

TEST_CASE("the page on the journal tells its form")
{
    std::ifstream page(KELVO_DOCS "/journal.md");
    std::string example;
    for (std::string line; std::getline(page, line);)
        if (line.starts_with("    kelvo-console journal") || (!example.empty() && line.starts_with("    ")))
            example += line.substr(4) + "\n";
        else if (example.find("slot") == std::string::npos)
            example.clear(); // the name alone, told by itself
        else
            break;
    const auto left = ReadJournal(example);
    REQUIRE(left);
    CHECK(left->done == 2);
    CHECK(left->fileName == "/rooms/Rex 1.zcf");
    CHECK(Get(left->room, field::Band(Center, 14)) == 15);
    CHECK(left->room.Audio.ObeLevel == 12);
    REQUIRE(left->hasSlots);
    CHECK(Get(*left->slotsKept.Kept(0), field::Band(Center, 14)) == 15);
}
