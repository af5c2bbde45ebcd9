#include "support/ui/differsconsole.h"

#include <QLineEdit>

using namespace kelvo;

class FrmVerifyTest : public QObject {
    Q_OBJECT

  private slots:
    void aUnitThatHoldsTheScreenIsToldInWords();
    void whatTheUnitHoldsInsteadIsListed();
    void aTextIsNotInAUnit();
    void whatIsTypedIsTakenFirst();
    void aBadTypedValueCallsItOff();
    void itIsNotOfferedOffLineOrDuringAStream();
    void anEditMakesTheVerdictOneOfThePast();
    void whatTheUnitChangedItselfIsNoEditThatAReReadKeeps();
    void aLostLinkIsReportedAndNothingIsVerified();
    void aRecordThatIsNotTheDataAskedForIsNotCompared();
    void escapeClosesIt();
};

namespace {

const Calls FiveReads{"GetAudio", "GetSystem", "GetMute", "GetVol", "GetFormat"};

QString Verdict(const DiffersConsole &console)
{
    return console.Find<QLabel>("lblVerify")->text();
}

} // namespace

void FrmVerifyTest::aUnitThatHoldsTheScreenIsToldInWords()
{
    DiffersConsole console;
    QCOMPARE(console.Action("mnuVerify")->text(), "Verify the Unit");
    console.Trigger("mnuVerify");
    QCOMPARE(console.Calls(), FiveReads);
    QVERIFY(console.Find<QDialog>("frmVerify")->isVisible());
    // 3 live values; 6 trims, 81 + 18 + 3 equaliser bytes, 12 shelves, 2 of OBE; 7 options.
    QCOMPARE(Verdict(console), "The unit holds what the screen shows (132 settings)");
    QVERIFY(!console.Table("frmVerify")->isVisible());
}

void FrmVerifyTest::whatTheUnitHoldsInsteadIsListed()
{
    DiffersConsole console(OnLine, Tab::OutputTrim);
    const RoomSettings before = console.room;
    console.unit.audio.ChannelTrim[Center] = 8;
    console.unit.panel.level = 41;
    console.Trigger("mnuVerify");
    QCOMPARE(Verdict(console), "The unit differs from the screen in 1 setting, 1 live value");
    QCOMPARE(console.Rows("frmVerify"), (QStringList{"Output Trim | Center, output trim | +0.5 dB | +2.0 dB",
                                                     "Live | Fader | 7.0 | 4.1"}));
    QVERIFY(console.Table("frmVerify")->isVisible());
    QVERIFY(console.room == before);
    QCOMPARE(console.Find<QLineEdit>("lblPNG(2)")->text(), "0.5");
    QCOMPARE(console.Find<QLabel>("lblSent")->text(), "2 changes not in the unit - F2");

    console.unit.system.stored8 ^= 1;
    console.unit.audio.reserved4[0] ^= 1;
    console.unit.panel.level = 70;
    console.Trigger("mnuVerify");
    QCOMPARE(Verdict(console), "The unit differs from the screen in 1 setting, 2 other bytes");

    console.unit.audio.ChannelTrim[Center] = 11;
    console.unit.audio.reserved4[0] ^= 1;
    console.Trigger("mnuVerify");
    QCOMPARE(Verdict(console), "The unit differs from the screen in 1 other byte");
    QVERIFY(!console.Table("frmVerify")->isVisible());
}

void FrmVerifyTest::aTextIsNotInAUnit()
{
    DiffersConsole console;
    console.room.TheaterInfo[1] = "Odeon";
    console.Trigger("mnuVerify");
    QCOMPARE(Verdict(console), "The unit holds what the screen shows (132 settings)");
}

void FrmVerifyTest::whatIsTypedIsTakenFirst()
{
    DiffersConsole console(OnLine, Tab::OutputTrim);
    console.TypeOnly("lblPNG(2)", "2.0");
    console.Trigger("mnuVerify");
    QCOMPARE(console.Rows("frmVerify"), QStringList{"Output Trim | Center, output trim | +2.0 dB | +0.5 dB"});
}

void FrmVerifyTest::aBadTypedValueCallsItOff()
{
    DiffersConsole console(OnLine, Tab::OutputTrim);
    console.TypeOnly("lblPNG(2)", "99");
    console.AnswerNextBox("Range Check Error", QMessageBox::Ok);
    console.Trigger("mnuVerify");
    QVERIFY(console.AllBoxesSeen());
    QCOMPARE(console.Calls(), Calls());
}

void FrmVerifyTest::itIsNotOfferedOffLineOrDuringAStream()
{
    {
        DiffersConsole offLine(OffLine);
        QVERIFY(!offLine.Action("mnuVerify")->isEnabled());
    }
    DiffersConsole console(OnLine, Tab::OpticalSetup);
    QAction *mnuVerify = console.Action("mnuVerify");
    QVERIFY(mnuVerify->isEnabled());
    console.Click("cmdStart");
    QVERIFY(!mnuVerify->isEnabled());
    console.Click("cmdStart");
    QVERIFY(mnuVerify->isEnabled());
    console.unit.panel.plugged = false;
    console.AnswerNextBox("Connection Error", QMessageBox::Ok);
    console.Tick("tmrPoll");
    QVERIFY(!mnuVerify->isEnabled());
    console.unit.panel.plugged = true;
    console.Click("cmdConnect");
    QVERIFY(mnuVerify->isEnabled());
}

void FrmVerifyTest::anEditMakesTheVerdictOneOfThePast()
{
    DiffersConsole console(OnLine, Tab::OutputTrim);
    console.Trigger("mnuVerify");
    console.ToFront(console.window.get());
    console.Tick("tmrPoll"); // finds nothing new
    QCOMPARE(Verdict(console), "The unit holds what the screen shows (132 settings)");
    console.Type("lblPNG(2)", "3");
    QCOMPARE(Verdict(console),
             "Before the latest change: The unit holds what the screen shows (132 settings)");
    console.Trigger("mnuVerify");
    QCOMPARE(Verdict(console), "The unit differs from the screen in 1 setting");
}

void FrmVerifyTest::whatTheUnitChangedItselfIsNoEditThatAReReadKeeps()
{
    DiffersConsole console(OnLine, Tab::OutputTrim);
    console.unit.audio.ChannelTrim[Left] = 3;
    console.Trigger("mnuVerify");
    QVERIFY(console.Find<QLabel>("lblSent")->text().startsWith("1 change"));
    console.options.AutoRefresh = true;
    console.options.RefreshSeconds = 1;
    console.Tick("tmrRefresh");
    QCOMPARE(console.room.Audio.ChannelTrim[Left], Byte(3));
    QCOMPARE(console.Find<QLabel>("lblSent")->text(), "All sent");
}

void FrmVerifyTest::aLostLinkIsReportedAndNothingIsVerified()
{
    DiffersConsole console(OnLine, Tab::OutputTrim);
    console.unit.audio.ChannelTrim[Center] = 8;
    console.unit.FailNext(Operation::GetSystem, 8, 6);
    console.AnswerNextBox("Connection Error", QMessageBox::Ok);
    console.Trigger("mnuVerify");
    QVERIFY(console.AllBoxesSeen());
    QCOMPARE(Verdict(console), "Not verified: system settings, mute, fader, format could not be read");
    QVERIFY(!console.Table("frmVerify")->isVisible());
    QCOMPARE(console.Find<QLineEdit>("lblPNG(2)")->text(), "0.5");
    QCOMPARE(console.Find<QLabel>("lblStat")->text(), "Off Line");
}

void FrmVerifyTest::aRecordThatIsNotTheDataAskedForIsNotCompared()
{
    DiffersConsole console;
    console.unit.system.SurroundDelay = 9;
    console.unit.FailNext(Operation::GetAudio, StreamNotLocked, 6);
    console.Trigger("mnuVerify");
    QCOMPARE(Verdict(console), "Not verified: audio settings could not be read");
    QVERIFY(!console.Table("frmVerify")->isVisible());
    QCOMPARE(console.Find<QLabel>("lblSent")->text(), "All sent");
    console.Trigger("mnuVerify");
    QCOMPARE(Verdict(console), "The unit differs from the screen in 1 setting");
}

void FrmVerifyTest::escapeClosesIt()
{
    DiffersConsole console;
    console.Trigger("mnuVerify");
    auto *frmVerify = console.Find<QDialog>("frmVerify");
    QVERIFY(QTest::qWaitForWindowActive(frmVerify));
    QTest::keyClick(frmVerify, Qt::Key_Escape);
    QVERIFY(!frmVerify->isVisible());
}

QTEST_MAIN(FrmVerifyTest)
#include "frmverify_test.moc"
