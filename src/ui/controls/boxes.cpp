#include "ui/controls/boxes.h"

namespace kelvo {

namespace {

QMessageBox::StandardButton Show(QWidget *parent, const Message &message, const QStringList &arguments,
                                 QMessageBox::StandardButtons buttons, QMessageBox::StandardButton escape)
{
    QString text = QString::fromUtf8(message.text);
    for (const QString &argument : arguments)
        text = text.arg(argument);
    QMessageBox box(message.icon, QString::fromUtf8(message.title), text, buttons, parent);
    box.setTextFormat(Qt::PlainText);
    box.setEscapeButton(escape);
    const int answer = box.exec();
    // Where no window manager gives the focus back, the window that asked would stay deaf to keys.
    if (parent && parent->isVisible())
        parent->window()->activateWindow();
    return QMessageBox::StandardButton(answer);
}

} // namespace

void Tell(QWidget *parent, const Message &message, const QStringList &arguments)
{
    Show(parent, message, arguments, QMessageBox::Ok, QMessageBox::Ok);
}

bool Ask(QWidget *parent, const Message &message, const QStringList &arguments)
{
    return Show(parent, message, arguments, QMessageBox::Yes | QMessageBox::No, QMessageBox::No) ==
           QMessageBox::Yes;
}

Answer AskOrCancel(QWidget *parent, const Message &message, const QStringList &arguments)
{
    const auto button = Show(parent, message, arguments,
                             QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel, QMessageBox::Cancel);
    if (button == QMessageBox::Yes)
        return Answer::Yes;
    return button == QMessageBox::No ? Answer::No : Answer::Cancel;
}

} // namespace kelvo
