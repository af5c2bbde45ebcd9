#include "ui/controls/uploadbutton.h"

#include "ui/controls/named.h"

namespace kelvo {

QPushButton *BuildUploadButton(int index, UnitLink &link, EntryWindow &entries)
{
    auto *cmdUp = Named(new QPushButton(QStringLiteral("Upload Settings")), "cmdUp", index);
    QObject::connect(cmdUp, &QPushButton::clicked, cmdUp, [&link, &entries] {
        if (entries.CommitEntry())
            link.UploadToUnit(UploadSelector::Both, UploadTrigger::Explicit);
    });
    return cmdUp;
}

} // namespace kelvo
