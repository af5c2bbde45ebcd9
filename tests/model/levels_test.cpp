#include "model/levels.h"

#include <doctest/doctest.h>

#include <array>
#include <clocale>
#include <string>

using namespace kelvo;

namespace {

// What a text means is worked out here in whole tenths, so that no rounding of the code under test can hide.

int FloorDivide(int value, int divisor)
{
    return value >= 0 ? value / divisor : -((-value + divisor - 1) / divisor);
}

int HalfToEven(int tenths)
{
    const int below = FloorDivide(tenths, 10);
    const int rest = tenths - 10 * below;
    return rest > 5 || (rest == 5 && below % 2 != 0) ? below + 1 : below;
}

std::string Typed(int tenths, char point = '.')
{
    const int size = tenths < 0 ? -tenths : tenths;
    return std::string(tenths < 0 ? "-" : "") + std::to_string(size / 10) + point + std::to_string(size % 10);
}

/// The text a half-decibel slider shows at each of its 25 positions, top to bottom.
constexpr std::array<const char *, 25> HalfDecibelText{
    "6.0",  "5.5",  "5.0",  "4.5",  "4.0",  "3.5",  "3.0",  "2.5",  "2.0",  "1.5",  "1.0",  "0.5", "0.0",
    "-0.5", "-1.0", "-1.5", "-2.0", "-2.5", "-3.0", "-3.5", "-4.0", "-4.5", "-5.0", "-5.5", "-6.0"};

LevelEntry Value(int steps)
{
    return {LevelEntry::Value, steps};
}

const LevelEntry Unreadable{LevelEntry::Unreadable};
const LevelEntry OutOfRange{LevelEntry::OutOfRange};

} // namespace

TEST_CASE("every fader value from -2.0 to 12.0 in tenths stands at 99 less its tenths, or is refused")
{
    for (int tenths = -20; tenths <= 120; ++tenths) {
        CAPTURE(tenths);
        const LevelEntry entry = ReadLevel(FaderRule, Typed(tenths));
        if (tenths < 0 || tenths > 99) {
            CHECK(entry == OutOfRange);
            continue;
        }
        CHECK(entry == Value(tenths));
        CHECK(FaderRule.PositionFor(entry.steps) == 99 - tenths);
        CHECK(FaderRule.TextAt(99 - tenths) == Typed(tenths));
    }
}

TEST_CASE("every shelf value from -12.0 to 12.0 in tenths rounds to whole decibels, halves to even")
{
    for (int tenths = -120; tenths <= 120; ++tenths) {
        CAPTURE(tenths);
        const LevelEntry entry = ReadLevel(ShelfRule, Typed(tenths));
        const int level = HalfToEven(tenths);
        if (level < -10 || level > 10) {
            CHECK(entry == OutOfRange);
            continue;
        }
        CHECK(entry == Value(level));
        CHECK(ShelfRule.PositionFor(level) == 10 - level);
        CHECK(ShelfRule.TextAt(10 - level) == std::to_string(level));
    }
}

TEST_CASE("every half-decibel value from -7.5 to 7.5 in tenths goes to the step below, or is refused")
{
    for (int tenths = -75; tenths <= 75; ++tenths) {
        CAPTURE(tenths);
        const LevelEntry entry = ReadLevel(HalfDecibelRule, Typed(tenths));
        if (tenths < -60 || tenths > 60) {
            CHECK(entry == OutOfRange);
            continue;
        }
        const int position = 12 - FloorDivide(tenths, 5);
        CHECK(entry.kind == LevelEntry::Value);
        CHECK(HalfDecibelRule.PositionFor(entry.steps) == position);
        CHECK(HalfDecibelRule.TextAt(position) == HalfDecibelText[std::size_t(position)]);
    }
}

TEST_CASE("every OBE value from -7.5 to 7.5 in tenths goes to the step below, with -6 dB at position 0")
{
    for (int tenths = -75; tenths <= 75; ++tenths) {
        CAPTURE(tenths);
        const LevelEntry entry = ReadLevel(ObeRule, Typed(tenths));
        if (tenths < -60 || tenths > 60) {
            CHECK(entry == OutOfRange);
            continue;
        }
        const int position = 12 + FloorDivide(tenths, 5);
        CHECK(entry.kind == LevelEntry::Value);
        CHECK(ObeRule.PositionFor(entry.steps) == position);
        CHECK(ObeRule.TextAt(position) == HalfDecibelText[std::size_t(24 - position)]);
    }
}

TEST_CASE("the values a technician would check by hand")
{
    CHECK(HalfDecibelRule.TextOf(ReadLevel(HalfDecibelRule, "1.3").steps) == "1.0");
    CHECK(HalfDecibelRule.TextOf(ReadLevel(HalfDecibelRule, "-1.3").steps) == "-1.5");
    CHECK(HalfDecibelRule.TextOf(ReadLevel(HalfDecibelRule, "2.7").steps) == "2.5");
    CHECK(HalfDecibelRule.TextOf(ReadLevel(HalfDecibelRule, "-2.7").steps) == "-3.0");
    CHECK(HalfDecibelRule.PositionFor(ReadLevel(HalfDecibelRule, "6").steps) == 0);
    CHECK(HalfDecibelRule.PositionFor(ReadLevel(HalfDecibelRule, "-6").steps) == 24);
    CHECK(ObeRule.PositionFor(ReadLevel(ObeRule, "-0.3").steps) == 11);
    CHECK(ObeRule.PositionFor(ReadLevel(ObeRule, "0.74").steps) == 13);
    CHECK(ObeRule.TextAt(13) == "0.5");
    CHECK(ObeRule.PositionFor(ReadLevel(ObeRule, "6.0").steps) == 24);
    CHECK(ShelfRule.PositionFor(ReadLevel(ShelfRule, "3").steps) == 7);
    CHECK(FaderRule.PositionFor(ReadLevel(FaderRule, "7").steps) == 29);
    CHECK(ReadLevel(FaderRule, "9.9") == Value(99));
    CHECK(ReadLevel(FaderRule, "10") == OutOfRange);
    CHECK(ReadLevel(FaderRule, "-0.1") == OutOfRange);
}

TEST_CASE("a fader value between two tenths goes to the nearer, and from the middle to the even one")
{
    CHECK(ReadLevel(FaderRule, "0.25") == Value(2));
    CHECK(ReadLevel(FaderRule, "0.75") == Value(8));
    CHECK(ReadLevel(FaderRule, "0.26") == Value(3));
    CHECK(ReadLevel(FaderRule, "-0.05") == Value(0));
    CHECK(ReadLevel(FaderRule, "9.94") == Value(99));
    CHECK(ReadLevel(FaderRule, "9.96") == OutOfRange);
}

TEST_CASE("a shelf just inside half a decibel beyond its end still is that end")
{
    CHECK(ReadLevel(ShelfRule, "10.5") == Value(10));
    CHECK(ReadLevel(ShelfRule, "10.51") == OutOfRange);
    CHECK(ReadLevel(ShelfRule, "-10.5") == Value(-10));
    CHECK(ReadLevel(ShelfRule, "-10.51") == OutOfRange);
    CHECK(ReadLevel(ShelfRule, "2.5") == Value(2));
    CHECK(ReadLevel(ShelfRule, "3.5") == Value(4));
    CHECK(ReadLevel(ShelfRule, "-2.5") == Value(-2));
}

TEST_CASE("a half-decibel value is checked as it was typed, before it goes down to its step")
{
    CHECK(ReadLevel(HalfDecibelRule, "6.2") == OutOfRange);
    CHECK(ReadLevel(HalfDecibelRule, "6.001") == OutOfRange);
    CHECK(ReadLevel(HalfDecibelRule, "-6.001") == OutOfRange);
    CHECK(ReadLevel(HalfDecibelRule, "5.999") == Value(11));
    CHECK(ReadLevel(HalfDecibelRule, "-5.999") == Value(-12));
    // Six and a ten-millionth is six in single precision.
    CHECK(ReadLevel(HalfDecibelRule, "6.0000001") == Value(12));
}

TEST_CASE("a fader text counts as far as it is a number, and no number is zero")
{
    for (const char *text :
         {"", " ", "abc", "--3", "+-3", "-", ".", ",", "e5", "inf", "nan", "\x01", "\n7", "-x",
          "\xE2\x88\x92"
          "3"}) {
        CAPTURE(text);
        CHECK(ReadLevel(FaderRule, text) == Value(0));
    }
    CHECK(ReadLevel(FaderRule, "7 dB") == Value(70));
    CHECK(ReadLevel(FaderRule, "  7.5") == Value(75));
    CHECK(ReadLevel(FaderRule, "+5") == Value(50));
    CHECK(ReadLevel(FaderRule, ".5") == Value(5));
    CHECK(ReadLevel(FaderRule, "5.") == Value(50));
    CHECK(ReadLevel(FaderRule, "1.2.3") == Value(12));
    CHECK(ReadLevel(FaderRule, "6x9") == Value(60));
    CHECK(ReadLevel(FaderRule, "3e") == Value(30));
    CHECK(ReadLevel(FaderRule, "3e+") == Value(30));
    CHECK(ReadLevel(FaderRule, "0x10") == Value(0));
    CHECK(ReadLevel(FaderRule, "7\x01") == Value(70));
}

TEST_CASE("exponents count: 1e3 is one thousand and 70e-1 is seven")
{
    CHECK(ReadLevel(FaderRule, "1e3") == OutOfRange);
    CHECK(ReadLevel(FaderRule, "70e-1") == Value(70));
    CHECK(ReadLevel(FaderRule, "0.7E1") == Value(70));
    CHECK(ReadLevel(ShelfRule, "1e3") == OutOfRange);
    CHECK(ReadLevel(ShelfRule, "1e1") == Value(10));
    CHECK(ReadLevel(HalfDecibelRule, "1e3") == OutOfRange);
    CHECK(ReadLevel(HalfDecibelRule, "35e-1") == Value(7));
}

TEST_CASE("a shelf number that overflows 16 bits once it is rounded is no number")
{
    CHECK(ReadLevel(ShelfRule, "32767") == OutOfRange);
    CHECK(ReadLevel(ShelfRule, "32767.4") == OutOfRange);
    CHECK(ReadLevel(ShelfRule, "32767.5") == Unreadable);
    CHECK(ReadLevel(ShelfRule, "32768") == Unreadable);
    CHECK(ReadLevel(ShelfRule, "-32768") == OutOfRange);
    CHECK(ReadLevel(ShelfRule, "-32768.5") == OutOfRange); // the even neighbour
    CHECK(ReadLevel(ShelfRule, "-32768.6") == Unreadable);
    CHECK(ReadLevel(ShelfRule, "-32769") == Unreadable);
}

TEST_CASE("a fader or shelf number that overflows 16 bits is no number; half-decibel ones are out of range")
{
    CHECK(ReadLevel(FaderRule, "3276.7") == OutOfRange);
    CHECK(ReadLevel(FaderRule, "3276.8") == Unreadable);
    CHECK(ReadLevel(FaderRule, "-3276.8") == OutOfRange);
    CHECK(ReadLevel(FaderRule, "-3276.9") == Unreadable);
    for (const char *huge : {"40000", "1e9", "1e400", "-1e400", "1e99999999999999999999"}) {
        CAPTURE(huge);
        CHECK(ReadLevel(FaderRule, huge) == Unreadable);
        CHECK(ReadLevel(ShelfRule, huge) == Unreadable);
        CHECK(ReadLevel(HalfDecibelRule, huge) == OutOfRange);
        CHECK(ReadLevel(ObeRule, huge) == OutOfRange);
    }
    for (const char *tiny : {"1e-400", "1e-99999999999999999999", "0e999", "0.0e99999999999999999999"}) {
        CAPTURE(tiny);
        CHECK(ReadLevel(FaderRule, tiny) == Value(0));
        CHECK(ReadLevel(ShelfRule, tiny) == Value(0));
        CHECK(ReadLevel(HalfDecibelRule, tiny) == Value(0));
    }
}

TEST_CASE("a level text that is not a number as a whole leaves the level as it is")
{
    for (const char *text : {"",
                             " ",
                             "abc",
                             "--3",
                             "+-3",
                             "3 4",
                             "3dB",
                             "-",
                             ".",
                             ",",
                             "1.2.3",
                             "1,000.5",
                             "inf",
                             "nan",
                             "0x3",
                             "3e",
                             "3e+",
                             "\x01",
                             "3\x01",
                             "\x7f"
                             "3",
                             "3\n"}) {
        CAPTURE(text);
        CHECK(ReadLevel(ShelfRule, text) == Unreadable);
        CHECK(ReadLevel(HalfDecibelRule, text) == Unreadable);
        CHECK(ReadLevel(ObeRule, text) == Unreadable);
    }
    CHECK(ReadLevel(ShelfRule, "  3 ") == Value(3));
    CHECK(ReadLevel(HalfDecibelRule, "\t-3.5 ") == Value(-7));
    CHECK(ReadLevel(ShelfRule, "+3") == Value(3));
    CHECK(ReadLevel(HalfDecibelRule, std::string("3\0", 2)) == Unreadable);
}

TEST_CASE("a point and a comma both separate decimals, whatever the locale says")
{
    const std::string before = std::setlocale(LC_ALL, nullptr);
    for (const char *locale : {"C", "de_DE.UTF-8", "fr_FR.UTF-8"}) {
        std::setlocale(LC_ALL, locale); // keeps the one before where the system lacks it
        CHECK(ReadLevel(FaderRule, "6.5") == Value(65));
        CHECK(ReadLevel(FaderRule, "6,5") == Value(65));
        CHECK(ReadLevel(ShelfRule, "6,4") == Value(6));
        CHECK(ReadLevel(HalfDecibelRule, "-4,5") == Value(-9));
        CHECK(ReadLevel(HalfDecibelRule, "-4.5") == Value(-9));
        CHECK(HalfDecibelRule.TextOf(-9) == "-4.5");
    }
    std::setlocale(LC_ALL, before.c_str());
}

TEST_CASE("ten thousand characters are read like any other text")
{
    const std::string nines(10000, '9');
    CHECK(ReadLevel(FaderRule, nines) == Unreadable);
    CHECK(ReadLevel(ShelfRule, nines) == Unreadable);
    CHECK(ReadLevel(HalfDecibelRule, nines) == OutOfRange);
    const std::string zerosThenThree = std::string(10000, '0') + "3";
    CHECK(ReadLevel(FaderRule, zerosThenThree) == Value(30));
    CHECK(ReadLevel(ShelfRule, zerosThenThree) == Value(3));
    const std::string small = "0." + std::string(10000, '0') + "3";
    CHECK(ReadLevel(HalfDecibelRule, small) == Value(0));
    CHECK(ReadLevel(HalfDecibelRule, "-" + small) == Value(0));
    CHECK(ReadLevel(HalfDecibelRule, "3e" + nines) == OutOfRange);
    CHECK(ReadLevel(ShelfRule, std::string(10000, 'x')) == Unreadable);
    CHECK(ReadLevel(FaderRule, std::string(10000, '-')) == Value(0));
    CHECK(ReadLevel(ShelfRule, std::string(10000, ' ') + "3") == Value(3));
}

TEST_CASE("a fader level that only the unit could report is shown as it is")
{
    CHECK(FaderRule.TextOf(150) == "15.0");
    CHECK(FaderRule.TextOf(-5) == "-0.5");
    CHECK(FaderRule.TextOf(-32768) == "-3276.8");
}
