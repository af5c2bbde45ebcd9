#include "ui/walk/acts.h"

#include <QAction>
#include <QLabel>
#include <QListWidget>
#include <QMenu>

namespace kelvo {

namespace {

/// Undo, redo and recall leave fader, mute and format alone; a level that is half typed is taken first.
void KeepingLive(Walker &walker, const std::function<void()> &act)
{
    const bool halfTyped = walker.HalfTyped();
    const RoomSettings before = walker.Holds().Room();
    act();
    const RoomSettings &after = walker.Holds().Room();
    if (!halfTyped && (after.FaderLevel != before.FaderLevel || after.MuteState != before.MuteState ||
                       after.CurrentFormat != before.CurrentFormat))
        walker.Wrong("a live value went with it");
}

void PressAnywhere(Walker &walker, int key, Qt::KeyboardModifiers modifiers = {})
{
    if (walker.Chance(4))
        walker.Activate(walker.Console().window.get());
    walker.Console().Key(key, modifiers);
}

void UndoOrRedo(Walker &walker, const char *item, int key)
{
    KeepingLive(walker, [&] {
        if (walker.Chance(2))
            walker.Choose(item);
        else
            PressAnywhere(walker, key, Qt::ControlModifier);
    });
}

void Undo(Walker &walker)
{
    UndoOrRedo(walker, "mnuUndo", Qt::Key_Z);
}

void Redo(Walker &walker)
{
    UndoOrRedo(walker, "mnuRedo", Qt::Key_Y);
}

void OpenHistory(Walker &walker)
{
    walker.Choose("mnuHistory");
}

void GoInHistory(Walker &walker)
{
    const QDialog *frmHistory = walker.Open("frmHistory");
    if (!frmHistory)
        return;
    const auto *list = frmHistory->findChild<QListWidget *>("lstHistory");
    const bool halfTyped = walker.HalfTyped();
    bool clicked = false;
    KeepingLive(walker, [&] { clicked = walker.ClickRow(walker.Number(list->count())); });
    // A bad value that the press itself has told of takes the click.
    if (clicked && !halfTyped && list->isVisible() &&
        list->currentRow() != int(walker.Console().window->Edits().Steps().Done()))
        walker.Wrong("the history stands at a row that is not reached");
}

void KeepSlot(Walker &walker)
{
    const int slot = walker.Number(SlotCount);
    walker.Kept().SlotMayBeKept(slot);
    if (walker.Chance(2))
        walker.Choose(qPrintable(Member("mnuKeep", slot)));
    else
        PressAnywhere(walker, Qt::Key_F5 + slot, Qt::ShiftModifier);
}

void Recall(Walker &walker)
{
    const int slot = walker.Number(SlotCount);
    KeepingLive(walker, [&] {
        if (walker.Chance(2))
            walker.Choose(qPrintable(Member("mnuRecall", slot)));
        else
            PressAnywhere(walker, Qt::Key_F5 + slot);
    });
}

void Kill(Walker &walker)
{
    walker.Kill();
}

void BringBack(Walker &walker)
{
    const qsizetype offers = OffersOf(walker.Console()).size();
    if (offers == 0)
        return;
    ++walker.places["brought back"];
    const QMenu *menu = walker.Console().Action("mnuRecover")->menu();
    KeepingLive(walker, [&] {
        if (!menu)
            walker.Choose("mnuRecover");
        else if (walker.Console().window->isEnabled())
            menu->actions()[walker.Number(int(offers))]->trigger();
    });
}

void ClickSent(Walker &walker)
{
    if (walker.Console().window->isEnabled())
        walker.Click(walker.Console().Find<QLabel>("lblSent"));
}

constexpr std::array Acts{
    Act{"undo", 30, Undo},
    Act{"redo", 20, Redo},
    Act{"History", 4, OpenHistory},
    Act{"click a row of the history", 10, GoInHistory},
    Act{"keep a slot", 8, KeepSlot},
    Act{"recall a slot", 16, Recall},
    Act{"the console is killed", 1, Kill},
    Act{"bring back", 3, BringBack},
    Act{"click the line under the lamp", 4, ClickSent},
};

} // namespace

std::span<const Act> EditActs()
{
    return Acts;
}

} // namespace kelvo
