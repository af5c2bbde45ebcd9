#include "app/process.h"

#include <QFile>

namespace kelvo {

void PrepareProcess()
{
}

QStringList ProcessArguments(int argc, char **argv)
{
    QStringList arguments;
    for (int index = 1; index < argc; ++index)
        arguments += QFile::decodeName(argv[index]);
    return arguments;
}

} // namespace kelvo
