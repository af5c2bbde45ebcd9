#include "ui/main/guidecommand.h"

#include "ui/help/frmguide.h"

namespace kelvo {

GuideCommand::GuideCommand(Menus &menus, QString helpFile, QSettings &memory, QWidget *window)
    : QObject(window),
      helpFile_(std::move(helpFile)),
      memory_(memory),
      window_(window)
{
    menus.Item(menus.Tools(), "mnuGuide", "Guide", [this] { mnuGuide_Click(); })
        ->setShortcut(Qt::SHIFT | Qt::Key_F1);
}

void GuideCommand::mnuGuide_Click()
{
    if (!frmGuide_)
        frmGuide_ = new FrmGuide(helpFile_, memory_, window_);
    frmGuide_->BringUp();
}

} // namespace kelvo
