#pragma once

#include "ui/compare/frmdiffers.h"
#include "ui/compare/frmverify.h"
#include "ui/main/menus.h"

#include <memory>

namespace kelvo {

/// The items of the menu "Tools" and the windows that they open, each made when it is first wanted: the start
/// need not wait for it.
class ToolsMenu : public QObject {
    Q_OBJECT

  public:
    ToolsMenu(Menus &menus, FrmDiffers::Desk desk, QSettings &memory, QWidget *window);
    ~ToolsMenu() override;

    void OpenDiffers();
    /// Something has changed in the room, in the unit or between them.
    void Follow();

  private:
    void mnuVerify_Click();

    FrmDiffers::Desk desk_;
    QSettings &memory_;
    QWidget *window_;
    std::unique_ptr<FrmDiffers> frmDiffers_;
    std::unique_ptr<FrmVerify> frmVerify_;
    QAction *mnuVerify_;
    std::optional<RoomSettings> verified_; ///< the screen that the unit was compared with
};

} // namespace kelvo
