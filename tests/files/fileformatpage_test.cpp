#include "files/configfile.h"
#include "files/preferencesfile.h"

#include <doctest/doctest.h>

#include <filesystem>
#include <fstream>
#include <string>

using namespace kelvo;

namespace {

/// The example of this kind of file in docs/file-format.md, with the line ends that the console writes.
std::string Example(const std::string &kind)
{
    std::ifstream page(std::filesystem::path(KELVO_DOCS) / "file-format.md");
    REQUIRE(page);
    std::string line;
    while (std::getline(page, line) && line != "```" + kind) {
    }
    std::string example;
    while (std::getline(page, line) && line != "```")
        example += line + "\r\n";
    return example;
}

} // namespace

TEST_CASE("the page's .zcf is what the console writes, and means what the page says")
{
    const std::string file = Example("zcf");
    RoomSettings room;
    REQUIRE(ParseConfig(file, room));
    CHECK(ComposeConfig(room) == file);

    CHECK(ReaderDelayIndex(room.System) == 4 * 75); // quarter frames
    CHECK(room.System.SurroundDelay == 3);          // 30 ms
    CHECK(room.Audio.ObeFreq == 4);                 // 50, 60, 70, 80 Hz
    CHECK(room.Audio.ObeLevel == 9);                // three half decibels above 12
    CHECK(room.Audio.ChannelTrim[Right] == 11);
    CHECK(room.Audio.ChannelEq[Center].Band[14] == 15); // 1 kHz, the fifteenth band, -1.5 dB
    CHECK(room.Audio.ChannelEq[Subwoofer].Band[SubGain] == 16);
    CHECK(room.Audio.ChannelEq[Subwoofer].Band[SubFreq] == 3); // 25, 31.5, 40, 50 Hz
    CHECK(room.TheaterInfo[1] == "Odeon 3");
}

TEST_CASE("the page's settings.dat is what the console writes")
{
    const std::string file = Example("settings.dat");
    const Preferences options = ParsePreferences(file);
    CHECK(options.ComPort == 2);
    CHECK(options.RefreshSeconds == 30);
    CHECK(ComposePreferences(options) == file);
}
