#pragma once

#include <QString>
#include <QStringList>

namespace kelvo {

/// What the console was started with.
struct CommandLine {
    bool simulate = false;
    bool version = false;
    bool help = false;
    QString library{}; ///< "" = not given, as for the others
    QString programDirectory{};
    QString log{};
    QString file{};
    QString problem{}; ///< why the arguments cannot be taken, in one line; "" = they can
};

/// `arguments` without the program's own name.
CommandLine ParseCommandLine(const QStringList &arguments);

/// What `--help` prints.
QString HelpText();

} // namespace kelvo
