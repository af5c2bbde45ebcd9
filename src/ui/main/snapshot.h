#pragma once

#include "edit/editor.h"

#include <QString>

class QWidget;

namespace kelvo {

/// The unit's settings as the run found them, in the file "temp.qm4" of the program directory: what a revert
/// at the end brings back.
class Snapshot {
  public:
    /// `owned` false: another console runs on the program directory and its file is left alone.
    Snapshot(const QString &programDirectory, bool owned, const Editor &editor, const UnitLink &link,
             QWidget *window);

    const QString &Path() const { return path_; }
    bool Taken() const { return taken_; }
    /// Once a run, from a unit that is on line; tells when it cannot be written.
    void Take();
    /// The file goes, whoever left it.
    void Remove();

  private:
    QString path_;
    bool owned_;
    const Editor &editor_;
    const UnitLink &link_;
    QWidget *window_;
    bool taken_ = false;
};

} // namespace kelvo
