#include "support/linkundertest.h"

using namespace kelvo;

namespace {

const Trace FiveReads{"GetAudio", "GetSystem", "GetMute", "GetVol", "GetFormat"};
const std::vector<UnitOp> Everything{UnitOp::GetAudio, UnitOp::GetSystem, UnitOp::GetMute, UnitOp::GetVol,
                                     UnitOp::GetFormat};

/// Connected; then somebody turns everything at the unit.
struct UnitTurnedAtItsPanel : ConnectedLink {
    UnitTurnedAtItsPanel()
    {
        unit.audio.ChannelTrim[Center] = 7;
        unit.system.SurroundDelay = 3;
        unit.panel.level = 41;
        unit.panel.mute = True;
        unit.panel.format = 3;
    }
};

} // namespace

TEST_CASE("a read for comparing makes the calls of an Update and shows nothing")
{
    ConnectedLink console;
    CHECK(console.link.ReadApart().empty());
    CHECK(console.Happened() == FiveReads);
}

TEST_CASE("a read for comparing leaves the room alone; what the unit told is known to be held")
{
    UnitTurnedAtItsPanel console;
    const RoomSettings before = console.room;
    CHECK(console.link.Differences() == 0);
    CHECK(console.link.ReadApart().empty());
    CHECK(console.room == before);
    CHECK(console.Happened() == FiveReads);
    CHECK(console.link.Differences() == 5);
    const RoomSettings &held = console.link.Holds().Room;
    CHECK(held.Audio.ChannelTrim[Center] == 7);
    CHECK(held.System.SurroundDelay == 3);
    CHECK(held.FaderLevel == 41);
    CHECK(held.MuteState == True);
    CHECK(held.CurrentFormat == 3);
}

TEST_CASE("the line beside the lamp follows a read for comparing once, at its end")
{
    UnitTurnedAtItsPanel console;
    std::vector<std::optional<int>> shown;
    console.view.onShowSent = [&] { shown.push_back(console.link.Differences()); };
    console.link.ReadApart();
    CHECK(shown == std::vector<std::optional<int>>{5});
}

TEST_CASE("an edit that was not sent stands after a read for comparing")
{
    ConnectedLink console;
    console.room.Audio.ChannelTrim[Left] = 3;
    console.link.ReadApart();
    CHECK(console.room.Audio.ChannelTrim[Left] == 3);
    CHECK(console.link.Differences() == 1);
}

TEST_CASE("a poll after a read for comparing shows what the panel has turned, as ever")
{
    UnitTurnedAtItsPanel console;
    console.link.ReadApart();
    console.Happened();
    console.link.PollTick();
    CHECK(console.Lines("reflect") == Trace{"reflect Format", "reflect Mute", "reflect Fader"});
    CHECK(console.room.FaderLevel == 41);
}

TEST_CASE("a call that fails is tried again, as every call is")
{
    ConnectedLink console;
    console.unit.FailNext(Operation::GetAudio, 4, 5);
    CHECK(console.link.ReadApart().empty());
    CHECK(console.Lines("GetAudio").size() == 6);
    CHECK(console.link.UnitOnline());
}

TEST_CASE("a link that is lost meanwhile is told as ever, and nothing half read is taken")
{
    UnitTurnedAtItsPanel console;
    const UnitHolds before = console.link.Holds();
    console.unit.FailNext(Operation::GetSystem, 8, 6);
    CHECK(console.link.ReadApart() ==
          std::vector{UnitOp::GetSystem, UnitOp::GetMute, UnitOp::GetVol, UnitOp::GetFormat});
    CHECK(console.Lines("box") == Trace{ErrorBox("- Error Communicating System Block\n")});
    CHECK_FALSE(console.link.UnitOnline());
    CHECK(console.link.Holds().Room == before.Room);
    CHECK(console.link.Differences() == 0);
}

TEST_CASE("a record that could not be read while the link holds is named, and neither record is taken")
{
    UnitTurnedAtItsPanel console;
    const UnitHolds before = console.link.Holds();
    console.unit.FailNext(Operation::GetSystem, StreamNotLocked, 6);
    CHECK(console.link.ReadApart() == std::vector{UnitOp::GetSystem});
    CHECK(console.link.UnitOnline());
    CHECK(console.link.Holds().Room.Audio == before.Room.Audio);
    CHECK(console.link.Holds().Room.System == before.Room.System);
    CHECK(console.link.Holds().Room.FaderLevel == 41);
}

TEST_CASE("a live value that could not be read is named; the records are taken")
{
    UnitTurnedAtItsPanel console;
    console.unit.FailNext(Operation::GetMute, StreamNotLocked, 6);
    CHECK(console.link.ReadApart() == std::vector{UnitOp::GetMute});
    CHECK(console.link.Holds().Room.Audio.ChannelTrim[Center] == 7);
    CHECK(console.link.Holds().Room.MuteState == False);
}

TEST_CASE("off line, in a call and during a stream nothing is read")
{
    LinkUnderTest offLine;
    CHECK(offLine.link.ReadApart() == Everything);
    CHECK(offLine.Happened().empty());

    ConnectedLink inCall;
    inCall.unit.FailNext(Operation::GetVol, 1, 6);
    inCall.view.duringBox = [&] { CHECK(inCall.link.ReadApart() == Everything); };
    inCall.link.RetryFunction(UnitOp::GetVol);
    CHECK(inCall.Lines("GetAudio").empty());

    ConnectedLink streaming;
    streaming.link.ForceFormat(1);
    CHECK(streaming.link.ReadApart() == Everything);
    CHECK(streaming.Happened().empty());
}
