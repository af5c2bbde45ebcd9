#include "ui/controls/boxes.h"

namespace kelvo {

namespace {

QMessageBox::StandardButton Show(QWidget *parent, const Message &message, const QStringList &arguments,
                                 QMessageBox::StandardButtons buttons, QMessageBox::StandardButton enter,
                                 QMessageBox::StandardButton escape)
{
    // At once, so that a per cent sign in a file's name is not taken for a place of its own.
    QString text = QString::fromUtf8(message.text);
    if (arguments.size() == 1)
        text = text.arg(arguments[0]);
    else if (arguments.size() == 2)
        text = text.arg(arguments[0], arguments[1]);
    QMessageBox box(message.icon, QString::fromUtf8(message.title), text, buttons, parent);
    box.setTextFormat(Qt::PlainText);
    box.setDefaultButton(enter);
    box.setEscapeButton(escape);
    const int answer = box.exec();
    // Where no window manager gives the focus back, the window that asked would stay deaf to keys.
    if (parent && parent->isVisible() && parent->window()->isEnabled())
        parent->window()->activateWindow();
    return QMessageBox::StandardButton(answer);
}

} // namespace

void Tell(QWidget *parent, const Message &message, const QStringList &arguments)
{
    Show(parent, message, arguments, QMessageBox::Ok, QMessageBox::Ok, QMessageBox::Ok);
}

bool Ask(QWidget *parent, const Message &message, const QStringList &arguments)
{
    return Show(parent, message, arguments, QMessageBox::Yes | QMessageBox::No, message.enter,
                QMessageBox::No) == QMessageBox::Yes;
}

Answer AskOrCancel(QWidget *parent, const Message &message, const QStringList &arguments)
{
    const auto button =
        Show(parent, message, arguments, QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel,
             message.enter, QMessageBox::Cancel);
    if (button == QMessageBox::Yes)
        return Answer::Yes;
    return button == QMessageBox::No ? Answer::No : Answer::Cancel;
}

} // namespace kelvo
