#include "ui/main/snapshot.h"

#include "files/configfile.h"
#include "ui/main/messages.h"

#include <QDir>
#include <QFile>

namespace kelvo {

namespace {

constexpr auto SnapshotName = "temp.qm4";

} // namespace

Snapshot::Snapshot(const QString &programDirectory, bool owned, const Editor &editor, const UnitLink &link,
                   QWidget *window)
    : path_(QDir(programDirectory).filePath(SnapshotName)),
      owned_(owned),
      editor_(editor),
      link_(link),
      window_(window)
{
}

void Snapshot::Take()
{
    if (taken_ || !owned_ || !link_.UnitOnline() || link_.InCall())
        return;
    if (const auto failure = SaveConfigFile(path_.toStdString(), editor_.Room()))
        Tell(window_, messages::CannotSave,
             {QDir::toNativeSeparators(path_), QString::fromStdString(failure->reason)});
    else
        taken_ = true;
}

void Snapshot::Remove()
{
    if (owned_)
        QFile::remove(path_);
}

} // namespace kelvo
