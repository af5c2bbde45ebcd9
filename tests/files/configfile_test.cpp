#include "files/configfile.h"

#include "support/samplefile.h"

#include <algorithm>
#include <doctest/doctest.h>

using namespace kelvo;

namespace {

/// The sample file with one part replaced, once.
std::string Changed(const std::string &from, const std::string &to)
{
    std::string bytes = SampleFile;
    const std::size_t at = bytes.find(from);
    REQUIRE(at != std::string::npos);
    return bytes.replace(at, from.size(), to);
}

std::string WithLineEnds(std::string bytes, const std::string &end)
{
    for (std::size_t at = 0; (at = bytes.find("\r\n", at)) != std::string::npos; at += end.size())
        bytes.replace(at, 2, end);
    return bytes;
}

/// Checks that the bytes are refused and nothing of the settings changes.
void CheckRefused(const std::string &bytes)
{
    CAPTURE(bytes);
    RoomSettings room;
    ResetAll(room);
    room.TheaterInfo[0] = "before";
    const RoomSettings before = room;
    CHECK_FALSE(ParseConfig(bytes, room));
    CHECK(room == before);
}

} // namespace

TEST_CASE("a saved file has these bytes, every line ended by CR LF, numbers joined by commas without blanks")
{
    CHECK(ComposeConfig(SampleSettings()) == SampleFile);
}

TEST_CASE("a file brings back every value that it stores")
{
    RoomSettings room;
    REQUIRE(ParseConfig(SampleFile, room));
    CHECK(ComposeConfig(room) == SampleFile);
    CHECK(room.CurrentFormat == 4);
    CHECK(room.FaderLevel == 65);
    CHECK(room.MuteState == -1);
    CHECK(BytesOf(room.System)[0] == 2);
    CHECK(ReaderDelayIndex(room.System) == 300);
    CHECK(BytesOf(room.System)[29] == 255);
    CHECK(BytesOf(room.System)[30] == 4);
    CHECK(BytesOf(room.Audio)[6 + 5] == 24);            // trim of the subwoofer
    CHECK(BytesOf(room.Audio)[12 + 30 + 8] == 9);       // last octave band of Left Surround
    CHECK(BytesOf(room.Audio)[12 + 4 * 30 + 26] == 5);  // 16 kHz of Right
    CHECK(BytesOf(room.Audio)[12 + 5 * 30 + 2] == 7);   // `SubFreq`
    CHECK(BytesOf(room.Audio)[12 + 2 * 30 + 27] == 2);  // bass of Center
    CHECK(BytesOf(room.Audio)[12 + 2 * 30 + 28] == 18); // treble of Center
    CHECK(room.TheaterInfo == SampleSettings().TheaterInfo);
}

TEST_CASE("bytes that a file does not store keep what the records held before")
{
    RoomSettings room;
    std::ranges::fill(BytesOf(room.Audio), Byte(0xA5));
    std::ranges::fill(BytesOf(room.System), Byte(0x5A));
    REQUIRE(ParseConfig(SampleFile, room));

    const auto audio = BytesOf(room.Audio);
    const auto kept = [&](std::size_t first, std::size_t last) {
        return std::all_of(audio.begin() + long(first), audio.begin() + long(last) + 1,
                           [](Byte byte) { return byte == 0xA5; });
    };
    CHECK(kept(0, 5));                      // clock and reserved
    CHECK(kept(12 + 29, 12 + 29));          // byte 29 of the Left slice
    CHECK(kept(12 + 30 + 9, 12 + 30 + 26)); // beyond the octave bands of Left Surround
    CHECK(kept(12 + 90 + 9, 12 + 90 + 26));
    CHECK(kept(12 + 150 + 3, 12 + 150 + 26)); // beyond the three bytes of the Subwoofer
    CHECK(kept(194, 223));
    for (const int offset : {2, 7, 9, 14, 15, 16, 17, 18, 19, 20, 21, 22, 23, 31, 127})
        CHECK(BytesOf(room.System)[std::size_t(offset)] == 0x5A);
}

TEST_CASE("lines may end in CR LF or LF, with blanks around every value")
{
    const std::string bytes[] = {
        WithLineEnds(SampleFile, "\n"),
        SampleFile.substr(0, SampleFile.size() - 2),
        Changed("4,65,-1", "  4 ,\t65 , -1 \t"),
        Changed("\"A7\"", " \t\"A7\"  "),
        Changed("\"Kelvo CP Settings File: V1.0\"", "  \"Kelvo CP Settings File: V1.0\" "),
        Changed("4,65,-1", "04,065,-01"),
    };
    for (const std::string &each : bytes) {
        CAPTURE(each);
        RoomSettings room;
        CHECK(ParseConfig(each, room));
        CHECK(ComposeConfig(room) == SampleFile);
    }
}

TEST_CASE("what follows the last line is ignored, whatever it is")
{
    for (const std::string more : {"\r\n \t\r\n\n", "\x1A", "\r\n\x1A\r\n", "0\r\n",
                                   "\"a later version's line\"\r\n", "no line end", "\xFF\xFE"}) {
        CAPTURE(more);
        RoomSettings room;
        REQUIRE(ParseConfig(SampleFile + more, room));
        CHECK(ComposeConfig(room) == SampleFile);
    }
    RoomSettings room;
    REQUIRE(ParseConfig(SampleFile + SampleFile, room));
    CHECK(ComposeConfig(room) == SampleFile);
}

TEST_CASE("a byte order mark before the first line is ignored, and nowhere else")
{
    const std::string mark = "\xEF\xBB\xBF";
    RoomSettings room;
    REQUIRE(ParseConfig(mark + SampleFile, room));
    CHECK(ComposeConfig(room) == SampleFile);
    CheckRefused(mark + mark + SampleFile);
    CheckRefused(" " + mark + SampleFile);
    CheckRefused(mark.substr(0, 2) + SampleFile);
    CheckRefused(Changed("4,65,-1", mark + "4,65,-1"));
    CheckRefused(mark);
}

TEST_CASE("a text runs from the first quote of its line to the last")
{
    RoomSettings room;
    REQUIRE(ParseConfig(Changed("\"A7\"", "\"\"\"\""), room));
    CHECK(room.TheaterInfo[0] == "\"\"");
    REQUIRE(ParseConfig(Changed("\"A7\"", "\" a \"b\" \""), room));
    CHECK(room.TheaterInfo[0] == " a \"b\" ");
}

TEST_CASE("control characters never reach a file or the settings")
{
    RoomSettings room = SampleSettings();
    room.TheaterInfo[0] = std::string("\tA\r\n\x7F\x01", 6) + '\0' + "\xC2\x85\xC2\x9F" + "7";
    CHECK(ComposeConfig(room) == SampleFile);
    REQUIRE(ParseConfig(Changed("\"A7\"", "\"A\t\r\x1F\xC2\x80"
                                          "7\""),
                        room));
    CHECK(room.TheaterInfo[0] == "A7");
    room.TheaterInfo[0] = "\xC2\xA0\xC3\x80"; // the characters right after the controls stay
    REQUIRE(ParseConfig(ComposeConfig(room), room));
    CHECK(room.TheaterInfo[0] == "\xC2\xA0\xC3\x80");
}

TEST_CASE("a file that is not valid UTF-8 is read as Windows-1252")
{
    RoomSettings room;
    const std::string last = "\"M\xC3\xBCller, ok\"";
    REQUIRE(ParseConfig(Changed(last, "\"M\xFCller \x80 \x99 \x9F\x81\xFF\""), room));
    CHECK(room.TheaterInfo[10] == "Müller € ™ Ÿÿ"); // 81 stands for nothing
}

TEST_CASE("what only looks like UTF-8 is read as Windows-1252")
{
    const char *const bad[] = {
        "\xC0\xAF",         // a long form of "/"
        "\xE0\x80\xAF",     // a longer one
        "\xF0\x80\x80\xAF", // the longest
        "\xED\xA0\x80",     // a surrogate
        "\xF4\x90\x80\x80", // beyond the last character
        "\xF5\x80\x80\x80", // a first byte of nothing
        "\xBF",             // no first byte
        "\xE2\x82",         // the last byte missing
        "\xE2\x82\x28",     // the last byte wrong
    };
    for (const char *const each : bad) {
        CAPTURE(each);
        RoomSettings room;
        REQUIRE(ParseConfig(Changed("\"A7\"", std::string("\"\xFC") + each + "\""), room));
        const std::string asWindows = room.TheaterInfo[0];
        REQUIRE(ParseConfig(Changed("\"A7\"", std::string("\"ü") + each + "\""), room));
        CHECK(room.TheaterInfo[0] == "Ã¼" + asWindows.substr(2));
    }
    RoomSettings room;
    REQUIRE(ParseConfig(Changed("\"A7\"", "\"ü ࠀ ퟿ 𐀀 \xF4\x8F\xBF\xBF\""), room));
    CHECK(room.TheaterInfo[0] == "ü ࠀ ퟿ 𐀀 \xF4\x8F\xBF\xBF");
}

TEST_CASE("the ends of every range are taken")
{
    RoomSettings room;
    REQUIRE(ParseConfig(Changed("4,65,-1", "0,0,-32768"), room));
    CHECK(room.CurrentFormat == 0);
    CHECK(room.FaderLevel == 0);
    CHECK(room.MuteState == -32768);
    REQUIRE(ParseConfig(Changed("4,65,-1", "5,99,32767"), room));
    CHECK(room.CurrentFormat == 5);
    CHECK(room.FaderLevel == 99);
    CHECK(room.MuteState == 32767);
    REQUIRE(ParseConfig(Changed("2,1,3", "0,255,0"), room));
    CHECK(room.System.DisableMatrix == 255);
}

TEST_CASE("a value out of its range is refused")
{
    const char *const bad[] = {"-1,65,0",    "6,65,0",     "4,-1,0",
                               "4,100,0",    "4,65,32768", "4,65,-32769",
                               "65536,65,0", "4,65536,0",  "4,65,99999999999999999999"};
    for (const char *const each : bad)
        CheckRefused(Changed("4,65,-1", each));
    CheckRefused(Changed("2,1,3", "256,1,3"));
    CheckRefused(Changed("2,1,3", "2,-1,3"));
    CheckRefused(Changed("0,1,2,3,4,24", "0,1,2,3,4,1000"));
}

TEST_CASE("a malformed line is refused")
{
    for (const char *const each :
         {"", " ", "4", "4,65", "4,65,", "4,65,-1,", "4,65,-1,0", ",4,65,-1", "4;65;-1", "4 65 -1", "4,,65",
          "4,65,x", "4,65,1.0", "4,65,0x1", "4,65,- 1", "+4,65,-1", "4,65,\"-1\"", "4,65,-1 0"})
        CheckRefused(Changed("4,65,-1", each));
    CheckRefused(Changed("0,1,2,3,4,24", "0,1,2,3,4"));
    CheckRefused(Changed("0,1,2,3,4,24", "0,1,2,3,4,24,0"));
    CheckRefused(Changed("\r\n2,1,3", "\r\n\r\n2,1,3"));
    for (const char *const each : {"A7", "\"A7", "A7\"", "\"", "x\"A7\"", "\"A7\"x", "\"A7\","})
        CheckRefused(Changed("\"A7\"", each));
    CheckRefused("\x1A" + SampleFile);
}

TEST_CASE("another header is refused")
{
    const std::string header = "\"Kelvo CP Settings File: V1.0\"";
    for (const char *const each :
         {"", "\"\"", "\"Kelvo CP Settings File: V1.1\"", "\"kelvo CP Settings File: V1.0\"",
          "\" Kelvo CP Settings File: V1.0\"", "Kelvo CP Settings File: V1.0",
          "\"Kelvo CP Settings File: V1.0\"\"", "\"Kelvo CP Settings File: V1.0\",1"})
        CheckRefused(Changed(header, each));
    CheckRefused("");
    CheckRefused("\r\n" + SampleFile);
}

TEST_CASE("a unit's fader or format that no file may hold is saved as the nearest one that loads")
{
    RoomSettings room = SampleSettings();
    room.FaderLevel = 120;
    room.CurrentFormat = -3;
    REQUIRE(ParseConfig(ComposeConfig(room), room));
    CHECK(room.FaderLevel == 99);
    CHECK(room.CurrentFormat == 0);
    room.FaderLevel = -1;
    room.CurrentFormat = 6;
    REQUIRE(ParseConfig(ComposeConfig(room), room));
    CHECK(room.FaderLevel == 0);
    CHECK(room.CurrentFormat == 5);
}

TEST_CASE("a file cut anywhere is refused, but for its last line end")
{
    for (std::size_t length = 0; length + 2 < SampleFile.size(); ++length)
        CheckRefused(SampleFile.substr(0, length));
}

TEST_CASE("a file with any byte changed is either refused whole or a whole load of what it says now")
{
    using namespace std::string_literals;
    const std::string values = "\0\t\n\r \"+,-./059:Az\x7F\x80\xC3\xBC\xFF"s;
    const RoomSettings before = SampleSettings();
    const RoomSettings untouched = before;
    int loads = 0;
    int refusals = 0;
    for (std::size_t at = 0; at < SampleFile.size(); ++at)
        for (const char value : values) {
            std::string bytes = SampleFile;
            bytes[at] = value;
            RoomSettings room = before;
            if (!ParseConfig(bytes, room)) {
                REQUIRE(room == untouched);
                ++refusals;
                continue;
            }
            RoomSettings again = before;
            REQUIRE(ParseConfig(ComposeConfig(room), again));
            REQUIRE(again == room);
            ++loads;
        }
    CHECK(loads > 0);
    CHECK(refusals > 0);
}

TEST_CASE("an old file is both records and nothing else; live values and texts stay")
{
    std::string bytes;
    for (int at = 0; at < 352; ++at)
        bytes += char(at % 251);
    RoomSettings room = SampleSettings();
    REQUIRE(ParseOldConfig(bytes, room));
    for (std::size_t at = 0; at < 128; ++at)
        CHECK(BytesOf(room.System)[at] == at);
    for (std::size_t at = 0; at < 224; ++at)
        CHECK(BytesOf(room.Audio)[at] == (at + 128) % 251);
    CHECK(room.FaderLevel == 65);
    CHECK(room.MuteState == -1);
    CHECK(room.CurrentFormat == 4);
    CHECK(room.TheaterInfo == SampleSettings().TheaterInfo);
    CHECK(room.Audio.ObeFreq == 70); // offset 128 + 193 of the file is 321, and 321 - 251 is 70
}

TEST_CASE("an old file of any other length is refused")
{
    for (const int length : {0, 1, 128, 351, 353, 704}) {
        RoomSettings room = SampleSettings();
        const RoomSettings before = room;
        CHECK_FALSE(ParseOldConfig(std::string(std::size_t(length), '\0'), room));
        CHECK(room == before);
    }
}
