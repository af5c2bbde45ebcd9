#include "support/ui/equaliserconsole.h"

#include <QGroupBox>
#include <QPushButton>

#include <algorithm>

using namespace kelvo;

class ChannelCommandsTest : public QObject {
    Q_OBJECT

  private slots:
    void channelChangeSendsNoiseOffFirstAndTakesTheNoiseAlong();
    void channelChangeTakesWhatIsTyped();
    void channelChangeOnABadValueIsNotCarriedOut();
    void pinkNoiseTogglesWithItsFace();
    void leavingTheTabStopsItsNoise();
    void noiseThatNewLeftPlayingStopsOnLeaving();
    void pasteRefusesInItsOrder();
    void pasteAsksAndUploadsOnce();
    void pasteTakesTheSourceAsItIsThen();
    void subwooferTakesNoPaste();
    void resetChannelAsksAndUploadsOnce();
    void resetSubwooferChoosesTheFirstButtons();
    void ctrlShortcutsRunTheirCommands();
    void shortcutsNeedTheirOptionAndTheTab();
    void cableLostInAPinkToggleIsOneMessage();
    void cableLostInAPasteIsOneMessageAndTheEditIsKept();
};

void ChannelCommandsTest::channelChangeSendsNoiseOffFirstAndTakesTheNoiseAlong()
{
    EqualiserConsole console;
    console.Choose(Center);
    QCOMPARE(console.Calls(), Calls{"SetPink 0 0"});
    console.Forget();
    console.Click("cmdPink");
    console.Choose(Subwoofer);
    QCOMPARE(console.Calls(), (Calls{"SetPink 2 -1", "SetPink 2 0", "SetPink 5 -1"}));
    QCOMPARE(console.Find<QPushButton>("cmdPink")->text(), "Pink Noise On");
}

void ChannelCommandsTest::channelChangeTakesWhatIsTyped()
{
    EqualiserConsole console;
    console.TypeOnly("lblBand(7)", "3");
    console.Choose(Center);
    QCOMPARE(console.Slice(Left).Band[7], Byte(6));
    QCOMPARE(console.Slice(Center).Band[7], Byte(12));
    QCOMPARE(console.Calls(), (Calls{"SetAudio", "SetPink 0 0"}));
}

void ChannelCommandsTest::channelChangeOnABadValueIsNotCarriedOut()
{
    EqualiserConsole console;
    console.TypeOnly("lblBand(7)", "33");
    console.AnswerNextBox("Range Check Error", QMessageBox::Ok);
    console.Choose(Center);
    QVERIFY(console.AllBoxesSeen());
    QCOMPARE(console.Find<QGroupBox>("frmBandA")->title(), "Left Channel");
    QCOMPARE(console.Calls(), Calls{});
    QTRY_VERIFY(console.Find<QLineEdit>("lblBand(7)")->hasFocus());
}

void ChannelCommandsTest::pinkNoiseTogglesWithItsFace()
{
    EqualiserConsole console;
    auto *cmdPink = console.Find<QPushButton>("cmdPink");
    QCOMPARE(cmdPink->text(), "Pink Noise Off");
    console.Click("cmdPink");
    QCOMPARE(cmdPink->text(), "Pink Noise On");
    QVERIFY(cmdPink->font().bold());
    QCOMPARE(cmdPink->grab().toImage().pixelColor(5, 5), QColor(255, 255, 0));
    console.Click("cmdPink");
    QCOMPARE(cmdPink->text(), "Pink Noise Off");
    QVERIFY(!cmdPink->font().bold());
    QCOMPARE(console.Calls(), (Calls{"SetPink 0 -1", "SetPink 0 0"}));
}

void ChannelCommandsTest::leavingTheTabStopsItsNoise()
{
    EqualiserConsole console;
    console.GoTo(Tab::Options);
    QCOMPARE(console.Calls(), Calls{});
    console.GoTo(Tab::Eq);
    console.Click("cmdPink");
    console.Forget();
    console.GoTo(Tab::Options);
    QCOMPARE(console.Calls(), Calls{"SetPink 0 0"});
    QCOMPARE(console.Find<QPushButton>("cmdPink")->text(), "Pink Noise Off");
}

void ChannelCommandsTest::noiseThatNewLeftPlayingStopsOnLeaving()
{
    EqualiserConsole console;
    console.Click("cmdPink");
    console.Forget();
    console.Trigger("mnuNew");
    QCOMPARE(console.Find<QPushButton>("cmdPink")->text(), "Pink Noise Off");
    QCOMPARE(console.Calls(), Calls{});
    console.GoTo(Tab::Options);
    QCOMPARE(console.Calls(), Calls{"SetPink 0 0"});
}

void ChannelCommandsTest::pasteRefusesInItsOrder()
{
    EqualiserConsole console;
    console.AnswerNextBox("Error", QMessageBox::Ok, "Nothing to Paste!");
    console.Click("cmdPaste");
    console.Click("cmdCopy");
    console.Click("cmdPaste");
    QVERIFY(console.AllBoxesSeen());
    console.Choose(LeftSurround);
    console.AnswerNextBox("Error", QMessageBox::Ok, "Incompatable Channel Format!");
    console.Click("cmdPaste");
    console.Click("cmdCopy");
    console.Choose(Center);
    console.AnswerNextBox("Error", QMessageBox::Ok, "Incompatable Channel Format!");
    console.Click("cmdPaste");
    QVERIFY(console.AllBoxesSeen());
    QVERIFY(!console.file.SettingsChanged);
    QVERIFY(!std::ranges::count(console.Calls(), "SetAudio"));
}

void ChannelCommandsTest::pasteAsksAndUploadsOnce()
{
    EqualiserConsole console(FillUnit);
    console.Click("cmdCopy");
    console.Choose(Right);
    console.Forget();
    const QString question = "Are you sure you want to copy Left Channel to Right Channel?";
    console.AnswerNextBox("Copy?", QMessageBox::No, question);
    console.Click("cmdPaste");
    QCOMPARE(console.Calls(), Calls{});
    QCOMPARE(console.Slice(Right).Band[3], Byte(200));
    console.AnswerNextBox("Copy?", QMessageBox::Yes, question);
    console.Click("cmdPaste");
    QCOMPARE(console.Calls(), Calls{"SetAudio"});
    QVERIFY(console.file.SettingsChanged);
    QCOMPARE(console.OfUnit(Right).Band, console.OfUnit(Left).Band);
    QCOMPARE(console.OfUnit(Right).BassLevel, console.OfUnit(Left).BassLevel);
    QCOMPARE(console.OfUnit(Right).TrebleLevel, console.OfUnit(Left).TrebleLevel);
    QCOMPARE(console.OfUnit(Right).unused29, Byte(204));
    QCOMPARE(console.Text("lblBand(1)"), QString("4.5"));
    console.Choose(Center);
    console.Forget();
    console.AnswerNextBox("Copy?", QMessageBox::Yes);
    console.Click("cmdPaste");
    QCOMPARE(console.OfUnit(Center).Band, console.OfUnit(Left).Band);
}

void ChannelCommandsTest::pasteTakesTheSourceAsItIsThen()
{
    EqualiserConsole console;
    console.Choose(LeftSurround);
    console.Click("cmdCopy");
    console.Type("lblLSRSv(4)", "5");
    console.Choose(RightSurround);
    console.AnswerNextBox("Copy?", QMessageBox::Yes,
                          "Are you sure you want to copy Left Surround Channel to Right Surround Channel?");
    console.Click("cmdPaste");
    QCOMPARE(console.Text("lblLSRSv(4)"), "5.0");
    QCOMPARE(console.OfUnit(RightSurround).Band[4], Byte(2));
}

void ChannelCommandsTest::subwooferTakesNoPaste()
{
    EqualiserConsole console;
    console.Click("cmdCopy");
    console.Choose(Subwoofer);
    console.AnswerNextBox("Error", QMessageBox::Ok, "Incompatable Channel Format!");
    console.Click("cmdPaste");
    console.Click("cmdCopy");
    console.Click("cmdPaste");
    QVERIFY(console.AllBoxesSeen());
}

void ChannelCommandsTest::resetChannelAsksAndUploadsOnce()
{
    EqualiserConsole console(FillUnit);
    const QString question = "Are you sure you want to reset Left Channel?";
    console.AnswerNextBox("Reset Channel?", QMessageBox::No, question);
    console.Click("cmdClear");
    QCOMPARE(console.Calls(), Calls{});
    console.AnswerNextBox("Reset Channel?", QMessageBox::Yes, question);
    console.Click("cmdClear");
    QCOMPARE(console.Calls(), Calls{"SetAudio"});
    for (int band = 0; band < BandCount; ++band) {
        QCOMPARE(console.Text("lblBand", band), "0.0");
        QCOMPARE(console.OfUnit(Left).Band[std::size_t(band)], Byte(12));
    }
    QCOMPARE(console.Text("lblBass"), "0");
    QCOMPARE(console.Text("lblTreb"), "0");
    QCOMPARE(console.OfUnit(Left).BassLevel, Byte(10));
    QVERIFY(console.file.SettingsChanged);
}

void ChannelCommandsTest::resetSubwooferChoosesTheFirstButtons()
{
    EqualiserConsole console(FillUnit);
    console.Choose(Subwoofer);
    console.AnswerNextBox("Reset Channel?", QMessageBox::Yes,
                          "Are you sure you want to reset Subwoofer Channel?");
    console.Click("cmdClear");
    QVERIFY(console.Option("optBand", 0)->isChecked());
    QVERIFY(console.Option("optSPB", 0)->isChecked());
    QCOMPARE(console.Text("lblGain"), "0.0");
    QCOMPARE(console.OfUnit(Subwoofer).Band[SubGain], Byte(12));
    QCOMPARE(console.OfUnit(Subwoofer).Band[SubWidth], Byte(0));
    QCOMPARE(console.OfUnit(Subwoofer).Band[SubFreq], Byte(0));
}

void ChannelCommandsTest::ctrlShortcutsRunTheirCommands()
{
    EqualiserConsole console;
    console.options.Shortcuts = true;
    console.Key(Qt::Key_M, Qt::ControlModifier);
    console.Key(Qt::Key_G, Qt::ControlModifier);
    QCOMPARE(console.Calls(), (Calls{"SetMute -1", "SetPink 0 -1"}));
    console.Forget();
    const std::array<Qt::Key, 6> keys{Qt::Key_L, Qt::Key_P, Qt::Key_C, Qt::Key_Q, Qt::Key_R, Qt::Key_E};
    for (int channel = ChannelCount - 1; channel >= 0; --channel) {
        console.Key(keys[std::size_t(channel)], Qt::ControlModifier);
        QVERIFY(console.Find<QPushButton>(Member("cmdEQChan", channel))->font().bold());
    }
    console.Type("lblVol(1)", "5");
    console.Forget();
    console.AnswerNextBox("Set Fader = 7.0", QMessageBox::Yes);
    console.Key(Qt::Key_7, Qt::ControlModifier);
    QCOMPARE(console.Calls(), Calls{"SetVol 70"});
}

void ChannelCommandsTest::shortcutsNeedTheirOptionAndTheTab()
{
    EqualiserConsole console;
    console.Key(Qt::Key_M, Qt::ControlModifier);
    console.options.Shortcuts = true;
    console.Key(Qt::Key_M, Qt::ControlModifier | Qt::ShiftModifier);
    console.Key(Qt::Key_X, Qt::ControlModifier);
    console.GoTo(Tab::OutputTrim);
    console.Key(Qt::Key_M, Qt::ControlModifier);
    QCOMPARE(console.Calls(), Calls{});
}

void ChannelCommandsTest::cableLostInAPinkToggleIsOneMessage()
{
    EqualiserConsole console;
    console.unit.panel.plugged = false;
    console.AnswerNextBox("Connection Error", QMessageBox::Ok);
    console.Click("cmdPink");
    QVERIFY(console.AllBoxesSeen());
    QVERIFY(!console.Find<QPushButton>("cmdPink")->isEnabled());
    console.Forget();
    console.GoTo(Tab::FormatSelection);
    QCOMPARE(console.Calls(), Calls{});
}

void ChannelCommandsTest::cableLostInAPasteIsOneMessageAndTheEditIsKept()
{
    EqualiserConsole console(FillUnit);
    console.Click("cmdCopy");
    console.Choose(Center);
    console.AnswerNextBox("Copy?", QMessageBox::Yes);
    console.AnswerNextBox("Connection Error", QMessageBox::Ok);
    console.unit.panel.plugged = false;
    console.Click("cmdPaste");
    QVERIFY(console.AllBoxesSeen());
    QCOMPARE(console.Slice(Center).Band, console.Slice(Left).Band);
    QVERIFY(!console.Slider("sclA", 0)->isEnabled());
}

QTEST_MAIN(ChannelCommandsTest)
#include "channelcommands_test.moc"
