#include "support/ui/consoleundertest.h"

#include "ui/main/look.h"

#include <QAction>
#include <QTabBar>
#include <QTabWidget>
#include <QTimer>

namespace kelvo {

ConsoleUnderTest::ConsoleUnderTest(ConsoleStart start, Tab tab,
                                   const std::function<void(ConsoleUnderTest &)> &prepare)
    : ConsoleUnderTest(nullptr, start, tab, prepare)
{
}

ConsoleUnderTest::ConsoleUnderTest(DeviceLibrary &library,
                                   const std::function<void(ConsoleUnderTest &)> &prepare)
    : ConsoleUnderTest(&library, OnLine, Tab::FormatSelection, prepare)
{
}

ConsoleUnderTest::ConsoleUnderTest(DeviceLibrary *library, ConsoleStart start, Tab tab,
                                   const std::function<void(ConsoleUnderTest &)> &prepare)
    : library_(library ? *library : unit, calls_)
{
    ApplyLook();
    places = {.programDirectory = folder_.path(),
              .dataFolder = folder_.filePath("data"),
              .memoryFile = folder_.filePath("windows.conf"),
              .helpFile = File("Zentra-HELP.rtf"),
              .missingLibrary = {},
              .serialIniMissing = [] { return false; },
              .report = [this](const QString &line) { reports += line; }};
    if (start == OffLine) {
        unit.panel.plugged = false;
        AnswerNextBox("Connection Error", QMessageBox::Ok, "Unable to connect to unit!");
    }
    if (prepare)
        prepare(*this);
    window = std::make_unique<FrmMain>(room, options, file, library_, clock, places);
    window->resize(800, 600);
    window->Form_Load();
    startCalls = calls_;
    window->show();
    window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(window.get()));
    if (tab != Tab::FormatSelection)
        GoTo(tab);
    Forget();
}

void ConsoleUnderTest::GoTo(Tab tab)
{
    QTabBar *strip = Find<QTabWidget>("SSTAB1")->tabBar();
    QTest::mouseClick(strip, Qt::LeftButton, {}, strip->tabRect(int(tab)).center());
}

QAction *ConsoleUnderTest::Action(const char *name) const
{
    return Find<QAction>(name);
}

void ConsoleUnderTest::Tick(const char *timer)
{
    if (!Find<QTimer>(timer)->isActive())
        QTest::qFail(qPrintable(QString("%1 stands still").arg(timer)), __FILE__, __LINE__);
    TickIfActive(timer);
}

void ConsoleUnderTest::TickIfActive(const char *timer)
{
    auto *ticking = Find<QTimer>(timer);
    if (ticking->isActive())
        QMetaObject::invokeMethod(ticking, "timeout", Qt::DirectConnection, QGenericArgument());
}

bool ConsoleUnderTest::TakesEdits()
{
    auto *trim = Find<QSlider>("sclPNG(0)");
    const int position = trim->value();
    trim->setValue(position == 5 ? 6 : 5);
    const bool taken = room.Audio.ChannelTrim[Left] == trim->value();
    trim->setValue(position);
    return taken;
}

} // namespace kelvo
