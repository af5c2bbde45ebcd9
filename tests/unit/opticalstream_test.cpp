#include "support/linkundertest.h"
#include "unit/sequences.h"

using namespace kelvo;

namespace {

/// A connected link with a stream over it; what the stream shows stands in the trace as well.
struct StreamUnderTest : ConnectedLink, StreamView {
    OpticalStream stream{link, *this};

    StreamUnderTest()
    {
        view.onOffLine = [this] { stream.StopIfRunning(); };
        room.CurrentFormat = 4;
    }
    void ShowStream() override { trace.push_back(stream.Running() ? "running" : "idle"); }
    void ForgetReadings() override { trace.push_back("forget"); }
};

} // namespace

TEST_CASE("a stream starts: projector, polling off, its format, the measurement, the unit's mute")
{
    StreamUnderTest console;
    console.stream.Toggle();
    CHECK(console.Happened() == Trace{"SetProjector 0", "poll timer off", "SelectFormat 1", "running",
                                      "forget", "BeginGainStream", "GetMute"});
    CHECK(console.stream.Running());
    CHECK(console.room.CurrentFormat == 4); // the operator's waits
    CHECK(console.link.Differences() == 0);
}

TEST_CASE("a stream stops: the operator's format is selected again and the poll resumes")
{
    StreamUnderTest console;
    console.stream.Toggle();
    console.trace.clear();
    console.stream.Toggle();
    CHECK(console.Happened() ==
          Trace{"SetProjector 0", "StopStream", "SetProjector 0", "idle", "SelectFormat 4", "poll timer on"});
    CHECK_FALSE(console.stream.Running());
}

TEST_CASE("another measurement goes over while the stream runs; at rest it is only remembered")
{
    StreamUnderTest console;
    console.stream.Select(Measurement::Azimuth);
    CHECK(console.Happened().empty());
    console.stream.Toggle();
    CHECK(console.Lines("Begin") == Trace{"BeginAzimuthStream"});
    console.stream.Select(Measurement::SlitLoss);
    CHECK(console.Happened() ==
          Trace{"StopStream", "SetProjector 0", "running", "forget", "BeginSlitStream"});
    console.stream.Select(Measurement::SlitLoss);
    CHECK(console.Happened().empty());
}

TEST_CASE("another projector: nothing starts at rest, a running measurement begins again")
{
    StreamUnderTest console;
    console.stream.SelectProjector(1);
    CHECK(console.Happened() == Trace{"StopStream", "idle", "SetProjector 1"});
    console.stream.Toggle();
    console.trace.clear();
    console.stream.SelectProjector(0);
    CHECK(console.Happened() ==
          Trace{"StopStream", "running", "SetProjector 0", "forget", "BeginGainStream"});
}

TEST_CASE("a mute stands between the end and the new beginning of a stream")
{
    StreamUnderTest console;
    console.stream.Without([&] { console.link.RetryFunction(UnitOp::SetMute); });
    CHECK(console.Happened() == Trace{"StopStream", "SetMute 0"});
    console.stream.Toggle();
    console.trace.clear();
    console.stream.Without([&] { console.link.RetryFunction(UnitOp::SetMute); });
    CHECK(console.Happened() == Trace{"StopStream", "SetMute 0", "forget", "BeginGainStream"});
}

TEST_CASE("a link lost at any call of a start leaves everything idle after one box")
{
    for (const Operation operation :
         {Operation::SetProjector, Operation::SelectFormat, Operation::BeginGainStream, Operation::GetMute}) {
        CAPTURE(RowOf(operation).name);
        StreamUnderTest console;
        console.unit.FailNext(operation, 1, 6);
        console.stream.Toggle();
        CHECK_FALSE(console.stream.Running());
        CHECK_FALSE(console.link.UnitOnline());
        CHECK(console.room.CurrentFormat == 4);
        CHECK(console.Lines("box").size() == 1);
    }
}

TEST_CASE("off line nothing starts")
{
    StreamUnderTest console;
    console.link.DispErr(Success);
    console.trace.clear();
    console.stream.Toggle();
    CHECK(console.Happened().empty());
    CHECK_FALSE(console.stream.Running());
}

TEST_CASE("a stream lost with its link: the next connection selects the operator's format once, after its "
          "StopStream")
{
    StreamUnderTest console;
    console.stream.Toggle();
    console.link.DispErr(1);
    CHECK_FALSE(console.stream.Running());
    console.trace.clear();
    CHECK(console.link.ConnectToUnit());
    const Trace calls = console.Happened();
    const auto stop = std::ranges::find(calls, "StopStream");
    REQUIRE(calls.end() - stop >= 3);
    CHECK(*(stop + 1) == "reflect Format");
    CHECK(*(stop + 2) == "SelectFormat 4");
    CHECK(console.room.CurrentFormat == 4);
    console.link.DispErr(1);
    console.trace.clear();
    CHECK(console.link.ConnectToUnit());
    CHECK(console.Lines("SelectFormat").empty());
}

TEST_CASE("a format that somebody chose at the unit meanwhile is left alone")
{
    StreamUnderTest console;
    console.stream.Toggle();
    console.link.DispErr(1);
    console.unit.panel.format = 2;
    CHECK(console.link.ConnectToUnit());
    CHECK(console.room.CurrentFormat == 2);
    CHECK(console.Lines("SelectFormat") == Trace{"SelectFormat 1"}); // the stream's own, before the loss
}

TEST_CASE("an operator's format that is the stream's needs no call")
{
    StreamUnderTest console;
    console.room.CurrentFormat = 1;
    console.stream.Toggle();
    console.link.DispErr(1);
    console.trace.clear();
    CHECK(console.link.ConnectToUnit());
    CHECK(console.Lines("SelectFormat").empty());
}

TEST_CASE("loaded values: fader, format and mute at once")
{
    StreamUnderTest console;
    SendLoadedValues(console.link, console.stream);
    CHECK(console.Happened() == Trace{"SetVol 70", "SelectFormat 4", "SetMute 0"});
}

TEST_CASE("loaded values during a stream: the format waits, the mute interrupts")
{
    StreamUnderTest console;
    console.stream.Toggle();
    console.room.CurrentFormat = 5;
    console.trace.clear();
    SendLoadedValues(console.link, console.stream);
    CHECK(console.Happened() == Trace{"SetVol 70", "StopStream", "SetMute 0", "forget", "BeginGainStream"});
    console.stream.Toggle();
    CHECK(console.Lines("SelectFormat") == Trace{"SelectFormat 5"});
}

TEST_CASE("the farewell: stream, test signals, stream again, first rate, the library")
{
    StreamUnderTest console;
    SwitchNoise(console.link, Center, true);
    SwitchPhase(console.link, Right, true);
    SwitchRT60(console.link, true);
    console.stream.Toggle();
    console.trace.clear();
    SayFarewell(console.link, console.stream);
    CHECK(console.Happened() == Trace{"SetProjector 0", "StopStream", "SetProjector 0", "idle",
                                      "SelectFormat 4", "poll timer on", "SetPink 2 0", "SetPhase 4 0",
                                      "SetRT60 0", "StopStream", "SetDLLBaud 0", "DLLShutdown"});
}
