#pragma once

#include "support/recordinglibrary.h"
#include "support/testclock.h"
#include "ui/main/frmmain.h"
#include "unit/simulatedunit.h"

#include <QApplication>
#include <QMessageBox>
#include <QSlider>
#include <QTemporaryDir>
#include <QTest>

#include <functional>
#include <memory>

namespace kelvo {

using Calls = std::vector<std::string>; ///< "SetVol 70", "SetPink 2 -1", "SetAudio", "DLLShutdown"

enum ConsoleStart { OnLine, OffLine };

/// The test's clock, which lets a test look at the window while a failing call waits.
struct ConsoleClock : TestClock {
    ConsoleClock() : TestClock(pauses) {}
    void Pause(std::chrono::milliseconds time) override
    {
        TestClock::Pause(time);
        duringPause();
    }

    Trace pauses;
    std::function<void()> duringPause = [] {};
};

/// The real main window over a recorded simulated unit, with a clock that stands and a program directory of
/// its own. Controls are found by name; boxes are real and are answered by title, and one that nobody
/// expected fails the test.
class ConsoleUnderTest : public QObject {
    Q_OBJECT

  public:
    /// On line: connected at start, the tab chosen, everything idle and no call recorded yet. Off line: the
    /// unit's cable is out. `prepare` runs before the start-up, on the unit, the settings' files and places.
    explicit ConsoleUnderTest(ConsoleStart start = OnLine, Tab tab = Tab::FormatSelection,
                              const std::function<void(ConsoleUnderTest &)> &prepare = {});
    /// The same over another library than the simulated unit, which must accept the connection.
    explicit ConsoleUnderTest(DeviceLibrary &library,
                              const std::function<void(ConsoleUnderTest &)> &prepare = {});
    ~ConsoleUnderTest() override;

    SimulatedUnit unit;
    ConsoleClock clock;
    Settings settings;
    Places places;
    std::unique_ptr<FrmMain> window;
    QStringList reports;     ///< what went to standard error
    kelvo::Calls startCalls; ///< the library's calls of the start-up

    /// The control of the main window, or of any other open window, with this name; ends the test when there
    /// is none.
    template <typename Control>
    Control *Find(const char *name) const
    {
        const QString wanted = QLatin1String(name);
        QList<QWidget *> windows = QApplication::topLevelWidgets();
        windows.prepend(window.get());
        for (QWidget *top : windows) {
            auto *control = dynamic_cast<Control *>(top);
            if (!control || top->objectName() != wanted)
                control = top->findChild<Control *>(wanted);
            if (control)
                return control;
        }
        qFatal("no control of this kind is named %s", name);
    }

    void Click(const char *button);
    /// Selects all, types and presses Enter.
    void Type(const char *field, const QString &text);
    /// Types over the text and leaves the field as it is, the focus in it.
    void TypeOnly(const char *field, const QString &text);
    /// What has the keyboard: a control, or the window.
    QWidget *Focus() const;
    void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    void Release(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    /// Press and release, on the control that has the focus.
    void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    /// Takes the slider's handle with the mouse to a position and lets go.
    void Drag(const char *slider, int position);
    /// Clicks the tab's heading.
    void GoTo(Tab tab);
    QAction *Action(const char *name) const;
    void Trigger(const char *action) { Action(action)->trigger(); }
    /// Lets one tick of a timer pass now; a timer that stands still fails the test.
    void Tick(const char *timer);
    /// The same where the timer may rightly stand still.
    void TickIfActive(const char *timer);

    /// Answers the next box: it must have this title and, when given, this text. `whileOpen` runs first.
    void AnswerNextBox(const QString &title, QMessageBox::StandardButton button, const QString &text = {},
                       std::function<void()> whileOpen = {});
    /// The message box that is open, or null.
    QMessageBox *OpenBox() const;
    /// Answers every box from now on by what it says, for a test that cannot know which ones come.
    using Answering = std::function<QMessageBox::StandardButton(const QString &title, const QString &text)>;
    void AnswerEveryBox(Answering answering) { answering_ = std::move(answering); }
    /// Works on the next dialog that is not a message box, `QFileDialog` included, once it is shown.
    void WithNextDialog(std::function<void(QDialog *)> work);
    /// Chooses a file in the next file dialog; "" cancels it.
    void ChooseNextFile(const QString &path);
    bool AllBoxesSeen() const { return answers_.empty() && dialogs_.empty(); }

    /// The calls of the library since the fixture was ready, or since the last `Forget`.
    kelvo::Calls Calls() const { return calls_; }
    void Forget() { calls_.clear(); }

    QString File(const char *name) const { return folder_.filePath(name); }

  protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

  private:
    struct Box {
        QString title;
        QString text;
        QMessageBox::StandardButton button;
        std::function<void()> whileOpen;
    };

    ConsoleUnderTest(DeviceLibrary *library, ConsoleStart start, Tab tab,
                     const std::function<void(ConsoleUnderTest &)> &prepare);

    /// Offscreen nobody gives the focus back to the window when its box or dialog goes.
    void KeepActive() const;
    void AnswerBox(QMessageBox *box);

    QTemporaryDir folder_;
    Trace calls_;
    RecordingLibrary library_;
    std::vector<Box> answers_;
    Answering answering_;
    std::vector<std::function<void(QDialog *)>> dialogs_;
};

} // namespace kelvo
