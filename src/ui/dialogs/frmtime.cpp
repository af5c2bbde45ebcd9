#include "ui/dialogs/frmtime.h"

#include "ui/controls/named.h"
#include "ui/dialogs/messages.h"
#include "ui/dialogs/okcancel.h"

#include <QCalendarWidget>
#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QMouseEvent>
#include <QVBoxLayout>

namespace kelvo {

namespace {

using namespace std::chrono;

/// The whole number that a text begins with; 0 when it begins with none.
long NumberIn(const QLineEdit *box)
{
    return std::strtol(box->text().toLatin1().constData(), nullptr, 10);
}

/// A number box that goes to "00" when it is left with a value outside its range.
QLineEdit *NumberBox(const char *name, const char *accessibleName, long long value, long lowest, long highest)
{
    auto *box = Named(new QLineEdit(QStringLiteral("%1").arg(value, 2, 10, QLatin1Char('0'))), name);
    box->setAccessibleName(accessibleName);
    box->setAlignment(Qt::AlignCenter);
    box->setFixedWidth(box->fontMetrics().horizontalAdvance("00000"));
    QObject::connect(box, &QLineEdit::editingFinished, box, [box, lowest, highest] {
        const long entered = NumberIn(box);
        if (entered < lowest || entered > highest)
            box->setText("00");
    });
    return box;
}

QDate DateOf(LocalTime time)
{
    const year_month_day date(floor<days>(time));
    return QDate(int(date.year()), int(unsigned(date.month())), int(unsigned(date.day())));
}

} // namespace

HalfDayLabel::HalfDayLabel(bool pm) : QLabel(pm ? "PM" : "AM"), pm_(pm)
{
    setFocusPolicy(Qt::StrongFocus);
    setCursor(Qt::PointingHandCursor);
    setAlignment(Qt::AlignCenter);
    setMargin(3);
    setToolTip(messages::HalfDayHint);
    setAccessibleName(messages::HalfDayName);
    ShowFocus();
}

void HalfDayLabel::lblAP_Click()
{
    pm_ = !pm_;
    setText(pm_ ? "PM" : "AM");
}

void HalfDayLabel::mouseReleaseEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton && rect().contains(event->position().toPoint()))
        lblAP_Click();
}

void HalfDayLabel::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Space)
        lblAP_Click();
    else
        QLabel::keyPressEvent(event);
}

void HalfDayLabel::focusInEvent(QFocusEvent *event)
{
    QLabel::focusInEvent(event);
    ShowFocus();
}

void HalfDayLabel::focusOutEvent(QFocusEvent *event)
{
    QLabel::focusOutEvent(event);
    ShowFocus();
}

void HalfDayLabel::ShowFocus()
{
    setFrameStyle(QFrame::Box | QFrame::Plain);
    setLineWidth(hasFocus() ? 2 : 1);
}

FrmTime::FrmTime(LocalTime start, QWidget *parent) : QDialog(parent), calendar_(new QCalendarWidget)
{
    Named(this, "frmTime");
    setWindowTitle(messages::TimeTitle);

    // The unit's clock knows two digits of the year.
    calendar_->setDateRange(QDate(2000, 1, 1), QDate(2099, 12, 31));
    calendar_->setLocale(QLocale(QLocale::English, QLocale().territory()));
    calendar_->setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
    calendar_->setAccessibleName(messages::DateName);
    calendar_->setSelectedDate(DateOf(start));

    const hh_mm_ss time(start - floor<days>(start));
    txtHour_ = NumberBox("txtHour", messages::HourName, make12(time.hours()).count(), 1, 12);
    txtMin_ = NumberBox("txtMin", messages::MinuteName, time.minutes().count(), 0, 59);
    txtSec_ = NumberBox("txtSec", messages::SecondName, time.seconds().count(), 0, 59);
    lblAP_ = Named(new HalfDayLabel(is_pm(time.hours())), "lblAP");

    auto *row = new QHBoxLayout;
    row->addStretch();
    row->addWidget(new QLabel(messages::TimeCaption));
    row->addWidget(txtHour_);
    row->addWidget(new QLabel(":"));
    row->addWidget(txtMin_);
    row->addWidget(new QLabel(":"));
    row->addWidget(txtSec_);
    row->addWidget(lblAP_);
    row->addStretch();

    QDialogButtonBox *buttons = OkAndCancel(this);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);

    auto *column = new QVBoxLayout(this);
    column->addWidget(calendar_);
    column->addLayout(row);
    column->addWidget(buttons);
}

LocalTime FrmTime::Chosen() const
{
    const QDate date = calendar_->selectedDate();
    const local_days day =
        local_days(year(date.year()) / month(unsigned(date.month())) / unsigned(date.day()));
    const hours noon(lblAP_->IsPM() ? 12 : 0);
    return day + noon + hours(NumberIn(txtHour_) % 12) + minutes(NumberIn(txtMin_)) +
           seconds(NumberIn(txtSec_));
}

} // namespace kelvo
