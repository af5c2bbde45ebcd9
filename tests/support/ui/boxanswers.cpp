#include "support/ui/boxanswers.h"

#include <QApplication>
#include <QFileDialog>
#include <QPushButton>
#include <QTest>
#include <QTimer>

namespace kelvo {

namespace {

/// Fails the test and gets the dialog out of the way.
void Unexpected(QDialog *dialog)
{
    const auto *box = qobject_cast<QMessageBox *>(dialog);
    const QString seen = dialog->windowTitle() + (box ? ": " + box->text() : "");
    QTest::qFail(qPrintable("a dialog came unexpected: " + seen), __FILE__, __LINE__);
    dialog->reject();
}

} // namespace

BoxAnswers::BoxAnswers()
{
    qApp->installEventFilter(this);
}

BoxAnswers::~BoxAnswers()
{
    if (!AllBoxesSeen())
        QTest::qFail("a box that was expected never came", __FILE__, __LINE__);
}

void BoxAnswers::AnswerNextBox(const QString &title, QMessageBox::StandardButton button, const QString &text,
                               std::function<void()> whileOpen)
{
    announced_.push_back([=](QDialog *dialog) {
        auto *box = qobject_cast<QMessageBox *>(dialog);
        if (!box || box->windowTitle() != title || (!text.isEmpty() && box->text() != text) ||
            !box->button(button)) {
            Unexpected(dialog);
            return;
        }
        if (whileOpen)
            whileOpen();
        QTest::mouseClick(box->button(button), Qt::LeftButton);
    });
}

void BoxAnswers::EnterInNextBox(const QString &title, QMessageBox::StandardButton enter)
{
    announced_.push_back([=](QDialog *dialog) {
        auto *box = qobject_cast<QMessageBox *>(dialog);
        if (!box || box->windowTitle() != title) {
            Unexpected(dialog);
            return;
        }
        QCOMPARE(box->standardButton(box->defaultButton()), enter);
        QTest::keyClick(box, Qt::Key_Return);
        QVERIFY(!box->isVisible());
    });
}

void BoxAnswers::WithNextDialog(Work work)
{
    announced_.push_back([work = std::move(work)](QDialog *dialog) {
        if (qobject_cast<QMessageBox *>(dialog))
            Unexpected(dialog);
        else
            work(dialog);
    });
}

void BoxAnswers::ChooseNextFile(const QString &path)
{
    announced_.push_back([path](QDialog *dialog) {
        auto *files = qobject_cast<QFileDialog *>(dialog);
        if (!files) {
            Unexpected(dialog);
        } else if (path.isEmpty()) {
            files->reject();
        } else {
            files->selectFile(path);
            QMetaObject::invokeMethod(files, "accept");
        }
    });
}

QMessageBox *BoxAnswers::OpenBox() const
{
    return qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
}

bool BoxAnswers::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::Show)
        return false;
    if (auto *dialog = qobject_cast<QDialog *>(watched); dialog && dialog->isModal())
        QTimer::singleShot(0, dialog, [this, dialog] { Answer(dialog); });
    return false;
}

void BoxAnswers::Answer(QDialog *dialog)
{
    if (every_) {
        every_(dialog);
    } else if (announced_.empty()) {
        Unexpected(dialog);
    } else {
        const Work work = std::move(announced_.front());
        announced_.erase(announced_.begin());
        work(dialog);
    }
}

} // namespace kelvo
