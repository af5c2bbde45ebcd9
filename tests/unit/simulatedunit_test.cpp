#include "unit/simulatedunit.h"

#include "support/anycall.h"
#include "support/unitundertest.h"

#include <doctest/doctest.h>

using namespace kelvo;
using std::chrono::milliseconds;

TEST_CASE("the simulated unit answers reads from what was written")
{
    SimulatedUnit unit;
    AudioBlock audio{};
    SystemBlock system{};
    for (std::size_t i = 0; i < sizeof audio; ++i)
        BytesOf(audio)[i] = Byte(255 - i);
    for (std::size_t i = 0; i < sizeof system; ++i)
        BytesOf(system)[i] = Byte(7 * i);
    CHECK(unit.SetAudio(audio) == Success);
    CHECK(unit.SetSystem(system) == Success);
    AudioBlock audioRead{};
    SystemBlock systemRead{};
    CHECK(unit.GetAudio(audioRead) == Success);
    CHECK(unit.GetSystem(systemRead) == Success);
    CHECK(audioRead == audio);
    CHECK(systemRead == system);

    Word word = 0;
    CHECK(unit.SetVol(43) == Success);
    CHECK(unit.GetVol(word) == Success);
    CHECK(word == 43);
    CHECK(unit.SetMute(True) == Success);
    CHECK(unit.GetMute(word) == Success);
    CHECK(word == True);
    CHECK(unit.SelectFormat(5) == Success);
    CHECK(unit.GetFormat(word) == Success);
    CHECK(word == 5);
}

TEST_CASE("the simulated unit keeps what the console left running")
{
    SimulatedUnit unit;
    unit.SetPink(Center, True);
    unit.SetPhase(Subwoofer, True);
    unit.SetRT60(True);
    unit.SetProjector(1);
    CHECK(unit.testSignals.pink == std::array<bool, ChannelCount>{false, false, true, false, false, false});
    CHECK(unit.testSignals.inverted ==
          std::array<bool, ChannelCount>{false, false, false, false, false, true});
    CHECK(unit.testSignals.rt60);
    CHECK(unit.projector == 1);
    unit.SetPink(Center, False);
    unit.SetPhase(Subwoofer, False);
    unit.SetRT60(False);
    CHECK(unit.testSignals.pink == std::array<bool, ChannelCount>{});
    CHECK(unit.testSignals.inverted == std::array<bool, ChannelCount>{});
    CHECK(!unit.testSignals.rt60);
    CHECK(unit.SetPink(-1, True) == Success);
    CHECK(unit.SetPhase(ChannelCount, True) == Success);
}

TEST_CASE("the simulated unit is opened and closed as often as the console likes")
{
    SimulatedUnit unit;
    for (Word port = 1; port <= 4; ++port) {
        CHECK(unit.InitDLL(port) == Success);
        CHECK(unit.port == port);
        CHECK(unit.DLLShutdown() == Success);
        CHECK(unit.port == 0);
    }
    CHECK(unit.SetDLLBaud(3) == Success);
    CHECK(unit.baudIndex == 3);
    CHECK(unit.DLLCreateIni() == Success);
    CHECK(unit.iniCreated);
}

TEST_CASE("at power-on the simulated unit is a tuned hall whose every value fits its control")
{
    SimulatedUnit unit;
    UnitVersion version;
    CHECK(unit.GetUnitVersion(version) == Success);
    CHECK(version.CpuMajor == 1);
    CHECK(version.CpuMinor == 6);
    CHECK(version.DspControllerMinor >= 3);
    CHECK(version.DspFirmwareMinor >= 9);

    bool flat = true;
    for (int channel = 0; channel < ChannelCount; ++channel) {
        const ChannelSlice &slice = unit.audio.ChannelEq[std::size_t(channel)];
        CHECK(unit.audio.ChannelTrim[std::size_t(channel)] <= 24);
        CHECK(slice.BassLevel <= 20);
        CHECK(slice.TrebleLevel <= 20);
        for (int band = 0; band < EqualiserBytes(KindOf(channel)); ++band) {
            CHECK(slice.Band[std::size_t(band)] <= 24);
            flat = flat && slice.Band[std::size_t(band)] == 12;
        }
    }
    CHECK(!flat);
    CHECK(unit.audio.ChannelEq[Subwoofer].Band[SubWidth] <= 2);
    CHECK(unit.audio.ChannelEq[Subwoofer].Band[SubFreq] <= 6);
    CHECK(unit.audio.ObeFreq == 3); // 70 Hz
    CHECK(unit.system.F1KeyMode == 3);
    CHECK(unit.system.NonsyncMode <= 3);
    CHECK(ReaderDelayIndex(unit.system) <= 396);
    CHECK(unit.system.SurroundDelay <= 10);
    CHECK(unit.system.NonsyncTrim <= 20);
    CHECK(unit.system.DefaultFormat <= 4);
}

TEST_CASE("at power-on no byte that the console does not interpret is 0")
{
    SimulatedUnit unit;
    for (Byte byte : unit.audio.reserved4)
        CHECK(byte != 0);
    for (Byte byte : unit.audio.reserved194)
        CHECK(byte != 0);
    for (int channel = 0; channel < ChannelCount; ++channel) {
        const ChannelSlice &slice = unit.audio.ChannelEq[std::size_t(channel)];
        CHECK(slice.unused29 != 0);
        for (int unused = EqualiserBytes(KindOf(channel)); unused < BandCount; ++unused)
            CHECK(slice.Band[std::size_t(unused)] != 0);
    }
    CHECK(unit.system.reserved2 != 0);
    CHECK(unit.system.reserved7 != 0);
    CHECK(unit.system.stored8 != 0);
    CHECK(unit.system.reserved9 != 0);
    for (std::size_t i = 10; i < 24; ++i)
        CHECK(BytesOf(unit.system)[i] != 0);
    for (std::size_t i = 25; i < 30; ++i)
        CHECK(BytesOf(unit.system)[i] != 0);
    for (Byte byte : unit.system.reserved31)
        CHECK(byte != 0);
}

TEST_CASE("a told failure is answered as often as told, and what failed was not done")
{
    SimulatedUnit unit;
    unit.FailNext(Operation::SetVol, 4, 2);
    CHECK(unit.FailuresLeft() == 2);
    CHECK(unit.SetVol(10) == 4);
    CHECK(unit.FailuresLeft() == 1);
    CHECK(unit.SetMute(True) == Success);
    CHECK(unit.SetVol(10) == 4);
    CHECK(unit.panel.level == 70);
    CHECK(unit.SetVol(10) == Success);
    CHECK(unit.panel.level == 10);
}

TEST_CASE("failures of one operation follow each other in the order in which they were told")
{
    SimulatedUnit unit;
    unit.FailNext(Operation::GetVol, 2, 1);
    unit.FailNext(Operation::GetVol, 512, 1);
    Word level = -5;
    CHECK(unit.GetVol(level) == 2);
    CHECK(unit.GetVol(level) == 512);
    CHECK(level == -5);
    CHECK(unit.GetVol(level) == Success);
    CHECK(level == 70);
    unit.FailNext(Operation::GetVol, 2, 0);
    CHECK(unit.GetVol(level) == Success);
}

TEST_CASE("a failure of any operation meets whatever comes next, ClearError left out")
{
    SimulatedUnit unit;
    unit.FailNext(std::nullopt, 32, 2);
    CHECK(unit.StopStream() == 32);
    CHECK(unit.ClearError() == Success);
    CHECK(unit.EnableOBE() == 32);
    CHECK(unit.EnableOBE() == Success);
    unit.FailNext(std::nullopt, 32, 100);
    unit.ForgetFailures();
    CHECK(unit.EnableOBE() == Success);
}

TEST_CASE("with its cable out the unit answers every operation with an error and keeps what it holds")
{
    SimulatedUnit unit;
    unit.panel.plugged = false;
    for (const OperationRow &row : Operations) {
        CAPTURE(row.name);
        AnyCall call(row.operation);
        CHECK(unit.Do(call) == SimulatedUnit::UnpluggedStatus);
    }
    unit.panel.plugged = true;
    Word word = 1;
    CHECK(unit.GetVol(word) == Success);
    CHECK(word == 70);
    AudioBlock audio{};
    CHECK(unit.GetAudio(audio) == Success);
    CHECK(audio.ObeFreq == 3);
    CHECK(!unit.testSignals.rt60);
}

TEST_CASE("on a slow line each operation takes the time it was told")
{
    UnitUnderTest test;
    test.unit.SetVol(50);
    CHECK(test.time.waits.empty());
    test.unit.panel.slow = milliseconds(120);
    test.unit.SetVol(51);
    test.unit.EnableOBE();
    CHECK(test.time.waits == std::vector{milliseconds(120), milliseconds(120)});
}
