#include "ui/help/guidesearch.h"

#include "ui/controls/named.h"
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

GuideSearch::GuideSearch(HelpPage *page, const char *field)
    : page_(page),
      field_(Named(new QLineEdit, field)),
      lblFound_(Named(new QLabel, "lblFound"))
{
    field_->setAccessibleName(messages::SearchName);
    field_->installEventFilter(this);
    field_->setAcceptDrops(false); // a file that is dropped is to be opened, not its name to be looked for
    connect(field_, &QLineEdit::textChanged, this, &GuideSearch::FindAll);

    const auto button = [this](const char *name, const char *caption, const char *hint, int direction) {
        auto *made = Named(new QPushButton(caption), name);
        made->setToolTip(hint);
        made->setAutoDefault(false);
        connect(made, &QPushButton::clicked, this, [this, direction] { Step(direction); });
        return made;
    };
    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 3);
    row->addWidget(new QLabel(messages::SearchCaption));
    row->addWidget(field_, 1);
    row->addWidget(lblFound_);
    row->addWidget(button("cmdPrevious", messages::PreviousCaption, messages::PreviousHint, -1));
    row->addWidget(button("cmdNext", messages::NextCaption, messages::NextHint, 1));
}

void GuideSearch::Begin()
{
    field_->setFocus();
    field_->selectAll();
}

void GuideSearch::Clear()
{
    field_->clear();
}

bool GuideSearch::eventFilter(QObject *watched, QEvent *event)
{
    if (watched != field_ || event->type() != QEvent::KeyPress)
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

void GuideSearch::FindAll()
{
    // The search goes on from where the reader is, so that typing on keeps the place.
    const int from = page_->textCursor().selectionStart();
    found_.clear();
    shown_ = -1;
    QTextCursor place(page_->document());
    while (!field_->text().isEmpty() && found_.size() < MostFound) {
        place = page_->document()->find(field_->text(), place);
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

void GuideSearch::Step(int direction)
{
    if (found_.isEmpty())
        return;
    shown_ = (shown_ + direction + found_.size()) % found_.size();
    ShowFound();
}

void GuideSearch::ShowFound()
{
    QList<QTextEdit::ExtraSelection> marks;
    for (qsizetype index = 0; index < found_.size(); ++index) {
        QTextCharFormat ground;
        ground.setBackground(index == shown_ ? ShownGround : FoundGround);
        ground.setForeground(Qt::black);
        marks.append({found_[index], ground});
    }
    page_->setExtraSelections(marks);
    if (found_.isEmpty()) {
        lblFound_->setText(field_->text().isEmpty() ? QString() : QString(messages::NotFound));
        return;
    }
    const bool all = found_.size() < MostFound;
    lblFound_->setText(
        QString(all ? messages::FoundPlace : messages::FoundMany).arg(shown_ + 1).arg(found_.size()));
    // A cursor without selection: the mark is the highlight.
    QTextCursor place = found_[shown_];
    place.setPosition(place.selectionStart());
    page_->setTextCursor(place);
    page_->ensureCursorVisible();
}

} // namespace kelvo
