#include "ui/main/storedsides.h"

#include "ui/main/messages.h"

#include <QFileInfo>

namespace kelvo {

std::vector<NamedSide> StoredSides(const Editor &editor, const Snapshot &snapshot)
{
    std::vector<NamedSide> sides;
    for (int slot = 0; slot < SlotCount; ++slot)
        if (editor.Kept().Kept(slot))
            sides.push_back(SlotSide(editor, slot));
    if (snapshot.Taken())
        sides.push_back(FileSide(messages::StartSnapshot, snapshot.Path()));
    for (const QString &path : snapshot.Kept())
        sides.push_back(
            FileSide(QString(messages::KeptSnapshot).arg(QFileInfo(path).completeBaseName()), path));
    return sides;
}

} // namespace kelvo
