#pragma once

#include "ui/controls/levelslider.h"

#include <QApplication>
#include <QKeyEvent>
#include <QTest>
#include <QWheelEvent>

namespace kelvo {

// What a hand does on a control, event by event, where the fixture's whole strokes are too coarse.

inline void Key(QWidget *target, QEvent::Type type, int key, bool repeat = false,
                Qt::KeyboardModifiers modifiers = Qt::NoModifier)
{
    QKeyEvent event(type, key, modifiers, QString(), repeat);
    QApplication::sendEvent(target, &event);
}

inline void Press(QWidget *target, int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
{
    Key(target, QEvent::KeyPress, key, false, modifiers);
}

/// As a display server sends it: the key stays down, each repeat is a release and a press.
inline void Repeat(QWidget *target, int key)
{
    Key(target, QEvent::KeyRelease, key, true);
    Key(target, QEvent::KeyPress, key, true);
}

inline void Release(QWidget *target, int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
{
    Key(target, QEvent::KeyRelease, key, false, modifiers);
}

inline void Tap(QWidget *target, int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
{
    Press(target, key, modifiers);
    Release(target, key, modifiers);
}

inline QPoint ThumbOf(const LevelSlider *slider, int position)
{
    return {slider->width() / 2, slider->CentreOf(position)};
}

inline bool Wheel(QWidget *target, int angle)
{
    const QPointF middle = target->rect().center();
    QWheelEvent event(middle, target->mapToGlobal(middle), {}, {0, angle}, Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(target, &event);
    return event.isAccepted();
}

/// Presses the mouse on the thumb and moves it to a position; the button stays down.
inline void DragTo(LevelSlider *slider, int position)
{
    QTest::mousePress(slider, Qt::LeftButton, Qt::NoModifier, ThumbOf(slider, slider->value()));
    QTest::mouseMove(slider, ThumbOf(slider, position));
}

inline void Drop(LevelSlider *slider)
{
    QTest::mouseRelease(slider, Qt::LeftButton, Qt::NoModifier, ThumbOf(slider, slider->value()));
}

} // namespace kelvo
