#include "ui/walk/ledger.h"

#include "ui/walk/witness.h"

#include <QAction>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QMenu>

#include <algorithm>

namespace kelvo {

namespace {

LeftBehind ReadLeft(const QString &path)
{
    QFile file(path);
    const bool open = file.open(QFile::ReadOnly);
    return (open ? ReadJournal(file.readAll().toStdString()) : std::nullopt).value_or(LeftBehind{});
}

/// The settings of both slots' records; a slot keeps no texts.
bool SameSlot(const RoomSettings *one, const RoomSettings *other)
{
    if (!one || !other)
        return one == other;
    RoomSettings room = *one;
    room.TheaterInfo = other->TheaterInfo;
    return Differing(room, *other).none();
}

bool AnySlot(const Slots &kept)
{
    for (int slot = 0; slot < SlotCount; ++slot)
        if (kept.Kept(slot))
            return true;
    return false;
}

bool SeesUnit(const ConsoleUnderTest &console)
{
    return console.Find<QLabel>("lblStat")->text() != "Off Line";
}

QString OfferOf(const LeftBehind &left)
{
    if (left.done == 0)
        return "Bring back the slots of";
    return left.done == 1 ? QString("Bring back 1 change of")
                          : QString("Bring back %1 changes of").arg(left.done);
}

/// How many are called so. Midnight gives an offer another time, never another number.
qsizetype CountOf(const LeftBehind &left, const QStringList &offers)
{
    return std::ranges::count_if(offers,
                                 [&left](const QString &offer) { return offer.startsWith(OfferOf(left)); });
}

/// What the room must be after a re-read: what nobody has edited is what it is in the unit now, the rest
/// stands.
RoomSettings AfterReread(const RoomSettings &room, const Witness &before, const Witness &after)
{
    RoomSettings expected = room;
    if (!before.agreedAudio || !before.agreedSystem || !after.audio || !after.system)
        return expected;
    RoomSettings agreed = room, told = room;
    agreed.Audio = *before.agreedAudio;
    agreed.System = *before.agreedSystem;
    told.Audio = *after.audio;
    told.System = *after.system;
    ForEachField([&](FieldId id, const Field &field) {
        const bool inRecord = field.place == Place::Audio || field.place == Place::System;
        if (inRecord && Get(room, id) == Get(agreed, id))
            Set(expected, id, Get(told, id));
    });
    return expected;
}

} // namespace

QStringList OffersOf(const ConsoleUnderTest &console)
{
    const QAction *item = console.Action("mnuRecover");
    QStringList offers;
    if (!item->menu())
        return item->text() == "Bring Back ..." ? offers : QStringList(item->text());
    for (const QAction *offer : item->menu()->actions())
        offers += offer->text();
    return offers;
}

std::set<QString> Ledger::Files() const
{
    const QStringList names = QDir(journals_).entryList({"*.journal"});
    return {names.begin(), names.end()};
}

QString Ledger::Begin(const ConsoleUnderTest &console)
{
    trail_.Begin(console.room);
    between_ = {};
    kept_ = {};
    keeping_ = -1;
    taken_.clear();
    unitSeen_ = SeesUnit(console);
    mayBeTouched_ = false;
    newest_ = 0;
    left_.clear();
    QStringList expected;
    for (const QString &name : Files()) {
        const LeftBehind left = ReadLeft(QDir(journals_).filePath(name));
        left_.emplace(name, left);
        expected += OfferOf(left);
    }
    QStringList offered;
    for (const QString &offer : OffersOf(console))
        offered += offer.section(" of ", 0, 0) + " of";
    offers_ = OffersOf(console);
    expected.sort();
    offered.sort();
    return offered == expected ? "" : "offered is " + offered.join(", ") + ", not " + expected.join(", ");
}

QString Ledger::End(const ConsoleUnderTest &console, bool killed)
{
    FollowTaken(console.window->Edits().Steps());
    if (!killed && between_.file)
        TakeInLeft(); // the exit came in the same act
    std::set<QString> files = Files();
    for (const auto &[name, left] : left_)
        if ((files.erase(name) == 0) != (!killed && taken_.contains(name) && taken_.at(name).second))
            return QString("an exit %1 %2, taken %3, in effect %4")
                .arg(Files().contains(name) ? "left" : "took", name)
                .arg(taken_.contains(name) ? int(taken_.at(name).first) : -1)
                .arg(taken_.contains(name) && taken_.at(name).second);
    if (!killed)
        return files.empty() ? "" : "an exit left its journal";
    const std::size_t done = console.window->Edits().Steps().DoneInAll();
    if (files.empty())
        return done == 0 && !AnySlot(kept_) ? "" : "a killed run left no journal";
    if (files.size() > 1)
        return "a run has written more than one journal";
    const LeftBehind left = ReadLeft(QDir(journals_).filePath(*files.begin()));
    if (left.done != done)
        return QString("%1 steps in the journal of %2").arg(left.done).arg(done);
    if (done > 0 && Differing(left.room, console.room).any())
        return "the journal tells another room than the screen showed";
    for (int slot = 0; slot < SlotCount; ++slot)
        if (!SameSlot(left.slotsKept.Kept(slot), kept_.Kept(slot)))
            return "the journal tells another slot";
    return {};
}

QString Ledger::Reread(const ConsoleUnderTest &console, const Witness &unit,
                       const std::function<void()> &tick)
{
    if (const QString wrong = Look(console); !wrong.isEmpty())
        return wrong;
    const Witness before = unit;
    const RoomSettings room = console.room;
    tick();
    const bool read = unit.callsOf != before.callsOf && console.window->isVisible();
    const RoomSettings expected = AfterReread(room, before, unit);
    return read ? Look(console, &expected) : QString();
}

QString Ledger::Look(const ConsoleUnderTest &console, const RoomSettings *read)
{
    between_.read = read;
    unitSeen_ = unitSeen_ || SeesUnit(console);
    mayBeTouched_ = mayBeTouched_ || between_.file;
    FollowTaken(console.window->Edits().Steps());
    QString wrong = trail_.Look(console.room, console.window->Edits().Steps(), between_);
    if (wrong.isEmpty())
        wrong = LookAtOffers(console);
    if (wrong.isEmpty())
        wrong = LookAtSlots(console);
    between_ = {};
    keeping_ = -1;
    newest_ = trail_.Newest();
    return wrong;
}

/// An offer that is gone was taken: room and slots are the ones that it promised.
QString Ledger::LookAtOffers(const ConsoleUnderTest &console)
{
    const std::size_t known = left_.size();
    if (between_.file)
        TakeInLeft();
    const QStringList offers = OffersOf(console);
    const QStringList before = std::exchange(offers_, offers);
    if (offers.size() == before.size() + qsizetype(left_.size() - known))
        return {};
    const auto isTaken = [&](const auto &left) {
        const LeftBehind &found = left.second;
        // Of two that are alike the one that was taken is in the console's hand.
        bool same = CountOf(found, before) > CountOf(found, offers) && !taken_.contains(left.first) &&
                    (found.done == 0 || Differing(found.room, console.room).none()) &&
                    !IsAbandoned(QDir(journals_).filePath(left.first).toStdString());
        for (int slot = 0; slot < SlotCount; ++slot) {
            const RoomSettings *back = found.slotsKept.Kept(slot);
            same =
                same && SameSlot(back ? back : kept_.Kept(slot), console.window->Edits().Kept().Kept(slot));
        }
        return same;
    };
    const auto found = std::ranges::find_if(left_, isTaken);
    if (offers.size() != before.size() - 1 || found == left_.end())
        return "what was brought back is not what was left";
    // Where nothing differed there was no step that could be undone.
    const Step *last = console.window->Edits().Steps().Last();
    const bool made = last && last->number > newest_ && last->name.starts_with("Bring back");
    taken_[found->first] = {made ? last->number : 0, true};
    for (int slot = 0; slot < SlotCount; ++slot)
        if (const RoomSettings *room = found->second.slotsKept.Kept(slot))
            kept_.Keep(slot, *room);
    return {};
}

/// Edits of a room that is in no file give way to an opened one without a question.
void Ledger::TakeInLeft()
{
    for (const QString &name : Files()) {
        const QString path = QDir(journals_).filePath(name);
        if (!left_.contains(name) && IsAbandoned(path.toStdString()))
            left_.emplace(name, ReadLeft(path));
    }
}

void Ledger::FollowTaken(const History &history)
{
    for (auto &[name, taken] : taken_)
        for (std::size_t at = 0; at < history.Steps().size(); ++at)
            if (history.Steps()[at].number == taken.first)
                taken.second = at < history.Done();
}

QString Ledger::LookAtSlots(const ConsoleUnderTest &console)
{
    const Slots &kept = console.window->Edits().Kept();
    if (keeping_ >= 0 && SameSlot(kept.Kept(keeping_), &console.room))
        kept_.Keep(keeping_, console.room);
    for (int slot = 0; slot < SlotCount; ++slot)
        if (!SameSlot(kept.Kept(slot), kept_.Kept(slot)))
            return QString("slot %1 holds something else").arg(Slots::NameOf(slot));
    return {};
}

QString Ledger::WrongJournals(const ConsoleUnderTest &console) const
{
    std::set<QString> files = Files();
    for (const auto &[name, left] : left_)
        if (files.erase(name) == 0)
            return "a journal has gone before its exit";
    const bool needed = !console.window->Edits().Steps().Steps().empty() || AnySlot(kept_);
    if (files.size() > 1 || (needed && files.empty()))
        return QString("%1 journals").arg(files.size());
    return {};
}

} // namespace kelvo
