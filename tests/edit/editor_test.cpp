#include "edit/editor.h"
#include "support/linkundertest.h"

using namespace kelvo;

namespace {

/// An editor over a connected link; what it shows stands in the trace as well.
struct EditorUnderTest : ConnectedLink {
    FileState file;
    Journal journal{{}, [](const std::string &) {}};
    Editor editor{room, file, link, clock, journal, [this](const Changed &changed) {
                      shown = changed;
                      trace.push_back("show");
                  }};
    Changed shown{Source::Poll};

    EditorUnderTest() { options.AutoUpload = true; }
};

} // namespace

TEST_CASE("an edit goes into the room, onto the screen and into the unit, in this order")
{
    EditorUnderTest console;
    std::vector<int> roomWhenShown;
    const FieldId band = field::Band(Center, 14);
    console.editor.Apply(Edit::One(band, 7));
    CHECK(console.Happened() == Trace{"show", "SetAudio", "show date"});
    CHECK(console.room.Audio.ChannelEq[Center].Band[14] == 7);
    CHECK(console.unit.audio.ChannelEq[Center].Band[14] == 7);
    CHECK(console.shown.source == Source::Edit);
    CHECK(console.shown.Has(band));
    CHECK(console.shown.fields.count() == 1);
    CHECK(console.file.SettingsChanged);
}

TEST_CASE("an edit of one band stores one byte")
{
    EditorUnderTest console;
    console.options.AutoUpload = false;
    RoomSettings expected = console.room;
    expected.Audio.ChannelEq[Left].Band[3] = 20;
    console.editor.Apply(Edit::One(field::Band(Left, 3), 20));
    CHECK(console.room == expected);
}

TEST_CASE("each record that was touched is sent once; live values have operations of their own")
{
    EditorUnderTest console;
    const auto sent = [&](std::vector<Edit::Change> changes) {
        console.editor.Apply(Edit::Of("", std::move(changes)));
        Trace calls = console.Happened();
        std::erase_if(calls, [](const std::string &line) { return line.starts_with("show"); });
        return calls;
    };
    CHECK(sent({{field::ObeLevel, 3}, {field::Trim(Left), 4}}) == Trace{"SetAudio"});
    CHECK(sent({{field::NonsyncTrim, 3}, {field::ReaderDelay, 300}}) == Trace{"SetSystem"});
    CHECK(sent({{field::ObeLevel, 5}, {field::NonsyncTrim, 4}}) == Trace{"SetSystem", "SetAudio"});
    CHECK(sent({{field::Fader, 65}}) == Trace{"SetVol 65"});
    CHECK(sent({{field::Mute, True}}) == Trace{"SetMute -1"});
    CHECK(sent({{field::Format, 2}}) == Trace{"SelectFormat 2"});
}

TEST_CASE("live values are no changes that a file misses")
{
    EditorUnderTest console;
    console.editor.Apply(Edit::One(field::Fader, 20));
    console.editor.Apply(ToggleMute(console.room));
    console.editor.Apply(Edit::One(field::Format, 5));
    CHECK_FALSE(console.file.SettingsChanged);
}

TEST_CASE("an edit that repeats what is there is shown, sent and a change all the same")
{
    EditorUnderTest console;
    console.editor.Apply(Edit::One(field::NonsyncMode, console.room.System.NonsyncMode));
    CHECK(console.Happened() == Trace{"show", "SetSystem", "show date"});
    CHECK(console.file.SettingsChanged);
}

TEST_CASE("what waits for a later send is stored and shown, and counts as not in the unit")
{
    EditorUnderTest console;
    console.editor.Apply(Edit::One(field::Trim(Right), 3), Send::Later);
    console.editor.Apply(Edit::One(field::Fader, 30), Send::Later);
    CHECK(console.Happened() == Trace{"show", "show"});
    CHECK(console.link.Differences() == 2);
}

TEST_CASE("an edit without automatic upload stays in the console")
{
    EditorUnderTest console;
    console.options.AutoUpload = false;
    console.editor.Apply(Edit::One(field::Trim(Right), 3));
    CHECK(console.Happened() == Trace{"show"});
    CHECK(console.file.SettingsChanged);
}

TEST_CASE("while the program itself sets controls no setting is edited, and a live value is taken")
{
    EditorUnderTest console;
    const RoomSettings before = console.room;
    console.link.Updating = true;
    console.editor.Apply(Edit::One(field::Trim(Right), 3));
    CHECK(console.room == before);
    CHECK(console.Happened().empty());
    CHECK_FALSE(console.file.SettingsChanged);

    // As after a connection that failed: the fader is set to 7.0 all the same.
    console.editor.Apply(Edit::One(field::Fader, 70), Send::Later);
    CHECK(console.room.FaderLevel == 70);
    CHECK(console.Happened() == Trace{"show"});
}

TEST_CASE("texts are a change only when one differs, and are never sent")
{
    EditorUnderTest console;
    const auto edit = [&](const char *name) {
        console.editor.Apply({.name = "Texts",
                              .fields = {field::Theater(0), field::Theater(1)},
                              .make = [name](RoomSettings &room) { room.TheaterInfo[1] = name; }});
    };
    edit("");
    CHECK_FALSE(console.file.SettingsChanged);
    edit("Odeon 3");
    CHECK(console.file.SettingsChanged);
    CHECK(console.shown.HasTexts());
    CHECK(console.Happened() == Trace{"show", "show"});
}

TEST_CASE("what was read is adopted: shown whole, with handlers still, and never sent")
{
    EditorUnderTest console;
    RoomSettings other = console.room;
    other.Audio.ObeLevel = 1;
    other.FaderLevel = 12;
    bool updating = false;
    Editor editor(console.room, console.file, console.link, console.clock, console.journal,
                  [&](const Changed &changed) {
                      updating = console.link.Updating;
                      CHECK(changed.source == Source::File);
                      CHECK(changed.fields.all());
                  });
    editor.Adopt(other, Source::File);
    CHECK(console.room == other);
    CHECK(updating);
    CHECK_FALSE(console.link.Updating);
    CHECK(console.Happened().empty());
    CHECK_FALSE(console.file.SettingsChanged);
}

TEST_CASE("an edit tells what the unit lacks once")
{
    EditorUnderTest console;
    int told = 0;
    console.view.onShowSent = [&told] { ++told; };
    console.editor.Apply(Edit::One(field::Trim(Left), 5));
    CHECK(told == 1);
    console.editor.Apply(Edit::One(field::Trim(Left), 6), Send::Later);
    CHECK(told == 2);
}

TEST_CASE("an edit says where and what")
{
    CHECK(Edit::One(field::Band(Center, 14), 15).name == "Center, 1 kHz: -1.5 dB");
    CHECK(Edit::One(field::Trim(LeftSurround), 7).name == "Left Surround, output trim: +2.5 dB");
    CHECK(Edit::One(field::NonsyncMode, 0).name == "Non-sync outputs: Screen Channels");
    CHECK(Edit::One(field::ReaderDelay, 255).name == "Optical reader delay: 63.75 TC Frames");
}
