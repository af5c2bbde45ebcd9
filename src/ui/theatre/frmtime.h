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

/// A number that goes to "00" when its box is left with a value outside its range.
class NumberBox : public QLineEdit {
    Q_OBJECT

  public:
    NumberBox(const QString &text, int lowest, int highest);

    /// False when the text had to be reset.
    bool Settle();
    /// The whole part of what the text begins with; 0 when it begins with no number.
    int Whole() const;

  protected:
    void focusOutEvent(QFocusEvent *event) override;

  private:
    int lowest_;
    int highest_;
};

/// "Please choose date and time": a calendar, hour 1 to 12 with AM or PM, minutes and seconds.
class FrmTime : public QDialog {
    Q_OBJECT

  public:
    FrmTime(LocalTime start, QWidget *parent);

    /// What the dialog shows. An hour that was reset to "00" is the one the dial has in its place: 12.
    LocalTime Chosen() const;

  private:
    void cmdOK_Click();

    QCalendarWidget *calendar_;
    NumberBox *txtHour_;
    NumberBox *txtMin_;
    NumberBox *txtSec_;
    HalfDayLabel *lblAP_;
};

} // namespace kelvo
