#include "ui/walk/walker.h"

#include "support/samplertf.h"
#include "unit/unitclock.h"

#include <QAction>
#include <QDialog>
#include <QLabel>
#include <QListWidget>
#include <QMenu>
#include <QPushButton>
#include <QTabWidget>
#include <QTimer>

#include <algorithm>

namespace kelvo {

namespace {

constexpr int RememberedActs = 24;
constexpr int RememberedClockTexts = 8;

bool Quiet(const SimulatedUnit::TestSignals &test)
{
    constexpr std::array<bool, ChannelCount> none{};
    return !test.rt60 && test.pink == none && test.inverted == none;
}

} // namespace

Walker::Walker(unsigned seed)
    : unit({.now = [this] { return std::chrono::duration<double>(seconds_ += 0.001); },
            .wait = [this](std::chrono::milliseconds time) { seconds_ += double(time.count()) / 1000; }}),
      random_(seed)
{
    unit.Attach(witness);
    WriteFiles();
    qApp->installEventFilter(this);
    Start();
}

Walker::~Walker()
{
    console_.reset();
    qApp->removeEventFilter(this);
}

void Walker::Start()
{
    const LocalTime now = console_ ? console_->clock.now : ConsoleClock().now;
    console_.reset();
    witness.Forget();
    console_ = std::make_unique<ConsoleUnderTest>(unit, [this, now](ConsoleUnderTest &console) {
        console.clock.now = now;
        console.places.dataFolder = folder_.filePath("data");
        console.places.memoryFile = folder_.filePath("windows.conf");
        console.WithEveryDialog([this](QDialog *dialog) { Answer(dialog); });
        console.places.programDirectory = folder_.path();
        console.places.helpFile = folder_.filePath("guide.rtf");
    });
    console_->window->AddSimulatorMenu(unit);
    ++places["start"];
    signalsKnown_ = streamKnown_ = false;
    heldKey = 0;
    witness.connected = false; // what the start showed is where the ledger begins
    Wrong(ledger_.Begin(*console_));
}

// What can be seen

bool Walker::OnLine() const
{
    return console_->Find<QLabel>("lblStat")->text() != "Off Line";
}

bool Walker::Streaming() const
{
    return console_->Find<QPushButton>("cmdStart")->text() == "Stop";
}

Tab Walker::ShownTab() const
{
    return Tab(console_->Find<QTabWidget>("SSTAB1")->currentIndex());
}

bool Walker::Reachable(const QWidget *control) const
{
    const QWidget *window = control->window();
    return window == console_->window.get() || window->objectName() == "frmFader";
}

bool Walker::HalfTyped() const
{
    const auto fields = console_->window->findChildren<LevelField *>();
    return std::ranges::any_of(fields, &LevelField::IsPending);
}

QDialog *Walker::Open(const char *dialog) const
{
    auto *found = console_->window->findChild<QDialog *>(dialog);
    return found && found->isVisible() ? found : nullptr;
}

// What a hand does

void Walker::Activate(const QWidget *control)
{
    if (control->window() == QApplication::activeWindow())
        return;
    control->window()->activateWindow();
    QCoreApplication::processEvents();
}

void Walker::Focus(QWidget *control)
{
    if (!control)
        return;
    Activate(control);
    control->setFocus();
}

void Walker::Click(QWidget *control)
{
    if (!control)
        return;
    Activate(control);
    console_->Click(control);
}

void Walker::Type(QLineEdit *field, const QString &text, bool enter)
{
    Focus(field);
    if (!field->hasFocus()) // another field has a bad value and keeps it
        return;
    if (enter)
        console_->Type(field, text);
    else
        console_->TypeOnly(field, text);
}

bool Walker::ClickRow(int row)
{
    const QDialog *frmHistory = Open("frmHistory");
    auto *list = frmHistory ? frmHistory->findChild<QListWidget *>("lstHistory") : nullptr;
    if (!list || row >= list->count() || !frmHistory->isEnabled())
        return false;
    Activate(list);
    list->scrollToItem(list->item(row));
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualItemRect(list->item(row)).center());
    return true;
}

void Walker::Choose(const char *action)
{
    QAction *item = console_->Action(action);
    bool reachable = item->isEnabled() && console_->window->isEnabled();
    for (const QObject *menu = item->parent(); auto *above = qobject_cast<const QMenu *>(menu);
         menu = menu->parent())
        reachable = reachable && above->isEnabled() && above->menuAction()->isEnabled();
    if (!reachable)
        return;
    Activate(console_->window.get());
    item->trigger();
}

QString Walker::LetGo()
{
    BeginAct("let go");
    ++places[State()];
    for (const char *dialog :
         {"frmRef", "frmFader", "frmSimulator", "frmHistory", "frmDiffers", "frmVerify", "frmGuide"})
        places[dialog] += Open(dialog) != nullptr;
    mostBadValues_ = 2; // in the window and in the fader dialog
    if (heldKey != 0)
        console_->Release(heldKey);
    heldKey = 0;
    if (dragged)
        console_->Drop(dragged.data());
    dragged = nullptr;
    if (QDialog *frmRef = Open("frmRef"))
        Click(frmRef->findChild<QPushButton *>("Command1"));
    // The main window and the fader dialog may each have a field that is being typed in.
    for (LevelField *field : console_->window->findChildren<LevelField *>())
        for (const int key : {Qt::Key_Return, Qt::Key_Escape})
            if (field->IsPending()) {
                Focus(field);
                console_->Key(key);
            }
    Activate(console_->window.get());
    QCoreApplication::processEvents();
    return EndAct();
}

void Walker::Close()
{
    constexpr int MostStay = 12;
    leaving_ = Chance(MostStay);
    // The question whether to save alone can be cancelled.
    if (leaving_ || Holds().Changed())
        console_->window->close();
    leaving_ = false;
}

void Walker::Kill()
{
    const QString wrong = LetGo();
    Wrong(wrong.isEmpty() ? ledger_.End(*console_, true) : wrong);
    Start();
    boxes_.clear(); // of its start, whose calls are not on record
}

/// The window has closed: the unit must have been left quiet, but for what a failing line prevented.
void Walker::StartAgain()
{
    if (OnLine() && !witness.signalFailed && !witness.streamFailed && signalsKnown_ && streamKnown_ &&
        !(Quiet(unit.testSignals) && unit.stream == SimulatedUnit::Stream::None))
        Wrong("something played on after the exit");
    if (OnLine() && witness.lastFailed != Operation::DLLShutdown && unit.port != 0)
        Wrong("the library was not shut down");
    Wrong(ledger_.End(*console_, false));
    Start();
}

// What happened

void Walker::BeginAct(const char *name)
{
    acts_ << name;
    if (acts_.size() > RememberedActs)
        acts_.removeFirst();
    boxes_.clear();
    mostBadValues_ = 1;
    wrong_.clear();
}

QString Walker::State() const
{
    return QString("%1%2%3, tab %4")
        .arg(OnLine() ? "on line" : "off line", Streaming() ? ", streaming" : "",
             OnLine() || console_->Find<QTimer>("tmrPoll")->isActive() ? "" : ", never connected")
        .arg(int(ShownTab()));
}

QString Walker::EndAct()
{
    // Nobody clicks before the window is active again that a box had covered, unless a close waited for that.
    while (console_->window->isVisible() && !QApplication::activeWindow()) {
        console_->window->activateWindow();
        QCoreApplication::processEvents();
    }
    // Each failure ends the connection once and is told once.
    const kelvo::Calls calls = console_->Calls();
    if (boxes_["Connection Error"] > std::ranges::count(calls, "DLLShutdown"))
        Wrong("a failure was told twice");
    if (boxes_["Range Check Error"] > mostBadValues_)
        Wrong("a bad value was told twice");
    Note();
    calls_.clear();
    for (const std::string &call : calls)
        calls_ << QString::fromStdString(call);
    console_->Forget();
    console_->clock.pauses.clear();
    return wrong_;
}

/// After anything that may have led to calls.
void Walker::Note()
{
    NoteClock();
    if (witness.connected)
        ledger_.ConnectionMayCome();
    if (!console_->window->isVisible())
        StartAgain();
    else
        Wrong(ledger_.Look(*console_));
    NoteWhatPlays();
}

void Walker::NoteClock()
{
    const QString text = QString::fromStdString(ClockText(Holds().Audio()));
    if (clockTexts_.isEmpty() || clockTexts_.last() != text)
        clockTexts_ << text;
    if (clockTexts_.size() > RememberedClockTexts)
        clockTexts_.removeFirst();
}

void Walker::NoteWhatPlays()
{
    const bool linkLasted = OnLine() && !witness.connected;
    signalsKnown_ = signalsKnown_ && linkLasted && !witness.signalFailed;
    streamKnown_ = streamKnown_ && linkLasted && !witness.streamFailed;
    witness.connected = witness.signalFailed = witness.streamFailed = false;
    if (!signalsKnown_ && OnLine() && Quiet(unit.testSignals))
        signalsKnown_ = !ShowsSignal();
    if (!streamKnown_ && OnLine() && unit.stream == SimulatedUnit::Stream::None)
        streamKnown_ = !Streaming();
}

bool Walker::ShowsSignal() const
{
    const auto on = [this](const QString &name) { return console_->Find<QPushButton>(name)->font().bold(); };
    for (int channel = 0; channel < ChannelCount; ++channel)
        if (on(Member("cmdPN", channel)) || on(Member("cmdPhase", channel)))
            return true;
    return on("cmdPink") || on("cmdPNC") || on("cmdPNS") || on("cmdRT60");
}

void Walker::Wrong(const QString &what)
{
    if (wrong_.isEmpty())
        wrong_ = what;
}

bool Walker::eventFilter(QObject *watched, QEvent *event)
{
    switch (event->type()) {
    case QEvent::Timer:
        // Those with a name are the console's own and tick by the walker's hand alone.
        return qobject_cast<QTimer *>(watched) && !watched->objectName().isEmpty();
    case QEvent::MetaCall:
        // A reading that the stream's timer has fallen behind with.
        return watched->inherits("kelvo::OpticalPanel");
    case QEvent::Show:
        // Nobody looks: painting is what a walk would spend most of its time on.
        if (auto *widget = qobject_cast<QWidget *>(watched); widget && widget->isWindow())
            widget->setUpdatesEnabled(false);
        return false;
    default:
        return false;
    }
}

} // namespace kelvo
