#include "app/programdirectory.h"

#include "app/process.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QStandardPaths>
#include <QTemporaryFile>

namespace kelvo {

namespace {

/// Tried out: what the folder's rights say does not tell it everywhere.
bool CanBeWritten(const QString &folder)
{
    QTemporaryFile file(QDir(folder).filePath("kelvo-XXXXXX"));
    return file.open() && StandsWhereItWasPut(file.fileName());
}

} // namespace

QString ProgramDirectory(const QString &wanted)
{
    if (!wanted.isEmpty())
        return QDir(wanted).absolutePath();
    QString own = QCoreApplication::applicationDirPath();
    if (CanBeWritten(own))
        return own;
    QString data = QStandardPaths::writableLocation(QStandardPaths::AppDataLocation);
    QDir().mkpath(data);
    return data;
}

QString HelpFile(const QString &programDirectory)
{
    const QString own = QCoreApplication::applicationDirPath();
    for (const QString &folder : {programDirectory, own, own + "/../share/kelvo-console"}) {
        const QString file = QDir(folder).filePath("Zentra-HELP.rtf");
        if (QFile::exists(file))
            return QDir::cleanPath(file);
    }
    return {};
}

} // namespace kelvo
