#include "model/records.h"

#include <doctest/doctest.h>
#include <numeric>

using namespace kelvo;

namespace {

/// A record whose every byte is its own offset.
template <typename Record>
Record Numbered()
{
    Record record{};
    const auto bytes = BytesOf(record);
    std::iota(bytes.begin(), bytes.end(), Byte(0));
    return record;
}

} // namespace

TEST_CASE("the audio block is 224 bytes with every field at its place")
{
    const auto audio = Numbered<AudioBlock>();
    CHECK(BytesOf(audio).size() == 224);
    CHECK(audio.UnitClock == std::array<Byte, 4>{0, 1, 2, 3});
    CHECK(audio.reserved4 == std::array<Byte, 2>{4, 5});
    CHECK(audio.ChannelTrim == std::array<Byte, 6>{6, 7, 8, 9, 10, 11});
    CHECK(audio.ObeLevel == 192);
    CHECK(audio.ObeFreq == 193);
    CHECK(audio.reserved194.front() == 194);
    CHECK(audio.reserved194.back() == 223);
}

TEST_CASE("each channel has a slice of 30 bytes, in channel order from byte 12 on")
{
    const auto audio = Numbered<AudioBlock>();
    const struct {
        Channel channel;
        int first; // byte of the block
    } slices[] = {{Left, 12},           {LeftSurround, 42}, {Center, 72},
                  {RightSurround, 102}, {Right, 132},       {Subwoofer, 162}};
    for (const auto &[channel, first] : slices) {
        const ChannelSlice &slice = audio.ChannelEq[channel];
        for (int band = 0; band < 27; ++band)
            CHECK(slice.Band[std::size_t(band)] == first + band);
        CHECK(slice.BassLevel == first + 27);
        CHECK(slice.TrebleLevel == first + 28);
        CHECK(slice.unused29 == first + 29);
    }
    CHECK(audio.ChannelEq[Subwoofer].Band[SubGain] == 162);
    CHECK(audio.ChannelEq[Subwoofer].Band[SubWidth] == 163);
    CHECK(audio.ChannelEq[Subwoofer].Band[SubFreq] == 164);
}

TEST_CASE("the system block is 128 bytes with every field at its place")
{
    const auto system = Numbered<SystemBlock>();
    CHECK(BytesOf(system).size() == 128);
    CHECK(system.F1KeyMode == 0);
    CHECK(system.DisableMatrix == 1);
    CHECK(system.reserved2 == 2);
    CHECK(system.NonsyncMode == 3);
    CHECK(system.ReaderDelay == std::array<Byte, 2>{4, 5});
    CHECK(system.SurroundDelay == 6);
    CHECK(system.reserved7 == 7);
    CHECK(system.stored8 == 8);
    CHECK(system.reserved9 == 9);
    CHECK(system.stored10 == std::array<Byte, 4>{10, 11, 12, 13});
    CHECK(system.reserved14.front() == 14);
    CHECK(system.reserved14.back() == 23);
    CHECK(system.NonsyncTrim == 24);
    CHECK(system.stored25 == std::array<Byte, 5>{25, 26, 27, 28, 29});
    CHECK(system.DefaultFormat == 30);
    CHECK(system.reserved31.front() == 31);
    CHECK(system.reserved31.back() == 127);
}

TEST_CASE("a record's bytes are the record itself")
{
    AudioBlock audio{};
    BytesOf(audio)[193] = 5;
    CHECK(audio.ObeFreq == 5);
    audio.ChannelTrim[Right] = 9;
    CHECK(BytesOf(audio)[10] == 9);
}

TEST_CASE("a reader delay of 300 quarter frames is stored as 1 and 44, high byte first")
{
    SystemBlock system{};
    SetReaderDelayIndex(system, 300);
    CHECK(BytesOf(system)[4] == 1);
    CHECK(BytesOf(system)[5] == 44);
    CHECK(ReaderDelayIndex(system) == 300);
}

TEST_CASE("the last reader delay of the list is stored as 1 and 140; a unit may hold up to 65535")
{
    SystemBlock system{};
    SetReaderDelayIndex(system, 396);
    CHECK(system.ReaderDelay == std::array<Byte, 2>{1, 140});
    SetReaderDelayIndex(system, 255);
    CHECK(system.ReaderDelay == std::array<Byte, 2>{0, 255});
    SetReaderDelayIndex(system, 256);
    CHECK(system.ReaderDelay == std::array<Byte, 2>{1, 0});
    system.ReaderDelay = {255, 255};
    CHECK(ReaderDelayIndex(system) == 65535);
    system.ReaderDelay = {128, 0};
    CHECK(ReaderDelayIndex(system) == 32768);
}

TEST_CASE("screen channels have 27 bands, surrounds 9, the subwoofer 3 bytes of its own")
{
    for (const Channel channel : {Left, Center, Right})
        CHECK(KindOf(channel) == ChannelKind::Screen);
    for (const Channel channel : {LeftSurround, RightSurround})
        CHECK(KindOf(channel) == ChannelKind::Surround);
    CHECK(KindOf(Subwoofer) == ChannelKind::Subwoofer);
    CHECK(EqualiserBytes(ChannelKind::Screen) == 27);
    CHECK(EqualiserBytes(ChannelKind::Surround) == 9);
    CHECK(EqualiserBytes(ChannelKind::Subwoofer) == 3);
}

TEST_CASE("truth is all bits of a word")
{
    CHECK(True == -1);
    CHECK(False == 0);
    CHECK(sizeof(Word) == 2);
}
