#pragma once

#include "edit/editor.h"
#include "ui/controls/unsentmark.h"
#include "ui/controls/wheelsteps.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QRadioButton>
#include <QWheelEvent>

namespace kelvo {

/// A list box that drops down with a scroll bar, however long it is, and leaves the wheel to its
/// surroundings unless it has the focus.
class ChoiceList : public QComboBox {
    Q_OBJECT

  public:
    ChoiceList() { setFocusPolicy(Qt::StrongFocus); }
    /// The unit does not hold what it shows.
    void MarkUnsent(bool unsent) { unsent_.Show(unsent); }
    void showPopup() override;

  protected:
    void wheelEvent(QWheelEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

  private:
    void TurnBy(int items);

    UnsentMark unsent_{this};
    WheelSteps wheel_{this, [this](int items) { TurnBy(items); }};
};

/// An option button that takes a click anywhere in its row: a larger target than mark and text.
class OptionButton : public QRadioButton {
    Q_OBJECT

  public:
    using QRadioButton::QRadioButton;

  protected:
    bool hitButton(const QPoint &position) const override { return rect().contains(position); }
};

/// A check box with the same large target.
class CheckBox : public QCheckBox {
    Q_OBJECT

  public:
    using QCheckBox::QCheckBox;

  protected:
    bool hitButton(const QPoint &position) const override { return rect().contains(position); }
};

// Each shows a stored value quietly; a value that the control does not offer shows no choice.

void ShowChoice(QComboBox *list, int index);
void ShowChoice(QButtonGroup *options, int index);
/// 0 and 1 are unchecked and checked; any other byte is the third, half-marked state.
void ShowChoice(QCheckBox *box, int value);

/// A list or a group of option buttons that offers what a field can be set to. It shows the room and asks the
/// editor; the user's choice of what is shown already is an edit as well.
class FieldChoice {
  public:
    FieldChoice(FieldId field, Editor &editor, ChoiceList *list);
    FieldChoice(FieldId field, Editor &editor, QButtonGroup *options);

    void Show(const Changed &changed) const;
    /// A list bears a mark; a group of buttons has no place for one.
    void ShowUnsent(const FieldSet &unsent) const;

  private:
    FieldId field_;
    Editor &editor_;
    ChoiceList *list_ = nullptr;
    std::function<void(int)> show_;
};

/// Every choice of a field, in words.
void AddChoices(QComboBox *list, FieldId field);

} // namespace kelvo
