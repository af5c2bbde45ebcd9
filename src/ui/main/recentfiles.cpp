#include "ui/main/recentfiles.h"

#include "files/configfile.h"
#include "model/tables.h"

#include <QDir>
#include <QFileInfo>
#include <QSettings>

namespace kelvo {

namespace {

constexpr auto Section = "recentFiles";

QString Whole(const QString &path)
{
    return QDir::cleanPath(QFileInfo(path).absoluteFilePath());
}

/// Without the file of this path.
QList<RecentFiles::File> Others(QList<RecentFiles::File> files, const QString &path)
{
    files.removeIf([&path](const RecentFiles::File &file) { return file.path == path; });
    return files;
}

} // namespace

RecentFiles::RecentFiles(QSettings &memory, const QString &neverListed)
    : memory_(memory),
      neverListed_(Whole(neverListed))
{
}

QList<RecentFiles::File> RecentFiles::List() const
{
    QList<File> files;
    const int count = std::min(memory_.beginReadArray(Section), Most);
    for (int index = 0; index < count; ++index) {
        memory_.setArrayIndex(index);
        const QString path = memory_.value("file").toString();
        if (!path.isEmpty())
            files.append({path, memory_.value("theater").toString(), memory_.value("screen").toString()});
    }
    memory_.endArray();
    return files;
}

void RecentFiles::Add(const QString &path)
{
    const QString whole = Whole(path);
    if (whole == neverListed_)
        return;
    // Not the texts on the screen: an old file has none, and leaves those of another room standing there.
    RoomSettings room;
    if (LoadConfigFile(path.toStdString(), room))
        return;
    QList<File> files = Others(List(), whole);
    const auto text = [&room](TheaterIndex index) { return QString::fromStdString(room.TheaterInfo[index]); };
    files.prepend({whole, text(NameOfTheater), text(ScreenNumber)});
    Remember(files.first(std::min(files.size(), qsizetype(Most))));
}

void RecentFiles::Remove(const QString &path)
{
    Remember(Others(List(), Whole(path)));
}

QString RecentFiles::Folder() const
{
    const QList<File> files = List();
    const QString folder = files.isEmpty() ? QString() : QFileInfo(files.constFirst().path).absolutePath();
    return !folder.isEmpty() && QDir(folder).exists() ? folder : QString();
}

void RecentFiles::Remember(const QList<File> &files)
{
    memory_.remove(Section);
    memory_.beginWriteArray(Section, int(files.size()));
    for (int index = 0; index < int(files.size()); ++index) {
        memory_.setArrayIndex(index);
        memory_.setValue("file", files[index].path);
        memory_.setValue("theater", files[index].theater);
        memory_.setValue("screen", files[index].screen);
    }
    memory_.endArray();
}

} // namespace kelvo
