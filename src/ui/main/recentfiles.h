#pragma once

#include <QList>
#include <QString>

class QSettings;

namespace kelvo {

/// The settings files opened or saved last, newest first, with what their texts say of their room. They stand
/// in what windows remember, so no file is read to list them.
class RecentFiles {
  public:
    static constexpr int Most = 12;

    struct File {
        QString path, theater, screen;
    };

    /// `neverListed` is a path that is no file of the user's.
    RecentFiles(QSettings &memory, const QString &neverListed);

    /// What cannot be read of what was remembered is left out.
    QList<File> List() const;
    /// A file that has just been opened or saved; its texts are read from it.
    void Add(const QString &path);
    void Remove(const QString &path);
    /// Where the file dialogs start: the newest file's folder; "" when there is none any more.
    QString Folder() const;

  private:
    void Remember(const QList<File> &files);

    QSettings &memory_;
    QString neverListed_;
};

} // namespace kelvo
