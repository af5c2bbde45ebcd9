#include "support/ui/consoleundertest.h"

#include "files/configfile.h"

#include <QAction>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>

using namespace kelvo;

/// Undo, redo, the history's window and slots, by keys and menus.
class UndoTest : public QObject {
    Q_OBJECT

  private slots:
    void theMenuNamesWhatIsUndoneAndRedone();
    void aDragIsOneStep();
    void aHeldKeyIsOneStep();
    void undoBelongsToTheTextWhileOneIsTyped();
    void rightAfterEnterUndoBelongsToTheSetting();
    void whatIsTypedIsTakenBeforeTheMenuUndoes();
    void theSliderWithTheFocusMayBeMovedBackAfterAnUndo();
    void unsentWorkThatUpdateReplacedComesBack();
    void aReconnectionIsAStepTheStartIsNone();
    void offLineAnUndoWaitsAndTheLineTells();
    void undoWorksAfterAConnectionThatFailed();
    void openingAFileEndsTheHistory();
    void theHistoryListsStepsWithTimesAndGoesThereAndBack();
    void stepsUndoneWhileTheHistoryIsClosedAreGreyInIt();
    void aRowThatCannotBeGoneToIsNotChosen();
    void slotsAreKeptAndRecalledByKeys();
    void anEmptySlotCannotBeRecalled();
    void theMasterColumnNamesTheSlotThatTheScreenEquals();
    void undoingEverythingGivesTheRoomOfTheStart();
};

namespace {

QString Last(const ConsoleUnderTest &console)
{
    return console.Action("mnuUndo")->text();
}

void AllTrimsFlat(ConsoleUnderTest &console)
{
    console.unit.audio.ChannelTrim.fill(12);
}

/// On the trims' tab, over a unit whose trims are at 0 dB; each edit is sent.
struct SendingConsole : ConsoleUnderTest {
    SendingConsole() : ConsoleUnderTest(OnLine, Tab::OutputTrim, AllTrimsFlat) { options.AutoUpload = true; }
};

} // namespace

void UndoTest::theMenuNamesWhatIsUndoneAndRedone()
{
    SendingConsole console;
    QCOMPARE(Last(console), "Undo");
    QVERIFY(!console.Action("mnuUndo")->isEnabled());
    console.Type("lblPNG(2)", "-1");
    QCOMPARE(Last(console), "Undo Center, output trim: -1.0 dB");
    console.Forget();
    console.Trigger("mnuUndo");
    QCOMPARE(console.Find<QLineEdit>("lblPNG(2)")->text(), "0.0");
    QCOMPARE(console.Find<QSlider>("sclPNG(2)")->value(), 12);
    QCOMPARE(console.Calls(), Calls{"SetAudio"});
    QCOMPARE(Last(console), "Undo");
    QCOMPARE(console.Action("mnuRedo")->text(), "Redo Center, output trim: -1.0 dB");
    console.Key(Qt::Key_Y, Qt::ControlModifier);
    QCOMPARE(console.Find<QLineEdit>("lblPNG(2)")->text(), "-1.0");
    QCOMPARE(console.unit.audio.ChannelTrim[Center], Byte(14));
}

void UndoTest::aDragIsOneStep()
{
    SendingConsole console;
    console.Take("sclPNG(0)");
    for (int position = 11; position >= 3; --position)
        console.MoveTo("sclPNG(0)", position);
    console.Drop("sclPNG(0)");
    QCOMPARE(Last(console), "Undo Left, output trim: +4.5 dB");
    console.Forget();
    console.Key(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(console.Find<QSlider>("sclPNG(0)")->value(), 12);
    QVERIFY(!console.Action("mnuUndo")->isEnabled());
    QCOMPARE(console.Calls(), Calls{"SetAudio"});
}

void UndoTest::aHeldKeyIsOneStep()
{
    SendingConsole console;
    console.Find<QSlider>("sclPNG(1)")->setFocus();
    console.Press(Qt::Key_Down);
    for (int repeat = 0; repeat < 4; ++repeat)
        console.Repeat(Qt::Key_Down);
    console.Release(Qt::Key_Down);
    QCOMPARE(Last(console), "Undo Left Surround, output trim: -2.5 dB");
    console.Key(Qt::Key_Z, Qt::ControlModifier);
    QVERIFY(!console.Action("mnuUndo")->isEnabled());
}

void UndoTest::undoBelongsToTheTextWhileOneIsTyped()
{
    SendingConsole console;
    console.Type("lblPNG(0)", "3");
    console.TypeOnly("lblPNG(1)", "2");
    console.Key(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(console.Find<QLineEdit>("lblPNG(1)")->text(), "0.0");
    QCOMPARE(Last(console), "Undo Left, output trim: +3.0 dB");
    console.Key(Qt::Key_Y, Qt::ControlModifier);
    QCOMPARE(console.Action("mnuRedo")->text(), "Redo");
}

void UndoTest::rightAfterEnterUndoBelongsToTheSetting()
{
    SendingConsole console;
    console.Type("lblPNG(0)", "3");
    QVERIFY(console.Find<QLineEdit>("lblPNG(0)")->hasFocus());
    console.Key(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(console.Find<QLineEdit>("lblPNG(0)")->text(), "0.0");
    QCOMPARE(console.unit.audio.ChannelTrim[Left], Byte(12));
}

void UndoTest::whatIsTypedIsTakenBeforeTheMenuUndoes()
{
    SendingConsole console;
    console.Type("lblPNG(0)", "3");
    console.TypeOnly("lblPNG(1)", "2");
    console.Trigger("mnuUndo");
    QCOMPARE(console.Find<QLineEdit>("lblPNG(1)")->text(), "0.0");
    QCOMPARE(console.Action("mnuRedo")->text(), "Redo Left Surround, output trim: +2.0 dB");
    console.TypeOnly("lblPNG(1)", "99");
    console.AnswerNextBox("Range Check Error", QMessageBox::Ok);
    console.Trigger("mnuUndo");
    QCOMPARE(Last(console), "Undo Left, output trim: +3.0 dB");
    console.Type("lblPNG(1)", "0");
}

void UndoTest::theSliderWithTheFocusMayBeMovedBackAfterAnUndo()
{
    SendingConsole console;
    console.Find<QSlider>("sclPNG(0)")->setFocus();
    console.Key(Qt::Key_Down);
    console.Key(Qt::Key_Z, Qt::ControlModifier);
    console.Forget();
    console.Key(Qt::Key_Down);
    QCOMPARE(console.Calls(), Calls{"SetAudio"});
    QCOMPARE(console.unit.audio.ChannelTrim[Left], Byte(13));
}

void UndoTest::unsentWorkThatUpdateReplacedComesBack()
{
    ConsoleUnderTest console(OnLine, Tab::OutputTrim, AllTrimsFlat);
    console.Type("lblPNG(0)", "3");
    console.Type("lblPNG(1)", "2");
    console.Trigger("mnuRef");
    QCOMPARE(console.Find<QLineEdit>("lblPNG(0)")->text(), "0.0");
    QCOMPARE(Last(console), "Undo Read from the unit (2 settings)");
    console.Forget();
    console.Trigger("mnuUndo");
    QCOMPARE(console.Find<QLineEdit>("lblPNG(0)")->text(), "3.0");
    QCOMPARE(console.Find<QLineEdit>("lblPNG(1)")->text(), "2.0");
    QCOMPARE(console.Calls(), Calls());
    QVERIFY(console.Find<QLabel>("lblSent")->text().startsWith("2 changes"));
}

void UndoTest::aReconnectionIsAStepTheStartIsNone()
{
    ConsoleUnderTest console(OnLine, Tab::OutputTrim, AllTrimsFlat);
    QVERIFY(!console.Action("mnuUndo")->isEnabled());
    console.Type("lblPNG(0)", "3");
    console.unit.panel.plugged = false;
    console.AnswerNextBox("Connection Error", QMessageBox::Ok);
    console.Tick("tmrPoll");
    console.unit.panel.plugged = true;
    console.Click("cmdConnect");
    QCOMPARE(Last(console), "Undo Read from the unit (1 setting)");
    console.Trigger("mnuUndo");
    QCOMPARE(console.Find<QLineEdit>("lblPNG(0)")->text(), "3.0");
}

void UndoTest::offLineAnUndoWaitsAndTheLineTells()
{
    SendingConsole console;
    console.Type("lblPNG(0)", "3");
    console.unit.panel.plugged = false;
    console.AnswerNextBox("Connection Error", QMessageBox::Ok);
    console.Tick("tmrPoll");
    console.Forget();
    console.Trigger("mnuUndo");
    QCOMPARE(console.Find<QLineEdit>("lblPNG(0)")->text(), "0.0");
    QCOMPARE(console.Calls(), Calls());
    QVERIFY(console.Find<QLabel>("lblSent")->text().startsWith("1 change"));
}

void UndoTest::undoWorksAfterAConnectionThatFailed()
{
    SendingConsole console;
    console.Type("lblPNG(0)", "3");
    console.unit.panel.plugged = false;
    console.AnswerNextBox("Connection Error", QMessageBox::Ok);
    console.Tick("tmrPoll");
    console.AnswerNextBox("Connection Error", QMessageBox::Ok);
    console.Click("cmdConnect");
    console.Trigger("mnuUndo");
    QCOMPARE(console.Find<QLineEdit>("lblPNG(0)")->text(), "0.0");
    console.Trigger("mnuRedo");
    QCOMPARE(console.Find<QLineEdit>("lblPNG(0)")->text(), "3.0");
}

void UndoTest::openingAFileEndsTheHistory()
{
    SendingConsole console;
    console.Type("lblPNG(0)", "3");
    QVERIFY(!SaveConfigFile(console.File("a.zcf").toStdString(), console.room));
    QVERIFY(console.window->OpenFile(console.File("a.zcf")));
    QVERIFY(!console.Action("mnuUndo")->isEnabled());
}

void UndoTest::theHistoryListsStepsWithTimesAndGoesThereAndBack()
{
    SendingConsole console;
    console.clock.Set(2024, 3, 14, 21, 4);
    console.Type("lblPNG(0)", "1");
    console.Type("lblPNG(1)", "2");
    console.Trigger("mnuHistory");
    auto *list = console.Find<QListWidget>("lstHistory");
    QCOMPARE(list->count(), 3);
    QCOMPARE(list->item(1)->text(), "21:4   Left, output trim: +1.0 dB");
    QCOMPARE(list->currentRow(), 2);
    const auto click = [&](int row) {
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                          list->visualItemRect(list->item(row)).center());
    };
    click(0);
    QCOMPARE(console.Find<QLineEdit>("lblPNG(0)")->text(), "0.0");
    QCOMPARE(console.Find<QLineEdit>("lblPNG(1)")->text(), "0.0");
    click(2);
    QCOMPARE(console.Find<QLineEdit>("lblPNG(1)")->text(), "2.0");
    click(1);
    QCOMPARE(console.Find<QLineEdit>("lblPNG(0)")->text(), "1.0");
    QCOMPARE(console.Find<QLineEdit>("lblPNG(1)")->text(), "0.0");
    console.window->activateWindow();
    console.Type("lblPNG(2)", "4");
    QCOMPARE(list->count(), 3);
    QCOMPARE(list->item(2)->text(), "21:4   Center, output trim: +4.0 dB");
    QTest::keyClick(list, Qt::Key_Escape);
    QVERIFY(!list->isVisible());
}

void UndoTest::stepsUndoneWhileTheHistoryIsClosedAreGreyInIt()
{
    SendingConsole console;
    console.Trigger("mnuHistory");
    auto *list = console.Find<QListWidget>("lstHistory");
    QTest::keyClick(list, Qt::Key_Escape);
    console.window->activateWindow();
    console.Type("lblPNG(0)", "1");
    console.Trigger("mnuUndo");
    console.Trigger("mnuHistory");
    QCOMPARE(list->count(), 2);
    QCOMPARE(list->item(1)->foreground().color(), list->palette().color(QPalette::Disabled, QPalette::Text));
    console.Trigger("mnuRedo");
    QCOMPARE(list->item(1)->foreground().color(), list->palette().color(QPalette::Active, QPalette::Text));
}

void UndoTest::aRowThatCannotBeGoneToIsNotChosen()
{
    SendingConsole console;
    console.Type("lblPNG(0)", "1");
    console.Trigger("mnuHistory");
    auto *list = console.Find<QListWidget>("lstHistory");
    console.window->activateWindow();
    console.TypeOnly("lblPNG(1)", "99");
    console.AnswerNextBox("Range Check Error", QMessageBox::Ok);
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualItemRect(list->item(0)).center());
    QCOMPARE(console.Find<QLineEdit>("lblPNG(0)")->text(), "1.0");
    QCOMPARE(list->currentRow(), 1);
    console.Type("lblPNG(1)", "0");
}

void UndoTest::slotsAreKeptAndRecalledByKeys()
{
    SendingConsole console;
    console.Key(Qt::Key_F5, Qt::ShiftModifier);
    console.Type("lblPNG(0)", "3");
    console.Type("lblPNG(1)", "-2");
    console.Key(Qt::Key_F6, Qt::ShiftModifier);
    console.Forget();
    console.Key(Qt::Key_F5);
    QCOMPARE(console.Find<QLineEdit>("lblPNG(0)")->text(), "0.0");
    QCOMPARE(console.Calls(), Calls{"SetAudio"});
    QCOMPARE(Last(console), "Undo Recall A");
    console.Key(Qt::Key_F6);
    QCOMPARE(console.Find<QLineEdit>("lblPNG(1)")->text(), "-2.0");
    QCOMPARE(console.Calls(), (Calls{"SetAudio", "SetAudio"}));
}

void UndoTest::anEmptySlotCannotBeRecalled()
{
    SendingConsole console;
    QVERIFY(!console.Action("mnuRecall(3)")->isEnabled());
    console.Key(Qt::Key_F8);
    QCOMPARE(console.Calls(), Calls());
    console.Trigger("mnuKeep(3)");
    QVERIFY(console.Action("mnuRecall(3)")->isEnabled());
    QCOMPARE(console.Action("mnuRecall(3)")->text(), "Recall D");
    QCOMPARE(console.Action("mnuKeep(3)")->text(), "Keep as D");
    QCOMPARE(console.Calls(), Calls());
}

void UndoTest::theMasterColumnNamesTheSlotThatTheScreenEquals()
{
    SendingConsole console;
    const auto *lblSlot = console.Find<QLabel>("lblSlot");
    QVERIFY(lblSlot->text().isEmpty());
    console.Trigger("mnuKeep(0)");
    QCOMPARE(lblSlot->text(), "Slot A");
    console.Trigger("mnuKeep(2)");
    QCOMPARE(lblSlot->text(), "Slot A, C");
    console.Type("lblPNG(0)", "3");
    QVERIFY(lblSlot->text().isEmpty());
    console.Type("lblVol(0)", "3");
    console.Type("lblPNG(0)", "0");
    QCOMPARE(lblSlot->text(), "Slot A, C");
}

void UndoTest::undoingEverythingGivesTheRoomOfTheStart()
{
    ConsoleUnderTest console(OnLine, Tab::OutputTrim, AllTrimsFlat);
    const RoomSettings start = console.room;
    for (int channel = 0; channel < ChannelCount; ++channel)
        console.Type(Member("lblPNG", channel), QString::number(channel - 3));
    console.GoTo(Tab::Options);
    console.ChooseItem("cboNonsyncMode", console.Find<QComboBox>("cboNonsyncMode")->itemText(1));
    const RoomSettings end = console.room;
    while (console.Action("mnuUndo")->isEnabled())
        console.Trigger("mnuUndo");
    QVERIFY(console.room == start);
    while (console.Action("mnuRedo")->isEnabled())
        console.Trigger("mnuRedo");
    QVERIFY(console.room == end);
}

QTEST_MAIN(UndoTest)
#include "undo_test.moc"
