#include "ui/main/storedsides.h"

#include "ui/main/messages.h"

#include <QDir>

namespace kelvo {

std::vector<NamedSide> StoredSides(const QString &programDirectory, const Snapshot &snapshot)
{
    std::vector<NamedSide> sides;
    if (snapshot.Taken())
        sides.push_back(FileSide(messages::StartSnapshot, snapshot.Path()));
    const QDir kept(QDir(programDirectory).filePath("snapshots"), "*.zcf", QDir::Time, QDir::Files);
    for (const QFileInfo &file : kept.entryInfoList())
        sides.push_back(
            FileSide(QString(messages::KeptSnapshot).arg(file.completeBaseName()), file.absoluteFilePath()));
    return sides;
}

} // namespace kelvo
