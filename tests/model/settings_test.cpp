#include "model/flagguard.h"
#include "model/settings.h"

#include <algorithm>
#include <doctest/doctest.h>

using namespace kelvo;

namespace {

constexpr Byte Noise = 0xA5;

/// Settings in which every byte and value is away from its default.
Settings Disturbed()
{
    Settings settings;
    std::ranges::fill(BytesOf(settings.Audio), Noise);
    std::ranges::fill(BytesOf(settings.System), Noise);
    settings.FaderLevel = 12;
    settings.MuteState = True;
    settings.CurrentFormat = 3;
    settings.ObeEnabled = true;
    settings.ObeMode = 7;
    settings.TheaterInfo.fill("text");
    settings.CurrentFileName = "name";
    settings.FileLoaded = true;
    settings.SettingsChanged = true;
    settings.BaudIndex = 2;
    settings.Projector = 1;
    settings.Options.ComPort = 4;
    return settings;
}

} // namespace

TEST_CASE("a new console is untitled, port 1, 9600 baud, every option off, fader 7.0")
{
    const Settings settings;
    CHECK(settings.FaderLevel == 70);
    CHECK(settings.MuteState == 0);
    CHECK(settings.CurrentFormat == 0);
    CHECK(settings.ObeMode == 1);
    CHECK_FALSE(settings.ObeEnabled);
    CHECK(settings.CurrentFileName.empty());
    CHECK_FALSE(settings.FileLoaded);
    CHECK_FALSE(settings.SettingsChanged);
    CHECK_FALSE(settings.Updating);
    CHECK(settings.BaudIndex == 0);
    CHECK(settings.Options == Preferences{1, false, false, false, 0, 0});
    CHECK(settings.TheaterInfo.size() == 11);
    for (const std::string &text : settings.TheaterInfo)
        CHECK(text.empty());
}

TEST_CASE("the defaults reach every byte that a control shows, and no other")
{
    Settings settings = Disturbed();
    ResetAll(settings);

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
    CHECK(std::ranges::equal(BytesOf(settings.Audio), audio));

    std::array<Byte, 128> system;
    system.fill(Noise);
    for (const std::size_t option : {std::size_t(0), std::size_t(1), std::size_t(3), std::size_t(4),
                                     std::size_t(5), std::size_t(6), std::size_t(24), std::size_t(30)})
        system[option] = 0;
    CHECK(std::ranges::equal(BytesOf(settings.System), system));
}

TEST_CASE("the defaults are fader 7.0, no mute, the first format, OBE off at 50 Hz")
{
    Settings settings = Disturbed();
    ResetAll(settings);
    CHECK(settings.FaderLevel == 70);
    CHECK(settings.MuteState == 0);
    CHECK(settings.CurrentFormat == 0);
    CHECK_FALSE(settings.ObeEnabled);
    CHECK(settings.ObeMode == 1);
}

TEST_CASE("the defaults leave texts, file state and preferences to the command that asked for them")
{
    Settings settings = Disturbed();
    ResetAll(settings);
    for (const std::string &text : settings.TheaterInfo)
        CHECK(text == "text");
    CHECK(settings.CurrentFileName == "name");
    CHECK(settings.FileLoaded);
    CHECK(settings.SettingsChanged);
    CHECK(settings.BaudIndex == 2);
    CHECK(settings.Projector == 1);
    CHECK(settings.Options.ComPort == 4);
}

TEST_CASE("a channel's reset reaches its own slice alone")
{
    for (int channel = 0; channel < ChannelCount; ++channel) {
        CAPTURE(channel);
        Settings settings = Disturbed();
        ResetChannelData(settings, channel);
        const auto bytes = BytesOf(settings.Audio);
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

TEST_CASE("raises of Updating nest: the inner one ends and the outer one still holds")
{
    Settings settings;
    {
        const FlagGuard outer(settings.Updating);
        CHECK(settings.Updating);
        {
            const FlagGuard inner(settings.Updating);
            CHECK(settings.Updating);
        }
        CHECK(settings.Updating);
    }
    CHECK_FALSE(settings.Updating);

    settings.Updating = true; // raised for longer than a scope, as by a failed connection
    {
        const FlagGuard inner(settings.Updating);
    }
    CHECK(settings.Updating);
}

TEST_CASE("an OBE frequency of 0 means off and remembers 50 Hz; any other means on and is remembered")
{
    Settings settings;
    settings.ObeEnabled = true;
    settings.ObeMode = 6;
    settings.Audio.ObeFreq = 0;
    TakeObeFromAudio(settings);
    CHECK_FALSE(settings.ObeEnabled);
    CHECK(settings.ObeMode == 1);
    for (const int frequency : {1, 6, 8, 9, 255}) {
        settings.Audio.ObeFreq = Byte(frequency);
        TakeObeFromAudio(settings);
        CHECK(settings.ObeEnabled);
        CHECK(settings.ObeMode == frequency);
        CHECK(settings.Audio.ObeFreq == frequency);
    }
}

TEST_CASE("the operator's format is the one from before a stream, while one runs")
{
    Settings settings;
    settings.CurrentFormat = 1;
    CHECK(settings.OperatorFormat() == 1);
    settings.FormatBeforeStream = Word(4);
    CHECK(settings.OperatorFormat() == 4);
}

TEST_CASE("a reset during a stream leaves the stream its format and resets the one that its stop selects")
{
    Settings settings;
    settings.CurrentFormat = 1;
    settings.FormatBeforeStream = 3;
    ResetAll(settings);
    CHECK(settings.CurrentFormat == 1);
    CHECK(settings.FormatBeforeStream == 0);
    CHECK(settings.OperatorFormat() == 0);
}
