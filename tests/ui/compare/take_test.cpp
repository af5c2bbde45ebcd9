#include "support/ui/differsconsole.h"

#include <QLineEdit>

using namespace kelvo;

class TakeTest : public QObject {
    Q_OBJECT

  private slots:
    void takingBringsTheChosenRowsAloneAsOneEdit();
    void takingGoesIntoTheScreenFromEitherSide();
    void takingSendsEachRecordOnce();
    void textsAreTaken();
    void liveValuesAreLeftAlone();
    void aTakeNeedsTheScreenOnOneSideAndAChoice();
    void whatIsTypedIsTakenFirst();
    void aBadTypedValueCallsTheTakeOff();
    void offLineTheRoomChangesAndTheLineTells();
    void afterAConnectionThatFailedItTakesAllTheSame();
};

namespace {

/// What Differs with the sample of `WriteSample` on the right.
void OpenAgainstSample(DiffersConsole &console)
{
    const QString path = WriteSample(console, "house.zcf");
    console.OpenDiffers();
    console.ChooseNextFile(path);
    console.ChooseItem("cboRight", "File ...");
}

void ChooseRow(DiffersConsole &console, const QString &row, Qt::KeyboardModifiers modifiers = {})
{
    const auto index = int(console.Rows().indexOf(row));
    QVERIFY2(index >= 0, qPrintable(console.Rows().join('\n')));
    console.Table()->scrollTo(console.Table()->model()->index(index, 0));
    console.ClickRow(index, modifiers);
}

// The simulated unit beside the sample.
const QString SampleTrim = "Output Trim | Center, output trim | +0.5 dB | +2.0 dB";
const QString LeftBass = "Tone | Left, bass | 0 dB | +3 dB";
const QString SurroundDelay = "Options | Surround delay | 20 mS | 50 mS";
const QString TheaterName = "Theater | Theater Name |  | Odeon 3";

} // namespace

void TakeTest::takingBringsTheChosenRowsAloneAsOneEdit()
{
    DiffersConsole console(OnLine, Tab::OutputTrim);
    OpenAgainstSample(console);
    RoomSettings expected = console.room;
    expected.Audio.ChannelTrim[Center] = 8;
    expected.System.SurroundDelay = 5;
    ChooseRow(console, SampleTrim);
    ChooseRow(console, SurroundDelay, Qt::ControlModifier);
    console.Click("cmdTake");
    QVERIFY(console.room == expected);
    QVERIFY(console.file.SettingsChanged);
    QCOMPARE(console.Find<QLineEdit>("lblPNG(2)")->text(), "2.0");
    QCOMPARE(console.Calls(), Calls()); // automatic upload is off
    QCOMPARE(console.Find<QLabel>("lblSent")->text(), "2 changes not in the unit - F2");
    QVERIFY(!console.Rows().contains(SampleTrim));
    QVERIFY(console.Rows().contains(LeftBass));
}

void TakeTest::takingGoesIntoTheScreenFromEitherSide()
{
    DiffersConsole console(OnLine, Tab::OutputTrim);
    console.Type("lblPNG(0)", "3.0");
    console.OpenDiffers();
    console.ChooseItem("cboRight", "Screen");
    console.ChooseItem("cboLeft", "Unit");
    ChooseRow(console, "Output Trim | Left, output trim | 0.0 dB | +3.0 dB");
    console.Click("cmdTake");
    QCOMPARE(console.Find<QLineEdit>("lblPNG(0)")->text(), "0.0");
    QCOMPARE(console.Total(), "No difference");
}

void TakeTest::takingSendsEachRecordOnce()
{
    DiffersConsole console;
    console.options.AutoUpload = true;
    OpenAgainstSample(console);
    console.Table()->selectAll();
    console.Click("cmdTake");
    QCOMPARE(console.Calls(), (Calls{"SetSystem", "SetAudio"}));
    QCOMPARE(console.unit.audio.ChannelTrim[Center], Byte(8));
    QCOMPARE(console.unit.system.SurroundDelay, Byte(5));
    QCOMPARE(console.Find<QLabel>("lblSent")->text(), "All sent");
}

void TakeTest::textsAreTaken()
{
    DiffersConsole console(OnLine, Tab::TheaterInformation);
    OpenAgainstSample(console);
    ChooseRow(console, TheaterName);
    console.Click("cmdTake");
    QCOMPARE(console.room.TheaterInfo[1], std::string("Odeon 3"));
    auto *name = console.Find<QWidget>("frmtabs(6)")->findChild<QLineEdit *>("txtTheaterInfo(1)");
    QCOMPARE(name->text(), "Odeon 3");
    QVERIFY(console.file.SettingsChanged);
    QCOMPARE(console.Calls(), Calls());
}

void TakeTest::liveValuesAreLeftAlone()
{
    DiffersConsole console;
    console.options.AutoUpload = true;
    OpenAgainstSample(console);
    QVERIFY(console.Rows().contains("Live | Fader | 7.0 | 4.2"));
    console.Table()->selectAll();
    console.Click("cmdTake");
    QCOMPARE(console.room.FaderLevel, Word(70));
    QCOMPARE(console.room.MuteState, False);
    QCOMPARE(console.room.CurrentFormat, Word(4));
    // The three of them are all that still differs.
    QCOMPARE(console.Total(), "3 live values differ");
    QVERIFY(!console.Find<QPushButton>("cmdTake")->isEnabled());
}

void TakeTest::aTakeNeedsTheScreenOnOneSideAndAChoice()
{
    DiffersConsole console;
    OpenAgainstSample(console);
    auto *cmdTake = console.Find<QPushButton>("cmdTake");
    QVERIFY(!cmdTake->isEnabled());
    ChooseRow(console, SampleTrim);
    QVERIFY(cmdTake->isEnabled());
    console.ChooseItem("cboLeft", "Unit");
    ChooseRow(console, SampleTrim);
    QVERIFY(!cmdTake->isEnabled());
    console.ChooseItem("cboLeft", "Screen");
    ChooseRow(console, SampleTrim);
    QVERIFY(cmdTake->isEnabled());
    console.ChooseItem("cboRight", "Screen");
    QVERIFY(!cmdTake->isEnabled());
}

void TakeTest::whatIsTypedIsTakenFirst()
{
    DiffersConsole console(OnLine, Tab::OutputTrim);
    OpenAgainstSample(console);
    ChooseRow(console, SampleTrim);
    console.ToFront(console.window.get());
    console.TypeOnly("lblPNG(0)", "1.5");
    console.ToFront(console.Differs());
    console.Click("cmdTake");
    QCOMPARE(console.room.Audio.ChannelTrim[Left], Byte(9));
    QCOMPARE(console.room.Audio.ChannelTrim[Center], Byte(8));
}

void TakeTest::aBadTypedValueCallsTheTakeOff()
{
    DiffersConsole console(OnLine, Tab::OutputTrim);
    OpenAgainstSample(console);
    ChooseRow(console, SampleTrim);
    console.ToFront(console.window.get());
    console.TypeOnly("lblPNG(0)", "99");
    console.ToFront(console.Differs());
    console.AnswerNextBox("Range Check Error", QMessageBox::Ok);
    console.Click("cmdTake");
    QVERIFY(console.AllBoxesSeen());
    QCOMPARE(console.room.Audio.ChannelTrim[Center], Byte(11));
}

void TakeTest::offLineTheRoomChangesAndTheLineTells()
{
    DiffersConsole console(OnLine, Tab::OutputTrim);
    console.unit.panel.plugged = false;
    console.AnswerNextBox("Connection Error", QMessageBox::Ok);
    console.Tick("tmrPoll");
    OpenAgainstSample(console);
    ChooseRow(console, SampleTrim);
    console.Forget();
    console.Click("cmdTake");
    QCOMPARE(console.room.Audio.ChannelTrim[Center], Byte(8));
    QVERIFY(console.Find<QLabel>("lblSent")->text().startsWith("1 change not in the unit"));
    QCOMPARE(console.Calls(), Calls());
}

void TakeTest::afterAConnectionThatFailedItTakesAllTheSame()
{
    DiffersConsole console(OffLine, Tab::FormatSelection);
    console.AnswerNextBox("Connection Error", QMessageBox::Ok);
    console.Click("cmdConnect");
    OpenAgainstSample(console);
    ChooseRow(console, "Options | Surround delay | 0 mS | 50 mS");
    console.Click("cmdTake");
    QCOMPARE(console.room.System.SurroundDelay, Byte(5));
}

QTEST_MAIN(TakeTest)
#include "take_test.moc"
