#include "ui/main/recovery.h"

#include "ui/main/messages.h"

#include <QDate>
#include <QLocale>

namespace kelvo {

namespace {

/// "21:04", with the day when it is not today.
QString When(LocalTime time, WallClock &clock)
{
    QString text = QString::fromStdString(clock.TimeText(time));
    const auto day = std::chrono::floor<std::chrono::days>(time);
    if (day == std::chrono::floor<std::chrono::days>(clock.Now()))
        return text;
    const std::chrono::year_month_day date(day);
    const QDate shown(int(date.year()), int(unsigned(date.month())), int(unsigned(date.day())));
    return QLocale::c().toString(shown, "d MMM ") + text;
}

} // namespace

Recovery::Recovery(Editor &editor, WallClock &clock, const QString &folder, QObject *parent)
    : QObject(parent),
      editor_(editor),
      clock_(clock),
      folder_(folder.toStdString())
{
}

void Recovery::Look()
{
    if (!folder_.empty())
        offered_ = FindJournals(folder_);
}

QString Recovery::NameOf(const LeftBehind &left) const
{
    const QString when = When(left.time, clock_);
    if (left.done == 0)
        return QString(messages::BringBackSlots).arg(when);
    return QString(left.done == 1 ? messages::BringBackOne : messages::BringBackMany)
        .arg(when)
        .arg(left.done);
}

QStringList Recovery::Offers() const
{
    QStringList offers;
    for (const LeftBehind &left : offered_)
        offers += NameOf(left);
    return offers;
}

QString Recovery::Offer()
{
    untouched_ = untouched_ && editor_.Steps().Steps().empty();
    return untouched_ && !offered_.empty() ? NameOf(offered_.front()) : QString();
}

void Recovery::Take(int which)
{
    if (which < 0 || which >= int(offered_.size()))
        return;
    taken_.push_back(std::move(offered_[which]));
    offered_.erase(offered_.begin() + which);
    editor_.BringBack(taken_.back(), NameOf(taken_.back()).toStdString());
}

void Recovery::Tidy()
{
    for (const LeftBehind &left : taken_)
        RemoveJournal(left);
}

} // namespace kelvo
