#pragma once

#include "edit/editor.h"
#include "ui/controls/entrywindow.h"
#include "ui/main/menus.h"
#include "ui/main/recovery.h"

#include <array>

class QSettings;

namespace kelvo {

/// The menu "E&dit": undo, redo, the history's window, slots, and what a run left behind.
class EditMenu : public QObject {
    Q_OBJECT

  public:
    struct Desk {
        Editor &editor;
        EntryWindow &entries;
        WallClock &clock;
        QSettings &memory;
        Recovery &recovery;
    };

    EditMenu(Menus &menus, const Desk &desk, QWidget *window);

    /// Captions, what is enabled, and the open history follow what was done.
    void Reflect();
    /// What the line under the lamp offers.
    void mnuRecover_Click(int which = 0);

  private:
    /// An item with a key, which works from every window of the console and takes what is typed first.
    QAction *Item(const char *name, int index, const QString &caption, const QKeySequence &key,
                  const std::function<void()> &handler);
    void ReflectRecover();
    void mnuHistory_Click();

    Menus &menus_;
    Desk desk_;
    QWidget *window_;
    QAction *mnuUndo_;
    QAction *mnuRedo_;
    std::array<QAction *, SlotCount> mnuRecall_{};
    QAction *mnuRecover_ = nullptr;
    QMenu *offers_;
    QStringList shownOffers_;
};

} // namespace kelvo
