#include "model/flagguard.h"
#include "model/preferences.h"
#include "model/roomsettings.h"

#include <algorithm>
#include <doctest/doctest.h>

using namespace kelvo;

namespace {

constexpr Byte Noise = 0xA5;

/// A room in which every byte and value is away from its default.
RoomSettings Disturbed()
{
    RoomSettings room;
    std::ranges::fill(BytesOf(room.Audio), Noise);
    std::ranges::fill(BytesOf(room.System), Noise);
    room.FaderLevel = 12;
    room.MuteState = True;
    room.CurrentFormat = 3;
    room.TheaterInfo.fill("text");
    return room;
}

} // namespace

TEST_CASE("a new room has fader 7.0, no mute, the first format, OBE off and no texts")
{
    const RoomSettings room;
    CHECK(room.FaderLevel == 70);
    CHECK(room.MuteState == 0);
    CHECK(room.CurrentFormat == 0);
    CHECK_FALSE(ObeEnabled(room.Audio));
    CHECK(room.TheaterInfo.size() == 11);
    for (const std::string &text : room.TheaterInfo)
        CHECK(text.empty());
}

TEST_CASE("a new console has port 1 and every option off")
{
    CHECK(Preferences() == Preferences{1, false, false, false, false, 0});
}

TEST_CASE("rooms are equal when every byte, value and text is")
{
    const RoomSettings room = Disturbed();
    CHECK(room == Disturbed());
    const auto differs = [&room](auto change) {
        RoomSettings other = room;
        change(other);
        return other != room;
    };
    CHECK(differs([](RoomSettings &other) { other.Audio.reserved194[29] ^= 1; }));
    CHECK(differs([](RoomSettings &other) { other.Audio.ChannelEq[Subwoofer].unused29 ^= 1; }));
    CHECK(differs([](RoomSettings &other) { other.System.reserved31[96] ^= 1; }));
    CHECK(differs([](RoomSettings &other) { ++other.FaderLevel; }));
    CHECK(differs([](RoomSettings &other) { other.MuteState = 0; }));
    CHECK(differs([](RoomSettings &other) { ++other.CurrentFormat; }));
    CHECK(differs([](RoomSettings &other) { other.TheaterInfo[10] += '.'; }));
}

TEST_CASE("the defaults reach every byte that a control shows, and no other")
{
    RoomSettings room = Disturbed();
    ResetAll(room);

    // Offset by offset what must stand there; what is not named keeps its noise.
    std::array<Byte, 224> audio;
    audio.fill(Noise);
    for (std::size_t trim = 6; trim <= 11; ++trim)
        audio[trim] = 12;
    for (const std::size_t slice :
         {std::size_t(12), std::size_t(42), std::size_t(72), std::size_t(102), std::size_t(132)}) {
        for (std::size_t band = 0; band < 27; ++band)
            audio[slice + band] = 12;
        audio[slice + 27] = 10;
        audio[slice + 28] = 10;
    }
    audio[162] = 12; // sub-bass gain, width and frequency; the rest of its bands has no control
    audio[163] = 0;
    audio[164] = 0;
    audio[189] = 10;
    audio[190] = 10;
    audio[192] = 12;
    audio[193] = 0;
    CHECK(std::ranges::equal(BytesOf(room.Audio), audio));

    std::array<Byte, 128> system;
    system.fill(Noise);
    for (const std::size_t option : {std::size_t(0), std::size_t(1), std::size_t(3), std::size_t(4),
                                     std::size_t(5), std::size_t(6), std::size_t(24), std::size_t(30)})
        system[option] = 0;
    CHECK(std::ranges::equal(BytesOf(room.System), system));
}

TEST_CASE("the defaults are fader 7.0, no mute, the first format, OBE off at 50 Hz")
{
    RoomSettings room = Disturbed();
    ResetAll(room);
    CHECK(room.FaderLevel == 70);
    CHECK(room.MuteState == 0);
    CHECK(room.CurrentFormat == 0);
    CHECK_FALSE(ObeEnabled(room.Audio));
}

TEST_CASE("the defaults leave the texts to the command that asked for them")
{
    RoomSettings room = Disturbed();
    ResetAll(room);
    for (const std::string &text : room.TheaterInfo)
        CHECK(text == "text");
}

TEST_CASE("a channel's reset reaches its own slice alone")
{
    for (int channel = 0; channel < ChannelCount; ++channel) {
        CAPTURE(channel);
        RoomSettings room = Disturbed();
        ResetChannelData(room, channel);
        const auto bytes = BytesOf(room.Audio);
        const std::size_t slice = 12 + 30 * std::size_t(channel);
        for (std::size_t offset = 0; offset < bytes.size(); ++offset)
            if (offset < slice || offset >= slice + 29)
                CHECK(bytes[offset] == Noise);
        CHECK(bytes[slice] == 12);
        CHECK(bytes[slice + 1] == (channel == Subwoofer ? 0 : 12));
        CHECK(bytes[slice + 2] == (channel == Subwoofer ? 0 : 12));
        CHECK(bytes[slice + 26] == (channel == Subwoofer ? Noise : 12));
        CHECK(bytes[slice + 27] == 10);
        CHECK(bytes[slice + 28] == 10);
    }
}

TEST_CASE("raises of a flag nest: the inner one ends and the outer one still holds")
{
    bool flag = false;
    {
        const FlagGuard outer(flag);
        {
            const FlagGuard inner(flag);
            CHECK(flag);
        }
        CHECK(flag);
    }
    CHECK_FALSE(flag);

    flag = true; // raised for longer than a scope, as by a failed connection
    {
        const FlagGuard inner(flag);
    }
    CHECK(flag);
}

TEST_CASE("an OBE frequency of 0 means off, any other on")
{
    AudioBlock audio{};
    CHECK_FALSE(ObeEnabled(audio));
    for (const int frequency : {1, 6, 8, 9, 255}) {
        audio.ObeFreq = Byte(frequency);
        CHECK(ObeEnabled(audio));
    }
}
