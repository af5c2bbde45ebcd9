#pragma once

#include "model/preferences.h"
#include "ui/main/panels.h"
#include "ui/main/tabpages.h"

#include <QKeyEvent>
#include <QObject>

namespace kelvo {

/// The main window's keys, seen before any control sees them: F1, F2, F4, the Ctrl shortcuts of the equaliser
/// tab and the help page's keys. It also keeps the wheel away from the tab headings.
class KeyPreview : public QObject {
    Q_OBJECT

  public:
    KeyPreview(UnitLink &link, EntryWindow &entries, const Preferences &options, const Panels &panels,
               TabPages &tabs, QWidget *window);
    ~KeyPreview() override;

  signals:
    void ConnectPressed(); ///< F1

  protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

  private:
    bool KeepForText(QObject *receiver, QKeyEvent *key);
    bool PreviewUnitKey(const QKeyEvent &key);
    bool PreviewKey(QWidget *receiver, const QKeyEvent &event);
    bool RunShortcut(int key, bool repeat);
    bool PreviewHelpKey(QWidget *receiver, int key, Qt::KeyboardModifiers modifiers);
    bool PreviewWheel(QWidget *receiver, int angle);

    UnitLink &link_;
    EntryWindow &entries_;
    const Preferences &options_;
    const Panels &panels_;
    TabPages &tabs_;
    QWidget *window_;
};

} // namespace kelvo
