#include "support/linkundertest.h"

using namespace kelvo;

namespace {

const Trace Opening{"poll timer off",
                    "lamp Off Line",
                    "frames off",
                    "progress: Connecting to Cinema Processor.",
                    "hide versions",
                    "InitDLL 1",
                    "lamp On Line",
                    "repaint",
                    "progress: Determining Software Version."};

const std::string Refusal = "box Cinema Processor Error: "
                            "Error cinema processor bios is out of date, contact Kelvo for an update.";
const std::string NoConnection = "box Connection Error: Unable to connect to unit!";

/// The unit's values are those that the settings start with.
void MatchSettings(LinkUnderTest &console)
{
    console.unit.panel.level = console.settings.FaderLevel;
    console.unit.panel.mute = console.settings.MuteState;
    console.unit.panel.format = console.settings.CurrentFormat;
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
                 "frames on", "GetAudio", "GetSystem", "GetMute", "GetVol", "GetFormat", "reflect mute",
                 "reflect mode", "reflect volume", "show system", "show audio", "load channel",
                 "show F1 format", "StopStream", "title CP Settings", "poll timer on"}}));
    CHECK(console.link.UnitOnline());
    CHECK(console.link.ConnectionAccepted());
    CHECK(console.link.Polling());
    CHECK_FALSE(console.settings.Updating);
    CHECK_FALSE(console.link.UnitBusy());
    CHECK_FALSE(console.link.Connecting());
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
    CHECK(console.settings.Audio.ChannelTrim[Center] == 7);
    CHECK(console.settings.ObeEnabled);
    CHECK(console.settings.ObeMode == 3);
    CHECK(console.settings.System.SurroundDelay == 9);
    CHECK(console.settings.FaderLevel == 65);
    CHECK(console.settings.MuteState == True);
    CHECK(console.settings.CurrentFormat == 4);
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
    console.settings.Options.ComPort = 3;
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
            attempts = Join({attempts, {"lamp Data?", "repaint"}});
        attempts = Join({attempts, {"pause 300", "attempt " + std::to_string(failures)}});
    }
    CHECK(console.Happened() == Join({{"poll timer off", "lamp Off Line", "frames off",
                                       "progress: Connecting to Cinema Processor.", "hide versions"},
                                      attempts,
                                      {NoConnection},
                                      EndOfConnection()}));
    CHECK(console.settings.Updating);
    CHECK_FALSE(console.link.Polling());
    CHECK_FALSE(console.link.UnitOnline());
    CHECK_FALSE(console.link.UnitBusy());
    CHECK_FALSE(console.link.InCall());
}

TEST_CASE("a unit that does not tell its version: one box, the version panel stays hidden")
{
    LinkUnderTest console;
    console.unit.FailNext(Operation::GetUnitVersion, 4, 6);
    CHECK_FALSE(console.link.ConnectToUnit());
    CHECK_FALSE(console.link.UnitOnline());
    CHECK(console.settings.Updating);
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
    CHECK(console.settings.Updating);
    CHECK_FALSE(console.link.Polling());
    CHECK_FALSE(console.link.ConnectionAccepted());
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
    CHECK(console.settings.Updating);
    console.unit.version.CpuMajor = 2;
    CHECK(console.link.ConnectToUnit());
    CHECK_FALSE(console.settings.Updating);
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
        CHECK(console.settings.Updating);
        CHECK_FALSE(console.link.Polling());
        const Trace happened = console.Happened();
        const Trace end(happened.end() - 6, happened.end());
        CHECK(end == Join({{"no stream", NoConnection}, EndOfConnection()}));
        CHECK(std::ranges::count(happened, NoConnection) == 1);
    }
}

TEST_CASE("a link lost while the accepted unit is read: one box, off line, the screen shows the settings")
{
    for (Operation operation : {Operation::GetAudio, Operation::GetSystem, Operation::GetMute,
                                Operation::GetVol, Operation::GetFormat, Operation::StopStream}) {
        CAPTURE(RowOf(operation).name);
        LinkUnderTest console;
        console.unit.FailNext(operation, 2, 6);
        CHECK(console.link.ConnectToUnit()); // it was opened and accepted
        CHECK_FALSE(console.link.UnitOnline());
        CHECK_FALSE(console.settings.Updating);
        const Trace happened = console.Happened();
        const auto times = [&](const std::string &line) { return std::ranges::count(happened, line); };
        CHECK(times(ErrorBox("- Error Transmitting\n")) == 1);
        CHECK(std::ranges::count_if(happened, [](auto &line) { return line.starts_with("box"); }) == 1);
        CHECK(times("show system") == 1);
        CHECK(times("show audio") == 1);
        CHECK(times("load channel") == 1);
        CHECK(times("title CP Settings") == 0);
        CHECK(times("frames on") == 1);
        CHECK(times("DLLShutdown") == 1);
    }
}

TEST_CASE("what the event loop brings during an attempt does not touch the unit")
{
    LinkUnderTest console;
    console.settings.Options = {.AutoUpload = true, .AutoRefresh = 1};
    console.unit.FailNext(Operation::InitDLL, 1, 1);
    console.unit.FailNext(Operation::GetUnitVersion, 1, 1);
    std::array<Byte, GainBytes> reading{};
    int attempts = 0;
    console.view.duringAttempt = [&] {
        ++attempts;
        const Trace before = console.trace;
        CHECK(console.link.InCall()); // a window asked to close now waits for the end of the call
        CHECK(console.link.Connecting());
        CHECK(console.link.UnitBusy());
        CHECK_FALSE(console.link.ConnectToUnit());
        console.link.PollTick();
        console.link.RefreshTick(true);
        console.link.Update();
        console.link.UploadToUnit(UploadSelector::Both, UploadTrigger::Explicit);
        console.link.RetryFunction(UnitOp::SetVol);
        CHECK(console.link.ReadGain(reading) == StreamNotLocked);
        CHECK(console.link.UnitBusy());
        CHECK(console.trace == before);
        CHECK(console.link.RefreshCounter() == 0);
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
