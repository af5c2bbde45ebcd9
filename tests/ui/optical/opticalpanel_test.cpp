#include "support/ui/consoleundertest.h"

#include <QFile>
#include <QLabel>
#include <QMenu>
#include <QRadioButton>

using namespace kelvo;

namespace {

constexpr Word OperatorsFormat = 4; ///< what the simulated unit plays before anything is pressed

QTimer *TimerOf(const ConsoleUnderTest &console, const char *name)
{
    return console.Find<QTimer>(name);
}

/// The console on its optical tab with the reader standing still.
struct Optical : ConsoleUnderTest {
    Optical() : ConsoleUnderTest(OnLine, Tab::OpticalSetup)
    {
        unit.reader.focusNoise = 0;
        unit.reader.gainLeft = 80;
        unit.reader.gainRight = 160;
    }

    bool Streaming() const { return Find<QPushButton>("cmdStart")->text() == "Stop"; }
    OpticalPanel &Panel() const { return *window->findChild<OpticalPanel *>(); }

    /// Starts the measurement and reads until the stream is locked.
    void Stream(const char *measurement)
    {
        Click(measurement);
        Click("cmdStart");
        ReadUntilLocked();
        Forget();
    }
    void ReadUntilLocked()
    {
        for (int reading = 0; reading <= SimulatedUnit::ReadingsToLock; ++reading)
            Tick("tmrOptical");
    }
    QImage Graph() const { return Find<QWidget>("OptGraph")->grab().toImage(); }
    bool GraphIsBlank() const
    {
        const QImage image = Graph();
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                if (image.pixel(x, y) != qRgb(255, 255, 255))
                    return false;
        return true;
    }
    QRgb GraphAt(double x, double y) const
    {
        const QImage image = Graph();
        return image.pixel(int(x * image.width() / 310), int(y * image.height() / 285));
    }
};

} // namespace

class OpticalPanelTest : public QObject {
    Q_OBJECT

  private slots:
    void startSendsProjectorFormatStreamAndReadsTheMute_data()
    {
        QTest::addColumn<QString>("measurement");
        QTest::addColumn<QString>("begin");
        QTest::newRow("gain") << "optOptical(0)"
                              << "BeginGainStream";
        QTest::newRow("slit loss") << "optOptical(1)"
                                   << "BeginSlitStream";
        QTest::newRow("azimuth") << "optOptical(2)"
                                 << "BeginAzimuthStream";
    }
    void startSendsProjectorFormatStreamAndReadsTheMute()
    {
        QFETCH(QString, measurement);
        QFETCH(QString, begin);
        Optical console;
        console.Click(measurement);
        QCOMPARE(console.Calls(), Calls{}); // only the selection changed
        console.Click("cmdStart");
        QCOMPARE(console.Calls(),
                 (Calls{"SetProjector 0", "SelectFormat 1", begin.toStdString(), "GetMute"}));
    }

    void stopSendsProjectorStopProjectorAndTheOperatorsFormat()
    {
        Optical console;
        console.Click("cmdStart");
        console.Forget();
        console.Click("cmdStart");
        QCOMPARE(console.Calls(),
                 (Calls{"SetProjector 0", "StopStream", "SetProjector 0", "SelectFormat 4"}));
        QCOMPARE(console.unit.panel.format, OperatorsFormat);
    }

    void aRunningStreamShowsItselfAndStopsThePolling()
    {
        Optical console;
        auto *lblLock = console.Find<QLabel>("lblLock");
        QVERIFY(lblLock->isHidden());
        QVERIFY(!TimerOf(console, "tmrOptical")->isActive());
        console.Click("cmdStart");
        QCOMPARE(console.Find<QPushButton>("cmdStart")->text(), "Stop");
        QVERIFY(lblLock->isVisible());
        QVERIFY(console.Find<QLabel>("lblStart")->isHidden());
        QVERIFY(!TimerOf(console, "tmrPoll")->isActive());
        QVERIFY(!TimerOf(console, "Timer2")->isActive());
        QVERIFY(!console.Find<QMenu>("mnuBaud")->isEnabled());
        QVERIFY(!console.Find<QPushButton>("cmdMute4")->isEnabled());
        QTimer *tmrOptical = TimerOf(console, "tmrOptical");
        QVERIFY(tmrOptical->isActive());
        QCOMPARE(tmrOptical->interval(), 1);
        QCOMPARE(console.unit.panel.format, Word(1));
        QCOMPARE(console.room.CurrentFormat, OperatorsFormat);
    }

    void stopBringsEverythingBack()
    {
        Optical console;
        console.Stream("optOptical(0)");
        QVERIFY(!console.GraphIsBlank());
        console.Click("cmdStart");
        QCOMPARE(console.Find<QPushButton>("cmdStart")->text(), "Start");
        QVERIFY(console.Find<QLabel>("lblLock")->isHidden());
        QVERIFY(console.Find<QPushButton>("cmdMute4")->isEnabled());
        QVERIFY(console.Find<QMenu>("mnuBaud")->isEnabled());
        QVERIFY(!TimerOf(console, "tmrOptical")->isActive());
        QCOMPARE(TimerOf(console, "tmrOptical")->interval(), 0);
        QVERIFY(TimerOf(console, "tmrPoll")->isActive());
        QCOMPARE(TimerOf(console, "tmrPoll")->interval(), 2000);
        QVERIFY(TimerOf(console, "Timer2")->isActive());
        QVERIFY(console.GraphIsBlank());
        QCOMPARE(console.room.CurrentFormat, OperatorsFormat);
        QCOMPARE(console.unit.panel.format, OperatorsFormat);
    }

    void theModeButtonsKeepTheOperatorsChoiceDuringAStream()
    {
        Optical console;
        console.Click("cmdStart");
        QCOMPARE(console.Find<StateButton>("cmdMode(4)")->ShownFace(), Face::Current);
        QCOMPARE(console.Find<StateButton>("cmdMode(1)")->ShownFace(), Face::Normal);
    }

    void pressStartBlinksOncePerSecondWhileNothingRuns()
    {
        Optical console;
        auto *lblStart = console.Find<QLabel>("lblStart");
        QCOMPARE(lblStart->text(), "Press Start  -->");
        QTimer *blink = TimerOf(console, "Timer2");
        QCOMPARE(blink->interval(), 1000);
        QCOMPARE(blink->parent(), console.window.get());
        QVERIFY(lblStart->isVisible());
        console.Tick("Timer2");
        QVERIFY(!lblStart->isVisible());
        console.Tick("Timer2");
        QVERIFY(lblStart->isVisible());
    }

    void eachTickReadsTheSelectedMeasurementOnceAndNeverRetries()
    {
        Optical console;
        console.Stream("optOptical(0)");
        console.Tick("tmrOptical");
        console.Tick("tmrOptical");
        QCOMPARE(console.Calls(), (Calls{"GetOptGain", "GetOptGain"}));
        console.unit.reader.locked = false;
        console.Forget();
        console.Tick("tmrOptical");
        QCOMPARE(console.Calls(), Calls{"GetOptGain"});
    }

    void theGainReadingStandsInTheGraph()
    {
        Optical console;
        console.Stream("optOptical(0)");
        QCOMPARE(console.GraphAt(99, 82), qRgb(0, 0, 255));
        QCOMPARE(console.GraphAt(99, 76), qRgb(255, 255, 255));
        QCOMPARE(console.GraphAt(227, 163), qRgb(0, 0, 255));
        QCOMPARE(console.GraphAt(227, 156), qRgb(255, 255, 255));
    }

    void bothSidesOfTheSlitLossStandInTheGraph()
    {
        Optical console;
        console.Stream("optOptical(1)");
        console.Tick("tmrOptical"); // the other side
        QCOMPARE(console.GraphAt(36, 230), qRgb(0, 0, 255));
        QCOMPARE(console.GraphAt(174, 230), qRgb(0, 0, 255));
        QCOMPARE(console.GraphAt(156, 230), qRgb(255, 255, 255));
    }

    void theGraphsFontNameIsSmallAfterASlitReadingAndBackAtEveryTick()
    {
        Optical console;
        auto *graph = console.Find<QWidget>("OptGraph");
        QCOMPARE(graph->property("fontName").toString(), "MS Sans Serif");
        console.Stream("optOptical(1)");
        QCOMPARE(graph->property("fontName").toString(), "Small Fonts");
        console.unit.reader.locked = false;
        console.Tick("tmrOptical");
        QCOMPARE(graph->property("fontName").toString(), "MS Sans Serif");
    }

    void theAzimuthPictureComesWithAGoodReadingAndGoesAtTheNextGoodReadingOfAnother()
    {
        Optical console;
        auto *optAzi = console.Find<QWidget>("optAzi");
        QVERIFY(!optAzi->isVisible());
        console.Click("optOptical(2)");
        console.Click("cmdStart");
        console.Tick("tmrOptical");
        QVERIFY(!optAzi->isVisible());
        console.ReadUntilLocked();
        QVERIFY(optAzi->isVisible());
        QCOMPARE(optAzi->width(), optAzi->height());
        console.Click("optOptical(0)");
        console.Tick("tmrOptical");
        QVERIFY(optAzi->isVisible());
        console.ReadUntilLocked();
        QVERIFY(!optAzi->isVisible());
    }

    void theAzimuthPictureTakesTheGraphsPlaceUntilStop()
    {
        Optical console;
        console.Stream("optOptical(2)");
        QVERIFY(console.Find<QWidget>("optAzi")->isVisible());
        QVERIFY(!console.Find<QWidget>("OptGraph")->isVisible());
        console.Click("cmdStart");
        QVERIFY(!console.Find<QWidget>("optAzi")->isVisible());
        QVERIFY(console.Find<QWidget>("OptGraph")->isVisible());
    }

    void anotherMeasurementDuringAStreamStopsItAndBeginsTheOther()
    {
        Optical console;
        console.Stream("optOptical(0)");
        console.Click("optOptical(1)");
        QCOMPARE(console.Calls(), (Calls{"StopStream", "SetProjector 0", "BeginSlitStream"}));
        QVERIFY(console.GraphIsBlank());
        QVERIFY(console.Streaming());
        QCOMPARE(console.unit.panel.format, Word(1));
        console.Forget();
        console.Tick("tmrOptical");
        QCOMPARE(console.Calls(), Calls{"GetSingleSlitloss"});
    }

    void theSameMeasurementAgainChangesNothing()
    {
        Optical console;
        console.Stream("optOptical(0)");
        console.Click("optOptical(0)");
        QCOMPARE(console.Calls(), Calls{});
    }

    void theProjectorIsSentAloneWhileIdle()
    {
        Optical console;
        QCOMPARE(console.Find<StateButton>("cmdPro(0)")->ShownFace(), Face::Selected);
        console.Click("cmdPro(1)");
        QCOMPARE(console.Calls(), (Calls{"StopStream", "SetProjector 1"}));
        QVERIFY(!console.Streaming());
        auto *chosen = console.Find<StateButton>("cmdPro(1)");
        QVERIFY(chosen->font().bold());
        QCOMPARE(chosen->grab().toImage().pixel(4, 4), qRgb(0, 255, 0));
        QVERIFY(!console.Find<StateButton>("cmdPro(0)")->font().bold());
        QCOMPARE(console.Find<StateButton>("cmdPro(0)")->ShownFace(), Face::Normal);
    }

    void theProjectorDuringAStreamBeginsTheStreamAgain()
    {
        Optical console;
        console.Stream("optOptical(2)");
        console.Click("cmdPro(1)");
        QCOMPARE(console.Calls(), (Calls{"StopStream", "SetProjector 1", "BeginAzimuthStream"}));
        console.Forget();
        console.Click("cmdStart");
        QCOMPARE(console.Calls(),
                 (Calls{"SetProjector 1", "StopStream", "SetProjector 1", "SelectFormat 4"}));
    }

    void theMuteButtonStopsTheStreamMutesAndBeginsItAgain()
    {
        Optical console;
        console.Stream("optOptical(1)");
        console.Panel().cmdMute4_Click(); // the button itself is disabled during a stream
        QCOMPARE(console.Calls(), (Calls{"StopStream", "SetMute -1", "BeginSlitStream"}));
        QCOMPARE(console.Find<QPushButton>("cmdMute4")->text(), "Un-Mute");
    }

    void theMuteButtonWhileIdleBeginsNoStream()
    {
        Optical console;
        console.Click("cmdMute4");
        QCOMPARE(console.Calls(), (Calls{"StopStream", "SetMute -1"}));
    }

    void rt60SwitchesOnAndOffAndShowsTheNoiseButtonsOff()
    {
        Optical console;
        for (int channel = 0; channel < ChannelCount; ++channel)
            console.Find<StateButton>(Member("cmdPN", channel))->Show("On", Face::On);
        auto *cmdRT60 = console.Find<StateButton>("cmdRT60");
        QCOMPARE(cmdRT60->text(), "Off");
        console.Click("cmdRT60");
        QCOMPARE(cmdRT60->text(), "On");
        QVERIFY(cmdRT60->font().bold());
        QCOMPARE(cmdRT60->grab().toImage().pixel(4, 4), qRgb(255, 255, 0));
        for (int channel = 0; channel < ChannelCount; ++channel) {
            auto *cmdPN = console.Find<StateButton>(Member("cmdPN", channel));
            QCOMPARE(cmdPN->text(), "Off");
            QCOMPARE(cmdPN->ShownFace(), Face::Normal);
            QVERIFY(!cmdPN->font().bold());
        }
        console.Click("cmdRT60");
        QCOMPARE(cmdRT60->text(), "Off");
        QVERIFY(!cmdRT60->font().bold());
        QCOMPARE(console.Calls(), (Calls{"SetRT60 -1", "SetRT60 0"}));
    }

    void uploadSendsBothRecordsAndStartsNoStream()
    {
        Optical console;
        console.Click("cmdUp(3)");
        QCOMPARE(console.Calls(), (Calls{"SetSystem", "SetAudio"}));
        QVERIFY(!console.Streaming());
    }

    void leavingTheTabStopsTheStream()
    {
        Optical console;
        console.Stream("optOptical(0)");
        console.GoTo(Tab::Help);
        QCOMPARE(console.Calls(),
                 (Calls{"SetProjector 0", "StopStream", "SetProjector 0", "SelectFormat 4"}));
        QVERIFY(!console.Streaming());
        console.Forget();
        console.GoTo(Tab::OpticalSetup);
        console.GoTo(Tab::Help);
        QCOMPARE(console.Calls(), Calls{});
    }

    void closingTheProgramStopsTheStreamAndRestoresTheFormat()
    {
        Optical console;
        console.Stream("optOptical(0)");
        console.AnswerNextBox("Revert?", QMessageBox::No);
        console.window->close();
        const Calls stop{"SetProjector 0", "StopStream", "SetProjector 0", "SelectFormat 4"};
        const Calls calls = console.Calls();
        QVERIFY(std::search(calls.begin(), calls.end(), stop.begin(), stop.end()) != calls.end());
        QCOMPARE(console.unit.panel.format, OperatorsFormat);
    }

    void noTickReadsWhileADialogIsOpen()
    {
        Optical console;
        console.Stream("optOptical(0)");
        console.WithNextDialog([&](QDialog *dialog) {
            console.Tick("tmrOptical");
            console.Tick("tmrOptical");
            dialog->reject();
            QCOMPARE(console.Calls(), Calls{});
        });
        console.Trigger("mnuLoad");
        QVERIFY(console.Streaming());
        console.Forget();
        console.Tick("tmrOptical");
        QCOMPARE(console.Calls(), Calls{"GetOptGain"});
    }

    void theTimerReadsByItselfAndTheScreenFollows()
    {
        Optical console;
        console.Click("cmdStart");
        console.Forget();
        QTRY_VERIFY(console.Calls().size() > 50);
        QCOMPARE(console.Find<QLabel>("lblLock")->text(), "Stream Lock");
        QCOMPARE(console.GraphAt(99, 82), qRgb(0, 0, 255));
    }
};

QTEST_MAIN(OpticalPanelTest)
#include "opticalpanel_test.moc"
