#include "ui/main/editmenu.h"

#include "ui/compare/frmhistory.h"
#include "ui/controls/named.h"
#include "ui/main/messages.h"

namespace kelvo {

namespace {

/// A step's name in a menu, where "&" would underline.
QString InMenu(QString name)
{
    return name.replace('&', "&&");
}

} // namespace

EditMenu::EditMenu(Menus &menus, const Desk &desk, QWidget *window)
    : QObject(window),
      menus_(menus),
      desk_(desk),
      window_(window),
      offers_(new QMenu(window))
{
    mnuUndo_ = Item("mnuUndo", -1, messages::Undo, Qt::CTRL | Qt::Key_Z, [this] { desk_.editor.Undo(); });
    mnuRedo_ = Item("mnuRedo", -1, messages::Redo, Qt::CTRL | Qt::Key_Y, [this] { desk_.editor.Redo(); });
    menus.Item(menus.Edit(), "mnuHistory", messages::History, [this] { mnuHistory_Click(); });
    menus.Edit()->addSeparator();
    for (int slot = 0; slot < SlotCount; ++slot) {
        const QString caption = QString(messages::Recall).arg(Slots::NameOf(slot));
        mnuRecall_[slot] = Item("mnuRecall", slot, caption, Qt::Key(Qt::Key_F5 + slot),
                                [this, slot] { desk_.editor.Recall(slot); });
    }
    menus.Edit()->addSeparator();
    for (int slot = 0; slot < SlotCount; ++slot)
        Item("mnuKeep", slot, QString(messages::KeepAs).arg(Slots::NameOf(slot)),
             Qt::SHIFT | Qt::Key(Qt::Key_F5 + slot), [this, slot] { desk_.editor.KeepSlot(slot); });
    menus.Edit()->addSeparator();
    mnuRecover_ = menus.Item(menus.Edit(), "mnuRecover", messages::BringBack, [this] { mnuRecover_Click(); });
    Reflect();
}

QAction *EditMenu::Item(const char *name, int index, const QString &caption, const QKeySequence &key,
                        const std::function<void()> &handler)
{
    QAction *action = menus_.Item(menus_.Edit(), name, caption, [this, handler] {
        if (desk_.entries.CommitEntry())
            handler();
    });
    if (index >= 0)
        Named(action, name, index);
    action->setShortcut(key);
    action->setShortcutContext(Qt::ApplicationShortcut);
    action->setAutoRepeat(false); // a slow unit would go on long after the key is up
    return action;
}

void EditMenu::Reflect()
{
    const auto reflect = [](QAction *action, const char *verb, const Step *step) {
        action->setEnabled(step);
        action->setText(step ? verb + QString(" ") + InMenu(QString::fromStdString(step->name))
                             : QString(verb));
    };
    const History &history = desk_.editor.Steps();
    reflect(mnuUndo_, messages::Undo, history.Last());
    reflect(mnuRedo_, messages::Redo, history.Next());
    for (int slot = 0; slot < SlotCount; ++slot)
        mnuRecall_[slot]->setEnabled(desk_.editor.Kept().Kept(slot));
    ReflectRecover();
    if (auto *frmHistory = window_->findChild<FrmHistory *>())
        frmHistory->Follow();
}

/// One offer is taken at once, several stand in a menu of their own.
void EditMenu::ReflectRecover()
{
    const QStringList offers = desk_.recovery.Offers();
    if (offers == shownOffers_ && !offers.isEmpty())
        return;
    shownOffers_ = offers;
    offers_->clear();
    for (int which = 0; which < offers.size(); ++which)
        menus_.Item(offers_, "mnuOffer", offers[which], [this, which] { mnuRecover_Click(which); });
    mnuRecover_->setEnabled(!offers.isEmpty());
    mnuRecover_->setText(offers.size() == 1 ? offers.first() : QString(messages::BringBack));
    mnuRecover_->setMenu(offers.size() > 1 ? offers_ : nullptr);
}

void EditMenu::mnuRecover_Click(int which)
{
    if (desk_.entries.CommitEntry())
        desk_.recovery.Take(which);
}

void EditMenu::mnuHistory_Click()
{
    // Made when it is first wanted: the start need not wait for it.
    auto *frmHistory = window_->findChild<FrmHistory *>();
    if (!frmHistory)
        frmHistory = new FrmHistory(desk_.editor, desk_.entries, desk_.clock, desk_.memory, window_);
    frmHistory->BringUp();
    frmHistory->Follow();
}

} // namespace kelvo
