#include "support/ui/consoleundertest.h"

#include <QAccessible>
#include <QLabel>
#include <QMenuBar>

using namespace kelvo;

namespace {

QLabel *State(const ConsoleUnderTest &console, int index)
{
    return console.Find<QLabel>(Member("lblState", index));
}

/// What the labels that are shown read, from left to right.
QStringList Shown(const ConsoleUnderTest &console)
{
    QStringList shown;
    for (int index = 0; index < 6; ++index)
        if (State(console, index)->isVisible())
            shown += State(console, index)->text();
    return shown;
}

/// What a screen reader reads of a label.
QString Spoken(QLabel *label)
{
    return QAccessible::queryAccessibleInterface(label)->text(QAccessible::Name);
}

void LoseTheLink(ConsoleUnderTest &console)
{
    console.unit.panel.plugged = false;
    console.AnswerNextBox("Connection Error", QMessageBox::Ok);
    console.Tick("tmrPoll");
}

} // namespace

class StateLineTest : public QObject {
    Q_OBJECT

  private slots:
    void portAndSpeedAreAlwaysTold()
    {
        ConsoleUnderTest console(OffLine);
        QCOMPARE(Shown(console), QStringList{"COM 1 9600"});
        console.Trigger("mnuCom3");
        console.Trigger("mnuBaud4");
        QCOMPARE(Shown(console), QStringList{"COM 3 57600"});
        QCOMPARE(State(console, 1)->accessibleName(), "Serial port COM 3, 57600 baud");
    }

    void thePortOfTheLastRunIsTold()
    {
        ConsoleUnderTest console(OnLine, Tab::FormatSelection, [](ConsoleUnderTest &start) {
            QFile settings(start.File("settings.dat"));
            QVERIFY(settings.open(QFile::WriteOnly));
            settings.write("4\r\n");
        });
        QCOMPARE(Shown(console), QStringList{"COM 4 9600"});
    }

    void aSimulatedUnitIsTold()
    {
        ConsoleUnderTest console;
        console.window->AddSimulatorMenu(console.unit);
        QCOMPARE(Shown(console), (QStringList{"SIMULATED", "COM 1 9600"}));
    }

    void theMuteIsTheUnitsOwn()
    {
        ConsoleUnderTest console;
        console.Click("cmdMute5");
        QCOMPARE(Shown(console), (QStringList{"COM 1 9600", "MUTED"}));
        console.unit.panel.mute = False;
        console.Tick("tmrPoll");
        QCOMPARE(Shown(console), QStringList{"COM 1 9600"});
        LoseTheLink(console);
        console.room.MuteState = True; // on the screen alone
        console.Trigger("mnuCom2");
        QCOMPARE(Shown(console), QStringList{"COM 2 9600"});
    }

    void noiseAndPhaseAreToldByTheirChannels()
    {
        ConsoleUnderTest console(OnLine, Tab::OutputTrim);
        console.Click("cmdPN(0)");
        console.Click("cmdPN(3)");
        console.Click("cmdPhase(5)");
        QCOMPARE(Shown(console), (QStringList{"COM 1 9600", "NOISE L RS  PHASE SW"}));
        QCOMPARE(State(console, 3)->toolTip(), "Pink noise: Left, Right Surround; Inverted: Subwoofer");
        for (const int channel : {1, 2, 4, 5})
            console.Click(Member("cmdPN", channel));
        QCOMPARE(State(console, 3)->text(), "NOISE ALL  PHASE SW");
        console.GoTo(Tab::FormatSelection);
        QCOMPARE(Shown(console), QStringList{"COM 1 9600"});
    }

    void aLostLinkDoesNotSilenceTheLine()
    {
        ConsoleUnderTest console(OnLine, Tab::OutputTrim);
        console.Click("cmdPN(2)");
        console.Click("cmdMute2");
        LoseTheLink(console);
        console.GoTo(Tab::FormatSelection);
        QCOMPARE(Shown(console), (QStringList{"COM 1 9600", "MUTED", "NOISE C"}));
    }

    void rt60AndTheMeasurementAreTold()
    {
        ConsoleUnderTest console(OnLine, Tab::OpticalSetup);
        console.Click("cmdRT60");
        QCOMPARE(Shown(console), (QStringList{"COM 1 9600", "RT60"}));
        console.Click("cmdRT60");
        console.Click("cmdStart");
        QCOMPARE(Shown(console), (QStringList{"COM 1 9600", "MEASURING A-TYPE"}));
        console.Click("cmdStart");
        QCOMPARE(Shown(console), QStringList{"COM 1 9600"});
    }

    void aScreenReaderReadsWordsAndNotShortForms()
    {
        ConsoleUnderTest console(OnLine, Tab::OutputTrim);
        QCOMPARE(Spoken(State(console, 2)), "Not muted");
        QCOMPARE(Spoken(State(console, 3)), "No pink noise; no phase inverted");
        console.Click("cmdMute2");
        QCOMPARE(Spoken(State(console, 2)), "The unit is muted");
        console.Click("cmdPN(3)"); // which un-mutes
        QCOMPARE(Spoken(State(console, 2)), "Not muted");
        QCOMPARE(Spoken(State(console, 3)), "Pink noise: Right Surround; no phase inverted");
    }

    void everythingFitsBesideTheMenus()
    {
        ConsoleUnderTest console(OnLine, Tab::OutputTrim);
        console.window->AddSimulatorMenu(console.unit);
        QCOMPARE(console.window->width(), 800);
        QMenuBar *bar = console.window->menuBar();
        const auto places = [bar] {
            QList<QRect> geometry;
            for (QAction *menu : bar->actions())
                geometry += bar->actionGeometry(menu);
            return geometry;
        };
        QApplication::processEvents();
        const QList<QRect> before = places();
        const int height = bar->height();
        for (int channel = 0; channel < ChannelCount; ++channel) {
            console.Click(Member("cmdPhase", channel));
            if (channel != 1)
                console.Click(Member("cmdPN", channel));
        }
        console.Click("cmdMute2"); // noise has opened it
        console.window->TellFault("The journal cannot be written: no space left on device.");
        QApplication::processEvents();
        QCOMPARE(places(), before);
        QCOMPARE(bar->height(), height);
        int right = before.back().right();
        for (const char *name : {"lblNotice", "lblState(0)", "lblState(1)", "lblState(2)", "lblState(3)"}) {
            const auto *label = console.Find<QLabel>(name);
            QVERIFY2(label->isVisible(), name);
            QVERIFY2(label->mapTo(bar, QPoint()).x() > right, name);
            right = label->mapTo(bar, label->rect().bottomRight()).x();
            // What carries no channels or free text is never cut.
            if (QByteArray(name) != "lblNotice" && QByteArray(name) != "lblState(3)")
                QVERIFY2(label->width() >= label->sizeHint().width(), name);
        }
        QVERIFY(right < bar->width());
    }

    void aFaultIsToldOnceUntilItIsClicked()
    {
        ConsoleUnderTest console;
        auto *lblNotice = console.Find<QLabel>("lblNotice");
        QVERIFY(!lblNotice->isVisible());
        console.window->TellFault("The disk is full.");
        console.window->TellFault("The disk is full.");
        console.window->TellFault("The folder is gone.");
        QCOMPARE(lblNotice->text(), "The disk is full.");
        QCOMPARE(lblNotice->toolTip(), "The disk is full.");
        QCOMPARE(Spoken(lblNotice), "The disk is full.");
        console.Click("lblNotice");
        QCOMPARE(lblNotice->accessibleName(), "The folder is gone.");
        console.Click("lblNotice");
        QVERIFY(!lblNotice->isVisible());
        console.window->TellFault("The disk is full.");
        QVERIFY(!lblNotice->isVisible());
        QCOMPARE(console.Calls(), Calls());
    }
};

QTEST_MAIN(StateLineTest)
#include "stateline_test.moc"
