#include "app/process.h"

#include <QFile>

namespace kelvo {

void PrepareProcess()
{
}

void Print(std::FILE *stream, const QString &text)
{
    std::fputs(text.toLocal8Bit().constData(), stream);
    std::fflush(stream);
}

bool StandsWhereItWasPut(const QString &)
{
    return true;
}

QStringList ProcessArguments(int argc, char **argv)
{
    QStringList arguments;
    for (int index = 1; index < argc; ++index)
        arguments += QFile::decodeName(argv[index]);
    return arguments;
}

} // namespace kelvo
