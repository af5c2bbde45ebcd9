#include "ui/help/guideview.h"

#include "rtf/reader.h"
#include "ui/controls/named.h"
#include "ui/help/messages.h"

#include <QAbstractTextDocumentLayout>
#include <QFile>
#include <QFileInfo>
#include <QListWidget>
#include <QScrollBar>
#include <QShortcut>
#include <QSplitter>
#include <QTextBlock>
#include <QVBoxLayout>

namespace kelvo {

namespace {

constexpr int ContentsWidth = 165;
constexpr int LinesPerNotch = 3;

QByteArray BytesOfFile(const QString &path)
{
    QFile file(path);
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly))
        return {};
    return file.read(qint64(rtf::MostBytes) + 1);
}

} // namespace

GuideView::GuideView(const char *searchField)
    : lstContents_(Named(new QListWidget, "lstContents")),
      RTFc_(new HelpPage),
      search_(new GuideSearch(RTFc_, searchField))
{
    lstContents_->setAccessibleName(messages::ContentsName);
    lstContents_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    lstContents_->setTextElideMode(Qt::ElideRight);
    connect(lstContents_, &QListWidget::currentRowChanged, this, &GuideView::GoToHeading);
    // A second click on the heading read before leads there again.
    connect(lstContents_, &QListWidget::itemClicked, this,
            [this] { GoToHeading(lstContents_->currentRow()); });

    auto *reading = new QWidget;
    auto *column = new QVBoxLayout(reading);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(search_);
    column->addWidget(RTFc_, 1);

    auto *splitter = new QSplitter;
    splitter->addWidget(lstContents_);
    splitter->addWidget(reading);
    splitter->setChildrenCollapsible(false);
    splitter->setStretchFactor(1, 1);
    splitter->setSizes({ContentsWidth, 3 * ContentsWidth});
    auto *whole = new QVBoxLayout(this);
    whole->setContentsMargins(0, 0, 0, 0);
    whole->addWidget(splitter);

    connect(new QShortcut(QKeySequence(Qt::Key_F3), this), &QShortcut::activated, search_,
            [this] { search_->Step(1); });
    connect(new QShortcut(QKeySequence(Qt::SHIFT | Qt::Key_F3), this), &QShortcut::activated, search_,
            [this] { search_->Step(-1); });
}

void GuideView::LoadHelp(const QString &path)
{
    const QByteArray bytes = BytesOfFile(path);
    RTFc_->clear();
    headings_ = FillDocument(*RTFc_->document(), rtf::Read({bytes.constData(), std::size_t(bytes.size())}));
    RTFc_->moveCursor(QTextCursor::Start);

    QStringList entries;
    for (const Heading &heading : std::as_const(headings_))
        entries += QString(qsizetype(3) * (heading.level - 1), ' ') + heading.text;
    const QSignalBlocker quiet(lstContents_);
    lstContents_->clear();
    lstContents_->addItems(entries);
    lstContents_->setVisible(!headings_.isEmpty());
    search_->Clear();
}

void GuideView::GoToHeading(int row)
{
    if (row < 0 || row >= headings_.size())
        return;
    QTextCursor cursor(RTFc_->document());
    cursor.setPosition(headings_[row].position);
    RTFc_->setTextCursor(cursor);
    auto *layout = RTFc_->document()->documentLayout();
    layout->documentSize(); // lays out what was not laid out yet, so that the scroll bar has its range
    RTFc_->verticalScrollBar()->setValue(int(layout->blockBoundingRect(cursor.block()).top()));
}

bool GuideView::ScrollByKey(int key)
{
    QScrollBar *bar = RTFc_->verticalScrollBar();
    switch (key) {
    case Qt::Key_Up:
        bar->triggerAction(QAbstractSlider::SliderSingleStepSub);
        return true;
    case Qt::Key_Down:
        bar->triggerAction(QAbstractSlider::SliderSingleStepAdd);
        return true;
    case Qt::Key_PageUp:
        bar->triggerAction(QAbstractSlider::SliderPageStepSub);
        return true;
    case Qt::Key_PageDown:
        bar->triggerAction(QAbstractSlider::SliderPageStepAdd);
        return true;
    case Qt::Key_Home:
        bar->triggerAction(QAbstractSlider::SliderToMinimum);
        return true;
    case Qt::Key_End:
        bar->triggerAction(QAbstractSlider::SliderToMaximum);
        return true;
    default:
        return false;
    }
}

void GuideView::ScrollByWheel(int angleDelta)
{
    QScrollBar *bar = RTFc_->verticalScrollBar();
    bar->setValue(bar->value() - angleDelta * LinesPerNotch * bar->singleStep() / 120);
}

} // namespace kelvo
