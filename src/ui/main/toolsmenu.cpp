#include "ui/main/toolsmenu.h"

#include "ui/main/messages.h"

namespace kelvo {

ToolsMenu::ToolsMenu(Menus &menus, FrmDiffers::Desk desk, QSettings &memory, QWidget *window)
    : desk_(std::move(desk)),
      memory_(memory),
      window_(window)
{
    QAction *mnuDiffers =
        menus.Item(menus.Tools(), "mnuDiffers", messages::DiffersCaption, [this] { OpenDiffers(); });
    mnuDiffers->setShortcut(Qt::Key_F9);
    mnuDiffers->setShortcutContext(Qt::ApplicationShortcut);
    mnuVerify_ =
        menus.Item(menus.Tools(), "mnuVerify", messages::VerifyCaption, [this] { mnuVerify_Click(); });
    Follow();
}

ToolsMenu::~ToolsMenu()
{
    // A window remembers its size when it is hidden.
    for (ToolWindow *open :
         {static_cast<ToolWindow *>(frmDiffers_.get()), static_cast<ToolWindow *>(frmVerify_.get())})
        if (open)
            open->hide();
}

void ToolsMenu::OpenDiffers()
{
    if (!frmDiffers_)
        frmDiffers_ = std::make_unique<FrmDiffers>(desk_, memory_, window_);
    frmDiffers_->BringUp();
}

void ToolsMenu::Follow()
{
    mnuVerify_->setEnabled(desk_.link.UnitOnline() && !desk_.streaming());
    if (frmDiffers_)
        frmDiffers_->Follow();
    if (frmVerify_ && verified_ && (!desk_.link.UnitOnline() || *verified_ != desk_.editor.Room()))
        frmVerify_->Outdate();
}

void ToolsMenu::mnuVerify_Click()
{
    if (!desk_.entries.CommitEntry() || !desk_.link.UnitOnline())
        return;
    const std::vector<UnitOp> unread = desk_.link.ReadApart();
    // A close that came while a report was open has been carried out by now.
    if (!window_->isVisible())
        return;
    if (!frmVerify_)
        frmVerify_ = std::make_unique<FrmVerify>(memory_, window_);
    if (unread.empty())
        frmVerify_->ShowVerified(
            DifferencesOf(ScreenSide(desk_.editor).read().side, UnitSide(desk_.link).read().side));
    else
        frmVerify_->ShowNotVerified(unread);
    verified_ = unread.empty() ? std::optional(desk_.editor.Room()) : std::nullopt;
    frmVerify_->BringUp();
}

} // namespace kelvo
