#include "unit/calllog.h"

#include "support/anycall.h"
#include "support/testfolder.h"

#include <doctest/doctest.h>

#include <csignal>
#include <sys/resource.h>

using namespace kelvo;

namespace {

/// No file of this process grows beyond so many bytes while this stands.
class SmallDisk {
  public:
    explicit SmallDisk(rlim_t bytes) : signal_(std::signal(SIGXFSZ, SIG_IGN))
    {
        getrlimit(RLIMIT_FSIZE, &before_);
        rlimit small = before_;
        small.rlim_cur = bytes;
        setrlimit(RLIMIT_FSIZE, &small);
    }
    ~SmallDisk()
    {
        setrlimit(RLIMIT_FSIZE, &before_);
        std::signal(SIGXFSZ, signal_);
    }
    SmallDisk(const SmallDisk &) = delete;
    SmallDisk &operator=(const SmallDisk &) = delete;

  private:
    rlimit before_{};
    void (*signal_)(int);
};

} // namespace

TEST_CASE("a full disk cuts one line, and those that come after it is emptied stand whole")
{
    TestFolder folder;
    CallLog log(folder.Path("calls.log"));
    AnyCall call(Operation::SetAudio);
    log.Before(call);
    const std::size_t room = folder.Get("calls.log")->size() + 50; // a part of a line: it is of 480 bytes
    {
        const SmallDisk full(room);
        log.Before(call);
        log.Before(call);
    }
    CHECK(folder.Get("calls.log")->size() == room);
    log.Note("there is room again");
    const std::string content = *folder.Get("calls.log");
    const std::string_view after = std::string_view(content).substr(room);
    REQUIRE(after.starts_with('\n'));
    CHECK(ReadLogLine(after.substr(1, after.size() - 2)).text == "there is room again");
}

TEST_CASE("a log on a disk that is full from the start is refused")
{
    const CallLog log("/dev/full");
    CHECK(log.Problem() == "No space left on device");
}

TEST_CASE("a log may be written into a pipe")
{
    TestFolder folder;
    const std::string command = "cat > '" + folder.Path("calls.log") + "'";
    FILE *pipe = popen(command.c_str(), "w");
    REQUIRE(pipe);
    {
        const CallLog log("/proc/self/fd/" + std::to_string(fileno(pipe)));
        CHECK(log.Problem().empty());
    }
    pclose(pipe);
    CHECK(folder.Get("calls.log")->ends_with("= call log, version 1\n"));
}
