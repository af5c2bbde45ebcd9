#pragma once

#include "unit/unitlink.h"

namespace kelvo {

/// One change, whatever calls it makes: `lblSent` follows once, at the end of the outermost.
class OneChange {
  public:
    explicit OneChange(UnitLink &link) : link_(link) { link_.BeginChange(); }
    ~OneChange() { link_.EndChange(); }
    OneChange(const OneChange &) = delete;
    OneChange &operator=(const OneChange &) = delete;

  private:
    UnitLink &link_;
};

} // namespace kelvo
