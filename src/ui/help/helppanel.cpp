#include "ui/help/helppanel.h"

#include "rtf/reader.h"
#include "ui/controls/named.h"
#include "ui/help/messages.h"

#include <QAbstractTextDocumentLayout>
#include <QFile>
#include <QFileInfo>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QScrollBar>
#include <QShortcut>
#include <QSplitter>
#include <QTextBlock>
#include <QVBoxLayout>

namespace kelvo {

namespace {

constexpr int ContentsWidth = 165;
constexpr int PageMargin = 12;
constexpr int LongestLine = 900; ///< pixels; longer ones are hard to read
constexpr int LinesPerNotch = 3;

/// Dark on light whatever the theme, for so the guide's colours were chosen; a disabled page is greyer
/// and can be read all the same.
QPalette PaperPalette(QPalette palette)
{
    palette.setColor(QPalette::Base, Qt::white);
    palette.setColor(QPalette::Text, Qt::black);
    palette.setColor(QPalette::Disabled, QPalette::Base, QColor(238, 238, 238));
    palette.setColor(QPalette::Disabled, QPalette::Text, Qt::black);
    return palette;
}

QByteArray BytesOfFile(const QString &path)
{
    QFile file(path);
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly))
        return {};
    return file.read(qint64(rtf::MostBytes) + 1);
}

} // namespace

HelpPage::HelpPage()
{
    setOpenLinks(false);
    setOpenExternalLinks(false);
    setUndoRedoEnabled(false);
    setPalette(PaperPalette(palette()));
    document()->setDocumentMargin(PageMargin);
    setAccessibleName(messages::GuideName);
}

QVariant HelpPage::loadResource(int, const QUrl &)
{
    return {};
}

void HelpPage::resizeEvent(QResizeEvent *event)
{
    const bool wide = viewport()->width() > LongestLine;
    setLineWrapMode(wide ? FixedPixelWidth : WidgetWidth);
    setLineWrapColumnOrWidth(wide ? LongestLine : 0);
    QTextBrowser::resizeEvent(event);
}

HelpPanel::HelpPanel()
    : lstContents_(Named(new QListWidget, "lstContents")),
      RTFc_(Named(new HelpPage, "RTFc")),
      txtFind_(Named(new QLineEdit, "txtFind")),
      lblFound_(Named(new QLabel, "lblFound")),
      searchBar_(BuildSearchBar())
{
    lstContents_->setAccessibleName(messages::ContentsName);
    lstContents_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    lstContents_->setTextElideMode(Qt::ElideRight);
    connect(lstContents_, &QListWidget::currentRowChanged, this, &HelpPanel::GoToHeading);
    // A second click on the heading read before leads there again.
    connect(lstContents_, &QListWidget::itemClicked, this,
            [this] { GoToHeading(lstContents_->currentRow()); });

    auto *reading = new QWidget;
    auto *column = new QVBoxLayout(reading);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(searchBar_);
    column->addWidget(RTFc_, 1);
    searchBar_->hide();

    auto *splitter = new QSplitter;
    splitter->addWidget(lstContents_);
    splitter->addWidget(reading);
    splitter->setChildrenCollapsible(false);
    splitter->setStretchFactor(1, 1);
    splitter->setSizes({ContentsWidth, 3 * ContentsWidth});
    auto *whole = new QVBoxLayout(this);
    whole->setContentsMargins(0, 0, 0, 0);
    whole->addWidget(splitter);

    connect(new QShortcut(QKeySequence(Qt::Key_F3), this), &QShortcut::activated, this, [this] { Step(1); });
    connect(new QShortcut(QKeySequence(Qt::SHIFT | Qt::Key_F3), this), &QShortcut::activated, this,
            [this] { Step(-1); });
    auto *escape = new QShortcut(QKeySequence(Qt::Key_Escape), this);
    escape->setContext(Qt::WidgetWithChildrenShortcut); // the fader beside the tabs has its own Escape
    connect(escape, &QShortcut::activated, this, &HelpPanel::CloseSearch);
}

void HelpPanel::LoadHelp(const QString &path)
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
    CloseSearch();
}

void HelpPanel::GoToHeading(int row)
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

bool HelpPanel::ScrollByKey(int key)
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

void HelpPanel::ScrollByWheel(int angleDelta)
{
    QScrollBar *bar = RTFc_->verticalScrollBar();
    bar->setValue(bar->value() - angleDelta * LinesPerNotch * bar->singleStep() / 120);
}

} // namespace kelvo
