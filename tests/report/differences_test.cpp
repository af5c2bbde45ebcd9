#include "report/differences.h"

#include <doctest/doctest.h>

using namespace kelvo;

namespace {

RoomSettings Flat()
{
    RoomSettings room;
    ResetAll(room);
    return room;
}

/// "E.Q | Center, 1 kHz | 0.0 dB | +2.5 dB | 5"
std::string Line(const DifferenceRow &row)
{
    return std::string(row.section) + " | " + row.setting + " | " + row.left + " | " + row.right + " | " +
           std::to_string(row.size);
}

std::vector<std::string> Lines(const Differences &differences)
{
    std::vector<std::string> lines;
    for (const DifferenceRow &row : differences.rows)
        lines.push_back(Line(row));
    return lines;
}

using Texts = std::vector<std::string>;

} // namespace

namespace doctest {

template <>
struct StringMaker<Texts> {
    static String convert(const Texts &texts)
    {
        std::string all = "\n";
        for (const std::string &text : texts)
            all += "    " + text + "\n";
        return all.c_str();
    }
};

} // namespace doctest

TEST_CASE("two equal rooms differ in nothing")
{
    const Differences none = DifferencesOf(WholeRoom(Flat()), WholeRoom(Flat()));
    CHECK(none.None());
    CHECK(none.rows.empty());
    CHECK(none.otherBytes == 0);
    CHECK(CountsText(none).empty());
    // 3 live values, 6 trims, 3 x 27 + 2 x 9 + 3 bytes of equalisers, 12 shelves, 2 of OBE, 7 options, 11
    // texts.
    CHECK(none.compared == 3 + 6 + 102 + 12 + 2 + 7 + 11);
}

TEST_CASE("each setting that differs is a row, in words, in the order of the fields, live values last")
{
    const RoomSettings left = Flat();
    RoomSettings right = Flat();
    right.FaderLevel = 65;
    right.MuteState = True;
    right.CurrentFormat = 2;
    right.Audio.ChannelTrim[Center] = 8;        // 12 = 0 dB, half a decibel a position, up is less
    right.Audio.ChannelEq[Center].Band[14] = 7; // the 15th third of an octave from 40 Hz on
    right.Audio.ChannelEq[Left].BassLevel = 13; // 10 = 0 dB, one decibel a position
    right.Audio.ObeLevel = 13;                  // half decibels down from +6 dB
    right.System.ReaderDelay = {0, 5};          // quarters of a frame
    right.System.SurroundDelay = 4;             // tens of milliseconds
    right.System.NonsyncMode = 1;
    right.TheaterInfo[1] = "Odeon 3";
    const Differences found = DifferencesOf(WholeRoom(left), WholeRoom(right));
    CHECK(Lines(found) == Texts{"Output Trim | Center, output trim | 0.0 dB | +2.0 dB | 4",
                                "E.Q | Center, 1 kHz | 0.0 dB | +2.5 dB | 5",
                                "Tone | Left, bass | 0 dB | -3 dB | 6",
                                "OBE | OBE level | 0.0 dB | -0.5 dB | 1",
                                "Options | Non-sync outputs | Screen Channels | Surround Channels | 24",
                                "Options | Optical reader delay | 0.00 TC Frames | 1.25 TC Frames | 5",
                                "Options | Surround delay | 0 mS | 40 mS | 4",
                                "Theater | Theater Name |  | Odeon 3 | 24", "Live | Fader | 7.0 | 6.5 | 5",
                                "Live | Mute | Off | On | 24", "Live | Format | Mono | SR-TYPE | 24"});
    CHECK(found.Settings() == 8);
    CHECK(found.live == 3);
    CHECK(CountsText(found) == "8 settings, 3 live values");
}

TEST_CASE("what no control offers is told as a number, and its size is the distance of the numbers")
{
    RoomSettings right = Flat();
    right.Audio.ChannelEq[Left].TrebleLevel = 200;
    CHECK(Lines(DifferencesOf(WholeRoom(Flat()), WholeRoom(right))) ==
          Texts{"Tone | Left, treble | 0 dB | raw 200 | 190"});
}

TEST_CASE("what one side does not know is not compared")
{
    RoomSettings right = Flat();
    right.FaderLevel = 1;
    right.TheaterInfo[0] = "Circuit";
    right.Audio.ObeLevel = 13;
    right.System.stored8 = 9;       // a file's line holds it, no control shows it
    right.Audio.reserved194[0] = 1; // no line of a file holds it

    const auto told = [&](const Side &side) {
        const Differences found = DifferencesOf(WholeRoom(Flat()), side);
        return CountsText(found) + " of " + std::to_string(found.compared);
    };
    CHECK(told(WholeRoom(right)) == "2 settings, 1 live value, 2 other bytes of 143");
    CHECK(told(FileLines(right)) == "2 settings, 1 live value of 143");
    CHECK(told(RecordsAlone(right)) == "1 setting, 2 other bytes of 129");
    CHECK(told(SettingsAlone(right)) == "1 setting of 129");
    CHECK(DifferencesOf(SettingsAlone(right), WholeRoom(Flat())).otherBytes == std::nullopt);

    Side nothing{right, {}};
    CHECK(DifferencesOf(nothing, WholeRoom(Flat())).None());
    nothing.known.set(std::size_t(field::Fader));
    CHECK(Lines(DifferencesOf(nothing, WholeRoom(Flat()))) == Texts{"Live | Fader | 0.1 | 7.0 | 69"});
}

TEST_CASE("the unit's clock runs by itself and is no difference")
{
    RoomSettings right = Flat();
    right.Audio.UnitClock = {1, 2, 3, 4};
    CHECK(DifferencesOf(WholeRoom(Flat()), WholeRoom(right)).None());
}

TEST_CASE("other bytes alone are a difference and have no row")
{
    RoomSettings right = Flat();
    right.System.stored8 = 9;
    const Differences found = DifferencesOf(WholeRoom(Flat()), WholeRoom(right));
    CHECK(found.rows.empty());
    CHECK_FALSE(found.None());
    CHECK(CountsText(found) == "1 other byte");
}

TEST_CASE("as CSV: a heading, a row a setting, quotes where they are needed")
{
    RoomSettings left = Flat();
    RoomSettings right = Flat();
    right.Audio.ChannelTrim[Center] = 14;
    left.TheaterInfo[2] = "1, High \"Street\"";
    right.TheaterInfo[2] = "=1+1";
    right.TheaterInfo[3] = "Zürich";
    const Differences found = DifferencesOf(WholeRoom(left), WholeRoom(right));
    CHECK(ToCsv(found.rows, "Screen", "house, old.zcf") ==
          "Section,Setting,Screen,\"house, old.zcf\"\r\n"
          "Output Trim,\"Center, output trim\",0.0 dB,-1.0 dB\r\n"
          "Theater,Address,\"1, High \"\"Street\"\"\",'=1+1\r\n"
          "Theater,City,,Zürich\r\n");
    CHECK(ToCsv({}, "-a.zcf", "@b") == "Section,Setting,'-a.zcf,'@b\r\n");
}

TEST_CASE("for the clipboard: tabs between the cells, whatever stands in them")
{
    RoomSettings right = Flat();
    right.TheaterInfo[10] = "one\ttwo\nthree";
    right.Audio.ChannelTrim[Left] = 11;
    CHECK(ToTabs(DifferencesOf(WholeRoom(Flat()), WholeRoom(right)).rows, "Screen", "Unit") ==
          "Section\tSetting\tScreen\tUnit\n"
          "Output Trim\tLeft, output trim\t0.0 dB\t+0.5 dB\n"
          "Theater\tNotes\t\tone two three\n");
}
