#include "support/ui/equaliserconsole.h"

#include <QGroupBox>
#include <QPushButton>

#include <algorithm>

using namespace kelvo;

namespace {

const std::array<const char *, 6> ChannelNames{"Left Channel",   "Left Surround Channel",
                                               "Center Channel", "Right Surround Channel",
                                               "Right Channel",  "Subwoofer Channel"};

} // namespace

class EqualiserPanelTest : public QObject {
    Q_OBJECT

  private slots:
    void eachChannelShowsThePanelOfItsKindUnderItsName();
    void currentChannelIsGreyAndBold();
    void channelsBytesAreShownAsDecibels();
    void bandDraggedByMouseIsStoredAndSentOnce();
    void bandTypedIsStoredAndSentOnce();
    void bandKeysAndNeighboursGoRoundTheEnds();
    void bassAndTrebleAreOneKeyboardGroup();
    void rangeMessagesOfTheTab_data();
    void rangeMessagesOfTheTab();
    void changeWithAutomaticUploadOffIsStoredAndTold();
    void changeBackToThePositionAtFocusIsStoredNotSentAndTold();
    void byteBeyondItsControlStaysUntilThatControlMoves();
    void centreFrequencyAndWidthAreTwoGroupsStoredAndSent();
    void subBassGainKeysAndTyping();
    void optionsSetByCodeAreNoClicks();
    void explicitUploadSendsWhatTheTabShows();
    void readBackShowsTheUnitAndSendsNothing();
    void readBackWaitsForTheHand();
    void levelHalfTypedOutlivesAReadBackThatLosesTheLink_data();
    void levelHalfTypedOutlivesAReadBackThatLosesTheLink();
    void cableLostDuringADragIsOneMessageAndTheEditIsKept();
    void cableLostByAPollDuringADragIsOneMessage();
    void everyControlIsNamedForAScreenReader();
    void tabKeyRunsThroughTheChannelButtonsThenTheBands();
};

void EqualiserPanelTest::eachChannelShowsThePanelOfItsKindUnderItsName()
{
    EqualiserConsole console;
    const std::array<const char *, 6> frame{"frmBandA", "frmBandB", "frmBandA",
                                            "frmBandB", "frmBandA", "frmBass"};
    for (int channel = 0; channel < ChannelCount; ++channel) {
        console.Choose(channel);
        for (const char *each : {"frmBandA", "frmBandB", "frmBass"})
            QCOMPARE(console.IsShown(each), QString(each) == frame[std::size_t(channel)]);
        QCOMPARE(console.Find<QGroupBox>(frame[std::size_t(channel)])->title(),
                 ChannelNames[std::size_t(channel)]);
        QVERIFY(console.IsShown("sclBass") && console.IsShown("sclTreb"));
    }
}

void EqualiserPanelTest::currentChannelIsGreyAndBold()
{
    EqualiserConsole console;
    console.Choose(Center);
    for (int channel = 0; channel < ChannelCount; ++channel) {
        auto *button = console.Find<QPushButton>(Member("cmdEQChan", channel));
        const QColor face = button->grab().toImage().pixelColor(5, 5);
        QCOMPARE(button->font().bold(), channel == Center);
        QCOMPARE(face == QColor(128, 128, 128), channel == Center);
    }
}

void EqualiserPanelTest::channelsBytesAreShownAsDecibels()
{
    EqualiserConsole console(FillUnit);
    for (int channel = 0; channel < ChannelCount; ++channel) {
        console.Choose(channel);
        const ChannelSlice &slice = console.OfUnit(channel);
        const auto kind = KindOf(channel);
        const char *slider = kind == ChannelKind::Screen ? "sclA" : "sclB";
        const char *field = kind == ChannelKind::Screen ? "lblBand" : "lblLSRSv";
        const int bands = kind == ChannelKind::Screen ? 27 : kind == ChannelKind::Surround ? 9 : 0;
        for (int band = 0; band < bands; ++band) {
            const int position = std::min(int(slice.Band[std::size_t(band)]), 24);
            QCOMPARE(console.Slider(slider, band)->value(), position);
            QCOMPARE(console.Text(field, band), QString::number(6 - position / 2.0, 'f', 1));
        }
        if (kind == ChannelKind::Subwoofer) {
            QCOMPARE(console.Slider("sclGain")->value(), int(slice.Band[SubGain]));
            for (int i = 0; i < 3; ++i)
                QVERIFY(!console.Option("optBand", i)->isChecked());
            for (int i = 0; i < 7; ++i)
                QVERIFY(!console.Option("optSPB", i)->isChecked());
        }
        QCOMPARE(console.Text("lblBass"), QString::number(10 - slice.BassLevel));
        QCOMPARE(console.Text("lblTreb"), QString::number(10 - std::min(int(slice.TrebleLevel), 20)));
    }
}

void EqualiserPanelTest::bandDraggedByMouseIsStoredAndSentOnce()
{
    EqualiserConsole console;
    console.DragTo(console.Slider("sclA", 14), 4);
    QCOMPARE(console.Text("lblBand(14)"), "4.0");
    QCOMPARE(console.Calls(), Calls{});
    QVERIFY(!console.file.SettingsChanged);
    console.Drop(console.Slider("sclA", 14));
    QCOMPARE(console.Calls(), Calls{"SetAudio"});
    QCOMPARE(console.OfUnit(Left).Band[14], Byte(4));
    QVERIFY(console.file.SettingsChanged);
}

void EqualiserPanelTest::bandTypedIsStoredAndSentOnce()
{
    EqualiserConsole console;
    console.Choose(RightSurround);
    console.Forget();
    console.Type("lblLSRSv(8)", "-1.3");
    QCOMPARE(console.Text("lblLSRSv(8)"), "-1.5");
    QCOMPARE(console.Slider("sclB", 8)->value(), 15);
    QCOMPARE(console.Calls(), Calls{"SetAudio"});
    QCOMPARE(console.OfUnit(RightSurround).Band[8], Byte(15));
}

void EqualiserPanelTest::bandKeysAndNeighboursGoRoundTheEnds()
{
    EqualiserConsole console;
    LevelSlider *first = console.Slider("sclA", 0);
    LevelSlider *last = console.Slider("sclA", 26);
    first->setFocus();
    console.Key(Qt::Key_Left);
    QVERIFY(last->hasFocus());
    console.Key(Qt::Key_Right);
    QVERIFY(first->hasFocus());
    console.Press(Qt::Key_Plus, Qt::KeypadModifier);
    console.Repeat(Qt::Key_Up);
    QCOMPARE(console.Calls(), Calls{});
    console.Release(Qt::Key_Plus, Qt::KeypadModifier);
    QCOMPARE(console.Text("lblBand(0)"), "1.0");
    QCOMPARE(console.Calls(), Calls{"SetAudio"});

    console.Choose(LeftSurround);
    console.Slider("sclB", 8)->setFocus();
    console.Key(Qt::Key_Right);
    QVERIFY(console.Slider("sclB", 0)->hasFocus());
}

void EqualiserPanelTest::bassAndTrebleAreOneKeyboardGroup()
{
    EqualiserConsole console;
    LevelSlider *bass = console.Slider("sclBass");
    LevelSlider *treble = console.Slider("sclTreb");
    bass->setFocus();
    console.Key(Qt::Key_Right);
    QVERIFY(treble->hasFocus());
    console.Key(Qt::Key_Left);
    QVERIFY(bass->hasFocus());
    QCOMPARE(bass->value(), 10);
    QCOMPARE(treble->value(), 10);
    QCOMPARE(console.Calls(), Calls{});
    console.Press(Qt::Key_Up);
    for (int i = 0; i < 3; ++i)
        console.Repeat(Qt::Key_Up);
    QCOMPARE(console.Calls(), Calls{});
    console.Release(Qt::Key_Up);
    QCOMPARE(console.Text("lblBass"), "4");
    QCOMPARE(console.OfUnit(Left).BassLevel, Byte(6));
    QCOMPARE(console.Calls(), Calls{"SetAudio"});
    console.Type("lblTreb", "3");
    QCOMPARE(treble->value(), 7);
    QCOMPARE(console.OfUnit(Left).TrebleLevel, Byte(7));
}

void EqualiserPanelTest::rangeMessagesOfTheTab_data()
{
    QTest::addColumn<int>("channel");
    QTest::addColumn<QString>("field");
    QTest::addColumn<QString>("bad");
    QTest::addColumn<QString>("message");
    const QString six = "Error, Please enter a number between -6 and 6!";
    const QString ten = "Error, Please enter a number between -10 and 10!";
    QTest::newRow("band") << int(Left) << "lblBand(26)"
                          << "6.1" << six;
    QTest::newRow("surround band") << int(RightSurround) << "lblLSRSv(0)"
                                   << "-6.1" << six;
    QTest::newRow("sub-bass gain") << int(Subwoofer) << "lblGain"
                                   << "1e3" << six;
    QTest::newRow("bass") << int(Right) << "lblBass"
                          << "11" << ten;
    QTest::newRow("treble") << int(Subwoofer) << "lblTreb"
                            << "-11" << ten;
}

void EqualiserPanelTest::rangeMessagesOfTheTab()
{
    QFETCH(int, channel);
    QFETCH(QString, field);
    QFETCH(QString, bad);
    QFETCH(QString, message);
    EqualiserConsole console;
    console.Choose(channel);
    console.Forget();
    const AudioBlock before = console.room.Audio;
    console.AnswerNextBox("Range Check Error", QMessageBox::Ok, message);
    console.Type(field, bad);
    QVERIFY(console.AllBoxesSeen());
    QCOMPARE(console.Find<QLineEdit>(field)->selectedText(), bad);
    QVERIFY(console.room.Audio == before);
    QCOMPARE(console.Calls(), Calls{});
}

void EqualiserPanelTest::changeWithAutomaticUploadOffIsStoredAndTold()
{
    EqualiserConsole console;
    console.options.AutoUpload = false;
    console.Type("lblBand(0)", "2");
    console.Type("lblBass", "1");
    QCOMPARE(console.Calls(), Calls{});
    QCOMPARE(console.Slice(Left).Band[0], Byte(8));
    QVERIFY(console.Find<QLabel>("lblSent")->text().startsWith("2 changes"));
    console.Key(Qt::Key_F2);
    QCOMPARE(console.Calls(), (Calls{"SetSystem", "SetAudio"}));
    QCOMPARE(console.OfUnit(Left).Band[0], Byte(8));
    QCOMPARE(console.Find<QLabel>("lblSent")->text(), "All sent");
}

void EqualiserPanelTest::changeBackToThePositionAtFocusIsStoredNotSentAndTold()
{
    EqualiserConsole console;
    console.Slider("sclA", 2)->setFocus();
    console.Key(Qt::Key_Up);
    console.Key(Qt::Key_Down);
    QCOMPARE(console.Calls(), Calls{"SetAudio"});
    QCOMPARE(console.Slice(Left).Band[2], Byte(12));
    QCOMPARE(console.OfUnit(Left).Band[2], Byte(11));
    QVERIFY(console.Find<QLabel>("lblSent")->text().startsWith("1 change"));
}

void EqualiserPanelTest::byteBeyondItsControlStaysUntilThatControlMoves()
{
    EqualiserConsole console(FillUnit);
    console.Choose(Right);
    console.Forget();
    QCOMPARE(console.Slider("sclA", 3)->value(), 24);
    console.Type("lblBand(5)", "6");
    QCOMPARE(console.Calls(), Calls{"SetAudio"});
    QCOMPARE(console.OfUnit(Right).Band[3], Byte(200));
    QCOMPARE(console.OfUnit(Right).TrebleLevel, Byte(99));
    QCOMPARE(console.OfUnit(Right).unused29, Byte(204));
    console.Type("lblBand(3)", "-5.5");
    QCOMPARE(console.OfUnit(Right).Band[3], Byte(23));
    console.Choose(Subwoofer);
    console.Type("lblGain", "1");
    QCOMPARE(console.OfUnit(Subwoofer).Band[SubWidth], Byte(7));
    QCOMPARE(console.OfUnit(Subwoofer).Band[SubFreq], Byte(255));
}

void EqualiserPanelTest::centreFrequencyAndWidthAreTwoGroupsStoredAndSent()
{
    EqualiserConsole console;
    console.Choose(Subwoofer);
    console.Forget();
    QCOMPARE(console.Option("optSPB", 4)->text(), "63 Hz");
    console.Click("optSPB(4)");
    QCOMPARE(console.OfUnit(Subwoofer).Band[SubFreq], Byte(4));
    console.Click("optBand(2)");
    QCOMPARE(console.OfUnit(Subwoofer).Band[SubWidth], Byte(2));
    QVERIFY(console.Option("optSPB", 4)->isChecked());
    QVERIFY(console.Option("optBand", 2)->isChecked());
    QVERIFY(!console.Option("optBand", 0)->isChecked());
    QCOMPARE(console.Calls(), (Calls{"SetAudio", "SetAudio"}));
    QVERIFY(console.file.SettingsChanged);
}

void EqualiserPanelTest::subBassGainKeysAndTyping()
{
    EqualiserConsole console;
    console.Choose(Subwoofer);
    console.Forget();
    LevelSlider *gain = console.Slider("sclGain");
    gain->setFocus();
    console.Key(Qt::Key_Left);
    QVERIFY(gain->hasFocus());
    QCOMPARE(console.Text("lblGain"), "-0.5");
    console.Key(Qt::Key_Right);
    console.Key(Qt::Key_Right);
    QCOMPARE(console.Text("lblGain"), "0.5");
    console.Type("lblGain", "2.7");
    QCOMPARE(console.Text("lblGain"), "2.5");
    console.Type("lblGain", "-2.7");
    QCOMPARE(console.Text("lblGain"), "-3.0");
    QCOMPARE(console.OfUnit(Subwoofer).Band[SubGain], Byte(18));
}

void EqualiserPanelTest::optionsSetByCodeAreNoClicks()
{
    EqualiserConsole console;
    console.Choose(Subwoofer);
    console.Forget();
    console.Option("optSPB", 3)->setChecked(true);
    console.Option("optBand", 1)->setChecked(true);
    QCOMPARE(console.Calls(), Calls{});
    QVERIFY(!console.file.SettingsChanged);
}

void EqualiserPanelTest::explicitUploadSendsWhatTheTabShows()
{
    EqualiserConsole console;
    console.options.AutoUpload = false;
    console.Slider("sclA", 9)->setFocus();
    console.Press(Qt::Key_Down);
    console.Click("cmdUp(1)");
    QCOMPARE(console.Calls(), (Calls{"SetSystem", "SetAudio"}));
    QCOMPARE(console.OfUnit(Left).Band[9], Byte(13));
    console.TypeOnly("lblBand(9)", "4");
    console.Key(Qt::Key_F2);
    QCOMPARE(console.OfUnit(Left).Band[9], Byte(4));
}

void EqualiserPanelTest::readBackShowsTheUnitAndSendsNothing()
{
    EqualiserConsole console;
    console.OfUnit(Left).Band[11] = 3;
    console.OfUnit(Left).BassLevel = 20;
    console.Trigger("mnuRef");
    QCOMPARE(console.Text("lblBand(11)"), "4.5");
    QCOMPARE(console.Text("lblBass"), "-10");
    QVERIFY(!std::ranges::count(console.Calls(), "SetAudio"));
    QVERIFY(!console.file.SettingsChanged);
}

void EqualiserPanelTest::readBackWaitsForTheHand()
{
    EqualiserConsole console;
    console.options.AutoRefresh = true;
    console.options.RefreshSeconds = 1;
    console.DragTo(console.Slider("sclA", 0), 2);
    console.Tick("tmrRefresh");
    QCOMPARE(console.Calls(), Calls{});
    QCOMPARE(console.Slider("sclA", 0)->value(), 2);
    console.Drop(console.Slider("sclA", 0));
    QCOMPARE(console.Calls(), Calls{"SetAudio"});
    console.Forget();
    console.Tick("tmrRefresh");
    QCOMPARE(console.Calls(), (Calls{"GetAudio", "GetSystem", "GetMute", "GetVol", "GetFormat"}));
    console.TypeOnly("lblBand(1)", "3.");
    console.Tick("tmrRefresh");
    QCOMPARE(console.Text("lblBand(1)"), "3.");
    console.Key(Qt::Key_Return);
    QCOMPARE(console.OfUnit(Left).Band[1], Byte(6));
}

void EqualiserPanelTest::levelHalfTypedOutlivesAReadBackThatLosesTheLink_data()
{
    QTest::addColumn<Operation>("failing");
    for (const Operation failing : {Operation::GetAudio, Operation::GetSystem})
        QTest::newRow(RowOf(failing).name) << failing;
}

void EqualiserPanelTest::levelHalfTypedOutlivesAReadBackThatLosesTheLink()
{
    QFETCH(Operation, failing);
    EqualiserConsole console;
    console.options.AutoRefresh = true;
    console.TypeOnly("lblBand(1)", "3");
    console.unit.FailNext(failing, 4, 6);
    console.AnswerNextBox("Connection Error", QMessageBox::Ok);
    console.Tick("tmrRefresh");
    QCOMPARE(console.Text("lblBand(1)"), "3.0");
    QCOMPARE(console.Slider("sclA", 1)->value(), 6);
    QCOMPARE(console.Slice(Left).Band[1], Byte(6));
    QVERIFY(console.file.SettingsChanged);
}

void EqualiserPanelTest::cableLostDuringADragIsOneMessageAndTheEditIsKept()
{
    EqualiserConsole console;
    console.DragTo(console.Slider("sclA", 13), 0);
    console.unit.panel.plugged = false;
    console.AnswerNextBox("Connection Error", QMessageBox::Ok);
    console.Drop(console.Slider("sclA", 13));
    QVERIFY(console.AllBoxesSeen());
    QCOMPARE(std::ranges::count(console.Calls(), "SetAudio"), 6);
    QCOMPARE(console.Slice(Left).Band[13], Byte(0));
    QCOMPARE(console.Text("lblBand(13)"), "6.0");
    QVERIFY(!console.Slider("sclA", 13)->isEnabled());
    QVERIFY(console.file.SettingsChanged);
    QCOMPARE(console.Find<QLabel>("lblStat")->text(), "Off Line");
}

void EqualiserPanelTest::cableLostByAPollDuringADragIsOneMessage()
{
    EqualiserConsole console;
    console.DragTo(console.Slider("sclA", 13), 5);
    console.unit.panel.plugged = false;
    console.AnswerNextBox("Connection Error", QMessageBox::Ok);
    console.Tick("tmrPoll");
    QVERIFY(console.AllBoxesSeen());
    QCOMPARE(console.Slice(Left).Band[13], Byte(5));
    console.Drop(console.Slider("sclA", 13));
    QVERIFY(!std::ranges::count(console.Calls(), "SetAudio"));
    QCOMPARE(console.Text("lblBand(13)"), "3.5");
}

void EqualiserPanelTest::everyControlIsNamedForAScreenReader()
{
    EqualiserConsole console;
    console.Choose(Center);
    QCOMPARE(console.Slider("sclA", 14)->accessibleName(), "Center Channel, 1 kHz, dB");
    QCOMPARE(console.Find<QLineEdit>("lblBand(15)")->accessibleName(), "Center Channel, 1.25 kHz, dB");
    QCOMPARE(console.Slider("sclBass")->accessibleName(), "Center Channel, bass, dB");
    console.Choose(Subwoofer);
    QCOMPARE(console.Slider("sclGain")->accessibleName(), "Subwoofer Channel, gain, dB");
    for (const LevelSlider *slider : console.window->findChildren<LevelSlider *>())
        QVERIFY2(!slider->accessibleName().isEmpty(), qPrintable(slider->objectName()));
    for (const LevelField *field : console.window->findChildren<LevelField *>())
        QVERIFY2(!field->accessibleName().isEmpty(), qPrintable(field->objectName()));
}

void EqualiserPanelTest::tabKeyRunsThroughTheChannelButtonsThenTheBands()
{
    EqualiserConsole console;
    console.Find<QPushButton>("cmdEQChan(0)")->setFocus();
    QStringList order;
    for (int i = 0; i < 11; ++i) {
        console.Key(Qt::Key_Tab);
        order << QApplication::focusWidget()->objectName();
    }
    QCOMPARE(order,
             QStringList({"cmdEQChan(1)", "cmdEQChan(2)", "cmdEQChan(3)", "cmdEQChan(4)", "cmdEQChan(5)",
                          "sclA(0)", "lblBand(0)", "sclA(1)", "lblBand(1)", "sclA(2)", "lblBand(2)"}));
}

QTEST_MAIN(EqualiserPanelTest)
#include "equaliserpanel_test.moc"
