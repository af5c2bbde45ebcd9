#include "model/flagguard.h"
#include "support/ui/consoleundertest.h"

#include <QComboBox>
#include <QLineEdit>

using namespace kelvo;

namespace {

/// The console on its OBE tab, the unit holding this frequency and level, edits sent at once.
struct Obe : ConsoleUnderTest {
    explicit Obe(Byte frequency, Byte level = 12)
        : ConsoleUnderTest(OnLine, Tab::Obe, [=](ConsoleUnderTest &console) {
              console.unit.audio.ObeFreq = frequency;
              console.unit.audio.ObeLevel = level;
          })
    {
        Trigger("mnuAuto");
        Forget();
    }

    QString Enable() const { return Find<QPushButton>("cmdOBEEnable")->text(); }
    QComboBox &List() const { return *Find<QComboBox>("cboObeF"); }
    int Position() const { return Find<QSlider>("sclOBE")->value(); }
    QString Level() const { return Find<QLineEdit>("lblOBE")->text(); }
};

} // namespace

class ObePanelTest : public QObject {
    Q_OBJECT

  private slots:
    void theFrequencyListHasItsEightItems()
    {
        Obe console(1);
        QStringList items;
        for (int index = 0; index < console.List().count(); ++index)
            items += console.List().itemText(index);
        QCOMPARE(items,
                 QStringList({"50 Hz", "60 Hz", "70 Hz", "80 Hz", "90 Hz", "100 Hz", "110 Hz", "120 Hz"}));
    }

    void aUnitWithObeOffShowsItAtFiftyHertzDisabledAndIsSwitchedOnThere()
    {
        Obe console(0);
        QCOMPARE(console.Enable(), "OBE Disable");
        QVERIFY(!console.Find<QPushButton>("cmdOBEEnable")->font().bold());
        QCOMPARE(console.List().currentText(), "50 Hz");
        for (const char *control : {"cboObeF", "sclOBE", "lblOBE"})
            QVERIFY(!console.Find<QWidget>(control)->isEnabled());
        console.Click("cmdOBEEnable");
        QCOMPARE(console.Calls(), Calls{"SetAudio"});
        QCOMPARE(console.unit.audio.ObeFreq, Byte(1));
        QCOMPARE(console.Enable(), "OBE Enable");
        for (const char *control : {"cboObeF", "sclOBE", "lblOBE"})
            QVERIFY(console.Find<QWidget>(control)->isEnabled());
    }

    void aUnitWithObeOnShowsItYellowAndBold()
    {
        Obe console(3);
        auto *cmdOBEEnable = console.Find<StateButton>("cmdOBEEnable");
        QCOMPARE(console.Enable(), "OBE Enable");
        QVERIFY(cmdOBEEnable->font().bold());
        QCOMPARE(cmdOBEEnable->grab().toImage().pixel(4, 4), qRgb(255, 255, 0));
        QCOMPARE(console.List().currentText(), "70 Hz");
        QVERIFY(console.List().isEnabled());
    }

    void theFrequencyIsRememberedWhileObeIsOff()
    {
        Obe console(0);
        console.Click("cmdOBEEnable");
        console.ChooseItem("cboObeF", "100 Hz");
        QCOMPARE(console.unit.audio.ObeFreq, Byte(6));
        console.Click("cmdOBEEnable");
        QCOMPARE(console.unit.audio.ObeFreq, Byte(0));
        QCOMPARE(console.List().currentText(), "100 Hz");
        console.Click("cmdOBEEnable");
        QCOMPARE(console.unit.audio.ObeFreq, Byte(6));
        QCOMPARE(console.Calls(), (Calls{"SetAudio", "SetAudio", "SetAudio", "SetAudio"}));
        QVERIFY(console.file.SettingsChanged);
    }

    void aChoiceWhileObeIsOffIsIgnoredAndNotRemembered()
    {
        Obe console(0);
        emit console.List().activated(5); // the disabled list cannot be reached by hand
        QCOMPARE(console.Calls(), Calls{});
        QVERIFY(!console.file.SettingsChanged);
        console.Click("cmdOBEEnable");
        QCOMPARE(console.unit.audio.ObeFreq, Byte(1));
    }

    void theLevelIsCountedDownFromPlusSix_data()
    {
        QTest::addColumn<int>("byte");
        QTest::addColumn<int>("position");
        QTest::addColumn<QString>("text");
        QTest::newRow("+6.0 dB") << 0 << 24 << "6.0";
        QTest::newRow("0.0 dB") << 12 << 12 << "0.0";
        QTest::newRow("-6.0 dB") << 24 << 0 << "-6.0";
        QTest::newRow("+1.5 dB") << 9 << 15 << "1.5";
    }
    void theLevelIsCountedDownFromPlusSix()
    {
        QFETCH(int, byte);
        QFETCH(int, position);
        QFETCH(QString, text);
        Obe console(1, Byte(byte));
        QCOMPARE(console.Position(), position);
        QCOMPARE(console.Level(), text);
    }

    void aTypedLevelIsTakenDownToTheStepBelowAndSent_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<int>("position");
        QTest::addColumn<QString>("text");
        QTest::addColumn<int>("byte");
        QTest::newRow("6.0") << "6.0" << 24 << "6.0" << 0;
        QTest::newRow("-6") << "-6" << 0 << "-6.0" << 24;
        QTest::newRow("0.74") << "0.74" << 13 << "0.5" << 11;
        QTest::newRow("-0.3") << "-0.3" << 11 << "-0.5" << 13;
        QTest::newRow("2,5") << "2,5" << 17 << "2.5" << 7;
    }
    void aTypedLevelIsTakenDownToTheStepBelowAndSent()
    {
        QFETCH(QString, typed);
        QFETCH(int, position);
        QFETCH(QString, text);
        QFETCH(int, byte);
        Obe console(1, 3);
        console.Type("lblOBE", typed);
        QCOMPARE(console.Position(), position);
        QCOMPARE(console.Level(), text);
        QCOMPARE(console.Calls(), Calls{"SetAudio"});
        QCOMPARE(console.unit.audio.ObeLevel, Byte(byte));
        QVERIFY(console.file.SettingsChanged);
    }

    void aTypedLevelOutOfRangeIsRefused_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::newRow("6.1") << "6.1";
        QTest::newRow("-7") << "-7";
    }
    void aTypedLevelOutOfRangeIsRefused()
    {
        QFETCH(QString, typed);
        Obe console(1, 9);
        console.AnswerNextBox("Range Check Error", QMessageBox::Ok,
                              "Error, Please enter a number between -6 and 6!");
        console.Type("lblOBE", typed);
        QCOMPARE(console.Position(), 15);
        QCOMPARE(console.Calls(), Calls{});
        QCOMPARE(console.Find<QLineEdit>("lblOBE")->selectedText(), typed);
        QVERIFY(console.Find<QLineEdit>("lblOBE")->hasFocus());
    }

    void aDragSendsOnceAtItsEnd()
    {
        Obe console(2, 12);
        console.Find<QSlider>("sclOBE")->setFocus();
        console.DragTo("sclOBE", 20);
        console.Drop("sclOBE");
        QCOMPARE(console.Calls(), Calls{"SetAudio"});
        QCOMPARE(console.Position(), 20);
        QCOMPARE(console.unit.audio.ObeLevel, Byte(4));
        QCOMPARE(console.Level(), "4.0");
    }

    void upLeadsTowardsTheTopWhichIsTheLowestLevelHere()
    {
        Obe console(2, 12);
        console.Find<QSlider>("sclOBE")->setFocus();
        console.Key(Qt::Key_Up);
        QCOMPARE(console.Position(), 11);
        QCOMPARE(console.Level(), "-0.5");
        QCOMPARE(console.unit.audio.ObeLevel, Byte(13));
        console.Key(Qt::Key_Plus, Qt::KeypadModifier);
        QCOMPARE(console.Position(), 10);
        console.Key(Qt::Key_Down);
        QCOMPARE(console.Position(), 11);
    }

    void aLevelBeyondItsRangeStaysInTheRecordUntilItIsMoved()
    {
        Obe console(1, 200);
        QCOMPARE(console.Position(), 0);
        console.Click("cmdOBEEnable");
        QCOMPARE(console.unit.audio.ObeLevel, Byte(200));
        console.Click("cmdOBEEnable");
        console.Type("lblOBE", "-1");
        QCOMPARE(console.unit.audio.ObeLevel, Byte(14));
    }

    void aFrequencyBeyondTheListShowsNoChoiceAndIsSentBackUnchanged()
    {
        Obe console(77);
        QCOMPARE(console.Enable(), "OBE Enable");
        QCOMPARE(console.List().currentIndex(), -1);
        console.Type("lblOBE", "3");
        QCOMPARE(console.unit.audio.ObeFreq, Byte(77));
        console.ChooseItem("cboObeF", "60 Hz");
        QCOMPARE(console.unit.audio.ObeFreq, Byte(2));
    }

    void aChangeIsKeptWithoutAutomaticUpload()
    {
        Obe console(1);
        console.Trigger("mnuAuto");
        console.Click("cmdOBEEnable");
        QCOMPARE(console.Calls(), Calls{});
        QCOMPARE(console.room.Audio.ObeFreq, Byte(0));
        QVERIFY(console.file.SettingsChanged);
        console.Click("cmdUp(2)");
        QCOMPARE(console.unit.audio.ObeFreq, Byte(0));
    }

    void theNoiseButtonsPlayOnTheCenterAndTheSubwoofer()
    {
        Obe console(0);
        auto *cmdPNC = console.Find<StateButton>("cmdPNC");
        QCOMPARE(cmdPNC->text(), "Off");
        console.Click("cmdPNC");
        QCOMPARE(cmdPNC->text(), "On");
        QVERIFY(cmdPNC->font().bold());
        QCOMPARE(cmdPNC->grab().toImage().pixel(4, 4), qRgb(255, 255, 0));
        console.Click("cmdPNS");
        console.Click("cmdPNC");
        QCOMPARE(cmdPNC->text(), "Off");
        QVERIFY(!cmdPNC->font().bold());
        console.Click("cmdPNS");
        QCOMPARE(console.Calls(), (Calls{"SetPink 2 -1", "SetPink 5 -1", "SetPink 2 0", "SetPink 5 0"}));
    }

    void leavingTheTabSwitchesOffWhatPlays()
    {
        Obe console(0);
        console.Click("cmdPNS");
        console.Forget();
        console.GoTo(Tab::Help);
        QCOMPARE(console.Calls(), Calls{"SetPink 5 0"});
        QCOMPARE(console.Find<QPushButton>("cmdPNS")->text(), "Off");
        console.Forget();
        console.GoTo(Tab::Obe);
        console.GoTo(Tab::Help);
        QCOMPARE(console.Calls(), Calls{"EnableOBE"});
    }

    void leavingTheTabSwitchesOffANoiseThatNewShowsOff()
    {
        Obe console(0);
        console.Click("cmdPNC");
        console.Trigger("mnuNew");
        QCOMPARE(console.Find<QPushButton>("cmdPNC")->text(), "Off");
        console.Forget();
        console.GoTo(Tab::Help);
        QCOMPARE(console.Calls(), Calls{"SetPink 2 0"});
    }

    void aReadBackThatFindsObeOffDropsAHalfTypedLevel()
    {
        Obe console(4, 7);
        console.TypeOnly("lblOBE", "-3");
        console.unit.audio.ObeFreq = 0;
        console.options.AutoRefresh = true;
        console.options.RefreshSeconds = 1;
        console.Tick("tmrRefresh");
        QVERIFY(!console.Find<QLineEdit>("lblOBE")->isEnabled());
        QCOMPARE(console.Level(), "2.5");
        QCOMPARE(console.Position(), 17);
        QCOMPARE(console.room.Audio.ObeLevel, Byte(7));
        QVERIFY(!console.file.SettingsChanged);
        QCOMPARE(console.Calls(), (Calls{"GetAudio", "GetSystem", "GetMute", "GetVol", "GetFormat"}));
    }

    void switchingObeOffTakesWhatIsTyped()
    {
        Obe console(4, 7);
        console.TypeOnly("lblOBE", "-3");
        console.Click("cmdOBEEnable");
        QCOMPARE(console.Level(), "-3.0");
        QCOMPARE(console.room.Audio.ObeLevel, Byte(18));
        QCOMPARE(console.unit.audio.ObeLevel, Byte(18));
    }

    void showingTheUnitsSettingsSendsNothing()
    {
        Obe console(4, 7);
        console.unit.audio.ObeFreq = 8;
        console.unit.audio.ObeLevel = 20;
        console.Trigger("mnuRef");
        QCOMPARE(console.List().currentText(), "120 Hz");
        QCOMPARE(console.Level(), "-4.0");
        QCOMPARE(console.Calls(), (Calls{"GetAudio", "GetSystem", "GetMute", "GetVol", "GetFormat"}));
        QVERIFY(!console.file.SettingsChanged);
    }
};

QTEST_MAIN(ObePanelTest)
#include "obepanel_test.moc"
