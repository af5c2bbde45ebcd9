#include "files/atomicfile.h"

#include "support/faultycalls.h"
#include "support/testfolder.h"
#include "support/writers.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <doctest/doctest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace kelvo;

namespace {

/// Runs `act` in a process of its own, so that it may end there; answers its exit code.
template <typename Act>
int InChild(Act act)
{
    std::fflush(nullptr);
    const pid_t child = fork();
    REQUIRE(child >= 0);
    if (child == 0) {
        act();
        std::_Exit(EXIT_FAILURE);
    }
    int status = 0;
    REQUIRE(waitpid(child, &status, 0) == child);
    REQUIRE(WIFEXITED(status));
    return WEXITSTATUS(status);
}

/// Runs `act` as a user who is bound by permissions, whoever runs the tests; answers whether it was true.
template <typename Act>
bool AsPlainUser(Act act)
{
    constexpr uid_t Nobody = 65534;
    return InChild([&] {
               if (geteuid() == 0 && setuid(Nobody) != 0)
                   std::_Exit(EXIT_FAILURE);
               std::_Exit(act() ? EXIT_SUCCESS : EXIT_FAILURE);
           }) == EXIT_SUCCESS;
}

bool FailsWith(const std::optional<FileFailure> &failure, int error)
{
    return failure && !failure->wrongFormat && failure->reason == std::strerror(error);
}

mode_t ModeOf(const std::string &path)
{
    struct stat facts {};
    REQUIRE(stat(path.c_str(), &facts) == 0);
    return facts.st_mode & 07777;
}

} // namespace

TEST_CASE("whenever the process ends, the file is the old one or the new one, whole")
{
    int points = 0;
    for (const Writer &writer : Writers)
        for (const bool exists : {true, false}) {
            const auto old = exists ? std::optional(writer.before) : std::nullopt;
            const auto prepare = [&](const TestFolder &folder) {
                if (exists)
                    folder.Put(writer.name, writer.before);
            };
            const TestFolder undisturbed;
            prepare(undisturbed);
            const FaultyCalls counted;
            REQUIRE_FALSE(writer.write(undisturbed.Path(writer.name), counted));
            const auto rename =
                std::size_t(std::ranges::find(counted.made, "Rename") - counted.made.begin()) + 1;

            for (std::size_t at = 1; at <= counted.made.size(); ++at)
                for (const Fault fault : {Fault::LastBefore, Fault::LastMidway, Fault::LastAfter}) {
                    if (fault == Fault::LastMidway && counted.made[at - 1] != "Write")
                        continue;
                    const TestFolder folder;
                    prepare(folder);
                    REQUIRE(InChild([&] {
                                static_cast<void>(
                                    writer.write(folder.Path(writer.name), FaultyCalls(fault, at)));
                            }) == EXIT_SUCCESS); // it ended inside the call
                    const bool isNew = at > rename || (at == rename && fault == Fault::LastAfter);
                    CAPTURE(at);
                    CHECK(folder.Get(writer.name) == (isNew ? std::optional(writer.after) : old));

                    REQUIRE_FALSE(writer.write(folder.Path(writer.name), FileCalls()));
                    CHECK(folder.Get(writer.name) == writer.after);
                    ++points;
                }
        }
    std::printf("writing: %d points where the process ended tried, old or new and whole at each\n", points);
    CHECK(points >= 3 * 2 * 20);
}

TEST_CASE("a full disk leaves the old file, no temporary, and its reason")
{
    const TestFolder folder;
    folder.Put("a.zcf", "old");
    const bool told = InChild([&] {
                          std::signal(SIGXFSZ, SIG_IGN);
                          const rlimit limit{100, 100}; // a file may grow to 100 bytes, then writes fail
                          setrlimit(RLIMIT_FSIZE, &limit);
                          const auto failure = WriteWhole(folder.Path("a.zcf"), std::string(1000, 'x'));
                          std::_Exit(FailsWith(failure, EFBIG) ? EXIT_SUCCESS : EXIT_FAILURE);
                      }) == EXIT_SUCCESS;
    CHECK(told);
    CHECK(folder.Get("a.zcf") == "old");
    CHECK(folder.Count() == 1);
}

TEST_CASE("a replaced file keeps its mode, a new one has the user's")
{
    const TestFolder folder;
    for (const mode_t mode : {0600U, 0640U, 0666U, 0755U}) {
        folder.Put("a.zcf", "old");
        REQUIRE(chmod(folder.Path("a.zcf").c_str(), mode) == 0);
        REQUIRE_FALSE(WriteWhole(folder.Path("a.zcf"), "new"));
        CHECK(ModeOf(folder.Path("a.zcf")) == mode);
    }
    const mode_t before = umask(027);
    REQUIRE_FALSE(WriteWhole(folder.Path("b.zcf"), "new"));
    umask(before);
    CHECK(ModeOf(folder.Path("b.zcf")) == 0640);
}

TEST_CASE("a link stays a link, and the file that it names is replaced")
{
    const TestFolder folder;
    std::filesystem::create_directory(folder.Path("sub"));
    folder.Put("sub/real.zcf", "old");
    REQUIRE(symlink("sub/real.zcf", folder.Path("relative").c_str()) == 0);
    REQUIRE(symlink(folder.Path("relative").c_str(), folder.Path("absolute").c_str()) == 0);
    for (const std::string name : {"relative", "absolute"}) {
        REQUIRE_FALSE(WriteWhole(folder.Path(name), name));
        CHECK(folder.Get("sub/real.zcf") == name);
        CHECK(std::filesystem::is_symlink(folder.Path(name)));
    }
    REQUIRE(symlink("sub/fresh.zcf", folder.Path("dangling").c_str()) == 0);
    REQUIRE_FALSE(WriteWhole(folder.Path("dangling"), "new"));
    CHECK(folder.Get("sub/fresh.zcf") == "new");
    CHECK(std::filesystem::is_symlink(folder.Path("dangling")));
    REQUIRE(symlink("circle", folder.Path("circle").c_str()) == 0);
    CHECK(FailsWith(WriteWhole(folder.Path("circle"), "new"), ELOOP));
}

TEST_CASE("neither reading nor writing waits for a pipe or replaces a device")
{
    const TestFolder folder;
    const std::string pipe = folder.Path("pipe");
    REQUIRE(mkfifo(pipe.c_str(), 0666) == 0);
    std::string bytes;
    for (const std::string &path : {pipe, std::string("/dev/full"), std::string("/dev/zero")}) {
        CHECK(FailsWith(ReadWhole(path, 100, bytes), ENOTSUP));
        CHECK(FailsWith(WriteWhole(path, "x"), ENOTSUP));
        CHECK_FALSE(std::filesystem::is_regular_file(path));
    }
}

TEST_CASE("a missing file and a folder are told in the system's words")
{
    const TestFolder folder;
    std::string bytes;
    CHECK(FailsWith(ReadWhole(folder.Path("none"), 10, bytes), ENOENT));
    CHECK(FailsWith(ReadWhole(folder.Path(), 10, bytes), EISDIR));
    CHECK(FailsWith(WriteWhole(folder.Path("none/a"), "x"), ENOENT));
    CHECK(FailsWith(WriteWhole(folder.Path(), "x"), EISDIR));
    CHECK(FailsWith(WriteWhole(folder.Path(std::string(300, 'x')), "x"), ENAMETOOLONG));
    REQUIRE_FALSE(WriteWhole(folder.Path(std::string(255, 'x')), "the longest name there is"));
}

TEST_CASE("a file that the user may not read or write, or a folder that he may not write, is left alone")
{
    const TestFolder folder;
    std::filesystem::permissions(folder.Path(), std::filesystem::perms::all);
    folder.Put("secret.zcf", SampleFile);
    folder.Put("guarded.zcf", "old");
    REQUIRE(chmod(folder.Path("secret.zcf").c_str(), 0) == 0);
    REQUIRE(chmod(folder.Path("guarded.zcf").c_str(), 0444) == 0);
    std::filesystem::create_directory(folder.Path("closed"));
    folder.Put("closed/a.zcf", "old");
    REQUIRE(chmod(folder.Path("closed/a.zcf").c_str(), 0666) == 0);
    REQUIRE(chmod(folder.Path("closed").c_str(), 0555) == 0);

    CHECK(AsPlainUser([&] {
        RoomSettings room;
        return FailsWith(LoadConfigFile(folder.Path("secret.zcf"), room), EACCES);
    }));
    CHECK(AsPlainUser([&] { return FailsWith(WriteWhole(folder.Path("guarded.zcf"), "new"), EACCES); }));
    CHECK(AsPlainUser([&] { return FailsWith(WriteWhole(folder.Path("closed/a.zcf"), "new"), EACCES); }));
    CHECK(AsPlainUser([&] { return FailsWith(WriteWhole(folder.Path("closed/b.zcf"), "new"), EACCES); }));
    CHECK(AsPlainUser([&] { return !WriteWhole(folder.Path("free.zcf"), "new"); }));

    CHECK(folder.Get("guarded.zcf") == "old");
    CHECK(folder.Get("closed/a.zcf") == "old");
    CHECK_FALSE(folder.Get("closed/b.zcf"));
    REQUIRE(chmod(folder.Path("closed").c_str(), 0755) == 0); // so that it can be removed
}
