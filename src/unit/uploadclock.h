#pragma once

#include "unit/wallclock.h"

#include <optional>

namespace kelvo {

/// The time that uploads stamp: the PC's own, or one that the user set, running on from there.
class UploadClock {
  public:
    explicit UploadClock(WallClock &pc) : pc_(pc) {}

    /// Empty = the PC's own.
    void Set(std::optional<LocalTime> time);
    LocalTime Now();
    bool IsPm(LocalTime time);
    void Pause(std::chrono::milliseconds time) { pc_.Pause(time); }

  private:
    WallClock &pc_;
    std::optional<std::chrono::seconds> offset_; ///< of a clock that the user set
};

} // namespace kelvo
