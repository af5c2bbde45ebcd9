#include "unit/calllog.h"

#include "support/testfolder.h"
#include "unit/simulatedunit.h"

#include <doctest/doctest.h>

#include <regex>
#include <sstream>

using namespace kelvo;

namespace {

/// A unit behind a log whose name is not plain ASCII.
struct LogUnderTest {
    TestFolder folder;
    std::string path = folder.Path("calls \u0416.log");
    SimulatedUnit unit;

    std::vector<std::string> Lines() const
    {
        std::istringstream file(folder.Get("calls \u0416.log").value_or(""));
        std::vector<std::string> lines;
        for (std::string line; std::getline(file, line);)
            lines.push_back(line);
        return lines;
    }

    /// The lines without their time and duration, whose form is checked.
    std::vector<std::string> Calls() const
    {
        static const std::regex whole(R"(\d{4}-\d\d-\d\d \d\d:\d\d:\d\d\.\d{3} (.*) \(\d+\.\d{3} ms\))");
        std::vector<std::string> calls;
        for (const std::string &line : Lines()) {
            std::smatch parts;
            CAPTURE(line);
            REQUIRE(std::regex_match(line, parts, whole));
            calls.push_back(parts[1]);
        }
        return calls;
    }
};

} // namespace

TEST_CASE("each call is one line with its arguments, its status and what was read")
{
    LogUnderTest log;
    CallLog writer(log.path);
    SimulatedUnit &library = log.unit;
    library.Attach(writer);
    CHECK(writer.Problem().empty());
    Word word = 0;
    UnitVersion version;
    std::array<Byte, GainBytes> gain{};
    log.unit.reader = {80, 79, 0, 0, 0, true};
    library.InitDLL(2);
    library.GetUnitVersion(version);
    library.SetPink(Right, True);
    library.SetVol(65);
    library.GetVol(word);
    log.unit.FailNext(Operation::GetMute, 5, 1);
    library.GetMute(word);
    library.GetOptGain(gain);
    CHECK(log.Calls() == std::vector<std::string>{"InitDLL 2 -> 0", "GetUnitVersion -> 0: 1 6 0 1 3 1 9",
                                                  "SetPink 4 -1 -> 0", "SetVol 65 -> 0", "GetVol -> 0: 65",
                                                  "GetMute -> 5", "GetOptGain -> 768"});
}

TEST_CASE("blocks are written as hexadecimal digits, those read as well as those sent")
{
    LogUnderTest log;
    CallLog writer(log.path);
    SimulatedUnit &library = log.unit;
    library.Attach(writer);
    SystemBlock system{};
    system.F1KeyMode = 3;
    system.reserved31.back() = 0xAB;
    const std::string digits = "03" + std::string(2 * 126, '0') + "ab";
    library.SetSystem(system);
    library.GetSystem(system);
    CHECK(log.Calls() ==
          std::vector<std::string>{"SetSystem " + digits + " -> 0", "GetSystem -> 0: " + digits});
}

TEST_CASE("a line is in the file as soon as the call has answered")
{
    LogUnderTest log;
    CallLog writer(log.path);
    SimulatedUnit &library = log.unit;
    library.Attach(writer);
    library.EnableOBE();
    CHECK(log.Lines().size() == 1);
    library.StopStream();
    CHECK(log.Lines().size() == 2);
}

TEST_CASE("a log is appended to, and a note is one line in it")
{
    LogUnderTest log;
    {
        CallLog writer(log.path);
        SimulatedUnit &library = log.unit;
        library.Attach(writer);
        library.EnableOBE();
    }
    CallLog writer(log.path);
    SimulatedUnit &library = log.unit;
    library.Attach(writer);
    writer.Note("settings.dat could not be written:\nNo space left on device");
    REQUIRE(log.Lines().size() == 2);
    CHECK(std::regex_match(
        log.Lines()[1],
        std::regex(
            R"(\d{4}-\d\d-\d\d \d\d:\d\d:\d\d\.\d{3} settings\.dat could not be written: No space left on device)")));
}

TEST_CASE("every operation reaches the target with its arguments, and its answer comes back")
{
    LogUnderTest log;
    CallLog writer(log.path);
    SimulatedUnit &library = log.unit;
    library.Attach(writer);
    SimulatedUnit &unit = log.unit;
    AudioBlock audio{};
    SystemBlock system{};
    audio.ObeLevel = 21;
    system.NonsyncTrim = 17;
    CHECK(library.SetAudio(audio) == Success);
    CHECK(library.SetSystem(system) == Success);
    CHECK(unit.audio.ObeLevel == 21);
    CHECK(unit.system.NonsyncTrim == 17);
    unit.audio.ObeLevel = 22;
    unit.system.NonsyncTrim = 18;
    CHECK(library.GetAudio(audio) == Success);
    CHECK(library.GetSystem(system) == Success);
    CHECK(audio.ObeLevel == 22);
    CHECK(system.NonsyncTrim == 18);
    CHECK(library.SetDLLBaud(2) == Success);
    CHECK(unit.baudIndex == 2);
    CHECK(library.DLLCreateIni() == Success);
    CHECK(unit.iniCreated);
    CHECK(library.SetMute(True) == Success);
    CHECK(library.SelectFormat(3) == Success);
    CHECK(library.SetPhase(1, True) == Success);
    CHECK(library.SetRT60(True) == Success);
    CHECK(library.SetProjector(1) == Success);
    CHECK(unit.testSignals.inverted[1]);
    CHECK(unit.testSignals.rt60);
    CHECK(unit.projector == 1);
    Word word = 0;
    CHECK(library.GetMute(word) == Success);
    CHECK(word == True);
    CHECK(library.GetFormat(word) == Success);
    CHECK(word == 3);
    CHECK(library.BeginGainStream() == Success);
    CHECK(unit.stream == SimulatedUnit::Stream::Gain);
    CHECK(library.BeginSlitStream() == Success);
    CHECK(unit.stream == SimulatedUnit::Stream::SlitLoss);
    std::array<Byte, SlitLossBytes> sample{};
    for (int i = 0; i < SimulatedUnit::ReadingsToLock; ++i)
        CHECK(library.GetSingleSlitloss(sample, word) == StreamNotLocked);
    CHECK(library.GetSingleSlitloss(sample, word) == Success);
    CHECK(sample[10] != 0);
    CHECK(word == 0);
    CHECK(library.BeginAzimuthStream() == Success);
    CHECK(unit.stream == SimulatedUnit::Stream::Azimuth);
    std::array<Byte, AzimuthBytes> frame{};
    for (int i = 0; i < SimulatedUnit::ReadingsToLock; ++i)
        CHECK(library.GetOptAzimuth(frame) == StreamNotLocked);
    CHECK(library.GetOptAzimuth(frame) == Success);
    CHECK(frame != std::array<Byte, AzimuthBytes>{});
    CHECK(library.StopStream() == Success);
    CHECK(unit.stream == SimulatedUnit::Stream::None);
    CHECK(library.InitDLL(1) == Success);
    CHECK(library.DLLShutdown() == Success);
    CHECK(unit.port == 0);
    unit.panel.plugged = false;
    CHECK(library.ClearError() == SimulatedUnit::UnpluggedStatus);
    CHECK(library.GetOptSlitloss() == SimulatedUnit::UnpluggedStatus);
}

TEST_CASE("a log that cannot be opened is told with the system's reason")
{
    LogUnderTest log;
    CallLog writer(log.path + "/missing/calls.log");
    SimulatedUnit &library = log.unit;
    library.Attach(writer);
    CHECK(!writer.Problem().empty());
    CHECK(writer.Problem() != std::generic_category().message(0));
    CHECK(library.SetVol(30) == Success);
    CHECK(log.unit.panel.level == 30);
}
