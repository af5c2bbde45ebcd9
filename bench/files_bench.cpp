// files: what loading, composing and saving a configuration costs. Saving is measured beside the bare system
// calls of the same steps, in turn, on the same disk.

#include "files/configfile.h"
#include "measuring.h"
#include "support/samplefile.h"
#include "support/testfolder.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

using namespace kelvo;

namespace {

using Microseconds = std::chrono::duration<double, std::micro>;

template <typename Act>
double Took(Act act)
{
    const auto start = std::chrono::steady_clock::now();
    act();
    return Microseconds(std::chrono::steady_clock::now() - start).count();
}

double Median(std::vector<double> values)
{
    const auto middle = values.begin() + std::ptrdiff_t(values.size() / 2);
    std::ranges::nth_element(values, middle);
    return *middle;
}

template <typename Act>
double MedianOf(int runs, Act act)
{
    std::vector<double> times;
    for (int run = 0; run < runs; ++run)
        times.push_back(Took(act));
    return Median(times);
}

/// What `WriteWhole` asks of the system, and nothing else.
bool BareSave(const std::string &folderPath, const std::string &path, const std::string &temporary,
              const std::string &bytes)
{
    char target[4096];
    struct stat facts {};
    bool good = readlink(path.c_str(), target, sizeof target) < 0 && stat(path.c_str(), &facts) == 0;
    good = faccessat(AT_FDCWD, path.c_str(), W_OK, AT_EACCESS) == 0 && good;
    const int folder = open(folderPath.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    const int file = open(temporary.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    good = fchmod(file, facts.st_mode & 07777) == 0 && good;
    good = write(file, bytes.data(), bytes.size()) == ssize_t(bytes.size()) && good;
    good = fsync(file) == 0 && good;
    good = close(file) == 0 && good;
    good = rename(temporary.c_str(), path.c_str()) == 0 && good;
    good = fsync(folder) == 0 && good;
    return close(folder) == 0 && good;
}

/// Saves both ways in turn, so that the disk's moods meet both.
bool MeasureSaving()
{
    const int runs = FullOrBrief(100, 3);
    const TestFolder folder;
    const std::string path = folder.Path("bench.zcf");
    const std::string temporary = folder.Path("bench.tmp");
    const RoomSettings room = SampleSettings();

    std::vector<double> ours;
    std::vector<double> bare;
    bool good = !SaveConfigFile(path, room);
    for (int run = 0; run < runs; ++run) {
        ours.push_back(Took([&] { good = !SaveConfigFile(path, room) && good; }));
        bare.push_back(Took([&] { good = BareSave(folder.Path(), path, temporary, SampleFile) && good; }));
    }
    std::printf("files: durable save %.0f us, bare system calls %.0f us, %.2f times (goal at most 1.2)\n",
                Median(ours), Median(bare), Median(ours) / Median(bare));
    return good;
}

} // namespace

int main()
{
    const int runs = FullOrBrief(20'000, 100);
    RoomSettings room;
    bool good = true;
    const double parse = MedianOf(runs, [&] { good = ParseConfig(SampleFile, room) && good; });
    std::printf("files: parse and commit %.1f us (goal < 10)\n", parse);

    std::size_t length = 0;
    const double compose = MedianOf(runs, [&] { length += ComposeConfig(room).size(); });
    std::printf("files: compose %.1f us (goal < 10)\n", compose);
    good = length == std::size_t(runs) * SampleFile.size() && good;

    return MeasureSaving() && good ? 0 : 1;
}
