#pragma once

#include <utility>

namespace kelvo {

/// Raises a flag for a scope and puts back what it found, so that raises nest.
class FlagGuard {
  public:
    explicit FlagGuard(bool &flag) : flag_(flag), before_(std::exchange(flag, true)) {}
    ~FlagGuard() { flag_ = before_; }
    FlagGuard(const FlagGuard &) = delete;
    FlagGuard &operator=(const FlagGuard &) = delete;

  private:
    bool &flag_;
    bool before_;
};

} // namespace kelvo
