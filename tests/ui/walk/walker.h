#pragma once

#include "ui/controls/levelfield.h"
#include "ui/walk/ledger.h"
#include "ui/walk/truth.h"
#include "ui/walk/witness.h"

#include <QPointer>
#include <QTemporaryDir>

#include <map>
#include <optional>
#include <random>

class QFileDialog;

namespace kelvo {

/// A user who does anything at any moment, with the unit, its cable and its front panel. Time passes for the
/// console only when the walker lets a timer tick, so that a seed always gives the same walk.
class Walker : public QObject {
    Q_OBJECT

  public:
    explicit Walker(unsigned seed);
    ~Walker() override;

    SimulatedUnit unit;
    Witness witness;
    std::map<QString, int> places; ///< where the walk has been, and how often
    int heldKey = 0;
    bool patient = false; ///< does nothing else while a box is open
    QPointer<LevelSlider> dragged;

    ConsoleUnderTest &Console() { return *console_; }
    const ConsoleUnderTest &Console() const { return *console_; }
    Ledger &Kept() { return ledger_; }
    const Ledger &Kept() const { return ledger_; }
    Truth Holds() const { return Truth(*console_); }

    // Chance.
    int Number(int count) { return std::uniform_int_distribution<int>(0, count - 1)(random_); }
    bool Chance(int in) { return Number(in) == 0; }
    template <typename Items>
    auto Pick(const Items &items)
    {
        return *std::next(std::begin(items), Number(int(std::size(items))));
    }
    template <typename Item>
    Item Pick(std::initializer_list<Item> items)
    {
        return *std::next(items.begin(), Number(int(items.size())));
    }

    // What can be seen.
    bool OnLine() const;
    bool Streaming() const;
    QString State() const; ///< all that in words
    Tab ShownTab() const;
    /// Any control of this kind that a hand could reach now in the main window, the fader dialog included.
    template <typename Control>
    Control *AnyUsable()
    {
        return Any<Control>(console_->window.get(),
                            [this](const QWidget *control) { return Reachable(control); });
    }
    template <typename Control>
    Control *AnyUsableIn(QWidget *window)
    {
        return Any<Control>(window, [window](const QWidget *control) { return control->window() == window; });
    }
    /// The dialog with this name when it is open, or null.
    QDialog *Open(const char *dialog) const;

    // What a hand does.
    /// As a click would: the control's window comes first.
    void Focus(QWidget *control);
    void Activate(const QWidget *control);
    void Click(QWidget *control);
    /// Types over the text, and then presses Enter or not.
    void Type(QLineEdit *field, const QString &text, bool enter);
    /// In the open window of the history; false when the row cannot be clicked.
    bool ClickRow(int row);
    /// A menu's command, when it can be chosen now.
    void Choose(const char *action);
    /// Lets go of everything and leaves nothing half typed; answers as `EndAct`.
    QString LetGo();
    /// Asks the window to close; the question that may follow is mostly cancelled. When the window does
    /// close, a new console starts on the same files and the same unit.
    void Close();
    /// As if the process had been killed: the next console starts on the same files and the same unit.
    void Kill();
    /// The file, and others like it, that dialogs choose from.
    QString AnyFile(bool toSave);

    // What happened.
    void BeginAct(const char *name);
    /// What the act did that no act may do; "" = nothing.
    QString EndAct();
    void Wrong(const QString &what);
    /// A level is half typed somewhere.
    bool HalfTyped() const;
    QString LastActs() const { return acts_.join(", "); }
    QString LastCalls() const { return calls_.join(", "); }
    /// False after a call that failed or a lost link, until nothing plays any more: what plays in the unit
    /// may be something else than what the buttons show.
    bool SignalsKnown() const { return signalsKnown_; }
    bool StreamKnown() const { return streamKnown_; }
    /// New shows every test signal off and leaves the unit alone.
    void SignalsAreNew() { signalsKnown_ = false; }
    const QStringList &ClockTexts() const { return clockTexts_; }

  protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

  private:
    template <typename Control, typename Usable>
    Control *Any(QWidget *window, Usable usable)
    {
        std::vector<Control *> found;
        for (Control *control : window->findChildren<Control *>())
            if (control->isVisible() && control->isEnabled() && usable(control))
                found.push_back(control);
        return found.empty() ? nullptr : Pick(found);
    }
    bool Reachable(const QWidget *control) const;

    void Start();
    void StartAgain();
    void Note();
    void NoteClock();
    void NoteWhatPlays();
    bool ShowsSignal() const;
    void WriteFiles();
    void Answer(QDialog *dialog);
    void AnswerBox(QMessageBox *box);
    void AnswerFileDialog(QFileDialog *dialog);
    void AnswerTheater(QDialog *dialog);
    void AnswerTime(QDialog *dialog);
    /// Timers tick and the window is asked to close while a box is open: the unit must not hear of it.
    void Pester();

    std::mt19937 random_;
    QTemporaryDir folder_;
    Ledger ledger_{folder_.filePath("data/journals")};
    std::unique_ptr<ConsoleUnderTest> console_;
    double seconds_ = 0; ///< of the unit's clock
    QStringList acts_;   ///< the newest, oldest first
    QStringList calls_;  ///< of the last act
    QStringList clockTexts_;
    std::map<QString, int> boxes_; ///< of this act, by title
    int mostBadValues_ = 1;        ///< that this act may be told of
    QString wrong_;
    bool leaving_ = false;     ///< a close is meant
    bool signalsKnown_ = true; ///< buttons and unit can be compared
    bool streamKnown_ = true;
};

} // namespace kelvo
