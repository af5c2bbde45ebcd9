#include "support/ui/faderconsole.h"

using namespace kelvo;

namespace {

struct Console : FaderConsole {
    Console() : FaderConsole(OnLine, Tab::OutputTrim) {}

    void PollReads(Word level)
    {
        unit.panel.level = level;
        Tick("tmrPoll");
        Forget();
    }
};

} // namespace

/// What becomes of a fader text that was typed but not entered, and of a key whose release never comes.
class FaderEntryTest : public QObject {
    Q_OBJECT

  private slots:
    void aTypedTextIsDroppedWhenTheUnitsPanelMovesTheFader_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::newRow("half a number") << "6.";
        QTest::newRow("a number") << "5";
        QTest::newRow("a number out of range") << "11";
        QTest::newRow("nothing") << "";
    }
    void aTypedTextIsDroppedWhenTheUnitsPanelMovesTheFader()
    {
        QFETCH(QString, typed);
        Console console;
        console.TypeOnly("lblVol(0)", typed);
        console.PollReads(33);
        QCOMPARE(console.Text("lblVol(0)"), "3.3");
        console.Key(Qt::Key_Tab);
        QCOMPARE(console.room.FaderLevel, Word(33));
        QCOMPARE(console.Calls(), Calls{});
    }

    void theFieldThatComplainedIsFreeAgainAfterwards()
    {
        Console console;
        console.AnswerNextBox(RangeTitle, QMessageBox::Ok);
        console.Type("lblVol(0)", "11");
        console.PollReads(33);
        QCOMPARE(console.Text("lblVol(0)"), "3.3");
        console.Click("cmdUp(0)");
        QCOMPARE(console.Calls(), (Calls{"SetSystem", "SetAudio"}));
    }

    void aReadThatFindsTheSameLevelLeavesTheTypedTextAlone()
    {
        Console console;
        console.options.AutoRefresh = true;
        console.options.RefreshSeconds = 1;
        console.TypeOnly("lblVol(0)", "6.");
        console.PollReads(70);
        console.Tick("tmrRefresh"); // the automatic re-read
        QVERIFY(!console.Calls().empty());
        console.Forget();
        QCOMPARE(console.Text("lblVol(0)"), "6.");
        console.Key(Qt::Key_Return);
        QCOMPARE(console.Calls(), Calls{"SetVol 60"});
    }

    void aTypedTextIsDroppedWhenTheDialogMovesTheFader()
    {
        Console console;
        console.OpenDialog();
        console.window->activateWindow();
        QTRY_COMPARE(QApplication::activeWindow(), console.window.get());
        console.TypeOnly("lblVol(0)", "8");
        console.DragTo(console.OfDialog(), 49);
        console.Drop(console.OfDialog());
        QCOMPARE(console.Text("lblVol(0)"), "5.0");
        console.Key(Qt::Key_Return);
        QCOMPARE(console.room.FaderLevel, Word(50));
        QCOMPARE(console.Calls(), Calls{"SetVol 50"});
    }

    void aTextTypedInTheDialogIsDroppedWhenTheMainSliderMoves()
    {
        Console console;
        console.OpenDialog();
        console.TypeOnly("lblVol", "8");
        console.DragTo(console.Main(), 49);
        console.Drop(console.Main());
        QCOMPARE(console.Text("lblVol"), "5.0");
        console.Dialog()->close();
        QCOMPARE(console.room.FaderLevel, Word(50));
        QCOMPARE(console.Calls(), Calls{"SetVol 50"});
    }

    void aKeyWhoseReleaseNeverComesIsSentAndThePollResumes()
    {
        Console console;
        console.Main()->setFocus();
        console.Press(Qt::Key_Down);
        QVERIFY(!console.Find<QTimer>("tmrPoll")->isActive());
        console.Tick("tmrHold");
        QVERIFY(console.Find<QTimer>("tmrPoll")->isActive());
        QCOMPARE(console.Calls(), Calls{"SetVol 69"});
    }

    void aKeyWhoseReleaseNeverComesLeavesAStreamsPollingOff()
    {
        Console console;
        console.GoTo(Tab::OpticalSetup);
        console.Click("cmdStart");
        console.Main()->setFocus();
        console.Press(Qt::Key_Down);
        console.Tick("tmrHold");
        QVERIFY(!console.Find<QTimer>("tmrPoll")->isActive());
        QCOMPARE(int(console.unit.panel.level), 69);
    }
};

QTEST_MAIN(FaderEntryTest)
#include "faderentry_test.moc"
