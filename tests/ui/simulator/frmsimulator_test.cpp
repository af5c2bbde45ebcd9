#include "support/ui/consoleundertest.h"
#include "ui/simulator/frmsimulator.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSlider>
#include <QTest>
#include <QTimer>

using namespace kelvo;

namespace {

struct Opened {
    Opened()
    {
        dialog.show();
        dialog.activateWindow();
        (void)QTest::qWaitForWindowActive(&dialog);
    }
    template <typename Control>
    Control *Find(const char *name) const
    {
        return dialog.findChild<Control *>(QString::fromLatin1(name));
    }
    void Click(const char *button) const { QTest::mouseClick(Find<QPushButton>(button), Qt::LeftButton); }
    void Tick() { QMetaObject::invokeMethod(Find<QTimer>("tmrUnit"), "timeout"); }

    SimulatedUnit unit;
    FrmSimulator dialog{unit, nullptr};
};

} // namespace

class FrmSimulatorTest : public QObject {
    Q_OBJECT

  private slots:
    void itStandsBesideTheMainWindow()
    {
        const Opened opened;
        QCOMPARE(opened.dialog.objectName(), "frmSimulator");
        QCOMPARE(opened.dialog.windowTitle(), "Simulated Unit");
        QVERIFY(!opened.dialog.isModal());
        QVERIFY(opened.dialog.width() <= 800 && opened.dialog.height() <= 600);
    }

    void everyControlHasAName()
    {
        const Opened opened;
        for (const auto *control : opened.dialog.findChildren<QWidget *>()) {
            const bool ofAnother = qobject_cast<const QComboBox *>(control->parentWidget()) ||
                                   qobject_cast<const QAbstractSpinBox *>(control->parentWidget());
            if (ofAnother || control->focusPolicy() == Qt::NoFocus)
                continue;
            QVERIFY2(!control->objectName().isEmpty(), control->metaObject()->className());
            const auto *button = qobject_cast<const QAbstractButton *>(control);
            QVERIFY2(button ? !button->text().isEmpty() : !control->accessibleName().isEmpty(),
                     qPrintable(control->objectName()));
        }
    }

    void theKnobsOpenWhereTheReaderStands()
    {
        const Opened opened;
        QCOMPARE(opened.Find<QSlider>("sclGainLeft")->value(), 255 - 80);
        QCOMPARE(opened.Find<QSlider>("sclGainRight")->value(), 255 - 80);
        QCOMPARE(opened.Find<QSlider>("sclAzimuth")->value(), 90);
        QCOMPARE(opened.Find<QSlider>("sclSlitLoss")->value(), 6);
        QCOMPARE(opened.Find<QSlider>("sclFocusNoise")->value(), 2);
        QVERIFY(opened.Find<QCheckBox>("chkLock")->isChecked());
        QCOMPARE(opened.unit.reader.gainLeft, 80.0);
        QCOMPARE(opened.unit.reader.slitLoss, 3.0);
    }

    void aKnobTurnedUpMovesTheReader()
    {
        const Opened opened;
        auto *sclGainLeft = opened.Find<QSlider>("sclGainLeft");
        sclGainLeft->setFocus();
        for (int press = 0; press < 3; ++press)
            QTest::keyClick(sclGainLeft, Qt::Key_Right);
        QCOMPARE(opened.unit.reader.gainLeft, 77.0); // a taller bar
        QCOMPARE(opened.unit.reader.gainRight, 80.0);
        QTest::keyClick(opened.Find<QSlider>("sclGainRight"), Qt::Key_Left);
        QCOMPARE(opened.unit.reader.gainRight, 81.0);
        QTest::keyClick(opened.Find<QSlider>("sclAzimuth"), Qt::Key_Right);
        QCOMPARE(opened.unit.reader.azimuthDegrees, 0.5);
        QTest::keyClick(opened.Find<QSlider>("sclSlitLoss"), Qt::Key_Home);
        QCOMPARE(opened.unit.reader.slitLoss, 0.0);
        QTest::keyClick(opened.Find<QSlider>("sclFocusNoise"), Qt::Key_End);
        QCOMPARE(opened.unit.reader.focusNoise, 30.0);
        QStringList texts;
        for (const auto *label : opened.dialog.findChildren<QLabel *>())
            texts += label->text();
        for (const char *shown : {"+3", "-1", "0.5", "0.0", "30.0"})
            QVERIFY2(texts.contains(shown), shown);
    }

    void withoutStreamLockAReadingAnswersThatThereIsNoStream()
    {
        Opened opened;
        std::array<Byte, GainBytes> reading{};
        opened.unit.InitDLL(1);
        opened.unit.BeginGainStream();
        for (int before = 0; before < SimulatedUnit::ReadingsToLock; ++before)
            opened.unit.GetOptGain(reading);
        QCOMPARE(opened.unit.GetOptGain(reading), Success);
        QTest::mouseClick(opened.Find<QCheckBox>("chkLock"), Qt::LeftButton, {}, QPoint(8, 8));
        QCOMPARE(opened.unit.GetOptGain(reading), StreamNotLocked);
    }

    void theFrontPanelIsTurnedByHand()
    {
        const Opened opened;
        QTest::keyClick(opened.Find<QDoubleSpinBox>("txtLevel"), Qt::Key_Up);
        QCOMPARE(opened.unit.panel.level, Word(71));
        QTest::keyClick(opened.Find<QCheckBox>("chkMute"), Qt::Key_Space);
        QCOMPARE(opened.unit.panel.mute, True);
        QTest::keyClick(opened.Find<QComboBox>("cboFormat"), Qt::Key_Home);
        QCOMPARE(opened.unit.panel.format, Word(0));
        QTest::keyClick(opened.Find<QCheckBox>("chkPlugged"), Qt::Key_Space);
        QVERIFY(!opened.unit.panel.plugged);
        QTest::keyClick(opened.Find<QSpinBox>("txtSlow"), Qt::Key_Up);
        QCOMPARE(opened.unit.panel.slow, std::chrono::milliseconds(50));
    }

    void whatTheConsoleSetsShowsAtTheNextTick()
    {
        Opened opened;
        opened.unit.InitDLL(1);
        opened.unit.SetVol(33);
        opened.unit.SetMute(True);
        opened.unit.SelectFormat(2);
        opened.Tick();
        QCOMPARE(opened.Find<QDoubleSpinBox>("txtLevel")->value(), 3.3);
        QVERIFY(opened.Find<QCheckBox>("chkMute")->isChecked());
        QCOMPARE(opened.Find<QComboBox>("cboFormat")->currentText(), "SR-TYPE");
        QCOMPARE(opened.unit.panel.level, Word(33));
        QCOMPARE(opened.unit.panel.mute, True);
    }

    void aLevelBeingTypedIsLeftAloneUntilTheConsoleSetsAnother()
    {
        Opened opened;
        auto *txtLevel = opened.Find<QDoubleSpinBox>("txtLevel");
        auto *entry = txtLevel->findChild<QLineEdit *>();
        txtLevel->setFocus();
        entry->selectAll();
        QTest::keyClicks(entry, "4.");
        opened.Tick();
        QCOMPARE(entry->text(), "4.");
        QCOMPARE(opened.unit.panel.level, Word(70));
        QTest::keyClicks(entry, "2");
        QTest::keyClick(entry, Qt::Key_Return);
        QCOMPARE(opened.unit.panel.level, Word(42));
    }

    void whatRunsInTheUnitIsTold()
    {
        Opened opened;
        auto *lblRunning = opened.Find<QLabel>("lblRunning");
        QCOMPARE(lblRunning->text(), "Nothing");
        opened.unit.InitDLL(1);
        opened.unit.SetProjector(1);
        opened.unit.BeginSlitStream();
        opened.unit.SetPink(Center, True);
        opened.unit.SetPink(Subwoofer, True);
        opened.unit.SetPhase(LeftSurround, True);
        opened.unit.SetRT60(True);
        opened.Tick();
        QCOMPARE(lblRunning->text(), "Slit loss stream, projector 2\nPink noise: Center, Subwoofer\n"
                                     "Inverted: Left Surround\nRT60");
    }

    void theNextErrorMeetsTheOperationThatWasChosen()
    {
        Opened opened;
        opened.unit.InitDLL(1);
        auto *lblFailures = opened.Find<QLabel>("lblFailures");
        QCOMPARE(lblFailures->text(), "Nothing will fail");
        auto *cboOperation = opened.Find<QComboBox>("cboOperation");
        auto *cboAnswer = opened.Find<QComboBox>("cboAnswer");
        cboOperation->setCurrentText("SetVol");
        cboAnswer->setCurrentText("Error Receiving");
        opened.Find<QSpinBox>("txtTimes")->setValue(2);
        opened.Click("cmdFail");
        QCOMPARE(lblFailures->text(), "Calls that will fail: 2");
        QCOMPARE(opened.unit.SetMute(True), Success);
        QCOMPARE(opened.unit.SetVol(10), Status(4));
        opened.Tick();
        QCOMPARE(lblFailures->text(), "Calls that will fail: 1");
        QCOMPARE(opened.unit.SetVol(10), Status(4));
        QCOMPARE(opened.unit.SetVol(10), Success);

        cboOperation->setCurrentText("Any");
        cboAnswer->setCurrentText("No stream to read yet");
        opened.Click("cmdFail");
        QCOMPARE(opened.unit.StopStream(), StreamNotLocked);
        opened.Click("cmdForget");
        QCOMPARE(lblFailures->text(), "Nothing will fail");
        QCOMPARE(opened.unit.StopStream(), Success);
    }

    void allOperationsButTheOneThatNobodyCallsCanBeChosen()
    {
        const Opened opened;
        auto *cboOperation = opened.Find<QComboBox>("cboOperation");
        QStringList names;
        for (int index = 1; index < cboOperation->count(); ++index)
            names += cboOperation->itemText(index);
        names.sort();
        QCOMPARE(names, QStringList({"BeginAzimuthStream",
                                     "BeginGainStream",
                                     "BeginSlitStream",
                                     "ClearError",
                                     "DLLCreateIni",
                                     "DLLShutdown",
                                     "EnableOBE",
                                     "GetAudio",
                                     "GetFormat",
                                     "GetMute",
                                     "GetOptAzimuth",
                                     "GetOptGain",
                                     "GetSingleSlitloss",
                                     "GetSystem",
                                     "GetUnitVersion",
                                     "GetVol",
                                     "InitDLL",
                                     "SelectFormat",
                                     "SetAudio",
                                     "SetDLLBaud",
                                     "SetMute",
                                     "SetPhase",
                                     "SetPink",
                                     "SetProjector",
                                     "SetRT60",
                                     "SetSystem",
                                     "SetVol",
                                     "StopStream"}));
        QCOMPARE(cboOperation->itemText(0), "Any");
    }

    void theMainWindowsMenuOpensIt()
    {
        ConsoleUnderTest console;
        QVERIFY(!console.window->findChild<QAction *>("mnuSimulator"));
        console.window->AddSimulatorMenu(console.unit);
        QCOMPARE(console.Action("mnuSimulator")->text().remove('&'), "Simulated Unit");
        QVERIFY(!console.window->findChild<FrmSimulator *>("frmSimulator"));
        console.Trigger("mnuKnobs");
        auto *frmSimulator = console.window->findChild<FrmSimulator *>("frmSimulator");
        QVERIFY(frmSimulator->isVisible());
        // Turned at the unit, seen at the console.
        QTest::keyClick(frmSimulator->findChild<QDoubleSpinBox *>("txtLevel"), Qt::Key_Down);
        console.Tick("tmrPoll");
        QCOMPARE(console.Find<QLineEdit>("lblVol(3)")->text(), "6.9");
    }

    void theTimerRestsWhileTheWindowIsClosed()
    {
        Opened opened;
        QVERIFY(opened.Find<QTimer>("tmrUnit")->isActive());
        QTest::keyClick(&opened.dialog, Qt::Key_Escape);
        QVERIFY(!opened.dialog.isVisible());
        QVERIFY(!opened.Find<QTimer>("tmrUnit")->isActive());
        opened.unit.panel.level = 12;
        opened.dialog.show();
        QCOMPARE(opened.Find<QDoubleSpinBox>("txtLevel")->value(), 1.2);
    }
};

QTEST_MAIN(FrmSimulatorTest)
#include "frmsimulator_test.moc"
