#include "model/fields.h"
#include "model/tables.h"

#include <doctest/doctest.h>
#include <set>

using namespace kelvo;

namespace {

/// A room whose records are counted through, so that no two bytes of a record are alike in 224.
RoomSettings Counted()
{
    RoomSettings room;
    for (std::size_t i = 0; i < sizeof(AudioBlock); ++i)
        BytesOf(room.Audio)[i] = Byte(i);
    for (std::size_t i = 0; i < sizeof(SystemBlock); ++i)
        BytesOf(room.System)[i] = Byte(i);
    return room;
}

} // namespace

TEST_CASE("each field reads and writes its own bytes alone")
{
    const RoomSettings room = Counted();
    // Offsets worked out from the layout of the records.
    CHECK(Get(room, field::Trim(Left)) == 6);
    CHECK(Get(room, field::Trim(Subwoofer)) == 11);
    CHECK(Get(room, field::Band(Left, 0)) == 12);
    CHECK(Get(room, field::Band(Left, 26)) == 38);
    CHECK(Get(room, field::Band(LeftSurround, 0)) == 42);
    CHECK(Get(room, field::Band(LeftSurround, 8)) == 50);
    CHECK(Get(room, field::Band(Center, 14)) == 86);
    CHECK(Get(room, field::Band(RightSurround, 8)) == 110);
    CHECK(Get(room, field::Band(Right, 26)) == 158);
    CHECK(Get(room, field::Band(Subwoofer, SubGain)) == 162);
    CHECK(Get(room, field::Band(Subwoofer, SubWidth)) == 163);
    CHECK(Get(room, field::Band(Subwoofer, SubFreq)) == 164);
    CHECK(Get(room, field::Bass(Left)) == 39);
    CHECK(Get(room, field::Treble(Subwoofer)) == 190);
    CHECK(Get(room, field::ObeLevel) == 192);
    CHECK(Get(room, field::ObeFreq) == 193);
    CHECK(Get(room, field::F1KeyMode) == 0);
    CHECK(Get(room, field::DisableMatrix) == 1);
    CHECK(Get(room, field::NonsyncMode) == 3);
    CHECK(Get(room, field::ReaderDelay) == 4 * 256 + 5);
    CHECK(Get(room, field::SurroundDelay) == 6);
    CHECK(Get(room, field::NonsyncTrim) == 24);
    CHECK(Get(room, field::DefaultFormat) == 30);
    constexpr std::array kept{8, 10, 11, 12, 13, 25, 26, 27, 28, 29};
    for (int i = 0; i < int(kept.size()); ++i)
        CHECK(Get(room, field::Kept(i)) == kept[std::size_t(i)]);

    ForEachField([&](FieldId id, const Field &facts) {
        if (facts.place == Place::Text)
            return;
        CAPTURE(facts.key);
        RoomSettings changed = room;
        Set(changed, id, Get(room, id) ^ 1);
        CHECK(changed != room);
        Set(changed, id, Get(room, id));
        CHECK(changed == room);
    });
}

TEST_CASE("there are 153 settings, each with a key of its own")
{
    std::set<std::string> keys;
    ForEachField([&](FieldId id, const Field &) { keys.insert(Key(id)); });
    CHECK(keys.size() == 153);
    CHECK(keys.count("Channel Center/Eq1k") == 1);
    CHECK(keys.count("Channel Surround Left/Eq63h") == 1);
}

TEST_CASE("names say the channel and what it is")
{
    CHECK(Name(field::Band(Center, 14)) == "Center, 1 kHz");
    CHECK(Name(field::Band(Left, 0)) == "Left, 40 Hz");
    CHECK(Name(field::Band(Right, 15)) == "Right, 1.25 kHz");
    CHECK(Name(field::Band(Right, 25)) == "Right, 12.5 kHz");
    CHECK(Name(field::Band(RightSurround, 8)) == "Right Surround, 16 kHz");
    CHECK(Name(field::Band(Subwoofer, SubWidth)) == "Subwoofer, bandwidth");
    CHECK(Name(field::Treble(LeftSurround)) == "Left Surround, treble");
    CHECK(Name(field::ObeLevel) == "OBE level");
    CHECK(Name(field::Theater(8)) == "Screen Number");
}

TEST_CASE("every band is called by its frequency")
{
    constexpr std::array thirds{"40 Hz",  "50 Hz",    "63 Hz",   "80 Hz",  "100 Hz",   "125 Hz",   "160 Hz",
                                "200 Hz", "250 Hz",   "315 Hz",  "400 Hz", "500 Hz",   "630 Hz",   "800 Hz",
                                "1 kHz",  "1.25 kHz", "1.6 kHz", "2 kHz",  "2.5 kHz",  "3.15 kHz", "4 kHz",
                                "5 kHz",  "6.3 kHz",  "8 kHz",   "10 kHz", "12.5 kHz", "16 kHz"};
    constexpr std::array octaves{"63 Hz", "125 Hz", "250 Hz", "500 Hz", "1 kHz",
                                 "2 kHz", "4 kHz",  "8 kHz",  "16 kHz"};
    for (int band = 0; band < 27; ++band)
        CHECK(FrequencyText(FieldOf(field::Band(Left, band)).hertz) == thirds[std::size_t(band)]);
    for (int band = 0; band < 9; ++band)
        CHECK(FrequencyText(FieldOf(field::Band(LeftSurround, band)).hertz) == octaves[std::size_t(band)]);
}

TEST_CASE("stored numbers in words")
{
    CHECK(TextOf(field::Band(Left, 3), 7) == "+2.5 dB");
    CHECK(TextOf(field::Band(Left, 3), 12) == "0.0 dB");
    CHECK(TextOf(field::Band(Left, 3), 24) == "-6.0 dB");
    CHECK(TextOf(field::Band(Left, 3), 200) == "raw 200");
    CHECK(TextOf(field::Bass(Left), 0) == "+10 dB");
    CHECK(TextOf(field::Bass(Left), 13) == "-3 dB");
    CHECK(TextOf(field::ObeLevel, 9) == "+1.5 dB");
    CHECK(TextOf(field::ObeFreq, 0) == "Off");
    CHECK(TextOf(field::ObeFreq, 8) == "120 Hz");
    CHECK(TextOf(field::ObeFreq, 9) == "raw 9");
    CHECK(TextOf(field::Fader, 70) == "7.0");
    CHECK(TextOf(field::Fader, 120) == "raw 120");
    CHECK(TextOf(field::Mute, 0) == "Off");
    CHECK(TextOf(field::Mute, -1) == "On");
    CHECK(TextOf(field::Mute, 7) == "On");
    CHECK(TextOf(field::Format, 4) == "Kelvo Digital");
    CHECK(TextOf(field::ReaderDelay, 396) == "99.00 TC Frames");
    CHECK(TextOf(field::ReaderDelay, 397) == "raw 397");
    CHECK(TextOf(field::SurroundDelay, 10) == "100 mS");
    CHECK(TextOf(field::NonsyncTrim, 0) == "0 dB");
    CHECK(TextOf(field::NonsyncTrim, 20) == "-20 dB");
    CHECK(TextOf(field::DisableMatrix, 1) == "Disabled");
    CHECK(TextOf(field::DefaultFormat, 4) == "F1 ('Mono' button on unit)");
    CHECK(TextOf(field::Kept(0), 81) == "81");
}

TEST_CASE("comparing lists the settings that differ, with both sides")
{
    const RoomSettings left = Counted();
    CHECK(Compare(left, left).empty());
    RoomSettings right = left;
    right.Audio.ChannelEq[Center].Band[14] = 1;
    right.System.ReaderDelay = {9, 9};
    right.FaderLevel = 12;
    right.TheaterInfo[1] = "Odeon 3";
    CHECK(Compare(left, right) == std::vector<Difference>{{field::Fader, 70, 12},
                                                          {field::Band(Center, 14), 86, 1},
                                                          {field::ReaderDelay, 1029, 9 * 256 + 9},
                                                          {field::Theater(1), 0, 0}});
    CHECK(OtherBytes(left, right) == 0);
}

TEST_CASE("any word but 0 is the same mute")
{
    RoomSettings left;
    RoomSettings right;
    left.MuteState = -1;
    right.MuteState = 5;
    CHECK(Compare(left, right).empty());
    right.MuteState = 0;
    CHECK(Compare(left, right) == std::vector<Difference>{{field::Mute, -1, 0}});
}

TEST_CASE("kept and reserved bytes are counted, never listed; the clock is neither")
{
    const RoomSettings left = Counted();
    RoomSettings right = left;
    right.Audio.UnitClock.fill(200);
    CHECK(OtherBytes(left, right) == 0);
    right.Audio.reserved4[0] ^= 1;
    right.Audio.reserved194[29] ^= 1;
    right.Audio.ChannelEq[LeftSurround].Band[9] ^= 1;
    right.Audio.ChannelEq[Subwoofer].Band[26] ^= 1;
    right.Audio.ChannelEq[Right].unused29 ^= 1;
    right.System.stored8 ^= 1;
    right.System.reserved31[96] ^= 1;
    CHECK(Compare(left, right).empty());
    CHECK(OtherBytes(left, right) == 7);
}
