#include "ui/main/recovery.h"

#include "ui/main/messages.h"

#include <QDate>
#include <QDateTime>
#include <QFileInfo>
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
    FollowTaken();
    untouched_ = untouched_ && editor_.Steps().Steps().empty();
    return untouched_ && !offered_.empty() ? NameOf(offered_.front()) : QString();
}

void Recovery::FollowTaken()
{
    const History &history = editor_.Steps();
    for (Taken &taken : taken_)
        for (std::size_t at = 0; at < history.Steps().size(); ++at)
            if (history.Steps()[at].number == taken.step)
                taken.inEffect = at < history.Done();
}

void Recovery::Take(int which)
{
    if (which < 0 || which >= int(offered_.size()))
        return;
    LeftBehind left = std::move(offered_[which]);
    offered_.erase(offered_.begin() + which);
    // A file that was saved since by somebody else is not to be written over by what was before.
    const QFileInfo file(QString::fromStdString(left.fileName));
    if (file.exists() && file.lastModified() > QFileInfo(QString::fromStdString(left.path)).lastModified())
        left.fileName.clear();
    const auto last = [this] { return editor_.Steps().Last() ? editor_.Steps().Last()->number : 0; };
    const std::size_t before = last();
    HeldJournal journal(left);
    editor_.BringBack(left, NameOf(left).toStdString());
    taken_.push_back({std::move(journal), last() == before ? 0 : last()});
}

void Recovery::Tidy()
{
    FollowTaken();
    for (Taken &taken : taken_)
        if (taken.inEffect)
            taken.journal.Remove();
}

} // namespace kelvo
