#pragma once

#include "support/recordinglibrary.h"
#include "support/testclock.h"
#include "support/ui/boxanswers.h"
#include "support/ui/hands.h"
#include "ui/main/frmmain.h"
#include "unit/simulatedunit.h"

#include <QTemporaryDir>

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
/// its own. Controls are found by name; boxes and dialogs are real.
class ConsoleUnderTest : public BoxAnswers, public Hands {
    Q_OBJECT

  public:
    /// On line: connected at start, the tab chosen, everything idle and no call recorded yet. Off line: the
    /// unit's cable is out. `prepare` runs before the start-up, on the unit, the settings' files and places.
    explicit ConsoleUnderTest(ConsoleStart start = OnLine, Tab tab = Tab::FormatSelection,
                              const std::function<void(ConsoleUnderTest &)> &prepare = {});
    /// The same over another library than the simulated unit, which must accept the connection.
    explicit ConsoleUnderTest(DeviceLibrary &library,
                              const std::function<void(ConsoleUnderTest &)> &prepare = {});

    SimulatedUnit unit;
    ConsoleClock clock;
    RoomSettings room;
    Preferences options;
    FileState file;
    Places places;
    std::unique_ptr<FrmMain> window;
    QStringList reports;     ///< what went to standard error
    kelvo::Calls startCalls; ///< the library's calls of the start-up

    /// Clicks the tab's heading.
    void GoTo(Tab tab);
    QAction *Action(const char *name) const;
    void Trigger(const char *action) { Action(action)->trigger(); }
    /// Lets one tick of a timer pass now; a timer that stands still fails the test.
    void Tick(const char *timer);
    /// The same where the timer may rightly stand still.
    void TickIfActive(const char *timer);

    /// A slider that code moves is an edit, unless the program is still setting controls itself. Puts it
    /// back.
    bool TakesEdits();

    /// The calls of the library since the fixture was ready, or since the last `Forget`.
    kelvo::Calls Calls() const { return calls_; }
    void Forget() { calls_.clear(); }

    QString File(const char *name) const { return folder_.filePath(name); }

  protected:
    QWidget *Window() const override { return window.get(); }

  private:
    ConsoleUnderTest(DeviceLibrary *library, ConsoleStart start, Tab tab,
                     const std::function<void(ConsoleUnderTest &)> &prepare);

    QTemporaryDir folder_;
    Trace calls_;
    RecordingLibrary library_;
};

} // namespace kelvo
