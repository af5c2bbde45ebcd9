#pragma once

#include "ui/compare/sides.h"
#include "ui/main/snapshot.h"

#include <vector>

namespace kelvo {

/// What this console has kept and may be compared: slots, then the start-up snapshot when there is one, then
/// the kept snapshots, the newest first.
std::vector<NamedSide> StoredSides(const Editor &editor, const Snapshot &snapshot);

} // namespace kelvo
