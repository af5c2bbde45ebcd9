#pragma once

#include "ui/controls/entrywindow.h"
#include "unit/unitlink.h"

#include <QPushButton>

namespace kelvo {

/// `cmdUp(index)`, "Upload Settings": takes what is being typed, then sends both records.
/// Index 0 to 4 stands on the tabs Output Trim, E.Q, OBE, Optical Setup and Options.
QPushButton *BuildUploadButton(int index, UnitLink &link, EntryWindow &entries);

} // namespace kelvo
