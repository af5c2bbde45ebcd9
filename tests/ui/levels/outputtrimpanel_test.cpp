#include "support/ui/consoleundertest.h"

#include <QLineEdit>
#include <QPushButton>

#include <algorithm>

using namespace kelvo;

namespace {

const QColor Yellow(255, 255, 0);

/// The tab "Output Trim" with automatic upload on, every trim of the unit at 0 dB.
struct Console : ConsoleUnderTest {
    Console()
        : ConsoleUnderTest(OnLine, Tab::OutputTrim,
                           [](auto &start) { start.unit.audio.ChannelTrim.fill(12); })
    {
        options.AutoUpload = true;
    }

    LevelSlider *Slider(int channel) const { return Find<LevelSlider>(Member("sclPNG", channel)); }
    QString Text(int channel) const { return Find<QLineEdit>(Member("lblPNG", channel))->text(); }
    QPushButton *Button(const char *name, int channel) const
    {
        return Find<QPushButton>(Member(name, channel));
    }
    /// "caption, bold, yellow" of a toggle.
    QString Shows(const char *name, int channel) const
    {
        QPushButton *button = Button(name, channel);
        const bool yellow = button->grab().toImage().pixelColor(5, 5) == Yellow;
        return button->text() + (button->font().bold() ? ", bold" : "") + (yellow ? ", yellow" : "");
    }
};

} // namespace

class OutputTrimPanelTest : public QObject {
    Q_OBJECT

  private slots:
    void trimsShowTheUnitsBytes();
    void typedTrimGoesDownToTheStepBelowAndIsSentOnce();
    void draggedTrimIsSentOnce();
    void trimReadBackUnderTheFocusIsSentWhenItIsMovedToWhereItStoodBefore();
    void arrowsGoAlongTheSixAndRoundTheEnds();
    void badTrimIsToldAndNothingChanges();
    void resetSetsAllSixAndUploadsOnce();
    void resetTakesWhatIsTypedFirst();
    void resetWithAutomaticUploadOffIsStoredAndTold();
    void byteBeyondTheSliderStaysUntilItMoves();
    void noiseTogglesItsChannel();
    void noiseOnAMutedUnitUnmutesFirst();
    void noiseOffLeavesTheMuteAlone();
    void phaseTogglesItsChannel();
    void leavingTheTabSwitchesOffWhatRuns();
    void leavingTheTabWithNothingOnSendsNothing();
    void whatNewLeftRunningIsSwitchedOffOnLeaving();
    void newShowsEveryToggleOff();
    void explicitUploadSendsBothRecords();
    void cableLostInANoiseToggleIsOneMessage();
    void cableLostWhileTheUnmuteIsSentIsOneMessage();
    void cableLostBetweenAKeyAndAClickOnTheSameSlider();
    void tabKeyRunsFromLeftToRight();
};

void OutputTrimPanelTest::trimsShowTheUnitsBytes()
{
    Console console;
    console.unit.audio.ChannelTrim = {0, 7, 12, 13, 24, 255};
    console.Trigger("mnuRef");
    const std::array<const char *, 6> shown{"6.0", "2.5", "0.0", "-0.5", "-6.0", "-6.0"};
    for (int channel = 0; channel < ChannelCount; ++channel)
        QCOMPARE(console.Text(channel), shown[std::size_t(channel)]);
    QVERIFY(!std::ranges::count(console.Calls(), "SetAudio"));
}

void OutputTrimPanelTest::typedTrimGoesDownToTheStepBelowAndIsSentOnce()
{
    Console console;
    console.Type("lblPNG(2)", "2.2");
    QCOMPARE(console.Text(2), "2.0");
    QCOMPARE(console.Slider(2)->value(), 8);
    QCOMPARE(console.Calls(), Calls{"SetAudio"});
    QCOMPARE(console.unit.audio.ChannelTrim[Center], Byte(8));
    QVERIFY(console.file.SettingsChanged);
}

void OutputTrimPanelTest::draggedTrimIsSentOnce()
{
    Console console;
    console.DragTo("sclPNG(5)", 20);
    console.Drop("sclPNG(5)");
    QCOMPARE(console.Text(5), "-4.0");
    QCOMPARE(console.Calls(), Calls{"SetAudio"});
    QCOMPARE(console.unit.audio.ChannelTrim[Subwoofer], Byte(20));
}

void OutputTrimPanelTest::trimReadBackUnderTheFocusIsSentWhenItIsMovedToWhereItStoodBefore()
{
    Console console;
    console.Slider(0)->setFocus();
    console.unit.audio.ChannelTrim[Left] = 5;
    console.Trigger("mnuRef");
    console.Forget();
    console.DragTo("sclPNG(0)", 12);
    console.Drop("sclPNG(0)");
    QCOMPARE(console.Calls(), Calls{"SetAudio"});
    QCOMPARE(console.unit.audio.ChannelTrim[Left], Byte(12));
}

void OutputTrimPanelTest::arrowsGoAlongTheSixAndRoundTheEnds()
{
    Console console;
    console.Slider(0)->setFocus();
    console.Key(Qt::Key_Left);
    QVERIFY(console.Slider(5)->hasFocus());
    console.Key(Qt::Key_Right);
    QVERIFY(console.Slider(0)->hasFocus());
    console.Key(Qt::Key_Right);
    QVERIFY(console.Slider(1)->hasFocus());
    console.Key(Qt::Key_Up);
    QCOMPARE(console.Text(1), "0.5");
    QCOMPARE(console.Calls(), Calls{"SetAudio"});
}

void OutputTrimPanelTest::badTrimIsToldAndNothingChanges()
{
    Console console;
    console.AnswerNextBox("Range Check Error", QMessageBox::Ok,
                          "Error, Please enter a number between -6 and 6!");
    console.Type("lblPNG(0)", "-6.5");
    QVERIFY(console.AllBoxesSeen());
    QCOMPARE(console.room.Audio.ChannelTrim[Left], Byte(12));
    QCOMPARE(console.Calls(), Calls{});
}

void OutputTrimPanelTest::resetSetsAllSixAndUploadsOnce()
{
    Console console;
    for (int channel = 0; channel < ChannelCount; ++channel)
        console.Type(Member("lblPNG", channel), "3");
    console.Forget();
    console.file.SettingsChanged = false;
    console.Click("cmdReset");
    for (int channel = 0; channel < ChannelCount; ++channel) {
        QCOMPARE(console.Text(channel), "0.0");
        QCOMPARE(console.Slider(channel)->value(), 12);
        QCOMPARE(console.unit.audio.ChannelTrim[std::size_t(channel)], Byte(12));
    }
    QCOMPARE(console.Calls(), Calls{"SetAudio"});
    QVERIFY(console.file.SettingsChanged);
}

void OutputTrimPanelTest::resetTakesWhatIsTypedFirst()
{
    Console console;
    console.Type("lblPNG(0)", "3");
    console.TypeOnly("lblPNG(2)", "22");
    console.Forget();
    console.AnswerNextBox("Range Check Error", QMessageBox::Ok);
    console.Find<QPushButton>("cmdReset")->click();
    QVERIFY(console.AllBoxesSeen());
    QCOMPARE(console.Text(0), "3.0");
    QCOMPARE(console.Calls(), Calls{});
    console.TypeOnly("lblPNG(2)", "4");
    console.Find<QPushButton>("cmdReset")->click();
    QCOMPARE(console.Text(0), "0.0");
    QCOMPARE(console.Text(2), "0.0");
    console.Slider(2)->setFocus();
    QCOMPARE(console.unit.audio.ChannelTrim[Center], Byte(12));
    QCOMPARE(console.Calls(), (Calls{"SetAudio", "SetAudio"}));
}

void OutputTrimPanelTest::resetWithAutomaticUploadOffIsStoredAndTold()
{
    Console console;
    console.Type("lblPNG(3)", "3");
    console.Forget();
    console.options.AutoUpload = false;
    console.Click("cmdReset");
    QCOMPARE(console.Calls(), Calls{});
    QCOMPARE(console.room.Audio.ChannelTrim[RightSurround], Byte(12));
    QVERIFY(console.Find<QLabel>("lblSent")->text().startsWith("1 change"));
}

void OutputTrimPanelTest::byteBeyondTheSliderStaysUntilItMoves()
{
    Console console;
    console.unit.audio.ChannelTrim[Right] = 77;
    console.Trigger("mnuRef");
    console.Type("lblPNG(0)", "1");
    QCOMPARE(console.unit.audio.ChannelTrim[Right], Byte(77));
    console.Type("lblPNG(4)", "-5.5");
    QCOMPARE(console.unit.audio.ChannelTrim[Right], Byte(23));
}

void OutputTrimPanelTest::noiseTogglesItsChannel()
{
    Console console;
    for (int channel = 0; channel < ChannelCount; ++channel) {
        console.Forget();
        QCOMPARE(console.Shows("cmdPN", channel), "Off");
        console.Click(Member("cmdPN", channel));
        QCOMPARE(console.Shows("cmdPN", channel), "On, bold, yellow");
        console.Click(Member("cmdPN", channel));
        QCOMPARE(console.Shows("cmdPN", channel), "Off");
        const std::string number = std::to_string(channel);
        QCOMPARE(console.Calls(), (Calls{"SetPink " + number + " -1", "SetPink " + number + " 0"}));
    }
}

void OutputTrimPanelTest::noiseOnAMutedUnitUnmutesFirst()
{
    Console console;
    console.Click("cmdMute2");
    console.Forget();
    console.Click("cmdPN(2)");
    QCOMPARE(console.Calls(), (Calls{"SetMute 0", "SetPink 2 -1"}));
    QCOMPARE(console.Find<QPushButton>("cmdMute2")->text(), "Mute");
}

void OutputTrimPanelTest::noiseOffLeavesTheMuteAlone()
{
    Console console;
    console.Click("cmdPN(2)");
    console.Click("cmdMute2");
    console.Forget();
    console.Click("cmdPN(2)");
    QCOMPARE(console.Calls(), Calls{"SetPink 2 0"});
    QCOMPARE(console.Find<QPushButton>("cmdMute2")->text(), "Un-Mute");
}

void OutputTrimPanelTest::phaseTogglesItsChannel()
{
    Console console;
    QCOMPARE(console.Shows("cmdPhase", 3), "In Phase");
    console.Click("cmdPhase(3)");
    QCOMPARE(console.Shows("cmdPhase", 3), "Inverted, bold, yellow");
    console.Click("cmdPhase(3)");
    QCOMPARE(console.Shows("cmdPhase", 3), "In Phase");
    QCOMPARE(console.Calls(), (Calls{"SetPhase 3 -1", "SetPhase 3 0"}));
}

void OutputTrimPanelTest::leavingTheTabSwitchesOffWhatRuns()
{
    Console console;
    console.Click("cmdPN(0)");
    console.Click("cmdPN(4)");
    console.Click("cmdPhase(5)");
    console.Forget();
    console.GoTo(Tab::Options);
    QCOMPARE(console.Calls(), (Calls{"SetPink 0 0", "SetPink 4 0", "SetPhase 5 0"}));
    console.GoTo(Tab::OutputTrim);
    QCOMPARE(console.Shows("cmdPN", 4), "Off");
    QCOMPARE(console.Shows("cmdPhase", 5), "In Phase");
}

void OutputTrimPanelTest::leavingTheTabWithNothingOnSendsNothing()
{
    Console console;
    console.GoTo(Tab::Options);
    QCOMPARE(console.Calls(), Calls{});
}

void OutputTrimPanelTest::whatNewLeftRunningIsSwitchedOffOnLeaving()
{
    Console console;
    console.Click("cmdPN(1)");
    console.Click("cmdPhase(1)");
    console.Forget();
    console.Trigger("mnuNew");
    QCOMPARE(console.Calls(), Calls{});
    QCOMPARE(console.Shows("cmdPN", 1), "Off");
    console.GoTo(Tab::Options);
    QCOMPARE(console.Calls(), (Calls{"SetPink 1 0", "SetPhase 1 0"}));
}

void OutputTrimPanelTest::newShowsEveryToggleOff()
{
    Console console;
    for (int channel = 0; channel < ChannelCount; ++channel) {
        console.Click(Member("cmdPN", channel));
        console.Click(Member("cmdPhase", channel));
    }
    console.Trigger("mnuNew");
    for (int channel = 0; channel < ChannelCount; ++channel) {
        QCOMPARE(console.Shows("cmdPN", channel), "Off");
        QCOMPARE(console.Shows("cmdPhase", channel), "In Phase");
        QCOMPARE(console.Text(channel), "0.0");
    }
}

void OutputTrimPanelTest::explicitUploadSendsBothRecords()
{
    Console console;
    console.options.AutoUpload = false;
    console.TypeOnly("lblPNG(1)", "4");
    console.Click("cmdUp(0)");
    QCOMPARE(console.Calls(), (Calls{"SetSystem", "SetAudio"}));
    QCOMPARE(console.unit.audio.ChannelTrim[LeftSurround], Byte(4));
}

void OutputTrimPanelTest::cableLostInANoiseToggleIsOneMessage()
{
    Console console;
    console.unit.panel.plugged = false;
    console.AnswerNextBox("Connection Error", QMessageBox::Ok);
    console.Click("cmdPN(3)");
    QVERIFY(console.AllBoxesSeen());
    QVERIFY(!console.Button("cmdPN", 3)->isEnabled());
    console.Forget();
    console.GoTo(Tab::Options);
    QCOMPARE(console.Calls(), Calls{});
}

void OutputTrimPanelTest::cableLostWhileTheUnmuteIsSentIsOneMessage()
{
    Console console;
    console.Click("cmdMute2");
    console.Forget();
    console.unit.panel.plugged = false;
    console.AnswerNextBox("Connection Error", QMessageBox::Ok);
    console.Click("cmdPN(3)");
    QVERIFY(console.AllBoxesSeen());
    QVERIFY(!std::ranges::count(console.Calls(), "SetPink 3 -1"));
}

void OutputTrimPanelTest::cableLostBetweenAKeyAndAClickOnTheSameSlider()
{
    Console console;
    console.Slider(2)->setFocus();
    console.Press(Qt::Key_Down);
    console.unit.panel.plugged = false;
    console.AnswerNextBox("Connection Error", QMessageBox::Ok);
    console.ClickAt(console.Slider(2), 18);
    QVERIFY(console.AllBoxesSeen());
    QVERIFY(!console.Slider(2)->isEnabled());
    QCOMPARE(console.Slider(2)->value(), 13);
    QCOMPARE(console.room.Audio.ChannelTrim[Center], Byte(13));
    console.Tick("tmrPoll");
    QVERIFY(console.AllBoxesSeen());
}

void OutputTrimPanelTest::tabKeyRunsFromLeftToRight()
{
    Console console;
    console.Slider(0)->setFocus();
    QStringList order;
    for (int i = 0; i < 12; ++i) {
        console.Key(Qt::Key_Tab);
        order << QApplication::focusWidget()->objectName();
    }
    QCOMPARE(order,
             QStringList({"lblPNG(0)", "sclPNG(1)", "lblPNG(1)", "sclPNG(2)", "lblPNG(2)", "sclPNG(3)",
                          "lblPNG(3)", "sclPNG(4)", "lblPNG(4)", "sclPNG(5)", "lblPNG(5)", "cmdPN(0)"}));
}

QTEST_MAIN(OutputTrimPanelTest)
#include "outputtrimpanel_test.moc"
