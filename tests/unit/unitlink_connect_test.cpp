#include "support/linkundertest.h"

using namespace kelvo;

namespace {

const Trace Opening{
    "poll timer off", "lamp Off Line", "frames off",   "progress: Connecting to Cinema Processor.",
    "hide versions",  "InitDLL 1",     "lamp On Line", "progress: Determining Software Version."};

const std::string Refusal = "box Cinema Processor Error: "
                            "Error cinema processor bios is out of date, contact Kelvo for an update.";
const std::string NoConnection = "box Connection Error: Unable to connect to unit!";

/// The unit's values are those that the settings start with.
void MatchSettings(LinkUnderTest &console)
{
    console.unit.panel.level = console.room.FaderLevel;
    console.unit.panel.mute = console.room.MuteState;
    console.unit.panel.format = console.room.CurrentFormat;
}

/// Connects and tells whether the unit was refused for its versions.
bool Refused(const UnitVersion &version)
{
    LinkUnderTest console;
    console.unit.version = version;
    const bool connected = console.link.ConnectToUnit();
    const bool refused = std::ranges::count(console.trace, Refusal) == 1;
    CHECK(connected == !refused);
    CHECK(console.link.UnitOnline() == connected);
    return refused;
}

} // namespace

TEST_CASE("a connection, step by step")
{
    LinkUnderTest console;
    MatchSettings(console);
    console.unit.version = {1, 6, 0, 1, 3, 1, 9};
    CHECK(console.link.ConnectToUnit());
    CHECK(console.Happened() ==
          Join({Opening,
                {"GetUnitVersion", "versions CPU Version: 1.06 | DSP Controller: 1.03 | DSP Firmware: 1.09",
                 "frames on", "GetAudio", "GetSystem", "GetMute", "GetVol", "GetFormat", "show connection",
                 "StopStream", "poll timer on"}}));
    CHECK(console.link.UnitOnline());
    CHECK(console.link.Polling());
    CHECK_FALSE(console.link.Updating);
    CHECK_FALSE(console.link.InCall());
}

TEST_CASE("a connection takes the unit's records, fader, mute and format into the settings")
{
    LinkUnderTest console;
    console.unit.audio.ChannelTrim[Center] = 7;
    console.unit.audio.ObeFreq = 3;
    console.unit.system.SurroundDelay = 9;
    console.unit.panel.level = 65;
    console.unit.panel.mute = True;
    console.unit.panel.format = 4;
    CHECK(console.link.ConnectToUnit());
    CHECK(console.room.Audio.ChannelTrim[Center] == 7);
    CHECK(console.room.Audio.ObeFreq == 3);
    CHECK(console.room.System.SurroundDelay == 9);
    CHECK(console.room.FaderLevel == 65);
    CHECK(console.room.MuteState == True);
    CHECK(console.room.CurrentFormat == 4);
    // Nothing that was read is sent back.
    CHECK(console.Lines("Set").empty());
}

TEST_CASE("an open connection is not opened again: nothing is called")
{
    ConnectedLink console;
    CHECK_FALSE(console.link.ConnectToUnit());
    CHECK(console.Happened().empty());
    CHECK(console.link.Polling());
}

TEST_CASE("the chosen COM port takes effect at the next connection")
{
    ConnectedLink console;
    console.options.ComPort = 3;
    CHECK(console.Happened().empty());
    console.link.DispErr(Success);
    console.trace.clear();
    CHECK(console.link.ConnectToUnit());
    CHECK(console.Lines("InitDLL") == Trace{"InitDLL 3"});
}

TEST_CASE("a library that cannot be opened: six attempts, one box, Updating stays set, polling stays off")
{
    LinkUnderTest console;
    console.unit.FailNext(Operation::InitDLL, CouldNotInitialise, 6);
    CHECK_FALSE(console.link.ConnectToUnit());
    Trace attempts;
    for (int failures = 1; failures <= 6; ++failures) {
        attempts.push_back("InitDLL 1");
        if (failures == 2)
            attempts = Join({attempts, {"lamp Data?"}});
        attempts = Join({attempts, {"pause 300", "attempt " + std::to_string(failures)}});
    }
    CHECK(console.Happened() == Join({{"poll timer off", "lamp Off Line", "frames off",
                                       "progress: Connecting to Cinema Processor.", "hide versions"},
                                      attempts,
                                      {NoConnection},
                                      EndOfConnection()}));
    CHECK(console.link.Updating);
    CHECK_FALSE(console.link.Polling());
    CHECK_FALSE(console.link.UnitOnline());
    CHECK_FALSE(console.link.InCall());
    CHECK_FALSE(console.link.InCall());
}

TEST_CASE("a unit that does not tell its version: one box, the version panel stays hidden")
{
    LinkUnderTest console;
    console.unit.FailNext(Operation::GetUnitVersion, 4, 6);
    CHECK_FALSE(console.link.ConnectToUnit());
    CHECK_FALSE(console.link.UnitOnline());
    CHECK(console.link.Updating);
    CHECK_FALSE(console.link.Polling());
    const Trace happened = console.Happened();
    CHECK(std::ranges::count(happened, NoConnection) == 1);
    CHECK(std::ranges::count(happened, "ClearError") == 6);
    CHECK(std::ranges::count(happened, "hide versions") == 1);
    CHECK(std::ranges::none_of(happened, [](const auto &line) { return line.starts_with("versions"); }));
}

TEST_CASE("a refused unit: its versions show, the box names the cause, the link ends silently")
{
    LinkUnderTest console;
    console.unit.version = {1, 5, 76, 1, 3, 1, 9};
    CHECK_FALSE(console.link.ConnectToUnit());
    CHECK(console.Happened() ==
          Join({Opening,
                {"GetUnitVersion",
                 "versions CPU Version: 1.05.0076 | DSP Controller: 1.03 | DSP Firmware: 1.09", Refusal},
                EndOfConnection()}));
    CHECK(console.link.Updating);
    CHECK_FALSE(console.link.Polling());
}

TEST_CASE("the oldest accepted versions")
{
    CHECK_FALSE(Refused({1, 5, 77, 1, 3, 1, 9}));
    CHECK_FALSE(Refused({1, 6, 0, 1, 3, 1, 9}));
    CHECK(Refused({1, 5, 76, 1, 3, 1, 9}));
    CHECK(Refused({1, 4, 32767, 1, 3, 1, 9}));
    CHECK(Refused({1, 5, 77, 1, 2, 1, 9}));
    CHECK(Refused({1, 5, 77, 1, 3, 1, 8}));
}

TEST_CASE("the next good connection clears Updating and polls again after a failed or refused one")
{
    LinkUnderTest console;
    console.unit.FailNext(Operation::InitDLL, 1, 6);
    CHECK_FALSE(console.link.ConnectToUnit());
    console.unit.version.CpuMajor = 0;
    CHECK_FALSE(console.link.ConnectToUnit());
    CHECK(console.link.Updating);
    console.unit.version.CpuMajor = 2;
    CHECK(console.link.ConnectToUnit());
    CHECK_FALSE(console.link.Updating);
    CHECK(console.link.Polling());
}

TEST_CASE("768 six times while opening is no connection: one box, and the library is closed")
{
    for (Operation operation : {Operation::InitDLL, Operation::GetUnitVersion}) {
        CAPTURE(RowOf(operation).name);
        LinkUnderTest console;
        console.unit.FailNext(operation, StreamNotLocked, 6);
        CHECK_FALSE(console.link.ConnectToUnit());
        CHECK_FALSE(console.link.UnitOnline());
        CHECK(console.link.Updating);
        CHECK_FALSE(console.link.Polling());
        const Trace happened = console.Happened();
        const Trace end(happened.end() - 5, happened.end());
        CHECK(end == Join({{"no stream", NoConnection}, EndOfConnection()}));
        CHECK(std::ranges::count(happened, NoConnection) == 1);
    }
}

TEST_CASE("a link lost after the accepted unit's records were read: one box, off line, the screen shows them")
{
    for (const Operation operation :
         {Operation::GetMute, Operation::GetVol, Operation::GetFormat, Operation::StopStream}) {
        CAPTURE(RowOf(operation).name);
        LinkUnderTest console;
        console.unit.FailNext(operation, 2, 6);
        CHECK(console.link.ConnectToUnit()); // it was opened and accepted
        CHECK_FALSE(console.link.UnitOnline());
        CHECK_FALSE(console.link.Updating);
        const Trace happened = console.Happened();
        const auto times = [&](const std::string &line) { return std::ranges::count(happened, line); };
        CHECK(times(ErrorBox("- Error Transmitting\n")) == 1);
        CHECK(std::ranges::count_if(happened, [](auto &line) { return line.starts_with("box"); }) == 1);
        CHECK(times("show connection") == 1);
        CHECK(times("frames on") == 1);
        CHECK(times("DLLShutdown") == 1);
    }
}

TEST_CASE("a record that could not be read is no connection: nothing of it is shown, held or sent back")
{
    for (const Operation operation : {Operation::GetAudio, Operation::GetSystem})
        for (const Status status : {StreamNotLocked, Status(8)}) {
            CAPTURE(status);
            LinkUnderTest console;
            ResetAll(console.room);
            const RoomSettings before = console.room;
            console.unit.FailNext(operation, status, 6);
            CHECK_FALSE(console.link.ConnectToUnit());
            CHECK_FALSE(console.link.UnitOnline());
            CHECK(console.link.Updating); // as after every attempt that failed
            CHECK_FALSE(console.link.Polling());
            CHECK(console.room.Audio == before.Audio);
            CHECK(console.room.System == before.System);
            CHECK(console.link.Differences() == std::nullopt);
            const Trace happened = console.Happened();
            CHECK(std::ranges::count_if(happened, [](auto &line) { return line.starts_with("box"); }) == 1);
            CHECK(std::ranges::count(happened, "show connection") == 0);
            CHECK(happened.back() == "DLLShutdown");
            console.link.UploadToUnit(UploadSelector::Both, UploadTrigger::Explicit);
            CHECK(console.Happened().empty());
        }
}

TEST_CASE("what a failed call leaves in a record was never read")
{
    struct Scribbler : RecordingLibrary {
        using RecordingLibrary::RecordingLibrary;
        Status Perform(const Call &call) override
        {
            const Status status = RecordingLibrary::Perform(call);
            if (status != Success)
                std::ranges::fill(call.bytesOut, Byte(0));
            return status;
        }
    };
    LinkUnderTest console;
    Scribbler library(console.unit, console.trace);
    UnitLink link(console.room, console.options, library, console.view, console.clock);
    console.view.link = &link;
    REQUIRE(link.ConnectToUnit());
    const RoomSettings before = console.room;
    for (const auto &[op, operation] : {std::pair(UnitOp::GetAudio, Operation::GetAudio),
                                        std::pair(UnitOp::GetSystem, Operation::GetSystem)}) {
        console.unit.FailNext(operation, StreamNotLocked, 6);
        CHECK(link.RetryFunction(op) == StreamNotLocked);
        CHECK(console.room == before);
    }
}

TEST_CASE("what the event loop brings during an attempt does not touch the unit")
{
    LinkUnderTest console;
    console.options = {.AutoUpload = true, .AutoRefresh = true};
    console.unit.FailNext(Operation::InitDLL, 1, 1);
    console.unit.FailNext(Operation::GetUnitVersion, 1, 1);
    std::array<Byte, GainBytes> reading{};
    int attempts = 0;
    console.view.duringAttempt = [&] {
        ++attempts;
        const Trace before = console.trace;
        CHECK(console.link.InCall()); // a window asked to close now waits for the end of the call
        CHECK(console.link.InCall());
        CHECK_FALSE(console.link.ConnectToUnit());
        console.link.PollTick();
        console.link.RefreshTick(true);
        console.link.Update();
        console.link.UploadToUnit(UploadSelector::Both, UploadTrigger::Explicit);
        console.link.RetryFunction(UnitOp::SetVol);
        CHECK(console.link.ReadGain(reading) == StreamNotLocked);
        CHECK(console.link.InCall());
        CHECK(console.trace == before);
    };
    CHECK(console.link.ConnectToUnit());
    CHECK(attempts == 2);
    CHECK_FALSE(console.link.InCall());
}

TEST_CASE("a connection can be lost and opened again many times")
{
    LinkUnderTest console;
    for (int round = 0; round < 5; ++round) {
        CHECK(console.link.ConnectToUnit());
        console.unit.FailNext(Operation::SetVol, 4, 6);
        CHECK(console.link.RetryFunction(UnitOp::SetVol) == 4);
        CHECK_FALSE(console.link.UnitOnline());
    }
    CHECK(console.Lines("box") == Times(5, {ErrorBox("- Error Receiving\n")}));
}
