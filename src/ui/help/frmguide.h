#pragma once

#include "ui/controls/toolwindow.h"
#include "ui/help/guideview.h"

namespace kelvo {

/// The guide in a window of its own, which can be read beside any tab and off line.
class FrmGuide : public ToolWindow {
    Q_OBJECT

  public:
    FrmGuide(const QString &helpFile, QSettings &memory, QWidget *parent);

  protected:
    void keyPressEvent(QKeyEvent *event) override;

  private:
    GuideView *view_;
};

} // namespace kelvo
