#include "ui/controls/choices.h"

#include <QAbstractButton>
#include <QPainter>

#include <algorithm>

namespace kelvo {

void ChoiceList::showPopup()
{
    // Only now, because it costs a millisecond a list, which the start of the console need not spend.
    if (styleSheet().isEmpty())
        setStyleSheet(QStringLiteral("combobox-popup: 0"));
    QComboBox::showPopup();
}

void ChoiceList::wheelEvent(QWheelEvent *event)
{
    const int angle = event->angleDelta().y();
    if (!hasFocus())
        event->ignore();
    else if (angle != 0)
        wheel_.Take(angle > 0 ? -1 : 1, *event);
}

void ChoiceList::focusOutEvent(QFocusEvent *event)
{
    wheel_.Drop();
    QComboBox::focusOutEvent(event);
}

/// The mark stands above the arrow, where no text comes.
void ChoiceList::paintEvent(QPaintEvent *event)
{
    constexpr int FromEdge = 3;
    QComboBox::paintEvent(event);
    if (!unsent_.Shown())
        return;
    QPainter painter(this);
    UnsentMark::Paint(painter, {width() - UnsentMark::Size - FromEdge, FromEdge});
}

/// A list that shows no choice has none before it.
void ChoiceList::TurnBy(int items)
{
    const int turned = std::min(std::max(currentIndex() + items, 0), count() - 1);
    if (turned == currentIndex() || (currentIndex() < 0 && items < 0))
        return;
    setCurrentIndex(turned);
    emit activated(turned);
}

void ShowChoice(QComboBox *list, int index)
{
    list->setCurrentIndex(index < list->count() ? index : -1);
}

void ShowChoice(QButtonGroup *options, int index)
{
    if (QAbstractButton *option = options->button(index)) {
        option->setChecked(true);
    } else if (QAbstractButton *chosen = options->checkedButton()) {
        options->setExclusive(false);
        chosen->setChecked(false);
        options->setExclusive(true);
    }
}

void ShowChoice(QCheckBox *box, int value)
{
    box->setTristate(false);
    if (value == 0 || value == 1)
        box->setChecked(value == 1);
    else
        box->setCheckState(Qt::PartiallyChecked);
}

FieldChoice::FieldChoice(FieldId field, Editor &editor, ChoiceList *list)
    : field_(field),
      editor_(editor),
      list_(list),
      show_([list](int stored) { ShowChoice(list, stored); })
{
    QObject::connect(list, &QComboBox::activated, list,
                     [field, &editor](int index) { editor.Apply(Edit::One(field, index)); });
}

FieldChoice::FieldChoice(FieldId field, Editor &editor, QButtonGroup *options)
    : field_(field),
      editor_(editor),
      show_([options](int stored) { ShowChoice(options, stored); })
{
    QObject::connect(options, &QButtonGroup::idClicked, options,
                     [field, &editor](int index) { editor.Apply(Edit::One(field, index)); });
}

void FieldChoice::Show(const Changed &changed) const
{
    if (changed.Has(field_))
        show_(Get(editor_.Room(), field_));
}

void FieldChoice::ShowUnsent(const FieldSet &unsent) const
{
    if (list_)
        list_->MarkUnsent(unsent.test(std::size_t(field_)));
}

void AddChoices(QComboBox *list, FieldId field)
{
    for (int stored = 0; stored <= FieldOf(field).scale->last; ++stored)
        list->addItem(QString::fromStdString(TextOf(field, stored)));
}

} // namespace kelvo
