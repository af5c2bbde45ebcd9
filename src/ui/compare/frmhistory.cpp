#include "ui/compare/frmhistory.h"

#include "ui/compare/messages.h"
#include "ui/controls/named.h"

#include <QListWidget>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace kelvo {

namespace {

constexpr QSize UsualSize(420, 460);

} // namespace

FrmHistory::FrmHistory(Editor &editor, EntryWindow &entries, WallClock &clock, QSettings &memory,
                       QWidget *parent)
    : ToolWindow("frmHistory", messages::HistoryTitle, UsualSize, memory, parent),
      editor_(editor),
      entries_(entries),
      clock_(clock),
      lstHistory_(Named(new QListWidget, "lstHistory"))
{
    lstHistory_->setAccessibleName(messages::HistoryName);
    lstHistory_->setUniformItemSizes(true);
    lstHistory_->addItem(messages::HistoryBegin);
    const auto go = [this](const QListWidgetItem *item) { lstHistory_Click(lstHistory_->row(item)); };
    connect(lstHistory_, &QListWidget::itemClicked, this, go);
    connect(lstHistory_, &QListWidget::itemActivated, this, go);
    (new QVBoxLayout(this))->addWidget(lstHistory_);
}

void FrmHistory::Follow()
{
    if (!isVisible())
        return;
    const int added = FollowSteps();
    const int done = int(editor_.Steps().Done());
    const auto [from, to] = std::minmax({std::exchange(shownDone_, done), done});
    const int newest = lstHistory_->count() - 1;
    const int last = added <= newest ? newest : std::min(to, newest);
    const QPalette colours = lstHistory_->palette();
    for (int row = std::min(from, added); row <= last; ++row)
        lstHistory_->item(row)->setForeground(
            colours.brush(row > done ? QPalette::Disabled : QPalette::Active, QPalette::Text));
    lstHistory_->setCurrentRow(done);
}

/// Steps come and go at both ends alone, so only those rows are touched. Answers the first new row.
int FrmHistory::FollowSteps()
{
    const auto &steps = editor_.Steps().Steps();
    const std::size_t oldest = steps.empty() ? 0 : steps.front().number;
    while (!shown_.empty() && shown_.front() != oldest) {
        shown_.erase(shown_.begin());
        delete lstHistory_->takeItem(1);
    }
    std::size_t same = 0;
    while (same < shown_.size() && same < steps.size() && shown_[same] == steps[same].number)
        ++same;
    for (; shown_.size() > same; shown_.pop_back())
        delete lstHistory_->takeItem(int(shown_.size()));
    for (std::size_t next = same; next < steps.size(); ++next)
        AddRow(steps[next]);
    return int(same) + 1;
}

void FrmHistory::AddRow(const Step &step)
{
    lstHistory_->addItem(QString::fromStdString(clock_.TimeText(step.time) + "   " + step.name));
    shown_.push_back(step.number);
}

void FrmHistory::lstHistory_Click(int row)
{
    if (entries_.CommitEntry())
        editor_.MoveTo(std::size_t(row));
    Follow(); // where nothing has moved, the click alone has chosen the row
}

} // namespace kelvo
