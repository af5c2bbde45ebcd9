#include "ui/main/frmmain.h"

#include <QApplication>
#include <QKeyEvent>
#include <QTabBar>
#include <QTabWidget>
#include <QWheelEvent>

#include <algorithm>

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

    const bool shortcuts = options_.Shortcuts && modifiers == Qt::ControlModifier &&
                           Tab(shownTab_) == Tab::Eq && frmtabs_[int(Tab::Eq)]->isEnabled();
    return shortcuts && RunShortcut(key, repeat);
}

/// The Ctrl shortcuts of the equaliser tab; false for a key that is none.
bool FrmMain::RunShortcut(int key, bool repeat)
{
    constexpr std::array<int, ChannelCount> ChannelKeys{Qt::Key_L, Qt::Key_P, Qt::Key_C,
                                                        Qt::Key_Q, Qt::Key_R, Qt::Key_E};
    const auto channel = std::ranges::find(ChannelKeys, key);
    const bool ofChannel = channel != ChannelKeys.end();
    if (!ofChannel && key != Qt::Key_M && key != Qt::Key_7 && key != Qt::Key_G)
        return false;
    if (repeat)
        return true;
    if (link_.InCall())
        return false;
    // A level still being typed belongs to what was shown when it was begun. Sending it may lose the link.
    if (!entries_.CommitEntry() || !frmtabs_[int(Tab::Eq)]->isEnabled())
        return true;
    if (ofChannel)
        equaliser_->cmdEQChan_Click(int(channel - ChannelKeys.begin()));
    else if (key == Qt::Key_M)
        mute_->cmdMute_Click();
    else if (key == Qt::Key_7)
        masterFader_->cmdSet7_Click();
    else
        equaliser_->cmdPink_Click();
    return true;
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
