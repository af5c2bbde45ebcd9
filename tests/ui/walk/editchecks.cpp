#include "ui/walk/checks.h"

#include <QAction>
#include <QLabel>
#include <QListWidget>

namespace kelvo {

namespace {

/// The menu names the steps that undo and redo go over.
QString WrongUndo(const Walker &walker)
{
    const History &history = walker.Console().window->Edits().Steps();
    for (const auto &[name, verb, step] :
         {std::tuple("mnuUndo", "Undo", history.Last()), std::tuple("mnuRedo", "Redo", history.Next())}) {
        const QAction *item = walker.Console().Action(name);
        const QString text =
            step ? QString("%1 %2").arg(verb, QString::fromStdString(step->name).replace('&', "&&")) : verb;
        if (item->text() != text || item->isEnabled() != (step != nullptr))
            return QString("%1 reads \"%2\", not \"%3\"").arg(name, item->text(), text);
    }
    return {};
}

/// The open window lists every step; those that were undone are grey.
QString WrongHistory(const Walker &walker)
{
    const QDialog *frmHistory = walker.Open("frmHistory");
    if (!frmHistory)
        return {};
    const auto *list = frmHistory->findChild<QListWidget *>("lstHistory");
    const History &history = walker.Console().window->Edits().Steps();
    if (list->count() != int(history.Steps().size()) + 1)
        return QString("%1 rows").arg(list->count());
    const QColor grey = list->palette().color(QPalette::Disabled, QPalette::Text);
    for (int row = 1; row < list->count(); ++row)
        if ((list->item(row)->foreground().color() == grey) != (row > int(history.Done())) ||
            !list->item(row)->text().endsWith(
                QString::fromStdString(history.Steps()[std::size_t(row - 1)].name)))
            return "another step in row " + QString::number(row);
    return {};
}

/// The slots whose settings are all on the screen.
QString WrongSlots(const Walker &walker)
{
    const Truth holds = walker.Holds();
    QStringList equal;
    for (int slot = 0; slot < SlotCount; ++slot) {
        const RoomSettings *kept = walker.Kept().Slot(slot);
        if (kept && DifferentSettings(kept->Audio, holds.Audio()) == 0 &&
            DifferentSettings(kept->System, holds.System()) == 0)
            equal += QString("ABCD"[slot]);
        if (walker.Console().Action(qPrintable(Member("mnuRecall", slot)))->isEnabled() != (kept != nullptr))
            return QString("slot %1 is offered otherwise").arg(slot);
    }
    const QString shown = walker.Console().Find<QLabel>("lblSlot")->text();
    const QString truth = equal.isEmpty() ? "" : "Slot " + equal.join(", ");
    return shown == truth ? "" : QString("lblSlot reads \"%1\", not \"%2\"").arg(shown, truth);
}

QString WrongJournals(const Walker &walker)
{
    return walker.Kept().WrongJournals(walker.Console());
}

constexpr std::array Checks{
    Check{"undo", WrongUndo},
    Check{"history", WrongHistory},
    Check{"slots", WrongSlots},
    Check{"journals", WrongJournals},
};

} // namespace

std::span<const Check> EditChecks()
{
    return Checks;
}

} // namespace kelvo
