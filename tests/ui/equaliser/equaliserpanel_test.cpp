#include "support/ui/consoleundertest.h"

#include <QGroupBox>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>

#include <algorithm>

using namespace kelvo;

namespace {

const std::array<const char *, 6> ChannelNames{"Left Channel",   "Left Surround Channel",
                                               "Center Channel", "Right Surround Channel",
                                               "Right Channel",  "Subwoofer Channel"};

/// A unit whose channels are all flat.
void FlattenUnit(ConsoleUnderTest &start)
{
    for (ChannelSlice &slice : start.unit.audio.ChannelEq) {
        slice.Band.fill(12);
        slice.BassLevel = slice.TrebleLevel = 10;
    }
    start.unit.audio.ChannelEq[Subwoofer].Band[SubWidth] = 0;
    start.unit.audio.ChannelEq[Subwoofer].Band[SubFreq] = 0;
}

/// The tab "E.Q" with automatic upload on.
struct Console : ConsoleUnderTest {
    explicit Console(const std::function<void(ConsoleUnderTest &)> &prepare = FlattenUnit)
        : ConsoleUnderTest(OnLine, Tab::Eq, prepare)
    {
        settings.Options.AutoUpload = true;
    }

    LevelSlider *Slider(const char *name, int index) const { return Find<LevelSlider>(Member(name, index)); }
    LevelSlider *Slider(const char *name) const { return Find<LevelSlider>(name); }
    QString Text(const QString &field) const { return Find<QLineEdit>(field)->text(); }
    QString Text(const char *name, int index) const { return Text(Member(name, index)); }
    void Choose(int channel) { Click(Member("cmdEQChan", channel)); }
    ChannelSlice &Slice(int channel) { return settings.Audio.ChannelEq[std::size_t(channel)]; }
    ChannelSlice &OfUnit(int channel) { return unit.audio.ChannelEq[std::size_t(channel)]; }
    bool IsShown(const char *frame) const { return Find<QWidget>(frame)->isVisible(); }
    QAbstractButton *Option(const char *name, int index) const
    {
        return Find<QRadioButton>(Member(name, index));
    }
};

/// A unit whose channels all differ, with bytes beyond every control's range in Right and Subwoofer.
void FillUnit(ConsoleUnderTest &start)
{
    for (int channel = 0; channel < ChannelCount; ++channel) {
        ChannelSlice &slice = start.unit.audio.ChannelEq[std::size_t(channel)];
        for (std::size_t band = 0; band < slice.Band.size(); ++band)
            slice.Band[band] = Byte((3 * band + 5 * std::size_t(channel)) % 25);
        slice.BassLevel = Byte(2 + channel);
        slice.TrebleLevel = Byte(18 - channel);
        slice.unused29 = Byte(200 + channel);
    }
    start.unit.audio.ChannelEq[Right].Band[3] = 200;
    start.unit.audio.ChannelEq[Right].TrebleLevel = 99;
    start.unit.audio.ChannelEq[Subwoofer].Band[SubWidth] = 7;
    start.unit.audio.ChannelEq[Subwoofer].Band[SubFreq] = 255;
}

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
    void centreFrequencyAndWidthAreTwoGroupsStoredAndSent();
    void subBassGainKeysAndTyping();
    void optionsSetByCodeAreNoClicks();
    void explicitUploadSendsWhatTheTabShows();
    void ctrlShortcutsRunTheirCommands();
    void shortcutsNeedTheirOptionAndTheTab();
    void readBackShowsTheUnitAndSendsNothing();
    void readBackWaitsForTheHand();
    void cableLostDuringADragIsOneMessageAndTheEditIsKept();
    void cableLostInAPinkToggleIsOneMessage();
    void cableLostInAPasteIsOneMessageAndTheEditIsKept();
    void cableLostByAPollDuringADragIsOneMessage();
    void everyControlIsNamedForAScreenReader();
    void tabKeyRunsThroughTheChannelButtonsThenTheBands();
};

void EqualiserPanelTest::eachChannelShowsThePanelOfItsKindUnderItsName()
{
    Console console;
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
    Console console;
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
    Console console(FillUnit);
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
    Console console;
    console.DragTo(console.Slider("sclA", 14), 4);
    QCOMPARE(console.Text("lblBand(14)"), "4.0");
    QCOMPARE(console.Calls(), Calls{});
    QVERIFY(!console.settings.SettingsChanged);
    console.Drop(console.Slider("sclA", 14));
    QCOMPARE(console.Calls(), Calls{"SetAudio"});
    QCOMPARE(console.OfUnit(Left).Band[14], Byte(4));
    QVERIFY(console.settings.SettingsChanged);
}

void EqualiserPanelTest::bandTypedIsStoredAndSentOnce()
{
    Console console;
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
    Console console;
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
    Console console;
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
    Console console;
    console.Choose(channel);
    console.Forget();
    const AudioBlock before = console.settings.Audio;
    console.AnswerNextBox("Range Check Error", QMessageBox::Ok, message);
    console.Type(field, bad);
    QVERIFY(console.AllBoxesSeen());
    QCOMPARE(console.Find<QLineEdit>(field)->selectedText(), bad);
    QVERIFY(std::ranges::equal(BytesOf(console.settings.Audio), BytesOf(before)));
    QCOMPARE(console.Calls(), Calls{});
}

void EqualiserPanelTest::changeWithAutomaticUploadOffIsStoredAndTold()
{
    Console console;
    console.settings.Options.AutoUpload = false;
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
    Console console;
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
    Console console(FillUnit);
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

void EqualiserPanelTest::channelChangeSendsNoiseOffFirstAndTakesTheNoiseAlong()
{
    Console console;
    console.Choose(Center);
    QCOMPARE(console.Calls(), Calls{"SetPink 0 0"});
    console.Forget();
    console.Click("cmdPink");
    console.Choose(Subwoofer);
    QCOMPARE(console.Calls(), (Calls{"SetPink 2 -1", "SetPink 2 0", "SetPink 5 -1"}));
    QCOMPARE(console.Find<QPushButton>("cmdPink")->text(), "Pink Noise On");
}

void EqualiserPanelTest::channelChangeTakesWhatIsTyped()
{
    Console console;
    console.TypeOnly("lblBand(7)", "3");
    console.Choose(Center);
    QCOMPARE(console.Slice(Left).Band[7], Byte(6));
    QCOMPARE(console.Slice(Center).Band[7], Byte(12));
    QCOMPARE(console.Calls(), (Calls{"SetAudio", "SetPink 0 0"}));
}

void EqualiserPanelTest::channelChangeOnABadValueIsNotCarriedOut()
{
    Console console;
    console.TypeOnly("lblBand(7)", "33");
    console.AnswerNextBox("Range Check Error", QMessageBox::Ok);
    console.Choose(Center);
    QVERIFY(console.AllBoxesSeen());
    QCOMPARE(console.Find<QGroupBox>("frmBandA")->title(), "Left Channel");
    QCOMPARE(console.Calls(), Calls{});
    QTRY_VERIFY(console.Find<QLineEdit>("lblBand(7)")->hasFocus());
}

void EqualiserPanelTest::pinkNoiseTogglesWithItsFace()
{
    Console console;
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

void EqualiserPanelTest::leavingTheTabStopsItsNoise()
{
    Console console;
    console.GoTo(Tab::Options);
    QCOMPARE(console.Calls(), Calls{});
    console.GoTo(Tab::Eq);
    console.Click("cmdPink");
    console.Forget();
    console.GoTo(Tab::Options);
    QCOMPARE(console.Calls(), Calls{"SetPink 0 0"});
    QCOMPARE(console.Find<QPushButton>("cmdPink")->text(), "Pink Noise Off");
}

void EqualiserPanelTest::noiseThatNewLeftPlayingStopsOnLeaving()
{
    Console console;
    console.Click("cmdPink");
    console.Forget();
    console.Trigger("mnuNew");
    QCOMPARE(console.Find<QPushButton>("cmdPink")->text(), "Pink Noise Off");
    QCOMPARE(console.Calls(), Calls{});
    console.GoTo(Tab::Options);
    QCOMPARE(console.Calls(), Calls{"SetPink 0 0"});
}

void EqualiserPanelTest::pasteRefusesInItsOrder()
{
    Console console;
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
    QVERIFY(!console.settings.SettingsChanged);
    QVERIFY(!std::ranges::count(console.Calls(), "SetAudio"));
}

void EqualiserPanelTest::pasteAsksAndUploadsOnce()
{
    Console console(FillUnit);
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
    QVERIFY(console.settings.SettingsChanged);
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

void EqualiserPanelTest::pasteTakesTheSourceAsItIsThen()
{
    Console console;
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

void EqualiserPanelTest::subwooferTakesNoPaste()
{
    Console console;
    console.Click("cmdCopy");
    console.Choose(Subwoofer);
    console.AnswerNextBox("Error", QMessageBox::Ok, "Incompatable Channel Format!");
    console.Click("cmdPaste");
    console.Click("cmdCopy");
    console.Click("cmdPaste");
    QVERIFY(console.AllBoxesSeen());
}

void EqualiserPanelTest::resetChannelAsksAndUploadsOnce()
{
    Console console(FillUnit);
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
    QVERIFY(console.settings.SettingsChanged);
}

void EqualiserPanelTest::resetSubwooferChoosesTheFirstButtons()
{
    Console console(FillUnit);
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

void EqualiserPanelTest::centreFrequencyAndWidthAreTwoGroupsStoredAndSent()
{
    Console console;
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
    QVERIFY(console.settings.SettingsChanged);
}

void EqualiserPanelTest::subBassGainKeysAndTyping()
{
    Console console;
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
    Console console;
    console.Choose(Subwoofer);
    console.Forget();
    console.Option("optSPB", 3)->setChecked(true);
    console.Option("optBand", 1)->setChecked(true);
    QCOMPARE(console.Calls(), Calls{});
    QVERIFY(!console.settings.SettingsChanged);
}

void EqualiserPanelTest::explicitUploadSendsWhatTheTabShows()
{
    Console console;
    console.settings.Options.AutoUpload = false;
    console.Slider("sclA", 9)->setFocus();
    console.Press(Qt::Key_Down);
    console.Click("cmdUp(1)");
    QCOMPARE(console.Calls(), (Calls{"SetSystem", "SetAudio"}));
    QCOMPARE(console.OfUnit(Left).Band[9], Byte(13));
    console.TypeOnly("lblBand(9)", "4");
    console.Key(Qt::Key_F2);
    QCOMPARE(console.OfUnit(Left).Band[9], Byte(4));
}

void EqualiserPanelTest::ctrlShortcutsRunTheirCommands()
{
    Console console;
    console.settings.Options.Shortcuts = true;
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

void EqualiserPanelTest::shortcutsNeedTheirOptionAndTheTab()
{
    Console console;
    console.Key(Qt::Key_M, Qt::ControlModifier);
    console.settings.Options.Shortcuts = true;
    console.Key(Qt::Key_M, Qt::ControlModifier | Qt::ShiftModifier);
    console.Key(Qt::Key_X, Qt::ControlModifier);
    console.GoTo(Tab::OutputTrim);
    console.Key(Qt::Key_M, Qt::ControlModifier);
    QCOMPARE(console.Calls(), Calls{});
}

void EqualiserPanelTest::readBackShowsTheUnitAndSendsNothing()
{
    Console console;
    console.OfUnit(Left).Band[11] = 3;
    console.OfUnit(Left).BassLevel = 20;
    console.Trigger("mnuRef");
    QCOMPARE(console.Text("lblBand(11)"), "4.5");
    QCOMPARE(console.Text("lblBass"), "-10");
    QVERIFY(!std::ranges::count(console.Calls(), "SetAudio"));
    QVERIFY(!console.settings.SettingsChanged);
}

void EqualiserPanelTest::readBackWaitsForTheHand()
{
    Console console;
    console.settings.Options.AutoRefresh = 1;
    console.settings.Options.RefreshSeconds = 1;
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

void EqualiserPanelTest::cableLostDuringADragIsOneMessageAndTheEditIsKept()
{
    Console console;
    console.DragTo(console.Slider("sclA", 13), 0);
    console.unit.panel.plugged = false;
    console.AnswerNextBox("Connection Error", QMessageBox::Ok);
    console.Drop(console.Slider("sclA", 13));
    QVERIFY(console.AllBoxesSeen());
    QCOMPARE(std::ranges::count(console.Calls(), "SetAudio"), 6);
    QCOMPARE(console.Slice(Left).Band[13], Byte(0));
    QCOMPARE(console.Text("lblBand(13)"), "6.0");
    QVERIFY(!console.Slider("sclA", 13)->isEnabled());
    QVERIFY(console.settings.SettingsChanged);
    QCOMPARE(console.Find<QLabel>("lblStat")->text(), "Off Line");
}

void EqualiserPanelTest::cableLostInAPinkToggleIsOneMessage()
{
    Console console;
    console.unit.panel.plugged = false;
    console.AnswerNextBox("Connection Error", QMessageBox::Ok);
    console.Click("cmdPink");
    QVERIFY(console.AllBoxesSeen());
    QVERIFY(!console.Find<QPushButton>("cmdPink")->isEnabled());
    console.Forget();
    console.GoTo(Tab::FormatSelection);
    QCOMPARE(console.Calls(), Calls{});
}

void EqualiserPanelTest::cableLostInAPasteIsOneMessageAndTheEditIsKept()
{
    Console console(FillUnit);
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

void EqualiserPanelTest::cableLostByAPollDuringADragIsOneMessage()
{
    Console console;
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
    Console console;
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
    Console console;
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
