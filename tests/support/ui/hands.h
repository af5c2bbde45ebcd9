#pragma once

#include "ui/controls/levelslider.h"

#include <QApplication>
#include <QTest>

namespace kelvo {

/// "cmdMode(3)": a member of a control array.
inline QString Member(const char *name, int index)
{
    return QString("%1(%2)").arg(name).arg(index);
}

/// What a user does with hands. A control is named, or handed over where its name alone does not tell it from
/// another one; keys go to what has the focus.
class Hands {
  public:
    virtual ~Hands() = default;

    /// A control, or the name of one.
    struct Target {
        Target(const char *called) : name(called) {}
        Target(const QString &called) : name(called) {}
        Target(QWidget *it) : control(it) {}

        QString name{};
        QWidget *control = nullptr;
    };

    /// The control with this name in the window under test, or in any other open one; ends the test when
    /// there is none.
    template <typename Control>
    Control *Find(const QString &name) const
    {
        QList<QWidget *> windows = QApplication::topLevelWidgets();
        windows.prepend(Window());
        for (QWidget *top : windows) {
            auto *control = dynamic_cast<Control *>(top);
            if (!control || top->objectName() != name)
                control = top->findChild<Control *>(name);
            if (control)
                return control;
        }
        qFatal("no control of this kind is named %s", qPrintable(name));
    }

    // The mouse.
    void Click(const Target &control) const;
    /// Presses the mouse on the slider's thumb; the button stays down until `Drop`.
    void Take(const Target &slider) const;
    void MoveTo(const Target &slider, int position) const;
    /// Takes the thumb and moves it to a position; the button stays down.
    void DragTo(const Target &slider, int position) const;
    void Drop(const Target &slider) const;
    /// Clicks where the slider's thumb would stand at a position.
    void ClickAt(const Target &slider, int position) const;
    /// Drops a list down and clicks the item with this text.
    void ChooseItem(const Target &list, const QString &item) const;
    /// Turns the wheel over a control; true when it took that.
    bool Wheel(const Target &control, int angle) const;

    // Keys.
    /// What has the keyboard: a control, or the window.
    QWidget *Focus() const;
    void Press(int key, Qt::KeyboardModifiers modifiers = {}) const;
    /// As a display server sends it while the key stays down: a release and a press that say so.
    void Repeat(int key, Qt::KeyboardModifiers modifiers = {}) const;
    void Release(int key, Qt::KeyboardModifiers modifiers = {}) const;
    /// Press and release.
    void Key(int key, Qt::KeyboardModifiers modifiers = {}) const;
    /// Selects all, types and presses Enter.
    void Type(const Target &field, const QString &text) const;
    /// Types over the text and leaves the field as it is, the focus in it.
    void TypeOnly(const Target &field, const QString &text) const;

  protected:
    virtual QWidget *Window() const = 0; ///< the window under test

    /// Offscreen nobody gives the focus back to the window when its box or dialog goes.
    void KeepActive() const;

  private:
    template <typename Control>
    Control *Reach(const Target &target) const
    {
        return target.control ? qobject_cast<Control *>(target.control) : Find<Control>(target.name);
    }
};

/// Where the middle of the thumb stands when the slider is at a position.
inline QPoint ThumbOf(const LevelSlider *slider, int position)
{
    return {slider->width() / 2, slider->CentreOf(position)};
}

} // namespace kelvo
