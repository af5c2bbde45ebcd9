#include "support/linkoperations.h"
#include "support/linkundertest.h"

using namespace kelvo;

namespace {

constexpr Status Receiving = 4;

bool ShowsAttempts(const LinkOperation &operation)
{
    return operation.op == UnitOp::InitDLL || operation.op == UnitOp::GetUnitVersion;
}

/// A connected link whose settings are those of the table, the unit's alike.
struct PreparedLink : ConnectedLink {
    PreparedLink()
    {
        room.CurrentFormat = unit.panel.format = 3;
        room.FaderLevel = unit.panel.level = 58;
        room.MuteState = unit.panel.mute = True;
        options.ComPort = 4;
    }

    Status Run(const LinkOperation &operation) { return link.RetryFunction(operation.op, 2, True); }
};

/// What follows one failed attempt, up to the next.
Trace AfterFailure(const LinkOperation &operation, int failures)
{
    Trace lines;
    if (failures == 2)
        lines = {"lamp Data?"};
    lines.push_back("pause 300");
    if (ShowsAttempts(operation))
        lines.push_back("attempt " + std::to_string(failures));
    if (operation.clearsErrors)
        lines.push_back("ClearError");
    return lines;
}

} // namespace

TEST_CASE("each operation makes its one call of the library, with its values from the settings")
{
    for (const LinkOperation &operation : LinkOperations) {
        CAPTURE(operation.Name());
        PreparedLink console;
        Trace expected{operation.call};
        if (operation.op == UnitOp::InitDLL)
            expected = {operation.call, "lamp On Line"};
        CHECK(console.Run(operation) == Success);
        CHECK(console.Happened() == expected);
    }
}

TEST_CASE("the second argument alone switches RT60, the first alone sets the baud rate")
{
    ConnectedLink console;
    console.link.RetryFunction(UnitOp::SetRT60, 3, False);
    console.link.RetryFunction(UnitOp::SetDLLBaud, 3, 1);
    CHECK(console.Happened() == Trace{"SetRT60 0", "SetDLLBaud 3"});
}

TEST_CASE("off line every operation but InitDLL does nothing and counts as success")
{
    for (const LinkOperation &operation : LinkOperations) {
        if (operation.op == UnitOp::InitDLL)
            continue;
        CAPTURE(operation.Name());
        LinkUnderTest console;
        const AudioBlock before = console.room.Audio;
        CHECK(console.link.RetryFunction(operation.op, 2, True) == Success);
        CHECK(console.Happened().empty());
        CHECK(console.room.Audio == before);
        CHECK_FALSE(console.link.InCall());
    }
}

TEST_CASE("six failures in a row: six attempts, six pauses, the lamp, the report, the end of the link")
{
    for (const LinkOperation &operation : LinkOperations) {
        CAPTURE(operation.Name());
        PreparedLink console;
        console.unit.FailNext(operation.operation, Receiving, 6);
        CHECK(console.Run(operation) == Receiving);

        Trace expected;
        for (int failures = 1; failures <= 6; ++failures)
            expected = Join({expected, {operation.call}, AfterFailure(operation, failures)});
        expected = Join({expected, {ErrorBox("- Error Receiving\n")}, EndOfConnection()});
        CHECK(console.Happened() == expected);
        CHECK(console.clock.paused == std::chrono::milliseconds(1800));
        CHECK_FALSE(console.link.UnitOnline());
        CHECK_FALSE(console.link.InCall());
    }
}

TEST_CASE("a failure that recovers at the second attempt never changes the lamp")
{
    for (const LinkOperation &operation : LinkOperations) {
        if (operation.op == UnitOp::InitDLL)
            continue;
        CAPTURE(operation.Name());
        PreparedLink console;
        console.unit.FailNext(operation.operation, Receiving, 1);
        CHECK(console.Run(operation) == Success);
        CHECK(console.Happened() == Join({{operation.call}, AfterFailure(operation, 1), {operation.call}}));
    }
}

TEST_CASE("a call that fails two to five times and then succeeds turns the lamp orange and green again")
{
    for (const LinkOperation &operation : LinkOperations) {
        for (int times = 2; times <= 5; ++times) {
            CAPTURE(operation.Name());
            CAPTURE(times);
            PreparedLink console;
            console.unit.FailNext(operation.operation, Receiving, times);
            CHECK(console.Run(operation) == Success);

            Trace expected;
            for (int failures = 1; failures <= times; ++failures)
                expected = Join({expected, {operation.call}, AfterFailure(operation, failures)});
            CHECK(console.Happened() == Join({expected, {operation.call}, {"lamp On Line"}}));
            CHECK(console.link.UnitOnline());
        }
    }
}

TEST_CASE("the result is the status of the sixth failure, and that one is reported")
{
    ConnectedLink console;
    for (Status status = 1; status <= 32; status = Status(status * 2))
        console.unit.FailNext(Operation::SetVol, status, 1);
    CHECK(console.link.RetryFunction(UnitOp::SetVol) == 32);
    CHECK(console.Lines("box") == Trace{ErrorBox("- Invalid response from unit\n")});
}

TEST_CASE("a value that is sent is read from the settings at each attempt")
{
    LinkUnderTest console;
    console.unit.FailNext(Operation::InitDLL, Receiving, 2);
    console.view.duringAttempt = [&] { ++console.options.ComPort; };
    console.link.RetryFunction(UnitOp::InitDLL);
    CHECK(console.Lines("InitDLL") == Trace{"InitDLL 1", "InitDLL 2", "InitDLL 3"});
}

TEST_CASE("a read value that the settings hold already changes nothing on the screen")
{
    ConnectedLink console;
    for (UnitOp op : {UnitOp::GetFormat, UnitOp::GetVol, UnitOp::GetMute})
        console.link.RetryFunction(op);
    CHECK(console.Happened() == Trace{"GetFormat", "GetVol", "GetMute"});
}

TEST_CASE("a changed read value is stored and shown, and no handler sends it back")
{
    ConnectedLink console;
    console.unit.panel.format = 2;
    console.link.RetryFunction(UnitOp::GetFormat);
    CHECK(console.room.CurrentFormat == 2);
    CHECK(console.Happened() == Trace{"GetFormat", "reflect Format"});

    console.unit.panel.level = 41;
    console.link.RetryFunction(UnitOp::GetVol);
    CHECK(console.room.FaderLevel == 41);
    CHECK(console.Happened() == Trace{"GetVol", "reflect Fader"});

    console.unit.panel.mute = True;
    console.link.RetryFunction(UnitOp::GetMute);
    CHECK(console.room.MuteState == True);
    CHECK(console.Happened() == Trace{"GetMute", "reflect Mute"});
    CHECK_FALSE(console.link.Updating);
}

TEST_CASE("words outside the console's ranges are stored as the unit tells them")
{
    ConnectedLink console;
    console.unit.panel.level = -32768;
    console.unit.panel.format = 32767;
    console.unit.panel.mute = 1;
    for (UnitOp op : {UnitOp::GetFormat, UnitOp::GetVol, UnitOp::GetMute})
        console.link.RetryFunction(op);
    CHECK(console.room.FaderLevel == -32768);
    CHECK(console.room.CurrentFormat == 32767);
    CHECK(console.room.MuteState == 1);
}

TEST_CASE("a read that fails leaves the settings as they were")
{
    ConnectedLink console;
    console.unit.panel.level = 41;
    console.unit.FailNext(Operation::GetVol, Receiving, 6);
    console.link.RetryFunction(UnitOp::GetVol);
    CHECK(console.room.FaderLevel == 70);
    CHECK(console.Lines("reflect").empty());
}

TEST_CASE("a control call is busy from its first attempt until its report was seen, and no longer")
{
    ConnectedLink console;
    bool busyInBox = false;
    console.view.duringBox = [&] { busyInBox = console.link.InCall(); };
    console.unit.FailNext(Operation::SetMute, Receiving, 6);
    CHECK_FALSE(console.link.InCall());
    console.link.RetryFunction(UnitOp::SetMute);
    CHECK(busyInBox);
    CHECK_FALSE(console.link.InCall());
}

TEST_CASE("the records go to the library in the settings' own storage, whatever their bytes")
{
    struct StorageCheck : RecordingLibrary {
        using RecordingLibrary::RecordingLibrary;
        const void *record = nullptr;
        Status Perform(const Call &call) override
        {
            record = call.bytesIn.empty() ? call.bytesOut.data() : call.bytesIn.data();
            return RecordingLibrary::Perform(call);
        }
    };
    LinkUnderTest console;
    StorageCheck library(console.unit, console.trace);
    UnitLink link(console.room, console.options, library, console.view, console.clock);
    link.RetryFunction(UnitOp::InitDLL);
    for (UnitOp op : {UnitOp::GetAudio, UnitOp::SetAudio}) {
        link.RetryFunction(op);
        CHECK(std::exchange(library.record, nullptr) == &console.room.Audio);
    }
    for (UnitOp op : {UnitOp::GetSystem, UnitOp::SetSystem}) {
        link.RetryFunction(op);
        CHECK(std::exchange(library.record, nullptr) == &console.room.System);
    }
}

TEST_CASE("records full of any byte value are read and sent back unchanged")
{
    for (int value = 0; value <= 255; ++value) {
        ConnectedLink console;
        std::ranges::fill(BytesOf(console.unit.audio), Byte(value));
        std::ranges::fill(BytesOf(console.unit.system), Byte(value));
        const AudioBlock audio = console.unit.audio;
        const SystemBlock system = console.unit.system;
        console.link.Update();
        console.unit.audio = AudioBlock{};
        console.unit.system = SystemBlock{};
        console.link.RetryFunction(UnitOp::SetAudio);
        console.link.RetryFunction(UnitOp::SetSystem);
        CHECK(console.unit.audio == audio);
        CHECK(console.unit.system == system);
    }
}

TEST_CASE("any word of a file or a unit that means muted is sent as -1")
{
    for (const Word word : {Word(1), Word(5), Word(-2), True}) {
        CAPTURE(word);
        ConnectedLink console;
        console.room.MuteState = word;
        console.link.RetryFunction(UnitOp::SetMute);
        CHECK(console.unit.panel.mute == True);
        CHECK(console.link.Holds().LiveOr(field::Mute, False) == True);
    }
}
