#pragma once

#include <QMessageBox>

#include <functional>
#include <vector>

namespace kelvo {

/// Answers the boxes and dialogs that open while it lives, as a user would with a click. They come in the
/// order in which they were announced; one that nobody announced fails the test, and so does one that never
/// came.
class BoxAnswers : public QObject {
    Q_OBJECT

  public:
    using Work = std::function<void(QDialog *)>;

    BoxAnswers();
    ~BoxAnswers() override;

    /// Answers the next box: it must have this title and, when given, this text. `whileOpen` runs first.
    void AnswerNextBox(const QString &title, QMessageBox::StandardButton button, const QString &text = {},
                       std::function<void()> whileOpen = {});
    /// Presses Enter in the next box; its default button must be this one.
    void EnterInNextBox(const QString &title, QMessageBox::StandardButton enter);
    /// Works on the next dialog that is not a message box, `QFileDialog` included, once it is shown.
    void WithNextDialog(Work work);
    /// Chooses a file in the next file dialog; "" cancels it.
    void ChooseNextFile(const QString &path);
    /// Works on every box and dialog from now on, for a test that cannot know which ones come.
    void WithEveryDialog(Work work) { every_ = std::move(work); }

    /// The message box that is open, or null.
    QMessageBox *OpenBox() const;
    bool AllBoxesSeen() const { return announced_.empty(); }

  protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

  private:
    void Answer(QDialog *dialog);

    std::vector<Work> announced_;
    Work every_;
};

} // namespace kelvo
