#include "model/records.h"

#include <doctest/doctest.h>

using namespace kelvo;

TEST_CASE("a reader delay of 300 quarter frames is stored as 1 and 44, high byte first")
{
    SystemBlock system{};
    SetReaderDelayIndex(system, 300);
    CHECK(system.ReaderDelay[0] == 1);
    CHECK(system.ReaderDelay[1] == 44);
    CHECK(BytesOf(system)[4] == 1);
    CHECK(BytesOf(system)[5] == 44);
    CHECK(ReaderDelayIndex(system) == 300);
}
