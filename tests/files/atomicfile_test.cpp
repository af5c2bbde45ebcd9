#include "files/atomicfile.h"

#include "files/systempath.h"
#include "support/faultycalls.h"
#include "support/longfolder.h"
#include "support/testfolder.h"
#include "support/writers.h"

#include <algorithm>
#include <cstdio>
#include <doctest/doctest.h>

using namespace kelvo;

namespace {

/// The calls of one writer when nothing goes wrong.
std::vector<std::string> CallsOf(const Writer &writer, bool exists)
{
    const TestFolder folder;
    if (exists)
        folder.Put(writer.name, writer.before);
    const FaultyCalls calls;
    REQUIRE_FALSE(writer.write(folder.Path(writer.name), calls));
    REQUIRE(folder.Get(writer.name) == writer.after);
    REQUIRE(folder.Count() == 1);
    return calls.made;
}

/// Lets call number `at` go wrong: a success has written the new file, a failure has left the old one and
/// names its reason, and no temporary stays behind.
void TryFault(const Writer &writer, bool exists, Fault fault, std::size_t at)
{
    CAPTURE(writer.name);
    CAPTURE(exists);
    CAPTURE(at);
    CAPTURE(int(fault));
    const TestFolder folder;
    if (exists)
        folder.Put(writer.name, writer.before);
    const FaultyCalls calls(fault, at);
    const auto failure = writer.write(folder.Path(writer.name), calls);

    REQUIRE(calls.made.size() >= at);
    const auto renamed = std::ranges::find(calls.made, "Rename");
    const bool afterRename =
        renamed != calls.made.end() && std::size_t(renamed - calls.made.begin()) + 1 < at;
    const bool harmless = fault == Fault::Interrupted || fault == Fault::Short ||
                          (afterRename && calls.made[at - 1] == "Close"); // of the folder, which is done with
    CHECK(failure.has_value() == !harmless);
    CHECK((!failure || !failure->reason.empty()));
    const bool isNew = harmless || afterRename;
    const auto old = exists ? std::optional(writer.before) : std::nullopt;
    CHECK(folder.Get(writer.name) == (isNew ? std::optional(writer.after) : old));
    CHECK(folder.Count() == (exists || isNew ? 1 : 0));
}

/// A folder whose flush answers `answer`; whatever else is called goes well.
class FolderFlushAnswers : public FileCalls {
  public:
    explicit FolderFlushAnswers(std::errc answer) : answer_(answer) {}

    std::error_code OpenFolder(const std::string &path, FileHandle &folder) const override
    {
        const std::error_code error = FileCalls::OpenFolder(path, folder);
        folder_ = folder;
        return error;
    }
    std::error_code Flush(FileHandle file) const override
    {
        return file == folder_ ? std::make_error_code(answer_) : FileCalls::Flush(file);
    }

  private:
    std::errc answer_;
    mutable FileHandle folder_ = NoFile;
};

} // namespace

TEST_CASE("a path may be longer than 260 characters")
{
    const TestFolder folder;
    const std::string path = LongFolder(folder) + "/" + std::string(200, 'n') + ".zcf";
    std::string bytes;
    REQUIRE(!WriteWhole(path, "first"));
    REQUIRE(!WriteWhole(path, "second"));
    REQUIRE(!ReadWhole(path, 100, bytes));
    CHECK(bytes == "second");
    CHECK(Exists(path));
    CHECK(!Exists(path + "x"));
}

TEST_CASE("whichever call goes wrong, a file is the old one or the new one, whole, and the writer says which")
{
    int points = 0;
    for (const Writer &writer : Writers)
        for (const bool exists : {true, false}) {
            const std::vector<std::string> made = CallsOf(writer, exists);
            for (std::size_t at = 1; at <= made.size(); ++at) {
                std::vector<Fault> faults{Fault::Fails, Fault::Interrupted};
                if (made[at - 1] == "Write")
                    faults.insert(faults.end(), {Fault::Short, Fault::NothingTaken});
                for (const Fault fault : faults) {
                    TryFault(writer, exists, fault, at);
                    ++points;
                }
            }
        }
    std::printf("writing: %d points of failure tried, old or new and whole at each\n", points);
    CHECK(points >= 3 * 2 * 2 * 9);
}

TEST_CASE("a folder that knows no flush is no failure, one that cannot be flushed is told")
{
    const TestFolder folder;
    for (const std::errc none : {std::errc::invalid_argument, std::errc::not_supported,
                                 std::errc::operation_not_supported, std::errc::function_not_supported})
        CHECK_FALSE(WriteWhole(folder.Path("a.zcf"), "new", FolderFlushAnswers(none)));
    CHECK(folder.Get("a.zcf") == "new");
    CHECK(WriteWhole(folder.Path("a.zcf"), "new", FolderFlushAnswers(std::errc::io_error)));
    CHECK(WriteWhole(folder.Path("a.zcf"), "new", FolderFlushAnswers(std::errc::no_space_on_device)));
}

TEST_CASE("a file is written, flushed and renamed, in this order, and its folder is flushed last")
{
    std::vector<std::string> made = CallsOf(Writers[0], true);
    if (made.back() == "Close") // Windows has no handle of a folder to close
        made.pop_back();
    CHECK(made == std::vector<std::string>{"Follow", "Examine", "OpenFolder", "Create", "SetMode", "Write",
                                           "Flush", "Close", "Rename", "Flush"});
}

TEST_CASE("a writer never touches a temporary that somebody else left")
{
    const TestFolder folder;
    const std::string path = folder.Path("a.zcf");
    const auto name = [&](int attempt) {
        return TemporaryBeside(path, attempt).substr(folder.Path().size() + 1);
    };
    folder.Put(name(0), "left over");
    folder.Put(name(1), "as well");
    CHECK_FALSE(WriteWhole(path, "new"));
    CHECK(folder.Get("a.zcf") == "new");
    CHECK(folder.Get(name(0)) == "left over");
    CHECK(folder.Get(name(1)) == "as well");
    CHECK(folder.Count() == 3);
}

TEST_CASE("any bytes come back as they were written, into names of any script")
{
    const TestFolder folder;
    std::string bytes;
    for (int at = 0; at < 300'000; ++at)
        bytes += char(at * 7);
    for (const std::string name : {"plain", "Kinoteatr Київ 映画館.zcf", "with blanks and \"ü\""}) {
#ifdef _WIN32
        if (name.find('"') != std::string::npos)
            continue; // no name there
#endif
        REQUIRE_FALSE(WriteWhole(folder.Path(name), bytes));
        std::string read = "something";
        REQUIRE_FALSE(ReadWhole(folder.Path(name), bytes.size(), read));
        CHECK(read == bytes);
    }
    REQUIRE_FALSE(WriteWhole(folder.Path("plain"), ""));
    std::string read = "something";
    REQUIRE_FALSE(ReadWhole(folder.Path("plain"), 0, read));
    CHECK(read.empty());
}

TEST_CASE("a folder, or a folder that is missing, is refused in words")
{
    const TestFolder folder;
    std::filesystem::create_directory(std::filesystem::path(folder.Path("sub")));
    std::string bytes;
    for (const std::string &path : {folder.Path("sub"), folder.Path("none/a.zcf"), std::string()}) {
        CAPTURE(path);
        const auto written = WriteWhole(path, "x");
        REQUIRE(written);
        CHECK_FALSE(written->reason.empty());
        const auto read = ReadWhole(path, 10, bytes);
        REQUIRE(read);
        CHECK_FALSE(read->reason.empty());
        CHECK_FALSE(read->wrongFormat);
    }
    CHECK(folder.Count() == 1);
}

TEST_CASE("reading goes on after a signal and a short read, and tells of every failure")
{
    const TestFolder folder;
    folder.Put("a.zcf", SampleFile);
    const std::string path = folder.Path("a.zcf");
    std::string bytes;
    const FaultyCalls counted;
    REQUIRE_FALSE(ReadWhole(path, 10'000, bytes, counted));
    CHECK(counted.made == std::vector<std::string>{"OpenToRead", "Read", "Read", "Close"});
    for (std::size_t at = 1; at <= 3; ++at) {
        REQUIRE_FALSE(ReadWhole(path, 10'000, bytes, FaultyCalls(Fault::Interrupted, at)));
        CHECK(bytes == SampleFile);
        const auto failure = ReadWhole(path, 10'000, bytes, FaultyCalls(Fault::Fails, at));
        REQUIRE(failure);
        CHECK_FALSE(failure->reason.empty());
        CHECK_FALSE(failure->wrongFormat);
    }
    REQUIRE_FALSE(ReadWhole(path, 10'000, bytes, FaultyCalls(Fault::Short, 2)));
    CHECK(bytes == SampleFile);
}

TEST_CASE("a file longer than the limit is the wrong format and is not read")
{
    const TestFolder folder;
    folder.Put("noise", std::string(1000, 'x'));
    std::string bytes;
    CHECK_FALSE(ReadWhole(folder.Path("noise"), 1000, bytes));
    const FaultyCalls calls;
    const auto failure = ReadWhole(folder.Path("noise"), 999, bytes, calls);
    REQUIRE(failure);
    CHECK(failure->wrongFormat);
    CHECK(calls.made == std::vector<std::string>{"OpenToRead", "Close"});
}

TEST_CASE("a file that grows while it is read is stopped at the limit")
{
    // The size that the system told is less than what is there by the time of the read.
    class Growing : public FileCalls {
        std::error_code OpenToRead(const std::string &path, FileHandle &file,
                                   std::uint64_t &size) const override
        {
            const std::error_code error = FileCalls::OpenToRead(path, file, size);
            size = 10;
            return error;
        }
    };
    const TestFolder folder;
    folder.Put("a", std::string(1000, 'x'));
    std::string bytes;
    CHECK_FALSE(ReadWhole(folder.Path("a"), 1000, bytes, Growing()));
    CHECK(bytes == std::string(1000, 'x'));
    const auto failure = ReadWhole(folder.Path("a"), 500, bytes, Growing());
    REQUIRE(failure);
    CHECK(failure->wrongFormat);
}
