#include "unit/versions.h"

#include <doctest/doctest.h>

using namespace kelvo;

namespace {

UnitVersion Cpu(Word major, Word minor, Word build)
{
    return {major, minor, build, 2, 0, 2, 0};
}

UnitVersion Controller(Word major, Word minor)
{
    return {2, 0, 0, major, minor, 2, 0};
}

UnitVersion Firmware(Word major, Word minor)
{
    return {2, 0, 0, 2, 0, major, minor};
}

} // namespace

TEST_CASE("CPU 1.05 needs build 77, an older one is refused, a newer one passes with any build")
{
    CHECK(OutOfDate(Cpu(1, 5, 76)));
    CHECK(OutOfDate(Cpu(1, 5, 0)));
    CHECK(OutOfDate(Cpu(1, 5, -1)));
    CHECK_FALSE(OutOfDate(Cpu(1, 5, 77)));
    CHECK_FALSE(OutOfDate(Cpu(1, 5, 78)));
    CHECK(OutOfDate(Cpu(1, 4, 77)));
    CHECK(OutOfDate(Cpu(1, 4, 32767)));
    CHECK(OutOfDate(Cpu(0, 99, 100)));
    CHECK_FALSE(OutOfDate(Cpu(1, 6, 0)));
    CHECK_FALSE(OutOfDate(Cpu(2, 0, -5)));
}

TEST_CASE("the controller is refused below 1.03 and the firmware below 1.09")
{
    CHECK(OutOfDate(Controller(1, 2)));
    CHECK_FALSE(OutOfDate(Controller(1, 3)));
    CHECK(OutOfDate(Controller(0, 99)));
    CHECK(OutOfDate(Firmware(1, 8)));
    CHECK_FALSE(OutOfDate(Firmware(1, 9)));
    CHECK_FALSE(OutOfDate(Firmware(1, 10)));
    CHECK(OutOfDate(Firmware(0, 99)));
}

TEST_CASE("a minor beyond 99 or below 0 carries into the major")
{
    CHECK(OutOfDate(Cpu(0, 105, 76))); // 1.05
    CHECK_FALSE(OutOfDate(Cpu(0, 105, 77)));
    CHECK_FALSE(OutOfDate(Cpu(0, 106, 0)));
    CHECK(OutOfDate(Cpu(2, -95, 76)));
    CHECK_FALSE(OutOfDate(Cpu(2, -95, 77)));
    CHECK(OutOfDate(Controller(2, -98)));
    CHECK(OutOfDate(Cpu(-32768, 32767, 99)));
    CHECK_FALSE(OutOfDate(Cpu(32767, -32768, 0)));
}

TEST_CASE("versions are captioned with two decimals, the build with four digits when there is one")
{
    using Captions = std::array<std::string, 3>;
    CHECK(VersionCaptions({1, 6, 0, 1, 3, 1, 9}) ==
          Captions{"CPU Version: 1.06", "DSP Controller: 1.03", "DSP Firmware: 1.09"});
    CHECK(VersionCaptions({1, 5, 77, 2, 0, 10, 50}) ==
          Captions{"CPU Version: 1.05.0077", "DSP Controller: 2.00", "DSP Firmware: 10.50"});
    CHECK(VersionCaptions({0, 0, 12345, 0, 0, 0, 0}) ==
          Captions{"CPU Version: 0.00.12345", "DSP Controller: 0.00", "DSP Firmware: 0.00"});
    CHECK(VersionCaptions({1, 105, 0, 2, -95, -1, 0}) ==
          Captions{"CPU Version: 2.05", "DSP Controller: 1.05", "DSP Firmware: -1.00"});
}
