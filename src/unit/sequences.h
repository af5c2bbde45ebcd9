#pragma once

#include "unit/opticalstream.h"

namespace kelvo {

/// What a load sends at once: fader, format and mute. A running stream keeps its own format until it ends,
/// and is interrupted for the mute.
void SendLoadedValues(UnitLink &link, OpticalStream &stream);

/// The end of a run: whatever plays is switched off, the line goes back to the first rate, the library
/// closes, and nothing is called any more.
void SayFarewell(UnitLink &link, OpticalStream &stream);

} // namespace kelvo
