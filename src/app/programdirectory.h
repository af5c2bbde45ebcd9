#pragma once

#include <QString>

namespace kelvo {

/// Where the console keeps its files: `wanted` when it was given, else the executable's own folder when it
/// can be written, else the user's application data folder, which is made when it is missing.
QString ProgramDirectory(const QString &wanted);

/// The guide: in the program directory, else beside the executable, else where an installation keeps it.
QString HelpFile(const QString &programDirectory);

} // namespace kelvo
