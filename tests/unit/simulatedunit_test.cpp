#include "unit/simulatedunit.h"

#include <doctest/doctest.h>

#include <algorithm>
#include <cmath>
#include <numbers>

using namespace kelvo;
using std::chrono::milliseconds;

namespace {

/// Time that passes when the test says so.
struct HeldTime {
    std::chrono::duration<double> now{0};
    std::vector<milliseconds> waits;

    SimulatedTime Time()
    {
        return {[this] { return now; }, [this](milliseconds time) { waits.push_back(time); }};
    }
    void Pass(double seconds) { now += std::chrono::duration<double>(seconds); }
};

struct UnitUnderTest {
    HeldTime time;
    SimulatedUnit unit{time.Time()};
};

struct Spread {
    double mean = 0;
    double deviation = 0;
};

Spread SpreadOf(const std::vector<double> &values)
{
    Spread spread;
    for (double value : values)
        spread.mean += value / double(values.size());
    for (double value : values)
        spread.deviation += (value - spread.mean) * (value - spread.mean) / double(values.size());
    spread.deviation = std::sqrt(spread.deviation);
    return spread;
}

/// Reads until the stream gives its first reading.
template <typename Read>
void AwaitLock(Read read)
{
    for (int i = 0; i < SimulatedUnit::ReadingsToLock; ++i)
        REQUIRE(read() == StreamNotLocked);
}

/// Readings of the left side taken over 221 s, whole periods of both sides' drift.
std::vector<double> LeftGain(UnitUnderTest &test)
{
    std::array<Byte, GainBytes> reading{};
    REQUIRE(test.unit.BeginGainStream() == Success);
    AwaitLock([&] { return test.unit.GetOptGain(reading); });
    std::vector<double> values;
    for (int i = 0; i < 22100; ++i) {
        test.time.Pass(0.01);
        REQUIRE(test.unit.GetOptGain(reading) == Success);
        values.push_back(reading[0]);
    }
    return values;
}

/// The mean lean of the azimuth cloud's axis in degrees, over 55 s.
double CloudDegrees(UnitUnderTest &test)
{
    std::array<Byte, AzimuthBytes> frame{};
    REQUIRE(test.unit.BeginAzimuthStream() == Success);
    AwaitLock([&] { return test.unit.GetOptAzimuth(frame); });
    double xx = 0;
    double yy = 0;
    double xy = 0;
    for (int i = 0; i < 5500; ++i) {
        test.time.Pass(0.01);
        REQUIRE(test.unit.GetOptAzimuth(frame) == Success);
        for (std::size_t k = 0; k < AzimuthBytes; k += 2) {
            const double x = std::int8_t(frame[k]);
            const double y = std::int8_t(frame[k + 1]);
            xx += x * x;
            yy += y * y;
            xy += x * y;
        }
    }
    return std::atan2(2 * xy, xx - yy) / 2 * 180 / std::numbers::pi;
}

} // namespace

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
    CHECK(std::ranges::equal(BytesOf(audioRead), BytesOf(audio)));
    CHECK(std::ranges::equal(BytesOf(systemRead), BytesOf(system)));

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
            flat = flat && slice.Band[std::size_t(band)] == FlatHalfDecibel;
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
    AudioBlock audio{};
    SystemBlock system{};
    UnitVersion version;
    Word word = 1;
    std::array<Byte, GainBytes> gain{};
    std::array<Byte, SlitLossBytes> sample{};
    std::array<Byte, AzimuthBytes> frame{};
    for (Status status : {unit.InitDLL(1),
                          unit.DLLShutdown(),
                          unit.SetDLLBaud(1),
                          unit.DLLCreateIni(),
                          unit.ClearError(),
                          unit.GetAudio(audio),
                          unit.GetSystem(system),
                          unit.SetAudio(audio),
                          unit.SetSystem(system),
                          unit.GetUnitVersion(version),
                          unit.SetVol(1),
                          unit.GetVol(word),
                          unit.SetMute(True),
                          unit.GetMute(word),
                          unit.SelectFormat(0),
                          unit.GetFormat(word),
                          unit.SetPink(0, True),
                          unit.SetPhase(0, True),
                          unit.SetRT60(True),
                          unit.SetProjector(1),
                          unit.EnableOBE(),
                          unit.StopStream(),
                          unit.BeginGainStream(),
                          unit.BeginSlitStream(),
                          unit.BeginAzimuthStream(),
                          unit.GetOptGain(gain),
                          unit.GetOptSlitloss(),
                          unit.GetSingleSlitloss(sample, word),
                          unit.GetOptAzimuth(frame)})
        CHECK(status == SimulatedUnit::UnpluggedStatus);
    unit.panel.plugged = true;
    CHECK(unit.GetVol(word) == Success);
    CHECK(word == 70);
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

TEST_CASE("a stream that was not begun, or of another kind, is not locked")
{
    SimulatedUnit unit;
    std::array<Byte, GainBytes> gain{1, 2};
    std::array<Byte, SlitLossBytes> sample{};
    std::array<Byte, AzimuthBytes> frame{};
    Word side = 9;
    CHECK(unit.GetOptGain(gain) == StreamNotLocked);
    CHECK(unit.GetSingleSlitloss(sample, side) == StreamNotLocked);
    CHECK(unit.GetOptAzimuth(frame) == StreamNotLocked);
    unit.BeginSlitStream();
    for (int i = 0; i < 20; ++i) {
        CHECK(unit.GetOptGain(gain) == StreamNotLocked);
        CHECK(unit.GetOptAzimuth(frame) == StreamNotLocked);
    }
    AwaitLock([&] { return unit.GetSingleSlitloss(sample, side); });
    CHECK(gain == std::array<Byte, GainBytes>{1, 2});
    CHECK(side == 9);
    CHECK(unit.GetSingleSlitloss(sample, side) == Success);
    unit.StopStream();
    CHECK(unit.GetSingleSlitloss(sample, side) == StreamNotLocked);
    unit.BeginSlitStream();
    AwaitLock([&] { return unit.GetSingleSlitloss(sample, side); });
}

TEST_CASE("a reader that loses its lock answers 768 until it finds it again")
{
    SimulatedUnit unit;
    std::array<Byte, GainBytes> gain{};
    unit.BeginGainStream();
    AwaitLock([&] { return unit.GetOptGain(gain); });
    CHECK(unit.GetOptGain(gain) == Success);
    unit.reader.locked = false;
    CHECK(unit.GetOptGain(gain) == 768);
    CHECK(unit.GetOptGain(gain) == 768);
    unit.reader.locked = true;
    CHECK(unit.GetOptGain(gain) == Success);
}

TEST_CASE("gain readings stay around the knob and spread with the focus noise")
{
    UnitUnderTest calm;
    calm.unit.reader.gainLeft = 120;
    calm.unit.reader.focusNoise = 1;
    const Spread still = SpreadOf(LeftGain(calm));
    CHECK(std::abs(still.mean - 120) < 0.3);

    UnitUnderTest blurred;
    blurred.unit.reader.gainLeft = 60;
    blurred.unit.reader.focusNoise = 8;
    const Spread noisy = SpreadOf(LeftGain(blurred));
    CHECK(std::abs(noisy.mean - 60) < 0.5);
    CHECK(noisy.deviation > 7.5);
    CHECK(noisy.deviation < 8.7);
    CHECK(still.deviation < 2);
}

TEST_CASE("gain drifts slowly: without noise two readings a millisecond apart differ by one unit at most")
{
    UnitUnderTest test;
    test.unit.reader.focusNoise = 0;
    std::array<Byte, GainBytes> last{};
    std::array<Byte, GainBytes> reading{};
    test.unit.BeginGainStream();
    AwaitLock([&] { return test.unit.GetOptGain(last); });
    REQUIRE(test.unit.GetOptGain(last) == Success);
    const std::array<Byte, GainBytes> first = last;
    bool moved = false;
    for (int i = 0; i < 13000; ++i) {
        test.time.Pass(0.001);
        REQUIRE(test.unit.GetOptGain(reading) == Success);
        CHECK(std::abs(reading[0] - last[0]) <= 1);
        CHECK(std::abs(reading[1] - last[1]) <= 1);
        moved = moved || reading != first;
        last = reading;
    }
    CHECK(moved);
}

TEST_CASE("knobs turned beyond a byte give readings at its ends")
{
    SimulatedUnit unit;
    std::array<Byte, GainBytes> gain{};
    unit.reader.gainLeft = 400;
    unit.reader.gainRight = -400;
    unit.BeginGainStream();
    AwaitLock([&] { return unit.GetOptGain(gain); });
    CHECK(unit.GetOptGain(gain) == Success);
    CHECK(gain == std::array<Byte, GainBytes>{255, 0});
}

TEST_CASE("slit-loss samples come from both sides in turn and lose height towards 10 kHz by the knob")
{
    UnitUnderTest test;
    test.unit.reader.slitLoss = 30;
    test.unit.reader.focusNoise = 0;
    test.unit.BeginSlitStream();
    std::array<Byte, SlitLossBytes> sample{};
    Word side = 9;
    AwaitLock([&] { return test.unit.GetSingleSlitloss(sample, side); });
    for (Word expected : {Word(0), Word(1), Word(0), Word(1)}) {
        REQUIRE(test.unit.GetSingleSlitloss(sample, side) == Success);
        CHECK(side == expected);
        for (std::size_t band = 1; band < SlitLossBytes; ++band)
            CHECK(sample[band] >= sample[band - 1]);
        CHECK(std::abs(sample[10] - sample[0] - 30) <= 1);
        CHECK(sample[5] - sample[0] < 10); // most of it falls into the upper bands
    }
}

TEST_CASE("a well adjusted reader stays within the slit-loss range, a bad one leaves it")
{
    UnitUnderTest test;
    test.unit.BeginSlitStream();
    std::array<Byte, SlitLossBytes> sample{};
    Word side = 0;
    AwaitLock([&] { return test.unit.GetSingleSlitloss(sample, side); });
    const auto beyond = [&] {
        int bands = 0;
        for (int i = 0; i < 1000; ++i) {
            REQUIRE(test.unit.GetSingleSlitloss(sample, side) == Success);
            for (Byte reading : sample)
                bands += reading > sample[0] + 6 || reading < sample[0] - 18;
        }
        return bands;
    };
    CHECK(beyond() < 110); // 1 in 100
    test.unit.reader.slitLoss = 40;
    CHECK(beyond() > 2000);
}

TEST_CASE("the azimuth cloud lies along 45 degrees and leans with its knob")
{
    for (double knob : {0.0, -20.0, 30.0}) {
        CAPTURE(knob);
        UnitUnderTest test;
        test.unit.reader.azimuthDegrees = knob;
        CHECK(std::abs(CloudDegrees(test) - (45 + knob)) < 1);
    }
}

TEST_CASE("the azimuth cloud moves: its points travel and its axis sways")
{
    UnitUnderTest test;
    test.unit.reader.focusNoise = 0;
    test.unit.BeginAzimuthStream();
    std::array<Byte, AzimuthBytes> frame{};
    AwaitLock([&] { return test.unit.GetOptAzimuth(frame); });
    test.unit.GetOptAzimuth(frame);
    const std::array<Byte, AzimuthBytes> first = frame;
    test.time.Pass(0.5);
    test.unit.GetOptAzimuth(frame);
    CHECK(frame != first);
    test.time.Pass(5); // the points are back where they were half a second in, on another axis
    const std::array<Byte, AzimuthBytes> before = frame;
    test.unit.GetOptAzimuth(frame);
    CHECK(frame != before);
}

TEST_CASE("the same seed and the same times give the same readings")
{
    UnitUnderTest one;
    UnitUnderTest other;
    CHECK(LeftGain(one) == LeftGain(other));
    CHECK(CloudDegrees(one) == CloudDegrees(other));
    SimulatedUnit third(one.time.Time(), 2);
    SimulatedUnit first(one.time.Time(), 1);
    std::vector<Byte> readings;
    for (SimulatedUnit *unit : {&first, &third}) {
        std::array<Byte, AzimuthBytes> frame{};
        unit->BeginAzimuthStream();
        AwaitLock([&] { return unit->GetOptAzimuth(frame); });
        unit->GetOptAzimuth(frame);
        readings.insert(readings.end(), frame.begin(), frame.end());
    }
    CHECK(!std::equal(readings.begin(), readings.begin() + AzimuthBytes, readings.begin() + AzimuthBytes));
}
