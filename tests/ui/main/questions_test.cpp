#include "support/ui/samplesettings.h"

#include <QTabWidget>

using namespace kelvo;

using Act = std::function<void(ConsoleUnderTest &)>;

class QuestionsTest : public QObject {
    Q_OBJECT

  private slots:
    void enterChangesNothingInTheHall_data();
    void enterChangesNothingInTheHall();
    void enterAtTheEndLeavesTheUnitAsItIs();
    void enterLosesNoWork_data();
    void enterLosesNoWork();
};

namespace {

void CopyAndPasteElsewhere(ConsoleUnderTest &console)
{
    console.Click("cmdCopy");
    console.Click("cmdEQChan(2)");
    console.Forget(); // a channel's own calls
    console.Click("cmdPaste");
}

} // namespace

void QuestionsTest::enterChangesNothingInTheHall_data()
{
    QTest::addColumn<QString>("title");
    QTest::addColumn<Tab>("tab");
    QTest::addColumn<Act>("act");
    QTest::newRow("reset of a channel")
        << "Reset Channel?" << Tab::Eq << Act([](auto &console) { console.Click("cmdClear"); });
    QTest::newRow("copy to another channel") << "Copy?" << Tab::Eq << Act(CopyAndPasteElsewhere);
    QTest::newRow("fader 7.0 on entering a tab")
        << "Fader=7.0?" << Tab::FormatSelection << Act([](auto &console) { console.GoTo(Tab::OutputTrim); });
    QTest::newRow("fader 7.0 by its button")
        << "Set Fader = 7.0" << Tab::Eq << Act([](auto &console) { console.Click("cmdSet7(1)"); });
    QTest::newRow("the upload") << "Confirm Upload!" << Tab::TheaterInformation << Act([](auto &console) {
        console.options.AutoUpload = false;
        console.options.ConfirmUpload = true;
        console.Key(Qt::Key_F2);
    });
}

void QuestionsTest::enterChangesNothingInTheHall()
{
    QFETCH(QString, title);
    QFETCH(Tab, tab);
    QFETCH(Act, act);
    ConsoleUnderTest console(OnLine, tab);
    console.options.AutoUpload = true;
    console.unit.panel.level = 50;
    console.Tick("tmrPoll");
    console.Forget();
    const RoomSettings before = console.room;

    console.EnterInNextBox(title, QMessageBox::No);
    act(console);

    QVERIFY(console.AllBoxesSeen());
    QCOMPARE(console.Calls(), Calls());
    QVERIFY(console.room == before);
}

void QuestionsTest::enterAtTheEndLeavesTheUnitAsItIs()
{
    ConsoleUnderTest console(OnLine, Tab::OutputTrim);
    console.options.AutoUpload = true;
    console.Type("lblPNG(2)", "2");
    console.file.SettingsChanged = false;
    console.Forget();
    console.EnterInNextBox("Revert?", QMessageBox::No);
    QVERIFY(console.window->close());
    QCOMPARE(console.Calls(), (Calls{"StopStream", "SetDLLBaud 0", "DLLShutdown"}));
    QCOMPARE(console.unit.audio.ChannelTrim[Center], Byte(8));
}

void QuestionsTest::enterLosesNoWork_data()
{
    QTest::addColumn<Act>("act");
    QTest::newRow("before New") << Act([](auto &console) { console.Trigger("mnuNew"); });
    QTest::newRow("before Open") << Act([](auto &console) { Open(console, console.File("open.zcf")); });
    QTest::newRow("before the end") << Act([](auto &console) {
        console.EnterInNextBox("Revert?", QMessageBox::No);
        console.window->close();
    });
}

void QuestionsTest::enterLosesNoWork()
{
    QFETCH(Act, act);
    ConsoleUnderTest console(OnLine, Tab::OutputTrim);
    Open(console, WriteSample(console, "open.zcf"));
    console.Type("lblPNG(2)", "3");
    console.EnterInNextBox("Save?", QMessageBox::Yes);
    act(console);
    RoomSettings saved;
    QVERIFY(!LoadConfigFile(console.File("open.zcf").toStdString(), saved));
    QCOMPARE(saved.Audio.ChannelTrim[Center], Byte(6)); // +3 dB: six half decibels up from 12
}

QTEST_MAIN(QuestionsTest)
#include "questions_test.moc"
