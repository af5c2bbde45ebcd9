#pragma once

#include "ui/compare/differencestable.h"
#include "ui/controls/toolwindow.h"
#include "unit/unitop.h"

#include <QLabel>

namespace kelvo {

/// "Verify the Unit": what the unit told when it was asked, against the screen at that moment.
class FrmVerify : public ToolWindow {
    Q_OBJECT

  public:
    FrmVerify(QSettings &memory, QWidget *parent);

    void ShowVerified(const Differences &found);
    /// Nothing is compared with what was read in part.
    void ShowNotVerified(const std::vector<UnitOp> &unread);
    /// Screen or unit may have changed since: what was found is told as past.
    void Outdate();

  private:
    void Tell(const QString &text, const std::vector<DifferenceRow> &rows);

    QLabel *lblVerify_;
    DifferencesTable *tblDiffers_;
};

} // namespace kelvo
