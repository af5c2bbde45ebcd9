#include "unit/qm4slibrary.h"

#include "files/atomicfile.h"
#include "files/systempath.h"
#include "support/longfolder.h"
#include "support/testfolder.h"
#include "unit/libraryimage.h"

#include <doctest/doctest.h>

#include <algorithm>
#include <cstdlib>
#include <optional>
#include <sstream>

using namespace kelvo;
namespace fs = std::filesystem;

namespace {

const fs::path Fakes = fs::absolute(KELVO_FAKE_LIBRARIES); // under Wine it has no drive yet
const std::string File = SharedLibrary::FileName("qm4slib");
#if defined(_WIN32)
const std::string AnotherFile = "libanotherlibrary.dll";
constexpr std::string_view OwnKind =
    sizeof(void *) == 8 ? "64-bit Windows program" : "32-bit Windows program";
#else
const std::string AnotherFile = "libanotherlibrary.so";
constexpr std::string_view OwnKind = sizeof(void *) == 8 ? "64-bit Linux program" : "32-bit Linux program";
#endif

void SetEnvironment(const std::string &name, const std::string &value)
{
#if defined(_WIN32)
    const fs::path wide = std::u8string(value.begin(), value.end());
    _wputenv_s(fs::path(name).c_str(), wide.c_str());
#else
    setenv(name.c_str(), value.c_str(), 1);
#endif
}

void Write(const fs::path &path, const std::string &bytes)
{
    std::ofstream(path, std::ios::binary) << bytes;
}

/// The working folder is `folder` while this stands.
class WorkingFolder {
  public:
    explicit WorkingFolder(const fs::path &folder) : before_(fs::current_path()) { fs::current_path(folder); }
    ~WorkingFolder() { fs::current_path(before_); }
    WorkingFolder(const WorkingFolder &) = delete;
    WorkingFolder &operator=(const WorkingFolder &) = delete;

  private:
    fs::path before_;
};

/// The places of the search, each a folder of its own, and what the libraries put there record.
struct Places {
    TestFolder root;
    fs::path given = Folder("given \u00E9");
    fs::path program = Folder("the program's \u0416");
    fs::path executable = Folder("executable");
    fs::path elsewhere = Folder("elsewhere");
    std::vector<std::string> loadedPaths;

    Places()
    {
#if defined(_WIN32)
        SetEnvironment("PATH", ".;" + SystemFolder().string());
#endif
        fs::remove(SystemFolder() / File);
        // Set once more before each load: a library sees the environment as it is then.
        SetEnvironment("KELVO_FAKE_CALLS", root.Path("calls"));
        SetEnvironment("KELVO_FAKE_FAILURES", root.Path("failures"));
    }
    ~Places()
    {
        fs::remove(SystemFolder() / File);
    }
    Places(const Places &) = delete;
    Places &operator=(const Places &) = delete;

    static fs::path SystemFolder()
    {
        return Fakes / "system";
    }

    static void Put(const fs::path &folder, const std::string &variant = "plain")
    {
        fs::copy_file(Fakes / variant / File, folder / File, fs::copy_options::overwrite_existing);
    }

    fs::path Folder(const std::string &name) const
    {
        const std::string path = root.Path(name);
        const fs::path folder = std::u8string(path.begin(), path.end());
        fs::create_directory(folder);
        return folder;
    }

    LibraryPlaces All() const
    {
        return {Utf8(given / File), Utf8(program), Utf8(executable)};
    }

    std::function<void(const std::string &)> Loaded()
    {
        return [this](const std::string &path) { loadedPaths.push_back(path); };
    }

    /// True when the library was loaded from this folder and nowhere else.
    bool LoadedFrom(const fs::path &folder) const
    {
        if (loadedPaths.size() != 1)
            return false;
        const std::string &path = loadedPaths.front();
        return fs::equivalent(fs::path(std::u8string(path.begin(), path.end())), folder / File);
    }

    std::vector<std::string> Calls() const
    {
        std::istringstream text(root.Get("calls").value_or(""));
        std::vector<std::string> lines;
        for (std::string line; std::getline(text, line);)
            lines.push_back(line);
        return lines;
    }
};

bool Contains(const std::string &text, std::string_view part)
{
    return text.find(part) != std::string::npos;
}

/// The bytes of a library's first header, for a kind of processor that this program is not.
std::string ElfOfOtherBits()
{
    std::string header("\x7F"
                       "ELF",
                       4);
    header += sizeof(void *) == 8 ? '\1' : '\2'; // class: 32 or 64 bits
    header += '\1';                              // low byte first
    header += '\1';                              // version
    header.resize(16);
    header += std::string("\3\0\3\0\1\0\0\0", 8); // shared object for the i386, version
    header.resize(64);
    return header;
}

std::string WindowsImage(std::string_view magic, std::size_t directory, std::string_view machine)
{
    std::string image = "MZ";
    image.resize(0x200);
    const auto put = [&](std::size_t at, std::string_view bytes) { image.replace(at, bytes.size(), bytes); };
    put(0x3C, "\x40");
    put(0x40, std::string_view("PE\0\0", 4));
    put(0x44, machine);
    put(0x46, "\1");                            // one section
    put(0x54, "\xF0");                          // size of the optional header
    put(0x58, magic);                           // at 0x40 + 24
    put(directory, std::string("\x10\x10", 2)); // imports at address 0x1010
    put(0x148 + 12, std::string("\0\x10", 2));  // the section begins at address 0x1000,
    put(0x148 + 16, std::string("\0\1", 2));    // is 0x100 bytes long
    put(0x148 + 20, std::string("\0\x2", 2));   // and lies at 0x200 of the file
    std::string section(0x100, '\0');
    section.replace(0x10 + 12, 2, "\x80\x10"); // first entry's name at address 0x1080
    section.replace(0x24 + 12, 2, "\x90\x10"); // second entry's; the third is empty
    section.replace(0x80, 9, "FIRST.dll");
    section.replace(0x90, 10, "second.dll");
    return image + section;
}

std::string Windows32()
{
    return WindowsImage(std::string("\x0B\1", 2), 0x40 + 24 + 96 + 8, "\x4C\x01");
}

std::string Windows64()
{
    return WindowsImage(std::string("\x0B\2", 2), 0x40 + 24 + 112 + 8, "\x64\x86");
}

} // namespace

TEST_CASE("each operation reaches the library with its arguments, and what it answers comes back")
{
    Places places;
    places.Put(places.program);
    Qm4sLibrary library(places.All());
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
    CHECK(places.Calls() == std::vector<std::string>{
                                "InitDLL 3", "SetDLLBaud 2", "DLLCreateIni", "ClearError", "GetUnitVersion",
                                "SetVol -1234", "GetVol", "SetMute -1", "GetMute", "SelectFormat 5",
                                "GetFormat", "SetPink 2 -1", "SetPhase 5 0", "SetRT60 -1", "SetProjector 1",
                                "EnableOBE", "GetOptSlitloss", "DLLShutdown"});
}

TEST_CASE("blocks go to the library and come back whole, every byte value included")
{
    Places places;
    places.Put(places.program);
    Qm4sLibrary library(places.All());
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
    CHECK(std::ranges::equal(BytesOf(audioRead), BytesOf(audio)));
    CHECK(std::ranges::equal(BytesOf(systemRead), BytesOf(system)));
    const std::vector<std::string> calls = places.Calls();
    REQUIRE(calls.size() == 4);
    CHECK(calls[0].starts_with("SetAudio 000102030405"));
    CHECK(calls[0].ends_with("dddedf"));
    CHECK(calls[1].starts_with("SetSystem fffefd"));
    CHECK(calls[1].ends_with("828180"));
}

TEST_CASE("streams and their readings pass through the library's entries")
{
    Places places;
    places.Put(places.program);
    Qm4sLibrary library(places.All());
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
        Places places;
        places.Put(places.program, variant);
        Qm4sLibrary library(places.All());
        REQUIRE(library.TryLoad());
        CHECK(library.InitDLL(3) == Success);
        CHECK(library.SetPink(2, True) == Success);
        CHECK(library.StopStream() == Success);
        CHECK(places.Calls() == std::vector<std::string>{"InitDLL 3", "SetPink 2 -1", "StopStream"});
    }
}
#endif

TEST_CASE("a status of the library comes back as it is, negative ones too")
{
    Places places;
    places.Put(places.program);
    Qm4sLibrary library(places.All());
    REQUIRE(library.TryLoad());
    places.root.Put("failures", "SetVol 768\nGetVol 5\nSetMute -32768\n");
    Word word = 17;
    CHECK(library.SetVol(30) == 768);
    CHECK(library.GetVol(word) == 5);
    CHECK(word == 17);
    CHECK(library.SetMute(0) == -32768);
    places.root.Put("failures", "");
    CHECK(library.GetVol(word) == Success);
    CHECK(word == 70);
}

TEST_CASE("the library is looked for at the given path, in the program's, then in the executable's folder")
{
    Places places;
    places.Put(places.given);
    places.Put(places.program);
    places.Put(places.executable);
    places.Put(Places::SystemFolder());
    for (const fs::path &folder : {places.given, places.program, places.executable}) {
        places.loadedPaths.clear();
        {
            Qm4sLibrary library(places.All(), places.Loaded());
            CHECK(library.TryLoad());
            CHECK(library.Problem().empty());
            CHECK(places.LoadedFrom(folder));
        }
        fs::remove(folder / File);
    }
    places.loadedPaths.clear();
    Qm4sLibrary library(places.All(), places.Loaded());
    CHECK(library.TryLoad());
    CHECK(places.LoadedFrom(Places::SystemFolder()));
}

TEST_CASE("a library in the working folder alone is never loaded")
{
    Places places;
    places.Put(places.elsewhere);
    const WorkingFolder here(places.elsewhere);
    Qm4sLibrary library(places.All(), places.Loaded());
    CHECK(!library.TryLoad());
    CHECK(places.loadedPaths.empty());
    Qm4sLibrary unplaced({"", "", ""});
    CHECK(!unplaced.TryLoad());
    CHECK(fs::equivalent(fs::current_path(), places.elsewhere)); // where it was, whatever the search did
}

TEST_CASE("a relative path that the user gave is taken from where the program was started")
{
    Places places;
    places.Put(places.given);
    std::optional<Qm4sLibrary> library;
    {
        const WorkingFolder here(places.given);
        library.emplace(LibraryPlaces{File, "", ""}, places.Loaded());
    }
    const WorkingFolder there(places.elsewhere);
    CHECK(library->TryLoad());
    CHECK(places.LoadedFrom(places.given));
}

TEST_CASE("a missing library is told with its name, the places and the system's reason")
{
    Places places;
    Qm4sLibrary library(places.All(), places.Loaded());
    CHECK(library.Problem().empty());
    CHECK(!library.TryLoad());
    const std::string &problem = library.Problem();
    CAPTURE(problem);
    CHECK(Contains(problem, "File: " + File + "\n"));
    CHECK(Contains(problem, Utf8(places.given / File)));
    CHECK(Contains(problem, Utf8(places.program / File)));
    CHECK(Contains(problem, Utf8(places.executable / File)));
    CHECK(Contains(problem, "\nthe system's search path"));
    CHECK(Contains(problem, "works off line"));
    CHECK(problem.find("Reason: ") + 20 < problem.find("Looked for"));
    CHECK(places.loadedPaths.empty());
}

TEST_CASE("without a library every operation answers 64 and leaves what it was given")
{
    Places places;
    Qm4sLibrary library(places.All());
    AudioBlock audio{};
    SystemBlock system{};
    UnitVersion version;
    version.CpuBuild = 12;
    Word word = 3;
    std::array<Byte, GainBytes> gain{7, 7};
    std::array<Byte, SlitLossBytes> sample{};
    std::array<Byte, AzimuthBytes> frame{};
    for (Status status : {library.InitDLL(1),
                          library.DLLShutdown(),
                          library.SetDLLBaud(1),
                          library.DLLCreateIni(),
                          library.ClearError(),
                          library.GetAudio(audio),
                          library.GetSystem(system),
                          library.SetAudio(audio),
                          library.SetSystem(system),
                          library.GetUnitVersion(version),
                          library.SetVol(1),
                          library.GetVol(word),
                          library.SetMute(True),
                          library.GetMute(word),
                          library.SelectFormat(0),
                          library.GetFormat(word),
                          library.SetPink(0, True),
                          library.SetPhase(0, True),
                          library.SetRT60(True),
                          library.SetProjector(1),
                          library.EnableOBE(),
                          library.StopStream(),
                          library.BeginGainStream(),
                          library.BeginSlitStream(),
                          library.BeginAzimuthStream(),
                          library.GetOptGain(gain),
                          library.GetOptSlitloss(),
                          library.GetSingleSlitloss(sample, word),
                          library.GetOptAzimuth(frame)})
        CHECK(status == 64);
    CHECK(word == 3);
    CHECK(version.CpuBuild == 12);
    CHECK(gain == std::array<Byte, GainBytes>{7, 7});
}

TEST_CASE("a library that arrives later is loaded by the next connection")
{
    Places places;
    Qm4sLibrary library(places.All(), places.Loaded());
    CHECK(!library.TryLoad());
    CHECK(library.InitDLL(1) == 64);
    places.Put(places.program);
    CHECK(library.InitDLL(4) == Success);
    CHECK(library.Problem().empty());
    CHECK(library.InitDLL(2) == Success);
    CHECK(places.LoadedFrom(places.program));
    CHECK(places.Calls() == std::vector<std::string>{"InitDLL 4", "InitDLL 2"});
}

TEST_CASE("a library that lacks operations is refused and their names are listed")
{
    Places places;
    places.Put(places.program, "lackstwo");
    places.Put(places.executable);
    Qm4sLibrary library(places.All(), places.Loaded());
    CHECK(!library.TryLoad());
    CAPTURE(library.Problem());
    CHECK(Contains(library.Problem(), "it lacks these operations: GetFormat, SetRT60\n"));
    CHECK(Contains(library.Problem(), "File: " + Utf8(places.program / File)));
    CHECK(!Contains(library.Problem(), Utf8(places.executable / File)));
    CHECK(library.SetVol(1) == 64);
    CHECK(places.loadedPaths.empty());
    CHECK(places.Calls().empty());
}

TEST_CASE("GetOptSlitloss alone may be missing")
{
    Places places;
    places.Put(places.program, "lacksslitloss");
    Qm4sLibrary library(places.All());
    CHECK(library.TryLoad());
    CHECK(library.GetOptSlitloss() == 64);
    CHECK(library.EnableOBE() == Success);
}

TEST_CASE("a file that is no library is told as such")
{
    Places places;
    for (const std::string &content :
         {std::string("This is a text.\n"), std::string(), std::string(5000, 'x'), std::string("MZ"),
          std::string("MZ") + std::string(100, '\xFF')}) {
        Write(places.program / File, content);
        Qm4sLibrary library(places.All());
        CHECK(!library.TryLoad());
        CHECK(Contains(library.Problem(), "Reason: it is not a library\n"));
    }
    fs::remove(places.program / File);
    fs::create_directory(places.program / File);
    Qm4sLibrary library(places.All());
    CHECK(!library.TryLoad());
    CHECK(Contains(library.Problem(), "Reason: it is not a library\n"));
}

TEST_CASE("a library of another kind is refused with both kinds named")
{
    Places places;
    const std::string other = sizeof(void *) == 8 ? "32-bit" : "64-bit";
    const auto problemOf = [&](const std::string &content) {
        Write(places.program / File, content);
        Qm4sLibrary library(places.All());
        CHECK(!library.TryLoad());
        CHECK(Contains(library.Problem(), "this is the " + std::string(OwnKind)));
        return library.Problem();
    };
    CHECK(Contains(problemOf(ElfOfOtherBits()), "it is a " + other + " Linux library"));
    CHECK(Contains(problemOf(sizeof(void *) == 8 ? Windows32() : Windows64()),
                   "it is a " + other + " Windows library"));
}

TEST_CASE("a library's own needs are found beside it")
{
    Places places;
    places.Put(places.program, "needy");
    fs::copy_file(Fakes / "another" / AnotherFile, places.program / AnotherFile);
    Qm4sLibrary library(places.All(), places.Loaded());
    CHECK(library.TryLoad());
    CAPTURE(library.Problem());
    CHECK(places.LoadedFrom(places.program));
    library.InitDLL(1);
    CHECK(places.Calls() == std::vector<std::string>{"InitDLL 1 4711"});
}

#if defined(_WIN32)
TEST_CASE("what the library needs may also lie in a folder of PATH")
{
    Places places;
    places.Put(places.program, "needy");
    fs::copy_file(Fakes / "another" / AnotherFile, Places::SystemFolder() / AnotherFile);
    {
        Qm4sLibrary library(places.All());
        CHECK(library.TryLoad());
        CAPTURE(library.Problem());
    }
    fs::remove(Places::SystemFolder() / AnotherFile);
}
#endif

#if defined(_WIN32)
TEST_CASE("a need of another kind is named")
{
    Places places;
    places.Put(places.program, "needy");
    Write(places.program / AnotherFile, sizeof(void *) == 8 ? Windows32() : Windows64());
    Qm4sLibrary library(places.All());
    CHECK(!library.TryLoad());
    CAPTURE(library.Problem());
    CHECK(Contains(library.Problem(), "a library that it needs is not for the " + std::string(OwnKind) +
                                          ": " + AnotherFile + "\n"));
}
#endif

TEST_CASE("a path may be longer than 260 characters")
{
    Places places;
    const std::string folder = LongFolder(places.root);
    const std::string path = folder + "/" + File;
    std::string bytes;
    REQUIRE(!ReadWhole(Utf8(Fakes / "plain" / File), 100'000'000, bytes));
    REQUIRE(!WriteWhole(path, bytes));
    Qm4sLibrary library({"", folder, ""}, places.Loaded());
    CHECK(library.TryLoad());
    CAPTURE(library.Problem());
    CHECK(library.InitDLL(2) == Success);
    CHECK(places.Calls() == std::vector<std::string>{"InitDLL 2"});
}

TEST_CASE("a need that is missing is named, and is not taken from the working folder")
{
    Places places;
    fs::copy_file(Fakes / "another" / AnotherFile, places.elsewhere / AnotherFile);
    const WorkingFolder here(places.elsewhere);
    places.Put(places.program, "needy");
    Qm4sLibrary library(places.All());
    CHECK(!library.TryLoad());
    CAPTURE(library.Problem());
    CHECK(Contains(library.Problem(), "a library that it needs was not found: " + AnotherFile + "\n"));
}

TEST_CASE("the libraries that a Windows library needs are read from its headers, 32 or 64 bits")
{
    TestFolder folder;
    folder.Put("32.dll", Windows32());
    folder.Put("64.dll", Windows64());
    const LibraryImage narrow = ReadLibraryImage(folder.Path("32.dll"));
    const LibraryImage wide = ReadLibraryImage(folder.Path("64.dll"));
    CHECK(narrow.bits == 32);
    CHECK(wide.bits == 64);
    for (const LibraryImage &image : {narrow, wide}) {
        CHECK(image.system == LibraryImage::System::Windows);
        CHECK(image.needs == std::vector<std::string>{"FIRST.dll", "second.dll"});
    }
}

TEST_CASE("headers cut at any byte, or with any byte changed, are read without harm")
{
    TestFolder folder;
    for (const std::string &whole : {Windows32(), Windows64()}) {
        for (std::size_t size = 0; size < whole.size(); size += 3) {
            folder.Put("cut.dll", std::string_view(whole).substr(0, size));
            CHECK(ReadLibraryImage(folder.Path("cut.dll")).needs.size() <= 2);
        }
        for (std::size_t at = 0; at < whole.size(); ++at) {
            std::string changed = whole;
            changed[at] = '\xFF';
            folder.Put("changed.dll", changed);
            CHECK(ReadLibraryImage(folder.Path("changed.dll")).needs.size() <= 1000);
        }
    }
}
