#pragma once

#include "unit/simulatedunit.h"

namespace kelvo {

/// Time that passes when the test says so.
struct HeldTime {
    std::chrono::duration<double> now{0};
    std::vector<std::chrono::milliseconds> waits;

    SimulatedTime Time()
    {
        return {[this] { return now; }, [this](std::chrono::milliseconds time) { waits.push_back(time); }};
    }
    void Pass(double seconds) { now += std::chrono::duration<double>(seconds); }
};

struct UnitUnderTest {
    HeldTime time;
    SimulatedUnit unit{time.Time()};
};

} // namespace kelvo
