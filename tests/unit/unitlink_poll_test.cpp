#include "support/linkundertest.h"

using namespace kelvo;

namespace {

const Trace ReadBack{"GetAudio", "GetSystem", "GetMute", "GetVol", "GetFormat", "show re-read"};

} // namespace

TEST_CASE("a poll reads format, mute and fader in this order; the same values change nothing")
{
    ConnectedLink console;
    console.link.PollTick();
    CHECK(console.Happened() == Trace{"GetFormat", "GetMute", "GetVol"});
}

TEST_CASE("a poll shows what was turned at the unit, and no handler sends it back")
{
    ConnectedLink console;
    console.unit.panel.format = 5;
    console.unit.panel.mute = True;
    console.unit.panel.level = 12;
    console.link.PollTick();
    CHECK(console.Happened() ==
          Trace{"GetFormat", "reflect Format", "GetMute", "reflect Mute", "GetVol", "reflect Fader"});
    CHECK(console.room.CurrentFormat == 5);
    CHECK(console.room.MuteState == True);
    CHECK(console.room.FaderLevel == 12);
}

TEST_CASE("off line neither timer calls the library, and the seconds do not count")
{
    LinkUnderTest console;
    console.options = {.AutoRefresh = true, .RefreshSeconds = 2};
    console.link.PollTick();
    console.link.RefreshTick(true);
    CHECK(console.Happened().empty());
    REQUIRE(console.link.ConnectToUnit());
    console.trace.clear();
    console.link.RefreshTick(true);
    CHECK(console.Happened().empty());
    console.link.RefreshTick(true);
    CHECK(console.Happened() == ReadBack);
}

TEST_CASE("a poll counts as a call, also in its report")
{
    ConnectedLink console;
    console.view.duringBox = [&] { CHECK(console.link.InCall()); };
    console.unit.FailNext(Operation::GetMute, 1, 6);
    console.link.PollTick();
    CHECK_FALSE(console.link.UnitOnline());
}

TEST_CASE("a failing poll gives one box and reads nothing more, whatever ticks while it is open")
{
    ConnectedLink console;
    console.options = {.AutoRefresh = true, .RefreshSeconds = 1};
    console.view.duringBox = [&] {
        console.link.PollTick();
        console.link.RefreshTick(true);
    };
    console.unit.FailNext(Operation::GetFormat, 4, 6);
    console.link.PollTick();
    console.link.PollTick();
    const Trace happened = console.Happened();
    CHECK(std::ranges::count(happened, ErrorBox("- Error Receiving\n")) == 1);
    CHECK(std::ranges::count(happened, "GetFormat") == 6);
    CHECK(std::ranges::count(happened, "GetMute") == 0);
    CHECK(std::ranges::count(happened, "GetVol") == 0);
    CHECK(std::ranges::count(happened, "GetAudio") == 0);
}

TEST_CASE("polling is switched through the screen's timer and known to the link")
{
    LinkUnderTest console;
    CHECK_FALSE(console.link.Polling());
    console.link.SetPolling(true);
    CHECK(console.link.Polling());
    console.link.SetPolling(false);
    CHECK_FALSE(console.link.Polling());
    CHECK(console.Happened() == Trace{"poll timer on", "poll timer off"});
}

TEST_CASE("with a period of 10 the configuration is read on every tenth tick")
{
    ConnectedLink console;
    console.options = {.AutoRefresh = true, .RefreshSeconds = 10};
    for (int round = 0; round < 3; ++round) {
        for (int tick = 1; tick <= 9; ++tick)
            console.link.RefreshTick(true);
        CHECK(console.Happened().empty());
        console.link.RefreshTick(true);
        CHECK(console.Happened() == ReadBack);
    }
}

TEST_CASE("without \"Automatic Update\" nothing is counted")
{
    ConnectedLink console;
    console.options = {.AutoRefresh = 0, .RefreshSeconds = 1};
    console.link.RefreshTick(true);
    CHECK(console.Happened().empty());
}

TEST_CASE("a period that was never set reads on every tick")
{
    ConnectedLink console;
    console.options = {.AutoRefresh = true, .RefreshSeconds = 0};
    console.link.RefreshTick(true);
    CHECK(console.Happened() == ReadBack);
}

TEST_CASE("a period made shorter than what was counted reads at the next tick")
{
    ConnectedLink console;
    console.options = {.AutoRefresh = true, .RefreshSeconds = 32767};
    for (int tick = 0; tick < 32766; ++tick)
        console.link.RefreshTick(true);
    CHECK(console.Happened().empty());
    console.options.RefreshSeconds = 5;
    console.link.RefreshTick(true);
    CHECK(console.Happened() == ReadBack);
}

TEST_CASE("ticks that fall into a call are not counted")
{
    ConnectedLink console;
    console.options = {.AutoRefresh = true, .RefreshSeconds = 10};
    console.unit.FailNext(Operation::GetUnitVersion, 1, 2);
    console.view.duringAttempt = [&] { console.link.RefreshTick(true); };
    console.link.RetryFunction(UnitOp::GetUnitVersion);
}

TEST_CASE("an automatic re-read that loses the link starts counting anew")
{
    ConnectedLink console;
    console.options = {.AutoRefresh = true, .RefreshSeconds = 1};
    console.unit.FailNext(Operation::GetAudio, 16, 6);
    console.link.RefreshTick(true);
    CHECK(console.Lines("box") == Trace{ErrorBox("- Error Communicating Audio Block\n")});
}

TEST_CASE("Update reads the unit, shows the channel and puts the unit into the title")
{
    ConnectedLink console;
    console.link.Update();
    CHECK(console.Happened() ==
          Trace{"GetAudio", "GetSystem", "GetMute", "GetVol", "GetFormat", "show update"});
}

TEST_CASE("an automatic re-read takes nothing away: what was not in the unit stands as before")
{
    ConnectedLink console;
    console.options = {.AutoRefresh = true, .RefreshSeconds = 1};
    const RoomSettings unsent = [&] {
        RoomSettings room = console.room;
        Set(room, field::Band(Center, 14), 3);
        Set(room, field::ReaderDelay, 390);
        Set(room, field::Kept(4), 77); // stands in a file that was opened, and has no control
        return room;
    }();
    console.room = unsent;
    console.unit.audio.ObeLevel = 5; // changed at the unit meanwhile
    console.link.RefreshTick(true);
    CHECK(console.Happened() == ReadBack);
    RoomSettings expected = unsent;
    expected.Audio.ObeLevel = 5;
    CHECK(Compare(console.room, expected).empty());
    CHECK(Get(console.room, field::Kept(4)) == 77);
    CHECK(console.link.Differences() == 2);
}

TEST_CASE("a level that went away and came back is no edit that a re-read may take: the unit holds the first")
{
    ConnectedLink console;
    console.options = {.AutoUpload = true, .AutoRefresh = true, .RefreshSeconds = 1};
    const int before = Get(console.room, field::Trim(Left));
    Set(console.room, field::Trim(Left), before + 4);
    console.link.UploadToUnit(UploadSelector::AudioOnly, UploadTrigger::AfterEdit);
    Set(console.room, field::Trim(Left), before); // back where it had the focus: not sent
    console.link.RefreshTick(true);
    CHECK(Get(console.room, field::Trim(Left)) == before);
    CHECK(console.link.Differences() == 1);
}

TEST_CASE("Update and a connection replace what was not in the unit")
{
    ConnectedLink console;
    const int before = Get(console.room, field::ObeLevel);
    Set(console.room, field::ObeLevel, before + 1);
    console.link.Update();
    CHECK(Get(console.room, field::ObeLevel) == before);
    CHECK(console.link.Differences() == 0);
}

TEST_CASE("Update off line does nothing")
{
    LinkUnderTest console;
    console.link.Update();
    CHECK(console.Happened().empty());
}

TEST_CASE("an Update that loses the link after both records were read shows them")
{
    ConnectedLink console;
    console.unit.audio.ChannelTrim[Left] = 3;
    console.unit.FailNext(Operation::GetVol, 4, 6);
    console.link.Update();
    CHECK(console.Happened().back() == "show update");
    CHECK(console.room.Audio.ChannelTrim[Left] == 3);
}

TEST_CASE(
    "an Update in which a record could not be read changes neither screen, settings nor what the unit holds")
{
    for (const Operation operation : {Operation::GetAudio, Operation::GetSystem})
        for (const Status status : {StreamNotLocked, Status(8)}) {
            CAPTURE(status);
            ConnectedLink console;
            console.room.Audio.ObeLevel ^= 1; // an edit that the unit does not hold
            console.unit.audio.ChannelTrim[Left] = 3;
            console.unit.system.NonsyncTrim = 9;
            const RoomSettings before = console.room;
            console.unit.FailNext(operation, status, 6);
            console.link.Update();
            CHECK(console.room == before);
            CHECK(console.link.Differences() == 1);
            CHECK(std::ranges::count(console.Happened(), "show update") == 0);
            CHECK(console.link.UnitOnline() == (status == StreamNotLocked));
        }
}
