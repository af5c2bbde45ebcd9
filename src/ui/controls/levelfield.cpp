#include "ui/controls/levelfield.h"

#include "ui/controls/boxes.h"
#include "ui/controls/focus.h"
#include "ui/controls/messages.h"

#include <QApplication>
#include <QHideEvent>
#include <QKeyEvent>
#include <QStyleOptionFrame>
#include <QTabBar>
#include <QTabWidget>
#include <QTimer>

#include <algorithm>

namespace kelvo {

LevelField::LevelField(const LevelRule &rule, EntryWindow &entries, Take take)
    : rule_(rule),
      entries_(entries),
      take_(std::move(take))
{
    // A text dropped in from elsewhere would stand in the field without its being the place of entry.
    setAcceptDrops(false);
    setAlignment(Qt::AlignCenter);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

LevelField::~LevelField()
{
    if (entries_.editing == this)
        entries_.editing = nullptr;
}

void LevelField::ShowText(const QString &text)
{
    shown_ = text;
    if (!IsBeingTypedIn() && this->text() != text)
        setText(text);
}

void LevelField::ShowMoved(const QString &text)
{
    if (text != shown_)
        setModified(false);
    ShowText(text);
}

bool LevelField::IsBeingTypedIn() const
{
    return isModified() && entries_.editing == this;
}

bool LevelField::IsPending() const
{
    return isModified() || text() != shown_;
}

void LevelField::Drop()
{
    setText(shown_);
}

bool LevelField::Validate()
{
    const LevelEntry entry = ReadLevel(rule_, text().toStdString());
    if (entry.kind == LevelEntry::OutOfRange) {
        Refuse();
        return false;
    }
    setModified(false);
    if (entry.kind == LevelEntry::Value)
        take_(entry.steps);
    Drop();
    return true;
}

/// The box opens over the field that has the focus again, so that closing it leads back there.
void LevelField::Refuse()
{
    refusing_ = true;
    setFocus();
    Tell(window(), {Exclamation, messages::RangeCheckTitle, rule_.rangeMessage});
    refusing_ = false;
    selectAll();
}

/// Undo and redo belong to a text that is being typed; once it is taken they belong to the settings.
bool LevelField::event(QEvent *event)
{
    if (event->type() == QEvent::ShortcutOverride) {
        const auto *key = static_cast<QKeyEvent *>(event);
        if (key->modifiers() == Qt::ControlModifier && (key->key() == Qt::Key_Z || key->key() == Qt::Key_Y)) {
            event->setAccepted(IsPending());
            return true;
        }
    }
    return QLineEdit::event(event);
}

void LevelField::keyPressEvent(QKeyEvent *event)
{
    switch (event->key()) {
    case Qt::Key_Escape:
        clear();
        [[fallthrough]];
    case Qt::Key_Return:
    case Qt::Key_Enter:
        // Accepted here, so that a dialog takes neither for its own.
        event->accept();
        Validate();
        setFocus();
        break;
    case Qt::Key_Y:
        if (event->modifiers() == Qt::ControlModifier) {
            redo(); // the toolkit's own key for it is another one on some systems
            break;
        }
        [[fallthrough]];
    default:
        QLineEdit::keyPressEvent(event);
    }
}

void LevelField::focusInEvent(QFocusEvent *event)
{
    BecomePlaceOfEntry(true);
    QLineEdit::focusInEvent(event);
}

void LevelField::focusOutEvent(QFocusEvent *event)
{
    QLineEdit::focusOutEvent(event);
    if (MovesInsideWindow(event->reason()) && !refusing_)
        Leave(event->reason());
}

void LevelField::Leave(Qt::FocusReason reason)
{
    if (!isEnabled() || !isVisible()) {
        Settle();
    } else if (!IsPending() || Validate()) {
        BecomePlaceOfEntry(false);
    } else if (reason == Qt::MouseFocusReason) {
        SwallowPressUnderWay();
    }
}

/// The field goes away under the user. On a panel that is disabled there is no place to correct a bad value;
/// a hidden one waits for the command that hid it, which takes what is typed or is called off.
void LevelField::Settle()
{
    if (IsPending()) {
        const bool bad = ReadLevel(rule_, text().toStdString()).kind == LevelEntry::OutOfRange;
        if (bad && isEnabled())
            return;
        if (bad)
            Drop();
        else
            Validate();
    }
    if (entries_.editing == this)
        BecomePlaceOfEntry(false);
}

void LevelField::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::EnabledChange && !isEnabled())
        Settle();
    QLineEdit::changeEvent(event);
}

void LevelField::hideEvent(QHideEvent *event)
{
    // A minimised window keeps what is typed in it.
    if (!event->spontaneous())
        Settle();
    QLineEdit::hideEvent(event);
}

/// It stays the place of entry while a box, a menu or another window has the focus.
void LevelField::BecomePlaceOfEntry(bool become)
{
    entries_.editing = become ? this : nullptr;
    if (become)
        qApp->installEventFilter(this);
    else
        qApp->removeEventFilter(this);
}

/// The focus left because of a mouse press that is still to reach its widget: it is not carried out.
void LevelField::SwallowPressUnderWay()
{
    swallowPress_ = true;
    QTimer::singleShot(0, this, [this] { swallowPress_ = false; });
}

/// A tab strip changes its page without taking the focus, so it is watched while something is typed here.
bool LevelField::eventFilter(QObject *receiver, QEvent *event)
{
    if (refusing_ || !receiver->isWidgetType())
        return false;
    if (swallowPress_ && event->type() == QEvent::MouseButtonPress) {
        swallowPress_ = false;
        return true;
    }
    return SwitchesTab(receiver, event) && IsPending() && !Validate();
}

bool LevelField::SwitchesTab(QObject *receiver, QEvent *event) const
{
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::Shortcut:
        return qobject_cast<QTabBar *>(receiver) && static_cast<QWidget *>(receiver)->window() == window();
    case QEvent::KeyPress: {
        const int key = static_cast<QKeyEvent *>(event)->key();
        return (key == Qt::Key_Tab || key == Qt::Key_Backtab) && qobject_cast<QTabWidget *>(receiver);
    }
    default:
        return false;
    }
}

/// All fields of a rule share the width of its widest text.
QSize LevelField::sizeHint() const
{
    QStyleOptionFrame option;
    initStyleOption(&option);
    int width = 0;
    for (const int steps : {rule_.lowest, rule_.highest}) {
        const QString text = QString::fromStdString(rule_.TextOf(steps));
        width = std::max(width, fontMetrics().horizontalAdvance(text));
    }
    constexpr int InsideMargins = 5;
    return {width + 2 * option.lineWidth + InsideMargins, QLineEdit::sizeHint().height()};
}

QSize LevelField::minimumSizeHint() const
{
    return sizeHint();
}

} // namespace kelvo
