#include "unit/unitlink.h"

namespace kelvo {

UnitLink::UnitLink(Settings &settings, DeviceLibrary &library, LinkView &view, WallClock &clock)
    : settings_(settings),
      library_(library),
      view_(view),
      clock_(clock)
{
}

} // namespace kelvo
