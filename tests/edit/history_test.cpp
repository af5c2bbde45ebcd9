#include "edit/editor.h"
#include "support/linkundertest.h"

using namespace kelvo;

namespace {

/// An editor over a connected link that sends each edit.
struct HistoryUnderTest : ConnectedLink {
    FileState file;
    Journal journal{{}, [](const std::string &) {}};
    std::function<void(const Changed &)> show = [](const Changed &) {};
    Editor editor{room, file, link, clock, journal, [this](const Changed &changed) { show(changed); }};

    HistoryUnderTest()
    {
        options.AutoUpload = true;
        view.follow = [this](const Changed &changed) { editor.Follow(changed); };
        editor.Follow(Changed::Unit(Source::Connection)); // the first of the run
    }

    void SetField(FieldId field, int stored) { editor.Apply(Edit::One(field, stored)); }
    std::string Last() const { return editor.Steps().Last() ? editor.Steps().Last()->name : ""; }
    std::string Next() const { return editor.Steps().Next() ? editor.Steps().Next()->name : ""; }

    /// The calls of the library since the last look.
    Trace Calls()
    {
        Trace calls = Happened();
        std::erase_if(calls, [](const std::string &line) { return line.starts_with("show"); });
        return calls;
    }
};

/// As it was, but for the clock that each upload stamps.
bool SameRoom(const RoomSettings &left, RoomSettings right)
{
    right.Audio.UnitClock = left.Audio.UnitClock;
    return left == right;
}

} // namespace

TEST_CASE("a step says where and what; undo and redo go back and forth and send one record each")
{
    HistoryUnderTest console;
    const RoomSettings before = console.room;
    console.SetField(field::Band(Center, 14), 15);
    CHECK(console.Last() == "Center, 1 kHz: -1.5 dB");
    console.Calls();
    console.editor.Undo();
    CHECK(SameRoom(before, console.room));
    CHECK(console.Calls() == Trace{"SetAudio"});
    CHECK(console.Last().empty());
    CHECK(console.Next() == "Center, 1 kHz: -1.5 dB");
    console.editor.Redo();
    CHECK(console.room.Audio.ChannelEq[Center].Band[14] == 15);
    CHECK(console.unit.audio.ChannelEq[Center].Band[14] == 15);
    CHECK(console.Calls() == Trace{"SetAudio"});
}

TEST_CASE("undo of 27 bands is one upload")
{
    HistoryUnderTest console;
    const RoomSettings before = console.room;
    std::vector<Edit::Change> bands;
    for (int band = 0; band < BandCount; ++band)
        bands.push_back({field::Band(Right, band), band % 5});
    console.editor.Apply(Edit::Of("Paste Left to Right", bands));
    console.Calls();
    console.editor.Undo();
    CHECK(console.Calls() == Trace{"SetAudio"});
    CHECK(SameRoom(before, console.room));
}

TEST_CASE("with automatic upload off an undo waits for the upload command")
{
    HistoryUnderTest console;
    console.options.AutoUpload = false;
    console.SetField(field::ObeLevel, 3);
    console.editor.Undo();
    CHECK(console.Calls().empty());
    console.editor.Redo();
    CHECK(console.link.Differences() == 1);
}

TEST_CASE("live values are no steps; an edit that changes nothing is none either")
{
    HistoryUnderTest console;
    console.SetField(field::Fader, 20);
    console.editor.Apply(ToggleMute(console.room));
    console.SetField(field::Format, 3);
    console.SetField(field::ObeLevel, console.room.Audio.ObeLevel);
    CHECK(console.editor.Steps().Steps().empty());
}

TEST_CASE("theatre texts are steps, taken also after a connection that failed")
{
    HistoryUnderTest console;
    const auto name = [&](const std::string &text) {
        console.editor.Apply({.name = "Theater",
                              .fields = {field::Theater(0)},
                              .make = [text](RoomSettings &room) { room.TheaterInfo[0] = text; }});
    };
    name("Rex");
    console.link.Updating = true;
    name("Roxy");
    CHECK(console.room.TheaterInfo[0] == "Roxy");
    console.editor.Undo();
    CHECK(console.room.TheaterInfo[0] == "Rex");
    console.editor.Undo();
    CHECK(console.room.TheaterInfo[0].empty());
    CHECK(console.Calls().empty());
}

TEST_CASE("an edit after an undo takes the undone steps' place")
{
    HistoryUnderTest console;
    console.SetField(field::ObeLevel, 3);
    console.SetField(field::ObeLevel, 4);
    console.editor.Undo();
    console.SetField(field::NonsyncTrim, 7);
    CHECK(console.Next().empty());
    CHECK(console.editor.Steps().Steps().size() == 2);
    console.editor.Undo();
    console.editor.Undo();
    console.editor.Undo();
    CHECK(console.editor.Steps().Done() == 0);
}

TEST_CASE("going to a step is one edit: one upload for each record that changed on the way")
{
    HistoryUnderTest console;
    const RoomSettings before = console.room;
    console.SetField(field::ObeLevel, 3);
    console.SetField(field::NonsyncTrim, 7);
    console.SetField(field::Trim(Left), 5);
    const RoomSettings after = console.room;
    console.Calls();
    console.editor.MoveTo(0);
    CHECK(console.Calls() == Trace{"SetSystem", "SetAudio"});
    CHECK(SameRoom(before, console.room));
    console.editor.MoveTo(3);
    CHECK(SameRoom(after, console.room));
    console.Calls();
    console.editor.MoveTo(2);
    CHECK(console.Calls() == Trace{"SetAudio"});
}

TEST_CASE("what Update replaced is one step, which brings unsent work back")
{
    HistoryUnderTest console;
    console.options.AutoUpload = false;
    console.SetField(field::ObeLevel, 3);
    console.SetField(field::Trim(Center), 2);
    console.link.Update();
    CHECK(console.Last() == "Read from the unit (2 settings)");
    CHECK(console.link.Differences() == 0);
    console.editor.Undo();
    CHECK(console.room.Audio.ObeLevel == 3);
    CHECK(console.room.Audio.ChannelTrim[Center] == 2);
    CHECK(console.link.Differences() == 2);
}

TEST_CASE("an Update that finds nothing new is no step, and neither is an automatic re-read")
{
    HistoryUnderTest console;
    console.link.Update();
    CHECK(console.editor.Steps().Steps().empty());
    console.options.AutoRefresh = true;
    console.unit.audio.ObeLevel ^= 1;
    console.link.RefreshTick(true);
    CHECK(console.editor.Steps().Steps().empty());
    console.SetField(field::Trim(Left), 4);
    console.editor.Undo();
    CHECK(console.room.Audio.ObeLevel == console.unit.audio.ObeLevel);
}

TEST_CASE("a first connection is no step, a later one is")
{
    HistoryUnderTest console;
    console.link.DispErr(16);
    console.unit.audio.ObeLevel ^= 1;
    REQUIRE(console.link.ConnectToUnit());
    CHECK(console.Last() == "Read from the unit (1 setting)");
}

TEST_CASE("bytes that no control shows come back as well, and are told as such when they are all")
{
    HistoryUnderTest console;
    console.editor.Apply(Edit::One(field::Kept(2), 9));
    RoomSettings other = console.room;
    Set(other, field::Kept(2), 33);
    console.unit.system = other.System;
    console.link.Update();
    CHECK(console.Last() == "Read from the unit (1 other byte)");
    console.editor.Undo();
    CHECK(Get(console.room, field::Kept(2)) == 9);
}

TEST_CASE("New, Open and another file's name end the history; the same name does not")
{
    HistoryUnderTest console;
    const auto steps = [&] { return console.editor.Steps().Steps().size(); };
    console.SetField(field::ObeLevel, 3);
    console.editor.Saved("/rooms/a.zcf");
    CHECK(steps() == 1);
    console.editor.Saved("/rooms/a.zcf");
    CHECK(steps() == 1);
    console.editor.Saved("/rooms/b.zcf");
    CHECK(steps() == 0);
    console.SetField(field::ObeLevel, 5);
    console.editor.Adopt(console.room, Source::File);
    CHECK(steps() == 0);
    console.SetField(field::ObeLevel, 6);
    console.editor.Adopt(console.room, Source::Reset);
    CHECK(steps() == 0);
}

TEST_CASE("a room's first name keeps its steps since the last read: what was read over may be another room's")
{
    HistoryUnderTest console;
    console.options.AutoUpload = false;
    console.SetField(field::ObeLevel, 3);
    console.link.Update();
    console.SetField(field::Trim(Left), 4);
    console.SetField(field::Trim(Left), 5);
    console.editor.Undo();
    console.editor.Saved("/rooms/b.zcf");
    CHECK(console.editor.Steps().Done() == 1);
    CHECK(console.Next() == "Left, output trim: +3.5 dB");
    console.editor.Undo();
    CHECK(console.editor.Steps().Last() == nullptr);
    CHECK(Get(console.room, field::Trim(Left)) == console.unit.audio.ChannelTrim[Left]);
}

TEST_CASE("what a revert replaced is a step")
{
    HistoryUnderTest console;
    RoomSettings originals = console.room;
    console.SetField(field::ObeLevel, 3);
    console.editor.Adopt(originals, Source::Revert);
    console.editor.Undo();
    CHECK(console.room.Audio.ObeLevel == 3);
}

TEST_CASE("a thousand steps and more can be undone; beyond ten thousand the oldest go")
{
    HistoryUnderTest console;
    console.options.AutoUpload = false;
    constexpr int Steps = 10'050;
    for (int step = 0; step < Steps; ++step)
        console.SetField(field::ObeLevel, step % 2 == 0 ? 3 : 4);
    CHECK(console.editor.Steps().Done() == History::Most);
    CHECK(console.editor.Steps().DoneInAll() >= Steps - 1);
    console.editor.MoveTo(0);
    CHECK(console.editor.Steps().Last() == nullptr);
}

TEST_CASE("a slot is recalled as one step and one edit, with one upload for each record that changes")
{
    HistoryUnderTest console;
    console.SetField(field::Band(Left, 3), 20);
    console.SetField(field::NonsyncTrim, 7);
    console.editor.KeepSlot(0);
    console.SetField(field::Band(Left, 3), 4);
    console.SetField(field::Fader, 33);
    console.room.TheaterInfo[0] = "Rex";
    console.Calls();
    console.editor.Recall(0);
    CHECK(console.Calls() == Trace{"SetAudio"});
    CHECK(console.Last() == "Recall A");
    CHECK(Get(console.room, field::Band(Left, 3)) == 20);
    CHECK(console.room.FaderLevel == 33);
    CHECK(console.room.TheaterInfo[0] == "Rex");
    CHECK(console.editor.Kept().Equals(0, console.room));
    console.editor.Recall(0);
    CHECK(console.Calls().empty());
    console.editor.Recall(3);
    CHECK(console.Calls().empty());
    console.editor.Undo();
    CHECK(Get(console.room, field::Band(Left, 3)) == 4);
}

TEST_CASE("a recall leaves reserved bytes and those that no control shows alone")
{
    HistoryUnderTest console;
    console.editor.KeepSlot(1);
    Set(console.room, field::Kept(1), 200);
    console.room.Audio.reserved4[1] = 99;
    console.SetField(field::ObeLevel, 3);
    console.editor.Recall(1);
    CHECK(Get(console.room, field::Kept(1)) == 200);
    CHECK(console.room.Audio.reserved4[1] == 99);
}
