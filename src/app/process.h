#pragma once

#include <QStringList>

namespace kelvo {

/// What the process asks of the system before anything else: where its text output goes, from where
/// libraries may be loaded, and that a window that is waiting for the unit is not taken for a dead one.
void PrepareProcess();

/// The command line without the program's own name.
QStringList ProcessArguments(int argc, char **argv);

} // namespace kelvo
