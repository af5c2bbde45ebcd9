#pragma once

#include "support/ui/consoleundertest.h"
#include "ui/walk/trail.h"

#include <set>

namespace kelvo {

class Witness;

/// What a run keeps beside its room, and what it leaves: history, slots and journals, followed from act to
/// act without the console's own bookkeeping.
class Ledger {
  public:
    explicit Ledger(QString journals) : journals_(std::move(journals)) {}

    /// A console has started. "" = it offers what was left, and nothing else.
    QString Begin(const ConsoleUnderTest &console);
    /// The console has gone, after a close or as if killed.
    QString End(const ConsoleUnderTest &console, bool killed);

    // What the act under way may do.
    void FileMayCome() { between_.file = true; }
    void ConnectionMayCome() { between_.connected = !unitSeen_; }
    void SlotMayBeKept(int slot) { keeping_ = slot; }
    /// The unit is being read again, and the console has nothing else to do.
    QString Reread(const ConsoleUnderTest &console, const Witness &unit, const std::function<void()> &tick);
    /// After each act.
    QString Look(const ConsoleUnderTest &console, const RoomSettings *read = nullptr);

    /// Hands off: what is wrong with the journals? "" = nothing.
    QString WrongJournals(const ConsoleUnderTest &console) const;
    const RoomSettings *Slot(int slot) const { return kept_.Kept(slot); }
    bool Touched() const { return trail_.Touched(); }
    /// A step may have come and gone with its room in one act.
    bool MayBeTouched() const { return mayBeTouched_; }
    const RoomSettings *Start() const { return trail_.Start(); }

  private:
    QString LookAtOffers(const ConsoleUnderTest &console);
    QString LookAtSlots(const ConsoleUnderTest &console);
    void TakeInLeft();
    void FollowTaken(const History &history);
    std::set<QString> Files() const;

    QString journals_; ///< their folder
    Trail trail_;
    Trail::Between between_;
    Slots kept_;
    int keeping_ = -1;
    bool unitSeen_ = false; ///< in this run
    bool mayBeTouched_ = false;
    std::map<QString, LeftBehind> left_; ///< by earlier runs, and by an Open without a question; by file
    QStringList offers_;
    /// Of those, which step took each, and whether that is still in effect: else it is kept for another
    /// start.
    std::map<QString, std::pair<std::size_t, bool>> taken_;
    std::size_t newest_ = 0; ///< of the steps at the last look
};

/// What the menu offers to bring back, newest first.
QStringList OffersOf(const ConsoleUnderTest &console);

} // namespace kelvo
