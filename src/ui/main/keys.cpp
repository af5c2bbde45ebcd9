#include "ui/main/frmmain.h"

#include <QApplication>
#include <QKeyEvent>
#include <QTabBar>
#include <QTabWidget>
#include <QWheelEvent>

namespace kelvo {

bool FrmMain::eventFilter(QObject *watched, QEvent *event)
{
    auto *receiver = qobject_cast<QWidget *>(watched);
    if (!receiver || receiver->window() != this || !isEnabled() || QApplication::activeModalWidget())
        return QMainWindow::eventFilter(watched, event);

    if (event->type() == QEvent::KeyPress) {
        auto *key = static_cast<QKeyEvent *>(event);
        return PreviewKey(receiver, key->key(), key->modifiers() & ~Qt::KeypadModifier, key->isAutoRepeat());
    }
    // A wheel over the headings would change the tab, which asks and sends.
    if (event->type() == QEvent::Wheel && receiver == SSTAB1_->tabBar())
        return true;
    QWidget *page = frmtabs_[int(Tab::Help)];
    // Off line the page is disabled, and yet it is to be read.
    if (event->type() == QEvent::Wheel && !page->isEnabled() && page->isAncestorOf(receiver)) {
        help_->ScrollByWheel(static_cast<QWheelEvent *>(event)->angleDelta().y());
        return true;
    }
    return QMainWindow::eventFilter(watched, event);
}

bool FrmMain::PreviewKey(QWidget *receiver, int key, Qt::KeyboardModifiers modifiers, bool repeat)
{
    const bool connect = key == Qt::Key_F1;
    const bool upload = key == Qt::Key_F2;
    if (connect || upload) {
        // Connect does nothing on line, so it is asked first and takes what is typed itself.
        if (repeat || link_.InCall() || (upload && !entries_.CommitEntry()))
            return true;
        if (connect)
            cmdConnect_Click();
        else
            link_.UploadToUnit(UploadSelector::Both, UploadTrigger::Explicit);
        return true;
    }
    if (Tab(shownTab_) == Tab::Help)
        return PreviewHelpKey(receiver, key, modifiers);

    constexpr int LastCharacter = 0xff; // beyond it stand the keys that are no characters
    const bool shortcuts = key <= LastCharacter && settings_.Options.Shortcuts &&
                           modifiers == Qt::ControlModifier && Tab(shownTab_) == Tab::Eq &&
                           frmtabs_[int(Tab::Eq)]->isEnabled();
    if (shortcuts && repeat)
        return true;
    return shortcuts && !link_.InCall() && equaliser_->RunShortcut(QChar(key).toLower());
}

bool FrmMain::PreviewHelpKey(QWidget *receiver, int key, Qt::KeyboardModifiers modifiers)
{
    if (key == Qt::Key_F && modifiers == Qt::ControlModifier) {
        help_->OpenSearch();
        return true;
    }
    // Nobody else's key: the strip has the focus when the tab is new, the window gets what others leave over.
    const bool free = receiver == SSTAB1_->tabBar() || receiver == this;
    return free && modifiers == Qt::NoModifier && help_->ScrollByKey(key);
}

} // namespace kelvo
