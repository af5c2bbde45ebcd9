#include "files/configfile.h"
#include "files/preferencesfile.h"

#include "support/samplefile.h"
#include "support/testfolder.h"

#include <doctest/doctest.h>
#include <random>

using namespace kelvo;

namespace {

/// Loads what must not load: the settings stay. Answers what the loader told.
FileFailure Refusal(const std::string &path)
{
    CAPTURE(path);
    RoomSettings room = SampleSettings();
    const RoomSettings before = room;
    const auto failure = LoadConfigFile(path, room);
    CHECK(room == before);
    REQUIRE(failure);
    return *failure;
}

std::string OldFile()
{
    std::string bytes(352, '\0');
    bytes[0] = 3;         // `F1KeyMode`
    bytes[128 + 6] = 17;  // trim of Left
    bytes[128 + 193] = 2; // `ObeFreq`
    return bytes;
}

} // namespace

TEST_CASE("what was saved is loaded again, and the file is always in the new format")
{
    const TestFolder folder;
    for (const std::string name : {"a.zcf", "b.cfg", "c.CFG", "Odeon", "temp.qm4"}) {
        RoomSettings saved = SampleSettings();
        REQUIRE_FALSE(SaveConfigFile(folder.Path(name), saved));
        CHECK(folder.Get(name) == SampleFile);
        RoomSettings loaded;
        REQUIRE_FALSE(LoadConfigFile(folder.Path(name), loaded));
        CHECK(ComposeConfig(loaded) == SampleFile);
    }
}

TEST_CASE("an old file is known by its name ending in .cfg, in small letters")
{
    const TestFolder folder;
    for (const std::string name : {"a.cfg", "a.CFG", "a.Cfg", "a.zcf", "acfg"})
        folder.Put(name, OldFile());
    RoomSettings room = SampleSettings();
    REQUIRE_FALSE(LoadConfigFile(folder.Path("a.cfg"), room));
    CHECK(room.System.F1KeyMode == 3);
    CHECK(room.Audio.ChannelTrim[Left] == 17);
    CHECK(room.Audio.ObeFreq == 2);
    CHECK(room.FaderLevel == 65);
    CHECK(room.MuteState == -1);
    CHECK(room.CurrentFormat == 4);
    CHECK(room.TheaterInfo == SampleSettings().TheaterInfo);
    for (const std::string name : {"a.CFG", "a.Cfg", "a.zcf", "acfg"})
        CHECK(Refusal(folder.Path(name)).wrongFormat);
}

TEST_CASE("an old name with the new header is the new format, good or bad")
{
    const TestFolder folder;
    std::string bytes = SampleFile.substr(0, 352);
    folder.Put("cut.cfg", bytes);
    CHECK(Refusal(folder.Path("cut.cfg")).wrongFormat);
    folder.Put("other.cfg", "\"Kelvo CP Settings File: V1.1\"" + SampleFile.substr(30));
    CHECK(Refusal(folder.Path("other.cfg")).wrongFormat);
    for (const std::string before : {"", "\xEF\xBB\xBF"}) {
        folder.Put("new.cfg", before + SampleFile);
        RoomSettings room;
        REQUIRE_FALSE(LoadConfigFile(folder.Path("new.cfg"), room));
        CHECK(ComposeConfig(room) == SampleFile);
    }
}

TEST_CASE("empty files, short and long old files and 10 MB of noise are the wrong format")
{
    const TestFolder folder;
    std::string noise;
    noise.resize(10'000'000);
    std::mt19937 random(1);
    for (char &c : noise)
        c = char(random());
    folder.Put("empty.zcf", "");
    folder.Put("empty.cfg", "");
    folder.Put("short.cfg", OldFile().substr(1));
    folder.Put("long.cfg", OldFile() + "x");
    folder.Put("noise.zcf", noise);
    folder.Put("noise.cfg", noise);
    folder.Put("longnoise.zcf", SampleFile + noise);
    for (const std::string name :
         {"empty.zcf", "empty.cfg", "short.cfg", "long.cfg", "noise.zcf", "noise.cfg", "longnoise.zcf"})
        CHECK(Refusal(folder.Path(name)).wrongFormat);

    folder.Put("somenoise.zcf", SampleFile + noise.substr(0, 1000));
    RoomSettings room;
    REQUIRE_FALSE(LoadConfigFile(folder.Path("somenoise.zcf"), room));
    CHECK(ComposeConfig(room) == SampleFile);
}

TEST_CASE("a damaged file is told by where it is damaged")
{
    const TestFolder folder;
    const auto reason = [&](const std::string &name, const std::string &bytes) {
        folder.Put(name, bytes);
        return Refusal(folder.Path(name)).reason;
    };
    CHECK(reason("header.zcf", "\"Another\"\r\n") == "line 1 is damaged or missing");
    CHECK(reason("empty.zcf", "") == "line 1 is damaged or missing");
    std::string bytes = SampleFile;
    bytes.replace(bytes.find("1,44,7"), 6, "1,444,7"); // the third line of numbers
    CHECK(reason("number.zcf", bytes) == "line 4 is damaged or missing");
    bytes = SampleFile;
    bytes.replace(bytes.find("\"75001\""), 7, "75001"); // the sixth text, behind 1 + 8 + 1 + 6 + 6 lines
    CHECK(reason("text.zcf", bytes) == "line 28 is damaged or missing");
    CHECK(reason("cut.zcf", SampleFile.substr(0, SampleFile.find("24,6"))) == "line 9 is damaged or missing");
    CHECK(reason("short.cfg", OldFile().substr(1)) == "it does not hold 352 bytes");
    CHECK(reason("large.zcf", std::string(2'000'000, ' ')) == "it is too large");
}

TEST_CASE("which of the two forms a file has is told")
{
    const TestFolder folder;
    folder.Put("old.cfg", OldFile());
    folder.Put("new.cfg", SampleFile);
    folder.Put("new.zcf", SampleFile);
    const auto form = [&](const char *name) {
        RoomSettings room;
        ConfigForm told{};
        REQUIRE_FALSE(LoadConfigFile(folder.Path(name), room, &told));
        return told;
    };
    CHECK(form("old.cfg") == ConfigForm::Records);
    CHECK(form("new.cfg") == ConfigForm::Lines);
    CHECK(form("new.zcf") == ConfigForm::Lines);
}

TEST_CASE("a folder or a missing file is told by its reason, not as a wrong format")
{
    const TestFolder folder;
    for (const std::string &path : {folder.Path(), folder.Path("none.zcf"), folder.Path("none.cfg")}) {
        const FileFailure failure = Refusal(path);
        CHECK_FALSE(failure.wrongFormat);
        CHECK_FALSE(failure.reason.empty());
    }
}

TEST_CASE("settings.dat comes back; missing, damaged or a folder it gives the defaults")
{
    const TestFolder folder;
    const std::string path = folder.Path("settings.dat");
    CHECK(ReadPreferences(path) == Preferences());
    const Preferences chosen{.ComPort = 2, .ConfirmUpload = true, .RefreshSeconds = 32767};
    REQUIRE_FALSE(WritePreferences(path, chosen));
    CHECK(folder.Get("settings.dat") == "2\r\nFalse\r\nTrue\r\nFalse\r\n0\r\n32767\r\n");
    CHECK(ReadPreferences(path) == chosen);
    std::string digits;
    digits.resize(10'000'000, '1');
    folder.Put("settings.dat", digits);
    CHECK(ReadPreferences(path) == Preferences());
    folder.Put("settings.dat", "4\r\n\xFF\xFE");
    CHECK(ReadPreferences(path) == Preferences{.ComPort = 4});
    CHECK(ReadPreferences(folder.Path()) == Preferences());
}
