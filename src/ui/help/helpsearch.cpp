#include "ui/controls/named.h"
#include "ui/help/helppanel.h"
#include "ui/help/messages.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace kelvo {

namespace {

constexpr int MostFound = 1000;
const QColor FoundGround(255, 235, 130);
const QColor ShownGround(255, 170, 60);

} // namespace

QWidget *HelpPanel::BuildSearchBar()
{
    auto *bar = Named(new QWidget, "frmFind");
    txtFind_->setAccessibleName(messages::SearchName);
    txtFind_->installEventFilter(this);
    connect(txtFind_, &QLineEdit::textChanged, this, &HelpPanel::FindAll);

    const auto button = [](const char *name, const char *caption, const char *hint) {
        auto *made = Named(new QPushButton(caption), name);
        made->setToolTip(hint);
        made->setAutoDefault(false);
        return made;
    };
    auto *cmdPrevious = button("cmdPrevious", messages::PreviousCaption, messages::PreviousHint);
    auto *cmdNext = button("cmdNext", messages::NextCaption, messages::NextHint);
    auto *cmdCloseFind = button("cmdCloseFind", messages::CloseSearchCaption, messages::CloseSearchHint);
    connect(cmdPrevious, &QPushButton::clicked, this, [this] { Step(-1); });
    connect(cmdNext, &QPushButton::clicked, this, [this] { Step(1); });
    connect(cmdCloseFind, &QPushButton::clicked, this, &HelpPanel::CloseSearch);

    auto *row = new QHBoxLayout(bar);
    row->setContentsMargins(0, 0, 0, 3);
    row->addWidget(new QLabel(messages::SearchCaption));
    row->addWidget(txtFind_, 1);
    row->addWidget(lblFound_);
    row->addWidget(cmdPrevious);
    row->addWidget(cmdNext);
    row->addWidget(cmdCloseFind);
    return bar;
}

void HelpPanel::OpenSearch()
{
    if (!isEnabled())
        return;
    searchBar_->show();
    txtFind_->setFocus();
    txtFind_->selectAll();
}

void HelpPanel::CloseSearch()
{
    if (searchBar_->isAncestorOf(focusWidget()))
        RTFc_->setFocus();
    searchBar_->hide();
    txtFind_->clear();
}

bool HelpPanel::eventFilter(QObject *watched, QEvent *event)
{
    if (watched != txtFind_ || event->type() != QEvent::KeyPress)
        return QWidget::eventFilter(watched, event);
    const auto *key = static_cast<QKeyEvent *>(event);
    switch (key->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        Step(key->modifiers() & Qt::ShiftModifier ? -1 : 1);
        return true;
    default:
        return false;
    }
}

void HelpPanel::FindAll()
{
    // The search goes on from where the reader is, so that typing on keeps the place.
    const int from = RTFc_->textCursor().selectionStart();
    found_.clear();
    shown_ = -1;
    QTextCursor place(RTFc_->document());
    while (!txtFind_->text().isEmpty() && found_.size() < MostFound) {
        place = RTFc_->document()->find(txtFind_->text(), place);
        if (place.isNull())
            break;
        found_.append(place);
        if (shown_ < 0 && place.selectionStart() >= from)
            shown_ = found_.size() - 1;
    }
    if (shown_ < 0 && !found_.isEmpty())
        shown_ = 0;
    ShowFound();
}

void HelpPanel::Step(int direction)
{
    if (found_.isEmpty())
        return;
    shown_ = (shown_ + direction + found_.size()) % found_.size();
    ShowFound();
}

void HelpPanel::ShowFound()
{
    QList<QTextEdit::ExtraSelection> marks;
    for (qsizetype index = 0; index < found_.size(); ++index) {
        QTextCharFormat ground;
        ground.setBackground(index == shown_ ? ShownGround : FoundGround);
        ground.setForeground(Qt::black);
        marks.append({found_[index], ground});
    }
    RTFc_->setExtraSelections(marks);
    if (found_.isEmpty()) {
        lblFound_->setText(txtFind_->text().isEmpty() ? QString() : QString(messages::NotFound));
        return;
    }
    const bool all = found_.size() < MostFound;
    lblFound_->setText(
        QString(all ? messages::FoundPlace : messages::FoundMany).arg(shown_ + 1).arg(found_.size()));
    // A cursor without selection: the mark is the highlight.
    QTextCursor place = found_[shown_];
    place.setPosition(place.selectionStart());
    RTFc_->setTextCursor(place);
    RTFc_->ensureCursorVisible();
}

} // namespace kelvo
