#include "unit/versions.h"

#include "unit/messages.h"

#include <cfloat>
#include <charconv>

namespace kelvo {

static_assert(FLT_EVAL_METHOD == 0, "Versions compare exactly in plain doubles only: -msse2 -mfpmath=sse");

namespace {

constexpr double OldestCpu = 1.05;
constexpr Word OldestCpuBuild = 77; ///< of CPU 1.05 itself; later versions pass with any build
constexpr double OldestDspController = 1.03;
constexpr double OldestDspFirmware = 1.09;

double Number(Word major, Word minor)
{
    return major + minor / 100.0;
}

/// "1.06", with a point whatever the locale.
std::string Hundredths(double number)
{
    char text[32];
    const auto end = std::to_chars(text, text + sizeof text, number, std::chars_format::fixed, 2).ptr;
    return std::string(text, end);
}

/// ".0077"; nothing for build 0.
std::string BuildSuffix(Word build)
{
    if (build == 0)
        return "";
    const std::string digits = std::to_string(build < 0 ? -build : build);
    const std::string zeros(digits.size() < 4 ? 4 - digits.size() : 0, '0');
    return (build < 0 ? ".-" : ".") + zeros + digits;
}

} // namespace

bool OutOfDate(const UnitVersion &version)
{
    const double cpu = Number(version.CpuMajor, version.CpuMinor);
    const double controller = Number(version.DspControllerMajor, version.DspControllerMinor);
    const double firmware = Number(version.DspFirmwareMajor, version.DspFirmwareMinor);
    return cpu < OldestCpu || (cpu == OldestCpu && version.CpuBuild < OldestCpuBuild) ||
           controller < OldestDspController || firmware < OldestDspFirmware;
}

std::array<std::string, 3> VersionCaptions(const UnitVersion &version)
{
    using namespace messages;
    return {CpuVersionCaption + Hundredths(Number(version.CpuMajor, version.CpuMinor)) +
                BuildSuffix(version.CpuBuild),
            DspControllerCaption + Hundredths(Number(version.DspControllerMajor, version.DspControllerMinor)),
            DspFirmwareCaption + Hundredths(Number(version.DspFirmwareMajor, version.DspFirmwareMinor))};
}

} // namespace kelvo
