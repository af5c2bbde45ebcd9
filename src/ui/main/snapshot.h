#pragma once

#include "edit/editor.h"
#include "ui/main/places.h"

#include <QString>
#include <QStringList>

#include <functional>

class QWidget;

namespace kelvo {

/// The unit's settings as they were found, in the file "temp.qm4" of the program directory: what a revert at
/// the end brings back. One that may still be wanted is kept as a dated file in the folder "snapshots".
class Snapshot {
  public:
    static constexpr int MostKept = 20; ///< the oldest go

    /// Where another console owns the files of the program directory, they are left alone. `fault` is told
    /// when a snapshot cannot be kept.
    Snapshot(const Places &places, const Editor &editor, const UnitLink &link, QWidget *window,
             std::function<void(const QString &)> fault);

    const QString &Path() const { return path_; }
    bool Taken() const { return taken_; }
    /// Of a unit that is on line, unless there is one already; tells when it cannot be written.
    void Take();
    /// After a connection that found other settings than the unit held: the old one is kept, a new one taken.
    void Renew();
    /// It goes into the folder, whoever left it. False when it cannot; it then stays where it is.
    bool Keep();
    /// Nobody wants it back.
    void Remove();

    /// The kept ones with their folder, newest first.
    QStringList Kept() const;

  private:
    void RemoveOldest() const;

    QString path_;
    QString folder_;
    bool owned_;
    const Editor &editor_;
    const UnitLink &link_;
    QWidget *window_;
    std::function<void(const QString &)> fault_;
    bool taken_ = false;
};

} // namespace kelvo
