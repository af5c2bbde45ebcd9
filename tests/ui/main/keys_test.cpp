#include "support/ui/consoleundertest.h"

#include <QAction>
#include <QClipboard>
#include <QLabel>
#include <QPushButton>
#include <QTabWidget>
#include <QTimer>

using namespace kelvo;

class KeysTest : public QObject {
    Q_OBJECT

  private slots:
    void f1ConnectsAndDoesNothingOnLine();
    void f1OnLineLeavesWhatIsTypedOrHeldAlone();
    void f2SendsBothRecordsFromAnyTab();
    void f2TakesWhatIsBeingTypedFirst();
    void f2IsCalledOffByABadValue();
    void f2AsksWhenTheConfirmBoxIsWanted();
    void aHeldKeyActsOnce();
    void f4MutesAndUnMutesOnEveryTab_data();
    void f4MutesAndUnMutesOnEveryTab();
    void f4LeavesWhatIsTypedAlone();
    void f4DoesNothing_data();
    void f4DoesNothing();
    void aShortcutRunsItsCommand_data();
    void aShortcutRunsItsCommand();
    void aShortcutNeedsItsConditions_data();
    void aShortcutNeedsItsConditions();
    void aFieldKeepsItsOwnKeysWithoutShortcuts();
    void aShortcutTakesWhatIsBeingTypedFirst();
    void aShortcutWhoseEntryLosesTheLinkIsNotRun_data();
    void aShortcutWhoseEntryLosesTheLinkIsNotRun();
    void keysThatAreNoCharactersAreNoShortcuts();
};

namespace {

void WithShortcuts(ConsoleUnderTest &test)
{
    test.options.Shortcuts = true;
}

} // namespace

void KeysTest::f1ConnectsAndDoesNothingOnLine()
{
    ConsoleUnderTest console(OffLine);
    console.unit.panel.plugged = true;
    console.Key(Qt::Key_F1);
    QCOMPARE(console.Find<QLabel>("lblStat")->text(), "On Line");
    console.Forget();
    console.Key(Qt::Key_F1);
    QCOMPARE(console.Calls(), Calls());
}

void KeysTest::f1OnLineLeavesWhatIsTypedOrHeldAlone()
{
    ConsoleUnderTest console(OnLine, Tab::OutputTrim);
    console.TypeOnly("lblPNG(2)", "22");
    console.Key(Qt::Key_F1);
    QCOMPARE(console.Find<QLineEdit>("lblPNG(2)")->text(), "22");
    console.Type("lblPNG(2)", "0");
    console.TypeOnly("lblVol(3)", "5.0");
    console.Forget();
    console.Key(Qt::Key_F1);
    QCOMPARE(console.Find<QLineEdit>("lblVol(3)")->text(), "5.0");
    QCOMPARE(console.Calls(), Calls());
    console.Type("lblVol(3)", "7");
    console.Find<QSlider>("sclVol")->setFocus();
    console.Press(Qt::Key_Up);
    console.Press(Qt::Key_F1);
    QCOMPARE(console.Calls(), Calls());
    console.Release(Qt::Key_Up);
    QCOMPARE(console.Calls(), Calls{"SetVol 71"});
}

void KeysTest::f2SendsBothRecordsFromAnyTab()
{
    ConsoleUnderTest console;
    for (int tab = 0; tab < TabCount; ++tab) {
        console.GoTo(Tab(tab));
        console.Forget();
        console.Key(Qt::Key_F2);
        QCOMPARE(console.Calls(), (Calls{"SetSystem", "SetAudio"}));
    }
}

void KeysTest::f2TakesWhatIsBeingTypedFirst()
{
    ConsoleUnderTest console(OnLine, Tab::OutputTrim);
    console.TypeOnly("lblPNG(2)", "2.2");
    console.Key(Qt::Key_F2);
    QCOMPARE(console.unit.audio.ChannelTrim[Center], Byte(8));
    QCOMPARE(console.Find<QLineEdit>("lblPNG(2)")->text(), "2.0");
}

void KeysTest::f2IsCalledOffByABadValue()
{
    ConsoleUnderTest console(OnLine, Tab::OutputTrim);
    console.TypeOnly("lblPNG(2)", "22");
    console.AnswerNextBox("Range Check Error", QMessageBox::Ok);
    console.Key(Qt::Key_F2);
    QCOMPARE(console.Calls(), Calls());
    console.Type("lblPNG(2)", "0");
}

void KeysTest::f2AsksWhenTheConfirmBoxIsWanted()
{
    ConsoleUnderTest console;
    console.options.ConfirmUpload = true;
    console.AnswerNextBox("Confirm Upload!", QMessageBox::No,
                          "Are you sure you want to Upload the Current Settings?");
    console.Key(Qt::Key_F2);
    QCOMPARE(console.Calls(), Calls());
    console.AnswerNextBox("Confirm Upload!", QMessageBox::Yes);
    console.Key(Qt::Key_F2);
    QCOMPARE(console.Calls(), (Calls{"SetSystem", "SetAudio"}));
}

void KeysTest::aHeldKeyActsOnce()
{
    ConsoleUnderTest console;
    console.Press(Qt::Key_F2);
    console.Repeat(Qt::Key_F2);
    console.Repeat(Qt::Key_F2);
    console.Release(Qt::Key_F2);
    QCOMPARE(console.Calls(), (Calls{"SetSystem", "SetAudio"}));
}

void KeysTest::f4MutesAndUnMutesOnEveryTab_data()
{
    QTest::addColumn<int>("tab");
    for (int tab = 0; tab < TabCount; ++tab)
        QTest::addRow("tab %d", tab) << tab;
}

void KeysTest::f4MutesAndUnMutesOnEveryTab()
{
    QFETCH(int, tab);
    ConsoleUnderTest console(OnLine, Tab(tab));
    console.Key(Qt::Key_F4);
    QCOMPARE(console.Calls(), Calls{"SetMute -1"});
    QCOMPARE(console.Find<QPushButton>("cmdMute")->text(), "Un-Mute");
    console.Key(Qt::Key_F4);
    QCOMPARE(console.Calls(), (Calls{"SetMute -1", "SetMute 0"}));
    QCOMPARE(console.Find<QPushButton>("cmdMute")->text(), "Mute");
}

void KeysTest::f4LeavesWhatIsTypedAlone()
{
    ConsoleUnderTest console(OnLine, Tab::OutputTrim);
    console.TypeOnly("lblPNG(2)", "3.");
    console.Key(Qt::Key_F4);
    QCOMPARE(console.Calls(), Calls{"SetMute -1"});
    QCOMPARE(console.Find<QLineEdit>("lblPNG(2)")->text(), "3.");
    QVERIFY(console.Find<QLineEdit>("lblPNG(2)")->hasFocus());
}

void KeysTest::f4DoesNothing_data()
{
    QTest::addColumn<std::function<void(ConsoleUnderTest &)>>("act");
    const auto add = [](const char *name, std::function<void(ConsoleUnderTest &)> act) {
        QTest::newRow(name) << std::move(act);
    };
    add("off line", [](ConsoleUnderTest &console) {
        console.unit.panel.plugged = false;
        console.AnswerNextBox("Connection Error", QMessageBox::Ok);
        console.Tick("tmrPoll");
        console.Forget();
        console.Key(Qt::Key_F4);
    });
    add("while a stream runs", [](ConsoleUnderTest &console) {
        console.GoTo(Tab::OpticalSetup);
        console.Click("cmdStart");
        console.Find<QTimer>("tmrOptical")->stop();
        console.Forget();
        console.Key(Qt::Key_F4);
    });
    add("while it repeats", [](ConsoleUnderTest &console) {
        console.Repeat(Qt::Key_F4);
        console.Release(Qt::Key_F4);
    });
    add("with Shift", [](ConsoleUnderTest &console) { console.Key(Qt::Key_F4, Qt::ShiftModifier); });
    add("inside a call", [](ConsoleUnderTest &console) {
        console.unit.FailNext(Operation::SetVol, 8, 1);
        console.clock.duringPause = [&console] { console.Key(Qt::Key_F4); };
        console.Type("lblVol(3)", "6");
        console.Forget();
    });
}

void KeysTest::f4DoesNothing()
{
    QFETCH(std::function<void(ConsoleUnderTest &)>, act);
    ConsoleUnderTest console;
    act(console);
    QCOMPARE(console.Calls(), Calls());
    QCOMPARE(console.room.MuteState, False);
}

void KeysTest::aShortcutRunsItsCommand_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<QString>("current"); // the channel button that is grey afterwards
    QTest::addColumn<QString>("call");
    QTest::newRow("m mutes") << int(Qt::Key_M) << "cmdEQChan(0)"
                             << "SetMute -1";
    QTest::newRow("g plays noise") << int(Qt::Key_G) << "cmdEQChan(0)"
                                   << "SetPink 0 -1";
    // The channel that is left is silenced whether it played or not.
    QTest::newRow("l selects Left") << int(Qt::Key_L) << "cmdEQChan(0)"
                                    << "SetPink 0 0";
    QTest::newRow("p selects Left Surround") << int(Qt::Key_P) << "cmdEQChan(1)"
                                             << "SetPink 0 0";
    QTest::newRow("c selects Center") << int(Qt::Key_C) << "cmdEQChan(2)"
                                      << "SetPink 0 0";
    QTest::newRow("q selects Right Surround") << int(Qt::Key_Q) << "cmdEQChan(3)"
                                              << "SetPink 0 0";
    QTest::newRow("r selects Right") << int(Qt::Key_R) << "cmdEQChan(4)"
                                     << "SetPink 0 0";
    QTest::newRow("e selects Subwoofer") << int(Qt::Key_E) << "cmdEQChan(5)"
                                         << "SetPink 0 0";
}

void KeysTest::aShortcutRunsItsCommand()
{
    QFETCH(int, key);
    QFETCH(QString, current);
    QFETCH(QString, call);
    ConsoleUnderTest console(OnLine, Tab::Eq);
    WithShortcuts(console);
    console.Find<QLineEdit>("lblBass")->setFocus();
    console.Key(Qt::Key(key), Qt::ControlModifier);
    QVERIFY(console.Find<QPushButton>(current)->font().bold());
    QCOMPARE(console.Calls(), Calls{call.toStdString()});
}

void KeysTest::aShortcutNeedsItsConditions_data()
{
    QTest::addColumn<bool>("enabled");
    QTest::addColumn<int>("tab");
    QTest::addColumn<int>("modifiers");
    QTest::addColumn<bool>("plugged");
    QTest::newRow("the option is off") << false << 2 << int(Qt::ControlModifier) << true;
    QTest::newRow("another tab") << true << 1 << int(Qt::ControlModifier) << true;
    QTest::newRow("no Ctrl") << true << 2 << int(Qt::NoModifier) << true;
    QTest::newRow("Ctrl and Shift") << true << 2 << int(Qt::ControlModifier | Qt::ShiftModifier) << true;
    QTest::newRow("Ctrl and Alt") << true << 2 << int(Qt::ControlModifier | Qt::AltModifier) << true;
    QTest::newRow("off line") << true << 2 << int(Qt::ControlModifier) << false;
}

void KeysTest::aShortcutNeedsItsConditions()
{
    QFETCH(bool, enabled);
    QFETCH(int, tab);
    QFETCH(int, modifiers);
    QFETCH(bool, plugged);
    ConsoleUnderTest console(plugged ? OnLine : OffLine, Tab(tab));
    console.options.Shortcuts = enabled;
    console.Key(Qt::Key_M, Qt::KeyboardModifiers(modifiers));
    QCOMPARE(console.Calls(), Calls());
    QCOMPARE(console.room.MuteState, False);
}

void KeysTest::aFieldKeepsItsOwnKeysWithoutShortcuts()
{
    ConsoleUnderTest console(OnLine, Tab::Eq);
    console.TypeOnly("lblBass", "3");
    console.Find<QLineEdit>("lblBass")->selectAll();
    console.Key(Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(QApplication::clipboard()->text(), "3");
    QVERIFY(console.Find<QPushButton>("cmdEQChan(0)")->font().bold());
    // With shortcuts on, a key that is none of them is still the field's.
    WithShortcuts(console);
    console.Key(Qt::Key_X, Qt::ControlModifier);
    QCOMPARE(console.Find<QLineEdit>("lblBass")->text(), "");
}

void KeysTest::aShortcutTakesWhatIsBeingTypedFirst()
{
    ConsoleUnderTest console(OnLine, Tab::Eq);
    WithShortcuts(console);
    console.TypeOnly("lblBass", "3");
    console.Key(Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(console.room.Audio.ChannelEq[Left].BassLevel, Byte(7));
    console.TypeOnly("lblBass", "33");
    console.AnswerNextBox("Range Check Error", QMessageBox::Ok);
    console.Key(Qt::Key_L, Qt::ControlModifier);
    QVERIFY(console.Find<QPushButton>("cmdEQChan(2)")->font().bold());
    console.Type("lblBass", "0");
}

void KeysTest::aShortcutWhoseEntryLosesTheLinkIsNotRun_data()
{
    QTest::addColumn<int>("key");
    QTest::newRow("a channel") << int(Qt::Key_C);
    QTest::newRow("mute") << int(Qt::Key_M);
    QTest::newRow("noise") << int(Qt::Key_G);
    QTest::newRow("fader 7.0") << int(Qt::Key_7);
}

void KeysTest::aShortcutWhoseEntryLosesTheLinkIsNotRun()
{
    QFETCH(int, key);
    ConsoleUnderTest console(OnLine, Tab::Eq);
    WithShortcuts(console);
    console.options.AutoUpload = true;
    console.TypeOnly("lblBass", "3");
    console.unit.panel.plugged = false;
    console.AnswerNextBox("Connection Error", QMessageBox::Ok);
    console.Key(Qt::Key(key), Qt::ControlModifier);
    QVERIFY(console.AllBoxesSeen());
    QVERIFY(console.Find<QPushButton>("cmdEQChan(0)")->font().bold());
    QCOMPARE(console.Find<QPushButton>("cmdPink")->text(), "Pink Noise Off");
    QCOMPARE(console.room.MuteState, False);
}

void KeysTest::keysThatAreNoCharactersAreNoShortcuts()
{
    ConsoleUnderTest console(OnLine, Tab::Eq);
    WithShortcuts(console);
    // The code of F8 ends in that of the digit 7.
    console.Key(Qt::Key_F8, Qt::ControlModifier);
    QCOMPARE(console.Calls(), Calls());
}

QTEST_MAIN(KeysTest)
#include "keys_test.moc"
