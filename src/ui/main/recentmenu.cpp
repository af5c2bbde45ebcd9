#include "ui/main/recentmenu.h"

#include "ui/controls/named.h"
#include "ui/main/messages.h"

#include <QDir>
#include <QFileInfo>

namespace kelvo {

namespace {

constexpr int LongestText = 40; ///< characters of a theatre's name; the menu stays narrower than the window

QString Shortened(const QString &text)
{
    return text.size() <= LongestText ? text : text.first(LongestText - 1) + QChar(0x2026);
}

/// "odeon.zcf - Odeon, screen 3".
QString CaptionOf(const RecentFiles::File &file)
{
    QStringList room;
    if (!file.theater.isEmpty())
        room += Shortened(file.theater);
    if (!file.screen.isEmpty())
        room += QString(messages::RecentScreen).arg(Shortened(file.screen));
    QString caption = QFileInfo(file.path).fileName();
    if (!room.isEmpty())
        caption += " - " + room.join(", ");
    return caption.replace('&', "&&"); // no key of the menu
}

} // namespace

RecentMenu::RecentMenu(Menus &menus, FileCommands &files, const RecentFiles &recent, QWidget *window)
    : QObject(window),
      menus_(menus),
      files_(files),
      recent_(recent)
{
    menus.Tools()->addSeparator();
    mnuRecent_ = Named(menus.Tools()->addMenu("Recent Files"), "mnuRecent");
    Named(mnuRecent_->menuAction(), "mnuRecent");
    mnuRecent_->setToolTipsVisible(true);
    connect(menus.Tools(), &QMenu::aboutToShow, this, &RecentMenu::Fill);
}

void RecentMenu::Fill()
{
    mnuRecent_->clear();
    int index = 0;
    for (const RecentFiles::File &file : recent_.List()) {
        const QByteArray name = IndexedName("mnuRecent", index++).toLatin1();
        menus_
            .Item(mnuRecent_, name.constData(), CaptionOf(file),
                  [this, path = file.path] { files_.OpenChosen(path); })
            ->setToolTip(QDir::toNativeSeparators(file.path));
    }
    mnuRecent_->setEnabled(index > 0);
}

} // namespace kelvo
