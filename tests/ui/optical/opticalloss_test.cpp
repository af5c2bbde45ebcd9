#include "support/ui/consoleundertest.h"

#include <QLabel>
#include <QMenu>

using namespace kelvo;

namespace {

constexpr Status Receiving = 4;
const QString Report = "The following Errors were encountered:\n\n- Error Receiving\n\n\n"
                       "Cannot Continue On Line!\n";

/// The console on its optical tab, where the link will be lost.
struct Optical : ConsoleUnderTest {
    Optical() : ConsoleUnderTest(OnLine, Tab::OpticalSetup) { unit.reader.focusNoise = 0; }

    void Stream()
    {
        Click("cmdStart");
        for (int reading = 0; reading <= SimulatedUnit::ReadingsToLock; ++reading)
            Tick("tmrOptical");
        Forget();
    }
    /// The named operation fails for good; one box tells it.
    void LoseLinkAt(Operation operation)
    {
        unit.FailNext(operation, Receiving, 6);
        AnswerNextBox("Connection Error", QMessageBox::Ok, Report);
    }
    int Count(const std::string &call) const
    {
        const kelvo::Calls calls = Calls();
        return int(std::count(calls.begin(), calls.end(), call));
    }
    /// No stream, the operator's format in the model, every timer and control as before Start.
    void IsIdleOffLine()
    {
        QVERIFY(AllBoxesSeen());
        QCOMPARE(Find<QLabel>("lblStat")->text(), "Off Line");
        QCOMPARE(Find<QPushButton>("cmdStart")->text(), "Start");
        QVERIFY(Find<QLabel>("lblLock")->isHidden());
        QVERIFY(!Find<QTimer>("tmrOptical")->isActive());
        QVERIFY(Find<QTimer>("tmrPoll")->isActive());
        QVERIFY(Find<QTimer>("Timer2")->isActive());
        QVERIFY(Find<QMenu>("mnuBaud")->isEnabled());
        QCOMPARE(room.CurrentFormat, Word(4));
        QCOMPARE(kelvo::Calls(Calls()).back(), "DLLShutdown");
        QVERIFY(!Find<QWidget>("frmtabs(4)")->isEnabled());
    }
};

} // namespace

class OpticalLossTest : public QObject {
    Q_OBJECT

  private slots:
    void aLinkLostInAnyStepOfStartLeavesTheConsoleIdle_data()
    {
        QTest::addColumn<Operation>("operation");
        for (Operation operation : {Operation::SetProjector, Operation::SelectFormat,
                                    Operation::BeginGainStream, Operation::GetMute})
            QTest::newRow(RowOf(operation).name) << operation;
    }
    void aLinkLostInAnyStepOfStartLeavesTheConsoleIdle()
    {
        QFETCH(Operation, operation);
        Optical console;
        console.LoseLinkAt(operation);
        console.Click("cmdStart");
        console.IsIdleOffLine();
        QCOMPARE(console.Count("GetOptGain"), 0);
        // The unit is in the stream's format, or it never came to that.
        const bool tookFormat = operation != Operation::SetProjector && operation != Operation::SelectFormat;
        QVERIFY(console.Find<QLabel>("lblSent")->text().startsWith(tookFormat ? "1 change" : "All sent"));
        // Nothing of the start follows the step that lost the link.
        const Calls calls = console.Calls();
        QVERIFY(calls[calls.size() - 2] == "ClearError");
    }

    void aLinkLostInAnyStepOfStopLeavesTheConsoleIdle_data()
    {
        QTest::addColumn<Operation>("operation");
        for (Operation operation : {Operation::SetProjector, Operation::StopStream, Operation::SelectFormat})
            QTest::newRow(RowOf(operation).name) << operation;
    }
    void aLinkLostInAnyStepOfStopLeavesTheConsoleIdle()
    {
        QFETCH(Operation, operation);
        Optical console;
        console.Stream();
        console.LoseLinkAt(operation);
        console.Click("cmdStart");
        console.IsIdleOffLine();
        QCOMPARE(console.Count("BeginGainStream"), 0);
    }

    void aReadingThatFailsEndsTheStreamWithOneMessage()
    {
        Optical console;
        console.Stream();
        console.unit.FailNext(Operation::GetOptGain, Receiving, 1);
        console.AnswerNextBox("Connection Error", QMessageBox::Ok, Report);
        console.Tick("tmrOptical");
        QCOMPARE(console.Calls(), (Calls{"GetOptGain", "DLLShutdown"}));
        console.IsIdleOffLine();
    }

    void theStreamBitsApartAreALinkFailure_data()
    {
        QTest::addColumn<int>("status");
        for (const int status : {256, 512, 769, 1, -32768})
            QTest::addRow("status %d", status) << status;
    }
    void theStreamBitsApartAreALinkFailure()
    {
        QFETCH(int, status);
        Optical console;
        console.Stream();
        console.unit.FailNext(Operation::GetOptGain, Word(status), 1);
        console.AnswerNextBox("Connection Error", QMessageBox::Ok);
        console.Tick("tmrOptical");
        console.IsIdleOffLine();
    }

    void aPulledCableEndsARunningStreamByItself()
    {
        Optical console;
        console.Stream();
        console.AnswerNextBox("Connection Error", QMessageBox::Ok);
        console.unit.panel.plugged = false;
        QTRY_VERIFY(!console.Find<QTimer>("tmrOptical")->isActive());
        console.IsIdleOffLine();
    }

    void aLinkLostWhileTheMeasurementTheProjectorOrTheMuteChangesLeavesTheConsoleIdle_data()
    {
        QTest::addColumn<QString>("button");
        QTest::addColumn<Operation>("operation");
        QTest::newRow("measurement, stop") << "optOptical(1)" << Operation::StopStream;
        QTest::newRow("measurement, projector") << "optOptical(1)" << Operation::SetProjector;
        QTest::newRow("measurement, begin") << "optOptical(1)" << Operation::BeginSlitStream;
        QTest::newRow("projector, stop") << "cmdPro(1)" << Operation::StopStream;
        QTest::newRow("projector, projector") << "cmdPro(1)" << Operation::SetProjector;
        QTest::newRow("projector, begin") << "cmdPro(1)" << Operation::BeginGainStream;
        QTest::newRow("reverberation") << "cmdRT60" << Operation::SetRT60;
        QTest::newRow("mute, stop") << "" << Operation::StopStream;
        QTest::newRow("mute, mute") << "" << Operation::SetMute;
        QTest::newRow("mute, begin") << "" << Operation::BeginGainStream;
    }
    void aLinkLostWhileTheMeasurementTheProjectorOrTheMuteChangesLeavesTheConsoleIdle()
    {
        QFETCH(QString, button);
        QFETCH(Operation, operation);
        Optical console;
        console.Stream();
        console.LoseLinkAt(operation);
        if (button.isEmpty())
            console.window->findChild<OpticalPanel *>()->cmdMute4_Click();
        else
            console.Click(button);
        console.IsIdleOffLine();
    }

    void anUnlockedAnswerToAControlCallKeepsLinkAndStream_data()
    {
        QTest::addColumn<Operation>("operation");
        for (Operation operation : {Operation::SetProjector, Operation::SelectFormat,
                                    Operation::BeginGainStream, Operation::GetMute})
            QTest::newRow(RowOf(operation).name) << operation;
    }
    void anUnlockedAnswerToAControlCallKeepsLinkAndStream()
    {
        QFETCH(Operation, operation);
        Optical console;
        console.unit.FailNext(operation, StreamNotLocked, 6);
        console.Click("cmdStart");
        QCOMPARE(console.Find<QPushButton>("cmdStart")->text(), "Stop");
        QCOMPARE(console.Find<QLabel>("lblLock")->text(), "No Stream");
        QVERIFY(console.Find<QTimer>("tmrOptical")->isActive());
        QCOMPARE(console.Count("DLLShutdown"), 0);
        QCOMPARE(console.Count("BeginGainStream"), operation == Operation::BeginGainStream ? 6 : 1);
    }

    void theTabThatIsLeftWithALostLinkIsIdle()
    {
        Optical console;
        console.Stream();
        console.LoseLinkAt(Operation::StopStream);
        console.GoTo(Tab::Help);
        console.IsIdleOffLine();
    }

    void aNewConnectionAfterALostStreamStartsAnother()
    {
        Optical console;
        console.Stream();
        console.unit.FailNext(Operation::GetOptGain, Receiving, 1);
        console.AnswerNextBox("Connection Error", QMessageBox::Ok);
        console.Tick("tmrOptical");
        console.Click("cmdConnect");
        console.Forget();
        console.Click("cmdStart");
        QCOMPARE(console.Calls(), (Calls{"SetProjector 0", "SelectFormat 1", "BeginGainStream", "GetMute"}));
    }

    void startDoesNothingOffLineWhereverItIsReached()
    {
        ConsoleUnderTest console(OffLine, Tab::OpticalSetup);
        console.window->findChild<OpticalPanel *>()->Stream().Toggle();
        QCOMPARE(console.Calls(), Calls{});
        QCOMPARE(console.Find<QPushButton>("cmdStart")->text(), "Start");
        QVERIFY(!console.Find<QTimer>("tmrOptical")->isActive());
    }
};

QTEST_MAIN(OpticalLossTest)
#include "opticalloss_test.moc"
