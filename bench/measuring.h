#pragma once

#include <cstdlib>
#include <ctime>
#include <string_view>

namespace kelvo {

/// How often to repeat, or how long to wait: `brief` with KELVO_BENCH_BRIEF=1 in the environment, which is
/// for seeing that a measurement still runs. Its figures say nothing.
inline int FullOrBrief(int full, int brief)
{
    const char *value = std::getenv("KELVO_BENCH_BRIEF");
    return value && std::string_view(value) == "1" ? brief : full;
}

/// What this process itself worked, in milliseconds: other load on the machine is not in it.
inline double CpuMilliseconds()
{
    timespec time{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return double(time.tv_sec) * 1e3 + double(time.tv_nsec) * 1e-6;
}

} // namespace kelvo
