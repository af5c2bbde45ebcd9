#include "support/ui/hands.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QWheelEvent>

namespace kelvo {

void Hands::KeepActive() const
{
    if (QApplication::activeWindow() || !Window()->isVisible())
        return;
    Window()->activateWindow();
    // A close that waited for the window's events may take it away instead.
    QVERIFY(QTest::qWaitFor([this] { return QApplication::activeWindow() || !Window()->isVisible(); }));
}

// The mouse

void Hands::Click(const Target &control) const
{
    KeepActive();
    QTest::mouseClick(Reach<QWidget>(control), Qt::LeftButton);
}

void Hands::Take(const Target &slider) const
{
    KeepActive();
    auto *control = Reach<LevelSlider>(slider);
    QTest::mousePress(control, Qt::LeftButton, {}, ThumbOf(control, control->value()));
}

void Hands::MoveTo(const Target &slider, int position) const
{
    auto *control = Reach<LevelSlider>(slider);
    QTest::mouseMove(control, ThumbOf(control, position));
}

void Hands::DragTo(const Target &slider, int position) const
{
    Take(slider);
    MoveTo(slider, position);
}

void Hands::Drop(const Target &slider) const
{
    auto *control = Reach<LevelSlider>(slider);
    QTest::mouseRelease(control, Qt::LeftButton, {}, ThumbOf(control, control->value()));
}

void Hands::ClickAt(const Target &slider, int position) const
{
    KeepActive();
    auto *control = Reach<LevelSlider>(slider);
    QTest::mouseClick(control, Qt::LeftButton, {}, ThumbOf(control, position));
}

void Hands::ChooseItem(const Target &list, const QString &item) const
{
    auto *control = Reach<QComboBox>(list);
    control->setFocus();
    control->showPopup();
    QAbstractItemView *popup = control->view();
    const QModelIndex index = popup->model()->index(control->findText(item), 0);
    popup->scrollTo(index);
    QTest::mouseClick(popup->viewport(), Qt::LeftButton, {}, popup->visualRect(index).center());
}

bool Hands::Wheel(const Target &control, int angle) const
{
    auto *under = Reach<QWidget>(control);
    const QPointF middle = under->rect().center();
    QWheelEvent event(middle, under->mapToGlobal(middle), {}, {0, angle}, Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(under, &event);
    return event.isAccepted();
}

// Keys

QWidget *Hands::Focus() const
{
    KeepActive();
    QWidget *focus = QApplication::focusWidget();
    return focus ? focus : Window();
}

void Hands::Press(int key, Qt::KeyboardModifiers modifiers) const
{
    QTest::keyPress(Focus(), Qt::Key(key), modifiers);
}

void Hands::Repeat(int key, Qt::KeyboardModifiers modifiers) const
{
    for (const auto type : {QEvent::KeyRelease, QEvent::KeyPress}) {
        QKeyEvent event(type, key, modifiers, QString(), true);
        QApplication::sendEvent(Focus(), &event);
    }
}

void Hands::Release(int key, Qt::KeyboardModifiers modifiers) const
{
    QTest::keyRelease(Focus(), Qt::Key(key), modifiers);
}

void Hands::Key(int key, Qt::KeyboardModifiers modifiers) const
{
    Press(key, modifiers);
    Release(key, modifiers);
}

void Hands::Type(const Target &field, const QString &text) const
{
    TypeOnly(field, text);
    Key(Qt::Key_Return);
}

void Hands::TypeOnly(const Target &field, const QString &text) const
{
    auto *control = Reach<QLineEdit>(field);
    KeepActive();
    control->setFocus();
    control->selectAll();
    if (text.isEmpty())
        QTest::keyClick(control, Qt::Key_Delete);
    else
        QTest::keyClicks(control, text);
}

} // namespace kelvo
