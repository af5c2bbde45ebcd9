#include "unit/qm4slibrary.h"

#include "files/atomicfile.h"
#include "support/libraryfolders.h"
#include "support/libraryimages.h"
#include "support/longfolder.h"

#include <doctest/doctest.h>

#include <optional>

using namespace kelvo;

namespace {

#if defined(_WIN32)
const std::string AnotherFile = "libanotherlibrary.dll";
constexpr std::string_view OwnKind =
    sizeof(void *) == 8 ? "64-bit Windows program" : "32-bit Windows program";
#else
const std::string AnotherFile = "libanotherlibrary.so";
constexpr std::string_view OwnKind = sizeof(void *) == 8 ? "64-bit Linux program" : "32-bit Linux program";
#endif

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

bool Contains(const std::string &text, std::string_view part)
{
    return text.find(part) != std::string::npos;
}

} // namespace

TEST_CASE("the library is looked for at the given path, in the program's, then in the executable's folder")
{
    LibraryFolders folders;
    folders.Put(folders.given);
    folders.Put(folders.program);
    folders.Put(folders.executable);
    folders.Put(LibraryFolders::SystemFolder());
    for (const fs::path &folder : {folders.given, folders.program, folders.executable}) {
        folders.loadedPaths.clear();
        {
            Qm4sLibrary library(folders.All(), folders.Loaded());
            CHECK(library.TryLoad());
            CHECK(library.Problem().empty());
            CHECK(folders.LoadedFrom(folder));
        }
        fs::remove(folder / File);
    }
    folders.loadedPaths.clear();
    Qm4sLibrary library(folders.All(), folders.Loaded());
    CHECK(library.TryLoad());
    CHECK(folders.LoadedFrom(LibraryFolders::SystemFolder()));
}

TEST_CASE("a library in the working folder alone is never loaded")
{
    LibraryFolders folders;
    folders.Put(folders.elsewhere);
    const WorkingFolder here(folders.elsewhere);
    Qm4sLibrary library(folders.All(), folders.Loaded());
    CHECK(!library.TryLoad());
    CHECK(folders.loadedPaths.empty());
    Qm4sLibrary unplaced({"", "", ""});
    CHECK(!unplaced.TryLoad());
    CHECK(fs::equivalent(fs::current_path(), folders.elsewhere)); // where it was, whatever the search did
}

TEST_CASE("a relative path that the user gave is taken from where the program was started")
{
    LibraryFolders folders;
    folders.Put(folders.given);
    std::optional<Qm4sLibrary> library;
    {
        const WorkingFolder here(folders.given);
        library.emplace(LibraryPlaces{File, "", ""}, folders.Loaded());
    }
    const WorkingFolder there(folders.elsewhere);
    CHECK(library->TryLoad());
    CHECK(folders.LoadedFrom(folders.given));
}

TEST_CASE("a missing library is told with its name, the places and the system's reason")
{
    LibraryFolders folders;
    Qm4sLibrary library(folders.All(), folders.Loaded());
    CHECK(library.Problem().empty());
    CHECK(!library.TryLoad());
    const std::string &problem = library.Problem();
    CAPTURE(problem);
    CHECK(Contains(problem, "File: " + File + "\n"));
    CHECK(Contains(problem, Utf8(folders.given / File)));
    CHECK(Contains(problem, Utf8(folders.program / File)));
    CHECK(Contains(problem, Utf8(folders.executable / File)));
    CHECK(Contains(problem, "\nthe system's search path"));
    CHECK(Contains(problem, "works off line"));
    CHECK(problem.find("Reason: ") + 20 < problem.find("Looked for"));
    CHECK(folders.loadedPaths.empty());
}

TEST_CASE("a library that lacks operations is refused and their names are listed")
{
    LibraryFolders folders;
    folders.Put(folders.program, "lackstwo");
    folders.Put(folders.executable);
    Qm4sLibrary library(folders.All(), folders.Loaded());
    CHECK(!library.TryLoad());
    CAPTURE(library.Problem());
    CHECK(Contains(library.Problem(), "it lacks these operations: GetFormat, SetRT60\n"));
    CHECK(Contains(library.Problem(), "File: " + Utf8(folders.program / File)));
    CHECK(!Contains(library.Problem(), Utf8(folders.executable / File)));
    CHECK(library.SetVol(1) == 64);
    CHECK(folders.loadedPaths.empty());
    CHECK(folders.Calls().empty());
}

TEST_CASE("a file that is no library is told as such")
{
    LibraryFolders folders;
    for (const std::string &content :
         {std::string("This is a text.\n"), std::string(), std::string(5000, 'x'), std::string("MZ"),
          std::string("MZ") + std::string(100, '\xFF')}) {
        Write(folders.program / File, content);
        Qm4sLibrary library(folders.All());
        CHECK(!library.TryLoad());
        CHECK(Contains(library.Problem(), "Reason: it is not a library\n"));
    }
    fs::remove(folders.program / File);
    fs::create_directory(folders.program / File);
    Qm4sLibrary library(folders.All());
    CHECK(!library.TryLoad());
    CHECK(Contains(library.Problem(), "Reason: it is not a library\n"));
}

TEST_CASE("a library of another kind is refused with both kinds named")
{
    LibraryFolders folders;
    const std::string other = sizeof(void *) == 8 ? "32-bit" : "64-bit";
    const auto problemOf = [&](const std::string &content) {
        Write(folders.program / File, content);
        Qm4sLibrary library(folders.All());
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
    LibraryFolders folders;
    folders.Put(folders.program, "needy");
    fs::copy_file(Fakes / "another" / AnotherFile, folders.program / AnotherFile);
    Qm4sLibrary library(folders.All(), folders.Loaded());
    CHECK(library.TryLoad());
    CAPTURE(library.Problem());
    CHECK(folders.LoadedFrom(folders.program));
    library.InitDLL(1);
    CHECK(folders.Calls() == std::vector<std::string>{"InitDLL 1 4711"});
}

#if defined(_WIN32)
TEST_CASE("what the library needs may also lie in a folder of PATH")
{
    LibraryFolders folders;
    folders.Put(folders.program, "needy");
    fs::copy_file(Fakes / "another" / AnotherFile, LibraryFolders::SystemFolder() / AnotherFile);
    {
        Qm4sLibrary library(folders.All());
        CHECK(library.TryLoad());
        CAPTURE(library.Problem());
    }
    fs::remove(LibraryFolders::SystemFolder() / AnotherFile);
}
#endif

#if defined(_WIN32)
TEST_CASE("a need of another kind is named")
{
    LibraryFolders folders;
    folders.Put(folders.program, "needy");
    Write(folders.program / AnotherFile, sizeof(void *) == 8 ? Windows32() : Windows64());
    Qm4sLibrary library(folders.All());
    CHECK(!library.TryLoad());
    CAPTURE(library.Problem());
    CHECK(Contains(library.Problem(), "a library that it needs is not for the " + std::string(OwnKind) +
                                          ": " + AnotherFile + "\n"));
}
#endif

TEST_CASE("a path may be longer than 260 characters")
{
    LibraryFolders folders;
    const std::string folder = LongFolder(folders.root);
    const std::string path = folder + "/" + File;
    std::string bytes;
    REQUIRE(!ReadWhole(Utf8(Fakes / "plain" / File), 100'000'000, bytes));
    REQUIRE(!WriteWhole(path, bytes));
    Qm4sLibrary library({"", folder, ""}, folders.Loaded());
    CHECK(library.TryLoad());
    CAPTURE(library.Problem());
    CHECK(library.InitDLL(2) == Success);
    CHECK(folders.Calls() == std::vector<std::string>{"InitDLL 2"});
}

TEST_CASE("a need that is missing is named, and is not taken from the working folder")
{
    LibraryFolders folders;
    fs::copy_file(Fakes / "another" / AnotherFile, folders.elsewhere / AnotherFile);
    const WorkingFolder here(folders.elsewhere);
    folders.Put(folders.program, "needy");
    Qm4sLibrary library(folders.All());
    CHECK(!library.TryLoad());
    CAPTURE(library.Problem());
    CHECK(Contains(library.Problem(), "a library that it needs was not found: " + AnotherFile + "\n"));
}
