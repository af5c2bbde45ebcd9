#include "ui/main/droptarget.h"

#include <QDropEvent>
#include <QMimeData>
#include <QUrl>
#include <QWidget>

namespace kelvo {

namespace {

/// The one file that is being dragged; "" when it is none, or more than one.
QString OneLocalFile(const QMimeData &data)
{
    const QList<QUrl> urls = data.urls();
    return urls.size() == 1 && urls.constFirst().isLocalFile() ? urls.constFirst().toLocalFile() : QString();
}

} // namespace

DropTarget::DropTarget(std::function<bool()> mayOpen, QWidget *window)
    : QObject(window),
      mayOpen_(std::move(mayOpen)),
      window_(window)
{
    window->setAcceptDrops(true);
    window->installEventFilter(this);
}

bool DropTarget::eventFilter(QObject *, QEvent *event)
{
    const QEvent::Type type = event->type();
    if (type != QEvent::DragEnter && type != QEvent::DragMove && type != QEvent::Drop)
        return false;
    auto *drop = static_cast<QDropEvent *>(event);
    const QString path = OneLocalFile(*drop->mimeData());
    // The file stays where it is, whatever the hand that drags it asks for.
    drop->setDropAction(Qt::CopyAction);
    drop->setAccepted(!path.isEmpty() && mayOpen_());
    if (type == QEvent::Drop && drop->isAccepted())
        Take(path);
    return true;
}

void DropTarget::Take(const QString &path)
{
    // Later, from the event loop: the program that the file comes from waits until the drop is over.
    QMetaObject::invokeMethod(
        this,
        [this, path] {
            if (mayOpen_())
                emit Dropped(path);
        },
        Qt::QueuedConnection);
}

} // namespace kelvo
