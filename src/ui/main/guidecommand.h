#pragma once

#include "ui/main/menus.h"

class QSettings;

namespace kelvo {

class FrmGuide;

/// The item "Guide" of the menu Tools and the window that it opens.
class GuideCommand : public QObject {
    Q_OBJECT

  public:
    GuideCommand(Menus &menus, QString helpFile, QSettings &memory, QWidget *window);

  private:
    void mnuGuide_Click();

    QString helpFile_;
    QSettings &memory_;
    QWidget *window_;
    FrmGuide *frmGuide_ = nullptr; ///< made when it is first wanted: the start need not wait for it
};

} // namespace kelvo
