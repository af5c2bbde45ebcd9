#pragma once

#include <QAbstractButton>
#include <QApplication>
#include <QMessageBox>
#include <QObject>
#include <QStringList>
#include <QTimer>

namespace kelvo {

/// Answers the message boxes that open while it lives, as a user would with a click, and remembers them.
class BoxAnswers : public QObject {
  public:
    BoxAnswers()
    {
        timer_.callOnTimeout([this] { AnswerOpenBox(); });
        timer_.start(1);
    }

    /// How questions are answered from now on; a box without that button gets its escape button.
    void AnswerWith(QMessageBox::StandardButton button) { button_ = button; }

    /// "title: text" of the boxes that opened since the last call, oldest first.
    QStringList Seen()
    {
        QStringList seen;
        seen.swap(seen_);
        return seen;
    }

    QMessageBox::Icon LastIcon() const { return lastIcon_; }

  private:
    void AnswerOpenBox()
    {
        auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
        if (!box || !box->isVisible())
            return;
        seen_ << box->windowTitle() + ": " + box->text();
        lastIcon_ = box->icon();
        QAbstractButton *button = box->button(button_);
        (button ? button : box->escapeButton())->click();
    }

    QTimer timer_;
    QMessageBox::StandardButton button_ = QMessageBox::Yes;
    QMessageBox::Icon lastIcon_ = QMessageBox::NoIcon;
    QStringList seen_;
};

} // namespace kelvo
