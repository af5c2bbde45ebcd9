#include "unit/qm4slibrary.h"

#include "support/anycall.h"
#include "support/libraryfolders.h"

#include <doctest/doctest.h>

#include <algorithm>

using namespace kelvo;

TEST_CASE("each operation reaches the library with its arguments, and what it answers comes back")
{
    LibraryFolders folders;
    folders.Put(folders.program);
    Qm4sLibrary library(folders.All());
    REQUIRE(library.TryLoad());
    UnitVersion version;
    Word word = 0;
    CHECK(library.InitDLL(3) == Success);
    CHECK(library.SetDLLBaud(2) == Success);
    CHECK(library.DLLCreateIni() == Success);
    CHECK(library.ClearError() == Success);
    CHECK(library.GetUnitVersion(version) == Success);
    CHECK(version.CpuMajor == 1);
    CHECK(version.CpuMinor == 6);
    CHECK(version.CpuBuild == 78);
    CHECK(version.DspControllerMajor == 1);
    CHECK(version.DspControllerMinor == 3);
    CHECK(version.DspFirmwareMajor == 1);
    CHECK(version.DspFirmwareMinor == 9);
    CHECK(library.SetVol(-1234) == Success);
    CHECK(library.GetVol(word) == Success);
    CHECK(word == -1234);
    CHECK(library.SetMute(True) == Success);
    CHECK(library.GetMute(word) == Success);
    CHECK(word == True);
    CHECK(library.SelectFormat(5) == Success);
    CHECK(library.GetFormat(word) == Success);
    CHECK(word == 5);
    CHECK(library.SetPink(2, True) == Success);
    CHECK(library.SetPhase(5, False) == Success);
    CHECK(library.SetRT60(True) == Success);
    CHECK(library.SetProjector(1) == Success);
    CHECK(library.EnableOBE() == Success);
    CHECK(library.GetOptSlitloss() == Success);
    CHECK(library.DLLShutdown() == Success);
    CHECK(folders.Calls() == std::vector<std::string>{
                                 "InitDLL 3", "SetDLLBaud 2", "DLLCreateIni", "ClearError", "GetUnitVersion",
                                 "SetVol -1234", "GetVol", "SetMute -1", "GetMute", "SelectFormat 5",
                                 "GetFormat", "SetPink 2 -1", "SetPhase 5 0", "SetRT60 -1", "SetProjector 1",
                                 "EnableOBE", "GetOptSlitloss", "DLLShutdown"});
}

TEST_CASE("each row of the table calls the library's function of its name, with what the row sends")
{
    LibraryFolders folders;
    folders.Put(folders.program);
    Qm4sLibrary library(folders.All());
    for (const OperationRow &row : Operations) {
        AnyCall call(row.operation);
        std::ranges::fill(call.wordsIn, Word(3));
        std::ranges::fill(call.bytesIn, Byte(0x5E));
        library.Do(call);
        std::string expected = row.name;
        for (std::size_t word = 0; word < row.shape.wordsIn; ++word)
            expected += " 3";
        expected += row.shape.bytesIn > 0 ? " " : "";
        for (std::size_t byte = 0; byte < row.shape.bytesIn; ++byte)
            expected += "5e";
        REQUIRE(!folders.Calls().empty());
        CHECK(folders.Calls().back() == expected);
    }
    CHECK(folders.Calls().size() == 29);
}

TEST_CASE("blocks go to the library and come back whole, every byte value included")
{
    LibraryFolders folders;
    folders.Put(folders.program);
    Qm4sLibrary library(folders.All());
    REQUIRE(library.TryLoad());
    AudioBlock audio{};
    SystemBlock system{};
    for (std::size_t i = 0; i < sizeof audio; ++i)
        BytesOf(audio)[i] = Byte(i);
    for (std::size_t i = 0; i < sizeof system; ++i)
        BytesOf(system)[i] = Byte(255 - i);
    CHECK(library.SetAudio(audio) == Success);
    CHECK(library.SetSystem(system) == Success);
    AudioBlock audioRead{};
    SystemBlock systemRead{};
    CHECK(library.GetAudio(audioRead) == Success);
    CHECK(library.GetSystem(systemRead) == Success);
    CHECK(audioRead == audio);
    CHECK(systemRead == system);
    const std::vector<std::string> calls = folders.Calls();
    REQUIRE(calls.size() == 4);
    CHECK(calls[0].starts_with("SetAudio 000102030405"));
    CHECK(calls[0].ends_with("dddedf"));
    CHECK(calls[1].starts_with("SetSystem fffefd"));
    CHECK(calls[1].ends_with("828180"));
}

TEST_CASE("streams and their readings pass through the library's entries")
{
    LibraryFolders folders;
    folders.Put(folders.program);
    Qm4sLibrary library(folders.All());
    REQUIRE(library.TryLoad());
    std::array<Byte, GainBytes> gain{};
    std::array<Byte, SlitLossBytes> sample{};
    std::array<Byte, AzimuthBytes> frame{};
    Word side = 9;
    CHECK(library.GetOptGain(gain) == StreamNotLocked);
    CHECK(library.BeginGainStream() == Success);
    CHECK(library.GetOptGain(gain) == Success);
    CHECK(gain == std::array<Byte, GainBytes>{80, 81});
    CHECK(library.BeginSlitStream() == Success);
    CHECK(library.GetSingleSlitloss(sample, side) == Success);
    CHECK(sample == std::array<Byte, SlitLossBytes>{64, 65, 66, 67, 68, 69, 70, 71, 72, 73, 74});
    CHECK(side == 0);
    CHECK(library.GetSingleSlitloss(sample, side) == Success);
    CHECK(side == 1);
    CHECK(library.BeginAzimuthStream() == Success);
    CHECK(library.GetOptAzimuth(frame) == Success);
    CHECK(frame.front() == 100);
    CHECK(frame.back() == 127);
    CHECK(library.StopStream() == Success);
    CHECK(library.GetOptAzimuth(frame) == StreamNotLocked);
}

#if defined(_WIN32) && defined(__i386__)
TEST_CASE("operations are found whatever their compiler made of their names")
{
    for (const char *variant : {"atnames", "underscorenames"}) {
        CAPTURE(variant);
        LibraryFolders folders;
        folders.Put(folders.program, variant);
        Qm4sLibrary library(folders.All());
        REQUIRE(library.TryLoad());
        CHECK(library.InitDLL(3) == Success);
        CHECK(library.SetPink(2, True) == Success);
        CHECK(library.StopStream() == Success);
        CHECK(folders.Calls() == std::vector<std::string>{"InitDLL 3", "SetPink 2 -1", "StopStream"});
    }
}
#endif

TEST_CASE("a status of the library comes back as it is, negative ones too")
{
    LibraryFolders folders;
    folders.Put(folders.program);
    Qm4sLibrary library(folders.All());
    REQUIRE(library.TryLoad());
    folders.root.Put("failures", "SetVol 768\nGetVol 5\nSetMute -32768\n");
    Word word = 17;
    CHECK(library.SetVol(30) == 768);
    CHECK(library.GetVol(word) == 5);
    CHECK(word == 17);
    CHECK(library.SetMute(0) == -32768);
    folders.root.Put("failures", "");
    CHECK(library.GetVol(word) == Success);
    CHECK(word == 70);
}

TEST_CASE("without a library every operation answers 64 and leaves what it was given")
{
    LibraryFolders folders;
    Qm4sLibrary library(folders.All());
    for (const OperationRow &row : Operations) {
        CAPTURE(row.name);
        AnyCall call(row.operation);
        std::ranges::fill(call.bytesOut, Byte(7));
        std::ranges::fill(call.wordsOut, Word(-7));
        CHECK(library.Do(call) == 64);
        CHECK(std::ranges::count(call.bytesOut, Byte(7)) == std::ptrdiff_t(row.shape.bytesOut));
        CHECK(std::ranges::count(call.wordsOut, Word(-7)) == std::ptrdiff_t(row.shape.wordsOut));
    }
    UnitVersion version;
    version.CpuBuild = 12;
    CHECK(library.GetUnitVersion(version) == 64);
    CHECK(version.CpuBuild == 12);
}

TEST_CASE("a library that arrives later is loaded by the next connection")
{
    LibraryFolders folders;
    Qm4sLibrary library(folders.All(), folders.Loaded());
    CHECK(!library.TryLoad());
    CHECK(library.InitDLL(1) == 64);
    folders.Put(folders.program);
    CHECK(library.InitDLL(4) == Success);
    CHECK(library.Problem().empty());
    CHECK(library.InitDLL(2) == Success);
    CHECK(folders.LoadedFrom(folders.program));
    CHECK(folders.Calls() == std::vector<std::string>{"InitDLL 4", "InitDLL 2"});
}

TEST_CASE("GetOptSlitloss alone may be missing")
{
    LibraryFolders folders;
    folders.Put(folders.program, "lacksslitloss");
    Qm4sLibrary library(folders.All());
    CHECK(library.TryLoad());
    CHECK(library.GetOptSlitloss() == 64);
    CHECK(library.EnableOBE() == Success);
}
