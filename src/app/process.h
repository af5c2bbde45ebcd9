#pragma once

#include <QObject>
#include <QStringList>

#include <cstdio>
#include <functional>

namespace kelvo {

/// What the process asks of the system before anything else: where its text output goes, from where
/// libraries may be loaded, and that a window that is waiting for the unit is not taken for a dead one.
void PrepareProcess();

/// `end` runs in the event loop, inside a dialog's as well, whenever the system asks the process to end by a
/// signal. Where a window is asked instead nothing is done.
void OnTermination(QObject *context, const std::function<void()> &end);

/// Writes to the standard output or the standard error.
void Print(std::FILE *stream, const QString &text);

/// False when the system quietly put the file into another folder than its path names.
bool StandsWhereItWasPut(const QString &path);

/// The command line without the program's own name.
QStringList ProcessArguments(int argc, char **argv);

} // namespace kelvo
