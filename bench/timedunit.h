#pragma once

#include "unit/simulatedunit.h"

#include <algorithm>
#include <chrono>
#include <vector>

namespace kelvo {

using Moment = std::chrono::steady_clock::time_point;

inline Moment Now()
{
    return std::chrono::steady_clock::now();
}

/// A unit that answers at once and remembers when it was last sent the audio room.
struct TimedUnit : SimulatedUnit {
    Moment audioSent;

  protected:
    Status Perform(const Call &call) override
    {
        if (call.operation == Operation::SetAudio)
            audioSent = Now();
        return SimulatedUnit::Perform(call);
    }
};

class Times {
  public:
    void Add(Moment from, Moment to)
    {
        times_.push_back(std::chrono::duration<double, std::micro>(to - from).count());
    }
    /// In microseconds; `part` 0.5 is the median, 1 the longest.
    double At(double part)
    {
        std::ranges::sort(times_);
        return times_[std::size_t(part * double(times_.size() - 1))];
    }

  private:
    std::vector<double> times_;
};

} // namespace kelvo
