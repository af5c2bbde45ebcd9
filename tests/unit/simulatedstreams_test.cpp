#include "unit/simulatedunit.h"

#include "support/unitundertest.h"

#include <doctest/doctest.h>

#include <cmath>
#include <numbers>

using namespace kelvo;

namespace {

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
