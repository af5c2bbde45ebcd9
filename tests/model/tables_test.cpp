#include "model/tables.h"

#include <algorithm>
#include <doctest/doctest.h>
#include <set>
#include <vector>

using namespace kelvo;

namespace {

template <typename Table>
std::vector<std::string> Entries(const Table &table)
{
    return {table.begin(), table.end()};
}

using Texts = std::vector<std::string>;

} // namespace

TEST_CASE("channels are titled in channel order")
{
    CHECK(Entries(ChannelTitle) == Texts{"Left Channel", "Left Surround Channel", "Center Channel",
                                         "Right Surround Channel", "Right Channel", "Subwoofer Channel"});
}

TEST_CASE("channel sections put Surround before the side")
{
    CHECK(Entries(ChannelSection) == Texts{"Channel Left", "Channel Surround Left", "Channel Center",
                                           "Channel Surround Right", "Channel Right", "Channel Subwoofer"});
}

TEST_CASE("27 third-octave bands run from 40 Hz to 16 kHz")
{
    CHECK(Entries(BandKey) == Texts{"Eq40h",  "Eq50h",   "Eq63h",  "Eq80h",  "Eq100h",  "Eq125h",  "Eq160h",
                                    "Eq200h", "Eq250h",  "Eq315h", "Eq400h", "Eq500h",  "Eq630h",  "Eq800h",
                                    "Eq1k",   "Eq1.25k", "Eq1.6k", "Eq2k",   "Eq2.5k",  "Eq3.15k", "Eq4k",
                                    "Eq5k",   "Eq6.3k",  "Eq8k",   "Eq10k",  "Eq12.5k", "Eq16k"});
    CHECK(std::string(BandKey[14]) == "Eq1k");
}

TEST_CASE("nine octave bands run from 63 Hz to 16 kHz, each also a third-octave band")
{
    CHECK(Entries(SurroundBandKey) ==
          Texts{"Eq63h", "Eq125h", "Eq250h", "Eq500h", "Eq1k", "Eq2k", "Eq4k", "Eq8k", "Eq16k"});
    const Texts thirds = Entries(BandKey);
    for (const std::string octave : SurroundBandKey)
        CHECK(std::ranges::count(thirds, octave) == 1);
    CHECK(std::string(SurroundBandKey[4]) == BandKey[14]);
}

TEST_CASE("the second channel numbering and its way back are inverses")
{
    CHECK(ChannelOrderA == std::array<Word, 6>{5, 4, 0, 1, 2, 3});
    CHECK(ChannelOrderB == std::array<Word, 6>{2, 3, 4, 5, 1, 0});
    for (std::size_t channel = 0; channel < 6; ++channel) {
        CHECK(ChannelOrderB[std::size_t(ChannelOrderA[channel])] == Word(channel));
        CHECK(ChannelOrderA[std::size_t(ChannelOrderB[channel])] == Word(channel));
    }
}

TEST_CASE("the reader delay list has 397 quarters of a frame, 0.00 to 99.00")
{
    CHECK(ReaderDelayCount == 397);
    CHECK(ReaderDelayText(0) == "0.00 TC Frames");
    CHECK(ReaderDelayText(1) == "0.25 TC Frames");
    CHECK(ReaderDelayText(2) == "0.50 TC Frames");
    CHECK(ReaderDelayText(3) == "0.75 TC Frames");
    CHECK(ReaderDelayText(4) == "1.00 TC Frames");
    CHECK(ReaderDelayText(41) == "10.25 TC Frames");
    CHECK(ReaderDelayText(300) == "75.00 TC Frames");
    CHECK(ReaderDelayText(395) == "98.75 TC Frames");
    CHECK(ReaderDelayText(396) == "99.00 TC Frames");
    std::set<std::string> texts;
    for (int index = 0; index < 397; ++index)
        texts.insert(ReaderDelayText(index));
    CHECK(texts.size() == 397);
}

TEST_CASE("the eleven theatre texts are named in their order")
{
    CHECK(Entries(TheaterName) == Texts{"Circuit", "Theater Name", "Address", "City", "State / County",
                                        "Zip Code", "Phone", "S/N of Processor", "Screen Number",
                                        "Date Installed", "Notes"});
    CHECK(std::string(TheaterName[NameOfTheater]) == "Theater Name");
    CHECK(std::string(TheaterName[DateInstalled]) == "Date Installed");
    CHECK(std::string(TheaterName[Notes]) == "Notes");
}
