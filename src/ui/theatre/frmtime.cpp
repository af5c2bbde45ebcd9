#include "ui/theatre/frmtime.h"

#include "ui/controls/named.h"
#include "ui/controls/okcancel.h"
#include "ui/theatre/messages.h"

#include <QCalendarWidget>
#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QMouseEvent>
#include <QVBoxLayout>

#include <charconv>
#include <cmath>
#include <limits>

namespace kelvo {

namespace {

using namespace std::chrono;

constexpr auto ResetNumber = "00";

/// The number that a text begins with; 0 when it begins with none.
double NumberIn(const QLineEdit *box)
{
    double number = 0;
    const QByteArray text = box->text().trimmed().toLatin1();
    const auto read = std::from_chars(text.begin(), text.end(), number, std::chars_format::fixed);
    if (read.ec == std::errc::result_out_of_range)
        return std::numeric_limits<double>::infinity(); // hundreds of digits: beyond the range of every box
    return std::isnan(number) ? 0 : number;
}

NumberBox *Box(const char *name, const char *accessibleName, long long value, int lowest, int highest)
{
    const QString text = QStringLiteral("%1").arg(value, 2, 10, QLatin1Char('0'));
    auto *box = Named(new NumberBox(text, lowest, highest), name);
    box->setAccessibleName(accessibleName);
    box->setAlignment(Qt::AlignCenter);
    box->setFixedWidth(box->fontMetrics().horizontalAdvance("00000"));
    return box;
}

QDate DateOf(LocalTime time)
{
    const year_month_day date(floor<days>(time));
    return QDate(int(date.year()), int(unsigned(date.month())), int(unsigned(date.day())));
}

} // namespace

NumberBox::NumberBox(const QString &text, int lowest, int highest)
    : QLineEdit(text),
      lowest_(lowest),
      highest_(highest)
{
}

bool NumberBox::Settle()
{
    const double entered = NumberIn(this);
    if ((entered >= lowest_ && entered <= highest_) || text() == ResetNumber)
        return true;
    setText(ResetNumber);
    return false;
}

int NumberBox::Whole() const
{
    return int(NumberIn(this));
}

void NumberBox::focusOutEvent(QFocusEvent *event)
{
    QLineEdit::focusOutEvent(event);
    Settle();
}

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
    txtHour_ = Box("txtHour", messages::HourName, make12(time.hours()).count(), 1, 12);
    txtMin_ = Box("txtMin", messages::MinuteName, time.minutes().count(), 0, 59);
    txtSec_ = Box("txtSec", messages::SecondName, time.seconds().count(), 0, 59);
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
    connect(buttons, &QDialogButtonBox::accepted, this, &FrmTime::cmdOK_Click);

    auto *column = new QVBoxLayout(this);
    column->addWidget(calendar_);
    column->addLayout(row);
    column->addWidget(buttons);
}

/// Enter comes here while its box still has the focus: a number that this resets is shown before it counts.
void FrmTime::cmdOK_Click()
{
    for (NumberBox *box : {txtHour_, txtMin_, txtSec_}) {
        if (!box->Settle()) {
            box->setFocus();
            box->selectAll();
            return;
        }
    }
    accept();
}

LocalTime FrmTime::Chosen() const
{
    const QDate date = calendar_->selectedDate();
    const local_days day =
        local_days(year(date.year()) / month(unsigned(date.month())) / unsigned(date.day()));
    const hours noon(lblAP_->IsPM() ? 12 : 0);
    return day + noon + hours(txtHour_->Whole() % 12) + minutes(txtMin_->Whole()) + seconds(txtSec_->Whole());
}

} // namespace kelvo
