#include "support/linkundertest.h"

using namespace kelvo;

namespace {

/// One reading of each kind.
struct Readings {
    std::array<Byte, GainBytes> gain{};
    std::array<Byte, SlitLossBytes> slitLoss{};
    std::array<Byte, AzimuthBytes> azimuth{};
    Word side = 0;
};

struct Read {
    Operation operation;
    Status (*read)(UnitLink &link, Readings &readings);

    const char *Name() const { return RowOf(operation).name; }
};

const std::array<Read, 3> Reads{{
    {Operation::GetOptGain, [](UnitLink &link, Readings &readings) { return link.ReadGain(readings.gain); }},
    {Operation::GetSingleSlitloss,
     [](UnitLink &link, Readings &readings) { return link.ReadSlitLoss(readings.slitLoss, readings.side); }},
    {Operation::GetOptAzimuth,
     [](UnitLink &link, Readings &readings) { return link.ReadAzimuth(readings.azimuth); }},
}};

} // namespace

TEST_CASE("an optical read off line calls nothing and is not locked")
{
    for (const Read &read : Reads) {
        LinkUnderTest console;
        Readings readings;
        CHECK(read.read(console.link, readings) == StreamNotLocked);
        CHECK(console.Happened().empty());
    }
}

TEST_CASE("an unlocked stream unlocks the screen, without a box, a retry or the end of the link")
{
    for (const Read &read : Reads) {
        ConnectedLink console;
        Readings readings;
        CHECK(read.read(console.link, readings) == StreamNotLocked);
        CHECK(console.Happened() == Trace{read.Name(), "no stream"});
        CHECK(console.link.UnitOnline());
    }
}

TEST_CASE("any other failure of an optical read is reported at once and ends the link")
{
    for (const Read &read : Reads) {
        ConnectedLink console;
        Readings readings;
        console.unit.FailNext(read.operation, 256, 1);
        CHECK(read.read(console.link, readings) == 256);
        CHECK(console.Happened() ==
              Join({{read.Name(), ErrorBox("- Error during streaming\n")}, EndOfConnection()}));
        CHECK_FALSE(console.link.UnitOnline());
    }
}

TEST_CASE("ticks of the stream while its failure is being reported read nothing: one box")
{
    ConnectedLink console;
    Readings readings;
    console.unit.FailNext(Operation::GetOptGain, 1, 100);
    console.view.duringBox = [&] {
        for (const Read &read : Reads)
            CHECK(read.read(console.link, readings) == StreamNotLocked);
    };
    CHECK(Reads[0].read(console.link, readings) == 1);
    CHECK(console.Happened() == Join({{"GetOptGain", ErrorBox("- Serial Port Error\n")}, EndOfConnection()}));
}

TEST_CASE("a good optical read fills the caller's record and shows nothing")
{
    struct OneStream : RecordingLibrary {
        using RecordingLibrary::RecordingLibrary;
        Status Perform(const Call &call) override
        {
            switch (call.operation) {
            case Operation::GetOptGain:
                call.bytesOut[0] = 81;
                call.bytesOut[1] = 79;
                return Success;
            case Operation::GetSingleSlitloss:
                call.bytesOut[10] = 255;
                call.wordsOut[0] = 1;
                return Success;
            case Operation::GetOptAzimuth:
                call.bytesOut[27] = 128;
                return Success;
            default:
                return RecordingLibrary::Perform(call);
            }
        }
    };
    LinkUnderTest console;
    OneStream library(console.unit, console.trace);
    UnitLink link(console.room, console.options, library, console.view, console.clock);
    link.RetryFunction(UnitOp::InitDLL);
    console.trace.clear();
    Readings readings;
    for (const Read &read : Reads)
        CHECK(read.read(link, readings) == Success);
    CHECK(readings.gain == std::array<Byte, GainBytes>{81, 79});
    CHECK(readings.slitLoss[10] == 255);
    CHECK(readings.side == 1);
    CHECK(readings.azimuth[27] == 128);
    CHECK(console.Happened().empty());
}
