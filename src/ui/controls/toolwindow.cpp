#include "ui/controls/toolwindow.h"

#include "ui/controls/named.h"

#include <QHideEvent>
#include <QSettings>

namespace kelvo {

namespace {

QString KeyOf(const QWidget &window)
{
    return "windows/" + window.objectName();
}

} // namespace

ToolWindow::ToolWindow(const char *name, const QString &title, QSize usual, QSettings &memory,
                       QWidget *parent)
    : QDialog(parent, Qt::Window),
      memory_(memory)
{
    Named(this, name);
    setWindowTitle(title);
    // What cannot be read, or would stand off the screen, the toolkit leaves alone.
    if (!restoreGeometry(memory_.value(KeyOf(*this)).toByteArray()))
        resize(usual);
}

void ToolWindow::BringUp()
{
    show();
    raise();
    activateWindow();
}

void ToolWindow::hideEvent(QHideEvent *event)
{
    // A minimised window is hidden by the desktop and has nothing new to remember.
    if (!event->spontaneous())
        memory_.setValue(KeyOf(*this), saveGeometry());
    QDialog::hideEvent(event);
}

} // namespace kelvo
