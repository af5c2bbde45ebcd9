#include "ui/main/snapshot.h"

#include "files/configfile.h"
#include "ui/main/messages.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>

namespace kelvo {

namespace {

/// "2026-11-21 21.04.33.zcf"; a second one of the same second has a number.
QString DatedName(const QDir &folder, const QDateTime &time)
{
    const QString date = time.toString("yyyy-MM-dd HH.mm.ss");
    QString name = date + ".zcf";
    for (int number = 2; folder.exists(name); ++number)
        name = QString("%1 (%2).zcf").arg(date).arg(number);
    return folder.filePath(name);
}

} // namespace

Snapshot::Snapshot(const Places &places, const Editor &editor, const UnitLink &link, QWidget *window,
                   std::function<void(const QString &)> fault)
    : path_(places.SnapshotFile()),
      folder_(places.SnapshotFolder()),
      owned_(places.ownsFiles),
      editor_(editor),
      link_(link),
      window_(window),
      fault_(std::move(fault))
{
}

void Snapshot::Take()
{
    // One that could not be kept is worth more than a new one.
    if (taken_ || !owned_ || !link_.UnitOnline() || link_.InCall() || QFile::exists(path_))
        return;
    if (const auto failure = SaveConfigFile(path_.toStdString(), editor_.Room()))
        Tell(window_, messages::CannotSave,
             {QDir::toNativeSeparators(path_), QString::fromStdString(failure->reason)});
    else
        taken_ = true;
}

void Snapshot::Renew()
{
    // One of another unit is offered to nobody, even where it cannot be kept elsewhere.
    taken_ = false;
    if (Keep())
        Take();
}

bool Snapshot::Keep()
{
    if (!owned_ || !QFile::exists(path_))
        return true;
    const QDir folder(folder_);
    QFile file(path_);
    if (folder.mkpath(".") && file.rename(DatedName(folder, QFileInfo(path_).lastModified()))) {
        RemoveOldest();
        return true;
    }
    fault_(QString(messages::CannotKeep)
               .arg(QDir::toNativeSeparators(path_), QDir::toNativeSeparators(folder_)));
    return false;
}

void Snapshot::Remove()
{
    if (owned_)
        QFile::remove(path_);
}

QStringList Snapshot::Kept() const
{
    // Other files in the folder are the user's own.
    static const QRegularExpression dated(R"(^\d{4}-\d\d-\d\d \d\d\.\d\d\.\d\d( \(\d+\))?\.zcf$)");
    const QDir folder(folder_);
    QStringList kept;
    for (const QString &name : folder.entryList(QDir::Files, QDir::Name | QDir::Reversed))
        if (dated.match(name).hasMatch())
            kept += folder.filePath(name);
    return kept;
}

void Snapshot::RemoveOldest() const
{
    const QStringList kept = Kept();
    for (const QString &old : kept.mid(MostKept))
        QFile::remove(old);
}

} // namespace kelvo
