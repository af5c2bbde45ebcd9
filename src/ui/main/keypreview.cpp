#include "ui/main/keypreview.h"

#include "ui/controls/levelfield.h"
#include "ui/controls/toolwindow.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QTabBar>
#include <QWheelEvent>

#include <algorithm>

namespace kelvo {

KeyPreview::KeyPreview(UnitLink &link, EntryWindow &entries, const Preferences &options, const Panels &panels,
                       TabPages &tabs, QWidget *window)
    : link_(link),
      entries_(entries),
      options_(options),
      panels_(panels),
      tabs_(tabs),
      window_(window)
{
    qApp->installEventFilter(this);
}

KeyPreview::~KeyPreview()
{
    qApp->removeEventFilter(this);
}

bool KeyPreview::eventFilter(QObject *watched, QEvent *event)
{
    const QEvent::Type type = event->type();
    if (type == QEvent::ShortcutOverride)
        return KeepForText(watched, static_cast<QKeyEvent *>(event));
    if (type != QEvent::KeyPress && type != QEvent::Wheel)
        return false;
    auto *receiver = qobject_cast<QWidget *>(watched);
    if (!receiver || !window_->isEnabled() || QApplication::activeModalWidget())
        return false;
    // A window that is open beside the main one does not take the unit's own keys away.
    if (receiver->window() != window_)
        return type == QEvent::KeyPress && qobject_cast<ToolWindow *>(receiver->window()) &&
               PreviewUnitKey(*static_cast<QKeyEvent *>(event));
    if (type == QEvent::Wheel)
        return PreviewWheel(receiver, static_cast<QWheelEvent *>(event)->angleDelta().y());
    return PreviewKey(receiver, *static_cast<QKeyEvent *>(event));
}

/// Redo belongs to a text with the focus as undo does, which the toolkit sees to. Level fields know
/// themselves.
bool KeyPreview::KeepForText(QObject *receiver, QKeyEvent *key)
{
    const auto *text = qobject_cast<QLineEdit *>(receiver);
    const bool ofText = text && !text->isReadOnly() && !qobject_cast<LevelField *>(receiver) &&
                        key->key() == Qt::Key_Y && key->modifiers() == Qt::ControlModifier;
    if (ofText)
        key->accept();
    return ofText;
}

bool KeyPreview::PreviewWheel(QWidget *receiver, int angle)
{
    // A wheel over the headings would change the tab, which asks and sends.
    if (receiver == tabs_.tabBar())
        return true;
    // Off line the help page is disabled, and yet it is to be read.
    QWidget *page = tabs_.Page(Tab::Help);
    if (page->isEnabled() || !page->isAncestorOf(receiver))
        return false;
    panels_.help->ScrollByWheel(angle);
    return true;
}

/// F1, F2 and F4; false for any other.
bool KeyPreview::PreviewUnitKey(const QKeyEvent &key)
{
    const Qt::KeyboardModifiers modifiers = key.modifiers() & ~Qt::KeypadModifier;
    const bool connect = key.key() == Qt::Key_F1 && !(modifiers & Qt::ShiftModifier); // with it, the guide's
    const bool upload = key.key() == Qt::Key_F2;
    if (connect || upload) {
        // Connect does nothing on line, so it is asked first and takes what is typed itself.
        if (key.isAutoRepeat() || link_.InCall() || (upload && !entries_.CommitEntry()))
            return true;
        if (connect)
            emit ConnectPressed();
        else
            link_.UploadToUnit(UploadSelector::Both, UploadTrigger::Explicit);
        return true;
    }
    if (key.key() != Qt::Key_F4 || modifiers != Qt::NoModifier)
        return false;
    // The mute of a running stream restarts it, so its button is disabled as well.
    if (!key.isAutoRepeat() && link_.UnitOnline() && !link_.InCall() && !panels_.optical->Stream().Running())
        panels_.mute->cmdMute_Click();
    return true;
}

bool KeyPreview::PreviewKey(QWidget *receiver, const QKeyEvent &event)
{
    if (PreviewUnitKey(event))
        return true;
    const int key = event.key();
    const Qt::KeyboardModifiers modifiers = event.modifiers() & ~Qt::KeypadModifier;
    if (tabs_.Shown() == Tab::Help)
        return PreviewHelpKey(receiver, key, modifiers);
    return options_.Shortcuts && modifiers == Qt::ControlModifier && tabs_.Shown() == Tab::Eq &&
           tabs_.Page(Tab::Eq)->isEnabled() && RunShortcut(key, event.isAutoRepeat());
}

/// False for a key that is no shortcut.
bool KeyPreview::RunShortcut(int key, bool repeat)
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
    if (!entries_.CommitEntry() || !tabs_.Page(Tab::Eq)->isEnabled())
        return true;
    if (ofChannel)
        panels_.equaliser->cmdEQChan_Click(int(channel - ChannelKeys.begin()));
    else if (key == Qt::Key_M)
        panels_.mute->cmdMute_Click();
    else if (key == Qt::Key_7)
        panels_.fader->cmdSet7_Click();
    else
        panels_.equaliser->cmdPink_Click();
    return true;
}

bool KeyPreview::PreviewHelpKey(QWidget *receiver, int key, Qt::KeyboardModifiers modifiers)
{
    if (key == Qt::Key_F && modifiers == Qt::ControlModifier) {
        panels_.help->OpenSearch();
        return true;
    }
    // Nobody else's key: the strip has the focus when the tab is new, the window gets what others leave over.
    const bool free = receiver == tabs_.tabBar() || receiver == window_;
    return free && modifiers == Qt::NoModifier && panels_.help->ScrollByKey(key);
}

} // namespace kelvo
