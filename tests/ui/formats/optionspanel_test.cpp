#include "support/ui/consoleundertest.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QRadioButton>
#include <QWheelEvent>

using namespace kelvo;

namespace {

/// The console on its options tab, the unit holding this block, edits sent at once.
struct Options : ConsoleUnderTest {
    explicit Options(const SystemBlock &system = {})
        : ConsoleUnderTest(OnLine, Tab::Options,
                           [&](ConsoleUnderTest &console) { console.unit.system = system; })
    {
        Trigger("mnuAuto");
        Forget();
    }

    QComboBox &List(const char *name) const { return *Find<QComboBox>(name); }
    QStringList Items(const char *name) const
    {
        QStringList items;
        for (int index = 0; index < List(name).count(); ++index)
            items += List(name).itemText(index);
        return items;
    }
    int Chosen(const char *group, int count) const
    {
        for (int index = 0; index < count; ++index)
            if (Find<QRadioButton>(Member(group, index))->isChecked())
                return index;
        return -1;
    }
    QString F1Button() const { return Find<QPushButton>("cmdMode(0)")->text(); }
};

} // namespace

class OptionsPanelTest : public QObject {
    Q_OBJECT

  private slots:
    void everyListHasItsItems()
    {
        Options console;
        QCOMPARE(console.Items("cboNonsyncMode"),
                 QStringList({"Screen Channels", "Surround Channels", "Screen And Surround Channels",
                              "Matrix Decoded"}));
        const QStringList trims = console.Items("cboNonsyncTrim");
        QCOMPARE(trims.size(), 21);
        QCOMPARE(trims[0], "0 dB");
        QCOMPARE(trims[1], "-1 dB");
        QCOMPARE(trims[20], "-20 dB");
        QCOMPARE(console.Items("cboSurroundDelay"),
                 QStringList({"0 mS", "10 mS", "20 mS", "30 mS", "40 mS", "50 mS", "60 mS", "70 mS", "80 mS",
                              "90 mS", "100 mS"}));
        const QStringList delays = console.Items("cboReaderDelay");
        QCOMPARE(delays.size(), 397);
        QCOMPARE(delays[0], "0.00 TC Frames");
        QCOMPARE(delays[1], "0.25 TC Frames");
        QCOMPARE(delays[255], "63.75 TC Frames");
        QCOMPARE(delays[396], "99.00 TC Frames");
    }

    void everyOptionAndFrameHasItsCaption()
    {
        Options console;
        const QStringList formats{"EXTERNAL 6-TRK", "NON-SYNC", "SR TYPE", "A TYPE",
                                  "F1 ('Mono' button on unit)"};
        for (int index = 0; index < 5; ++index)
            QCOMPARE(console.Find<QRadioButton>(Member("optDefaultFormat", index))->text(), formats[index]);
        const QStringList keys{"Optical Mono", "External N.R.",
                               "External 2-Trk Return W/ Internal A Type N.R.",
                               "External 2-Trk Return W/ Internal SR Type N.R."};
        for (int index = 0; index < 4; ++index)
            QCOMPARE(console.Find<QRadioButton>(Member("optF1Key", index))->text(), keys[index]);
        QCOMPARE(console.Find<QCheckBox>("chkDisableMatrix")->text(), "Matrix Decoding Disabled");
        const auto frameOf = [&](const char *control) {
            return qobject_cast<QGroupBox *>(console.Find<QWidget>(control)->parentWidget())->title();
        };
        QCOMPARE(frameOf("optDefaultFormat(0)"), "Power On Format");
        QCOMPARE(frameOf("optF1Key(0)"), "F1 (MONO) Format Key Assignment");
    }

    void thePowerOnFormatsStandInTheirScreenOrder()
    {
        Options console;
        int above = -1;
        for (const char *option : {"optDefaultFormat(3)", "optDefaultFormat(2)", "optDefaultFormat(0)",
                                   "optDefaultFormat(4)", "optDefaultFormat(1)"}) {
            const int y = console.Find<QWidget>(option)->y();
            QVERIFY(y > above);
            above = y;
        }
    }

    void aChoiceInAListIsStoredAndSent_data()
    {
        QTest::addColumn<QString>("list");
        QTest::addColumn<QString>("item");
        QTest::addColumn<int>("offset");
        QTest::addColumn<int>("byte");
        QTest::newRow("mode") << "cboNonsyncMode"
                              << "Matrix Decoded" << 3 << 3;
        QTest::newRow("trim") << "cboNonsyncTrim"
                              << "-20 dB" << 24 << 20;
        QTest::newRow("surround delay") << "cboSurroundDelay"
                                        << "100 mS" << 6 << 10;
        QTest::newRow("reader delay, low byte") << "cboReaderDelay"
                                                << "63.75 TC Frames" << 5 << 255;
        QTest::newRow("reader delay, last, high byte") << "cboReaderDelay"
                                                       << "99.00 TC Frames" << 4 << 1;
        QTest::newRow("reader delay, last, low byte") << "cboReaderDelay"
                                                      << "99.00 TC Frames" << 5 << 140;
    }
    void aChoiceInAListIsStoredAndSent()
    {
        QFETCH(QString, list);
        QFETCH(QString, item);
        QFETCH(int, offset);
        QFETCH(int, byte);
        Options console;
        console.ChooseItem(list, item);
        QCOMPARE(console.Calls(), Calls{"SetSystem"});
        QCOMPARE(int(BytesOf(console.unit.system)[std::size_t(offset)]), byte);
        QVERIFY(console.file.SettingsChanged);
    }

    void aPowerOnFormatIsStoredByItsIndexNotItsPlace()
    {
        Options console;
        for (const int index : {3, 2, 0, 4, 1}) {
            console.Click(Member("optDefaultFormat", index));
            QCOMPARE(console.unit.system.DefaultFormat, Byte(index));
        }
        QCOMPARE(console.Calls(), Calls(5, "SetSystem"));
    }

    void theMatrixBoxStoresOneOrNought()
    {
        Options console;
        console.Click("chkDisableMatrix");
        QCOMPARE(console.unit.system.DisableMatrix, Byte(1));
        console.Click("chkDisableMatrix");
        QCOMPARE(console.unit.system.DisableMatrix, Byte(0));
        QCOMPARE(console.Calls(), Calls(2, "SetSystem"));
    }

    void anF1ChoiceIsNamedOnItsFormatButtonAfterTheUpload_data()
    {
        QTest::addColumn<int>("index");
        QTest::addColumn<QString>("caption");
        QTest::newRow("optical mono") << 0 << "Optical Mono";
        QTest::newRow("external") << 1 << "External N.R.";
        QTest::newRow("internal A") << 2 << "Ext 2-Trk A Type NR";
        QTest::newRow("internal SR") << 3 << "Ext 2-Trk SR Type NR";
    }
    void anF1ChoiceIsNamedOnItsFormatButtonAfterTheUpload()
    {
        QFETCH(int, index);
        QFETCH(QString, caption);
        SystemBlock system{};
        system.F1KeyMode = Byte((index + 1) % 4);
        Options console(system);
        console.Click(Member("optF1Key", index));
        QCOMPARE(console.Calls(), Calls{"SetSystem"});
        QCOMPARE(console.unit.system.F1KeyMode, Byte(index));
        QCOMPARE(console.F1Button(), caption);
    }

    void afterAConnectionTheFormatButtonHasTheOtherShortForm_data()
    {
        QTest::addColumn<int>("mode");
        QTest::addColumn<QString>("caption");
        QTest::newRow("optical mono") << 0 << "Optical Mono";
        QTest::newRow("external") << 1 << "External N.R.";
        QTest::newRow("internal A") << 2 << "Internal A";
        QTest::newRow("internal SR") << 3 << "Internal SR";
        QTest::newRow("unknown") << 9 << "Mono";
    }
    void afterAConnectionTheFormatButtonHasTheOtherShortForm()
    {
        QFETCH(int, mode);
        QFETCH(QString, caption);
        SystemBlock system{};
        system.F1KeyMode = Byte(mode);
        Options console(system);
        QCOMPARE(console.F1Button(), caption);
    }

    void offLineTheFormatButtonReadsMono()
    {
        ConsoleUnderTest console(OffLine);
        QCOMPARE(console.Find<QPushButton>("cmdMode(0)")->text(), "Mono");
    }

    void everyControlShowsItsByte()
    {
        SystemBlock system{};
        system.F1KeyMode = 2;
        system.DisableMatrix = 1;
        system.NonsyncMode = 1;
        system.ReaderDelay = {1, 44};
        system.SurroundDelay = 7;
        system.NonsyncTrim = 13;
        system.DefaultFormat = 4;
        Options console(system);
        QCOMPARE(console.Chosen("optF1Key", 4), 2);
        QCOMPARE(console.Chosen("optDefaultFormat", 5), 4);
        QCOMPARE(console.Find<QCheckBox>("chkDisableMatrix")->checkState(), Qt::Checked);
        QCOMPARE(console.List("cboNonsyncMode").currentText(), "Surround Channels");
        QCOMPARE(console.List("cboNonsyncTrim").currentText(), "-13 dB");
        QCOMPARE(console.List("cboReaderDelay").currentText(), "75.00 TC Frames");
        QCOMPARE(console.List("cboSurroundDelay").currentText(), "70 mS");
        QCOMPARE(console.Calls(), Calls{});
        QVERIFY(!console.file.SettingsChanged);
    }

    void bytesBeyondTheListsShowNoChoiceAndGoBackUnchanged()
    {
        SystemBlock system{};
        system.F1KeyMode = 4;
        system.DisableMatrix = 255;
        system.NonsyncMode = 4;
        system.ReaderDelay = {1, 141};
        system.SurroundDelay = 11;
        system.NonsyncTrim = 21;
        system.DefaultFormat = 5;
        Options console(system);
        QCOMPARE(console.Chosen("optF1Key", 4), -1);
        QCOMPARE(console.Chosen("optDefaultFormat", 5), -1);
        QCOMPARE(console.Find<QCheckBox>("chkDisableMatrix")->checkState(), Qt::PartiallyChecked);
        for (const char *list : {"cboNonsyncMode", "cboNonsyncTrim", "cboReaderDelay", "cboSurroundDelay"})
            QCOMPARE(console.List(list).currentIndex(), -1);
        console.Click("cmdUp(4)");
        QVERIFY(console.unit.system == system);
        // A choice then changes its own byte alone.
        console.Click("optF1Key(1)");
        system.F1KeyMode = 1;
        QVERIFY(console.unit.system == system);
    }

    void aReaderDelayWithAHighByteOf128OrMoreShowsNoChoice()
    {
        SystemBlock system{};
        system.ReaderDelay = {128, 0};
        Options console(system);
        QCOMPARE(console.List("cboReaderDelay").currentIndex(), -1);
        QCOMPARE(ReaderDelayIndex(console.room.System), 32768);
    }

    void aClickOnAnOddMatrixByteLeavesItForGood()
    {
        SystemBlock system{};
        system.DisableMatrix = 7;
        Options console(system);
        auto *box = console.Find<QCheckBox>("chkDisableMatrix");
        for (int click = 0; click < 4; ++click) {
            console.Click("chkDisableMatrix");
            QVERIFY(box->checkState() != Qt::PartiallyChecked);
            QCOMPARE(int(console.unit.system.DisableMatrix), box->isChecked() ? 1 : 0);
        }
    }

    void aReadBackShowsTheChoicesWithoutSendingThem()
    {
        SystemBlock system{};
        system.DefaultFormat = 200;
        Options console(system);
        console.unit.system.DefaultFormat = 2;
        console.unit.system.NonsyncTrim = 3;
        console.Trigger("mnuRef");
        QCOMPARE(console.Chosen("optDefaultFormat", 5), 2);
        QCOMPARE(console.List("cboNonsyncTrim").currentText(), "-3 dB");
        QCOMPARE(console.Calls(), (Calls{"GetAudio", "GetSystem", "GetMute", "GetVol", "GetFormat"}));
    }

    void theSameItemChosenAgainIsSentAgain()
    {
        Options console;
        console.ChooseItem("cboNonsyncMode", "Screen Channels");
        QCOMPARE(console.Calls(), Calls{"SetSystem"});
    }

    void arrowKeysChooseInAGroup()
    {
        Options console;
        console.Find<QRadioButton>("optF1Key(0)")->setFocus();
        console.Key(Qt::Key_Down);
        QCOMPARE(console.Chosen("optF1Key", 4), 1);
        QCOMPARE(console.unit.system.F1KeyMode, Byte(1));
        QCOMPARE(console.Calls(), Calls{"SetSystem"});
    }

    void theWheelTurnsAListOnlyWhileItHasTheFocus()
    {
        Options console;
        QComboBox &list = console.List("cboNonsyncTrim");
        console.Find<QRadioButton>("optF1Key(0)")->setFocus();
        console.Wheel(&list, -120);
        QCOMPARE(list.currentIndex(), 0);
        QCOMPARE(console.Calls(), Calls{});
        list.setFocus();
        console.Wheel(&list, -120);
        QCOMPARE(list.currentIndex(), 1);
        QCOMPARE(console.unit.system.NonsyncTrim, Byte(1));
    }

    void aFailedUploadKeepsTheChoice()
    {
        Options console;
        console.unit.FailNext(Operation::SetSystem, 8, 6);
        console.AnswerNextBox("Connection Error", QMessageBox::Ok);
        console.Click("optDefaultFormat(2)");
        QCOMPARE(console.room.System.DefaultFormat, Byte(2));
        QCOMPARE(console.Chosen("optDefaultFormat", 5), 2);
    }

    void afterNewEverythingStandsAtItsFirstChoice()
    {
        SystemBlock system{};
        system.F1KeyMode = 2;
        system.DisableMatrix = 1;
        system.NonsyncMode = 1;
        system.ReaderDelay = {1, 44};
        system.SurroundDelay = 7;
        system.NonsyncTrim = 13;
        system.DefaultFormat = 4;
        Options console(system);
        console.Trigger("mnuNew");
        QCOMPARE(console.Chosen("optF1Key", 4), 0);
        QCOMPARE(console.Chosen("optDefaultFormat", 5), 0);
        QVERIFY(!console.Find<QCheckBox>("chkDisableMatrix")->isChecked());
        QCOMPARE(console.List("cboNonsyncMode").currentText(), "Screen Channels");
        QCOMPARE(console.List("cboNonsyncTrim").currentText(), "0 dB");
        QCOMPARE(console.List("cboReaderDelay").currentText(), "0.00 TC Frames");
        QCOMPARE(console.List("cboSurroundDelay").currentText(), "0 mS");
        QCOMPARE(console.Calls(), Calls{});
    }
};

QTEST_MAIN(OptionsPanelTest)
#include "optionspanel_test.moc"
