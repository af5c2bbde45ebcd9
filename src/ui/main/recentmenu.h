#pragma once

#include "ui/main/menus.h"
#include "ui/main/recentfiles.h"

namespace kelvo {

/// The submenu "Recent Files" of the menu Tools.
class RecentMenu : public QObject {
    Q_OBJECT

  public:
    RecentMenu(Menus &menus, FileCommands &files, const RecentFiles &recent, QWidget *window);

  private:
    void Fill();

    Menus &menus_;
    FileCommands &files_;
    const RecentFiles &recent_;
    QMenu *mnuRecent_ = nullptr;
};

} // namespace kelvo
