#pragma once

#include "unit/wallclock.h"

#include <QDialog>
#include <QLabel>
#include <QLineEdit>

class QCalendarWidget;

namespace kelvo {

/// "AM" or "PM": a click or the space bar changes one into the other.
class HalfDayLabel : public QLabel {
    Q_OBJECT

  public:
    explicit HalfDayLabel(bool pm);

    bool IsPM() const { return pm_; }

  protected:
    void mouseReleaseEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;

  private:
    void lblAP_Click();
    void ShowFocus();

    bool pm_;
};

/// "Please choose date and time": a calendar, hour 1 to 12 with AM or PM, minutes and seconds.
class FrmTime : public QDialog {
    Q_OBJECT

  public:
    FrmTime(LocalTime start, QWidget *parent);

    /// What the dialog shows. An hour that was reset to "00" is the one the dial has in its place: 12.
    LocalTime Chosen() const;

  private:
    QCalendarWidget *calendar_;
    QLineEdit *txtHour_;
    QLineEdit *txtMin_;
    QLineEdit *txtSec_;
    HalfDayLabel *lblAP_;
};

} // namespace kelvo
