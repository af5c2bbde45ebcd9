#pragma once

#include "model/levels.h"
#include "ui/controls/entrywindow.h"

#include <QLineEdit>

#include <functional>

namespace kelvo {

/// A level as text. Enter, Escape and leaving the field take what is typed; a bad value is told once and
/// keeps the user in the field. While something is typed, the program does not write over it.
class LevelField : public QLineEdit {
    Q_OBJECT

  public:
    /// What an accepted value does; the argument counts in steps of the rule.
    using Take = std::function<void(int steps)>;

    LevelField(const LevelRule &rule, EntryWindow &entries, Take take);
    ~LevelField() override;

    /// The text of the value that the field stands for; waits while the user is typing.
    void ShowText(const QString &text);
    /// The same for a value with more places than this one: once it has moved, what is typed here is dropped,
    /// so that it never moves the value back.
    void ShowMoved(const QString &text);
    /// Takes the text as it stands. False after a bad value: its message has been shown, and the whole
    /// text is selected for typing over it.
    bool Validate();
    /// Something stands in the field that has not been taken.
    bool IsPending() const;
    /// Goes back to the text of the value, whatever is typed.
    void Drop();

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

  protected:
    bool event(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void changeEvent(QEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    bool eventFilter(QObject *receiver, QEvent *event) override;

  private:
    bool IsBeingTypedIn() const;
    bool SwitchesTab(QObject *receiver, QEvent *event) const;
    void BecomePlaceOfEntry(bool become);
    void Leave(Qt::FocusReason reason);
    void Settle();
    void Refuse();
    void SwallowPressUnderWay();

    const LevelRule rule_;
    EntryWindow &entries_;
    Take take_;
    QString shown_;
    bool refusing_ = false;
    bool swallowPress_ = false;
};

} // namespace kelvo
