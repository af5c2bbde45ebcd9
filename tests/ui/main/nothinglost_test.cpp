#include "support/ui/consoleundertest.h"

#include "files/configfile.h"

#include <QAction>
#include <QDir>
#include <QFileInfo>
#include <QLabel>
#include <QLineEdit>

using namespace kelvo;

/// Evenings that go wrong in the middle: no edit, no file and none of a unit's originals is lost, and nothing
/// that nobody asked for reaches a unit.
class NothingLostTest : public QObject {
    Q_OBJECT

  private slots:
    /// A run that a signal has ended leaves the application quitting, and no box would open any more.
    void cleanup()
    {
        QMetaObject::invokeMethod(qApp, &QCoreApplication::quit, Qt::QueuedConnection);
        QCoreApplication::exec();
    }
    void aSignalAtAQuestionCallsTheCommandOff_data();
    void aSignalAtAQuestionCallsTheCommandOff();
    void aSignalAtTheRevertQuestionKeepsTheOriginals();
    void aHeldTrimIsKeptAndNotSentAtTheEnd();
    void anAttemptThatFailedIsNoOtherUnit();
    void whatTheConsoleSentItselfIsNoOtherUnit();
    void originalsThatCannotBeKeptAreOfferedToNoOtherUnit();
    void whatNewHasPutOutOfUseIsNotWrittenAfterBringBack();
    void whatTheUnitBroughtIsAskedForAfterBringBackToo();
    void aFileThatWasSavedSinceIsNotWrittenOver();
    void openWithoutAQuestionLeavesTheEditsToBeBroughtBack();
    void whatWasBroughtBackAndUndoneIsOfferedAgain();
    void aSnapshotThatWasOpenedIsSavedElsewhere();
    void theFirstConnectionIsNoStepBesideATypedText();
    void theTitleFollowsUndoAndRedo();
    void theTitleIsNotTheUnitsWhileUnsentSettingsStand();
    void aReadThatFailsIsToldInItsPlace();
};

namespace {

/// A run on a data folder, over a unit whose trims are at 0 dB.
struct Evening : ConsoleUnderTest {
    explicit Evening(const QString &data, ConsoleStart start = OnLine,
                     const std::function<void(ConsoleUnderTest &)> &prepare = {})
        : ConsoleUnderTest(start, start == OnLine ? Tab::OutputTrim : Tab::FormatSelection,
                           [&](ConsoleUnderTest &test) {
                               test.places.dataFolder = data;
                               test.unit.audio.ChannelTrim.fill(12);
                               if (prepare)
                                   prepare(test);
                           })
    {
        options.AutoUpload = true;
    }
    void PullCable()
    {
        unit.panel.plugged = false;
        AnswerNextBox("Connection Error", QMessageBox::Ok);
        Tick("tmrPoll");
    }
    QString Put(const char *name, int trims)
    {
        RoomSettings settings;
        settings.FaderLevel = 99;
        settings.Audio.ChannelTrim.fill(Byte(trims));
        settings.TheaterInfo[0] = "Rex";
        if (SaveConfigFile(File(name).toStdString(), settings))
            qFatal("no file to begin with");
        return File(name);
    }
    QString Line() const { return Find<QLabel>("lblSent")->text(); }
    QString Title() const { return window->windowTitle(); }
};

int TrimIn(const QString &path)
{
    RoomSettings saved;
    return LoadConfigFile(path.toStdString(), saved) ? -1 : saved.Audio.ChannelTrim[Left];
}

/// A run that was killed with an edit after it had opened a file with trims of 3, and done `command` then.
struct RexLeftBehind {
    explicit RexLeftBehind(const char *command = nullptr)
    {
        Evening console(data.path());
        if (!QFile::rename(console.Put("rex.zcf", 3), file) || !console.window->OpenFile(file))
            qFatal("no file to begin with");
        if (command)
            console.Trigger(command);
        console.Type("lblPNG(0)", "1");
    }

    QTemporaryDir data;
    QTemporaryDir rooms;
    const QString file = rooms.filePath("rex.zcf");
};

} // namespace

void NothingLostTest::aSignalAtAQuestionCallsTheCommandOff_data()
{
    QTest::addColumn<bool>("opens");
    QTest::newRow("New") << false;
    QTest::newRow("a file that was dropped") << true;
}

void NothingLostTest::aSignalAtAQuestionCallsTheCommandOff()
{
    QFETCH(const bool, opens);
    QTemporaryDir data;
    RoomSettings last;
    {
        Evening console(data.path());
        QVERIFY(console.window->OpenFile(console.Put("a.zcf", 3)));
        const QString other = console.Put("b.zcf", 20);
        console.Type("lblPNG(0)", "1");
        console.Type("lblPNG(1)", "2");
        last = console.room;
        console.Forget();
        console.AnswerNextBox("Save?", QMessageBox::No, {}, [&] { console.window->EndRun(); });
        if (opens)
            console.window->findChild<FileCommands *>()->OpenChosen(other);
        else
            console.Trigger("mnuNew");
        QCOMPARE(console.Calls(), (Calls{"StopStream", "SetDLLBaud 0", "DLLShutdown"}));
    }
    Evening next(data.path());
    QVERIFY(next.Line().startsWith("Bring back 2 changes"));
    next.Click("lblSent");
    last.Audio.UnitClock = next.room.Audio.UnitClock;
    QCOMPARE(next.room.Audio, last.Audio);
    QCOMPARE(next.room.TheaterInfo, last.TheaterInfo);
}

void NothingLostTest::aSignalAtTheRevertQuestionKeepsTheOriginals()
{
    QTemporaryDir data;
    Evening console(data.path());
    console.Type("lblPNG(0)", "1");
    console.AnswerNextBox("Save?", QMessageBox::No);
    console.AnswerNextBox("Revert?", QMessageBox::No, {}, [&] { console.window->EndRun(); });
    console.window->close();
    const QDir kept(console.File("snapshots"));
    QCOMPARE(kept.entryList({"*.zcf"}).size(), 1);
    QCOMPARE(TrimIn(kept.filePath(kept.entryList({"*.zcf"}).first())), 12);
    QCOMPARE(console.unit.audio.ChannelTrim[Left], Byte(10));
}

void NothingLostTest::aHeldTrimIsKeptAndNotSentAtTheEnd()
{
    QTemporaryDir data;
    {
        Evening console(data.path());
        console.DragTo("sclPNG(0)", 2);
        QVERIFY(console.window->EndSession(false));
        console.window.reset();
        QCOMPARE(console.Calls(), (Calls{"StopStream", "SetDLLBaud 0", "DLLShutdown"}));
    }
    Evening next(data.path());
    QVERIFY(next.Line().startsWith("Bring back 1 change of"));
}

void NothingLostTest::anAttemptThatFailedIsNoOtherUnit()
{
    QTemporaryDir data;
    Evening console(data.path());
    console.PullCable();
    console.unit.panel.plugged = true;
    console.Click("cmdConnect");
    console.Type("lblPNG(0)", "1");
    console.PullCable();
    console.AnswerNextBox("Connection Error", QMessageBox::Ok);
    console.Click("cmdConnect");
    console.unit.panel.plugged = true;
    console.unit.FailNext(Operation::GetSystem, 8, 6);
    console.AnswerNextBox("Connection Error", QMessageBox::Ok);
    console.Click("cmdConnect");
    console.Click("cmdConnect");
    console.file.SettingsChanged = false;
    console.AnswerNextBox("Revert?", QMessageBox::Yes);
    QVERIFY(console.window->close());
    QCOMPARE(console.unit.audio.ChannelTrim[Left], Byte(12));
    QVERIFY(!QFileInfo::exists(console.File("snapshots")));
}

void NothingLostTest::whatTheConsoleSentItselfIsNoOtherUnit()
{
    QTemporaryDir data;
    Evening console(data.path());
    console.unit.FailNext(Operation::SetAudio, 16, 6);
    console.AnswerNextBox("Connection Error", QMessageBox::Ok);
    console.Type("lblPNG(0)", "1");
    console.unit.audio.ChannelTrim[Left] = 10; // it came through, only the answer was lost
    console.Click("cmdConnect");
    console.file.SettingsChanged = false;
    console.AnswerNextBox("Revert?", QMessageBox::Yes);
    QVERIFY(console.window->close());
    QCOMPARE(console.unit.audio.ChannelTrim[Left], Byte(12));
}

void NothingLostTest::originalsThatCannotBeKeptAreOfferedToNoOtherUnit()
{
    QTemporaryDir data;
    Evening console(data.path());
    QFile inTheWay(console.File("snapshots"));
    QVERIFY(inTheWay.open(QFile::WriteOnly));
    console.PullCable();
    console.unit.audio.ChannelTrim.fill(20); // the cable goes to another unit
    console.unit.panel.plugged = true;
    console.Click("cmdConnect");
    QCOMPARE(console.reports.size(), 1);
    QVERIFY(console.window->close()); // no question offers the first unit's settings
    QCOMPARE(console.unit.audio.ChannelTrim[Left], Byte(20));
    QCOMPARE(TrimIn(console.File("temp.qm4")), 12);
}

void NothingLostTest::whatNewHasPutOutOfUseIsNotWrittenAfterBringBack()
{
    const RexLeftBehind left("mnuNew");
    const QString &rex = left.file;
    Evening next(left.data.path());
    next.Click("lblSent");
    QVERIFY(next.file.CurrentFileName.empty());
    next.ChooseNextFile({}); // Save asks for a name
    next.Trigger("mnuSave");
    QCOMPARE(TrimIn(rex), 3);
}

void NothingLostTest::whatTheUnitBroughtIsAskedForAfterBringBackToo()
{
    const RexLeftBehind left("mnuRef");
    const QString &rex = left.file;
    Evening next(left.data.path());
    next.Click("lblSent");
    QCOMPARE(next.file.CurrentFileName, rex.toStdString());
    next.AnswerNextBox("Save?", QMessageBox::No);
    next.ChooseNextFile({});
    next.Trigger("mnuSave");
    QCOMPARE(TrimIn(rex), 3);
}

void NothingLostTest::aFileThatWasSavedSinceIsNotWrittenOver()
{
    const RexLeftBehind left;
    const QString &rex = left.file;
    QFile newer(rex);
    QVERIFY(newer.open(QFile::ReadWrite));
    QVERIFY(newer.setFileTime(QDateTime::currentDateTime().addSecs(60), QFileDevice::FileModificationTime));
    newer.close();
    Evening next(left.data.path());
    next.Click("lblSent");
    QCOMPARE(next.room.TheaterInfo[0], "Rex");
    QVERIFY(next.file.CurrentFileName.empty());
}

void NothingLostTest::openWithoutAQuestionLeavesTheEditsToBeBroughtBack()
{
    QTemporaryDir data;
    Evening console(data.path());
    console.options.AutoUpload = false;
    console.Type("lblPNG(0)", "1");
    console.Type("lblPNG(1)", "2");
    QVERIFY(console.window->OpenFile(console.Put("a.zcf", 3)));
    QVERIFY(!console.Action("mnuUndo")->isEnabled());
    QVERIFY(console.Action("mnuRecover")->text().startsWith("Bring back 2 changes"));
    console.Trigger("mnuRecover");
    QCOMPARE(console.Find<QLineEdit>("lblPNG(0)")->text(), "1.0");
    QCOMPARE(console.Find<QLineEdit>("lblPNG(1)")->text(), "2.0");
    QVERIFY(console.file.CurrentFileName.empty());
    console.Trigger("mnuUndo");
    QCOMPARE(console.file.CurrentFileName, console.File("a.zcf").toStdString());
    QCOMPARE(console.Find<QLineEdit>("lblPNG(0)")->text(), "4.5");
}

void NothingLostTest::whatWasBroughtBackAndUndoneIsOfferedAgain()
{
    QTemporaryDir data;
    {
        Evening killed(data.path());
        killed.Type("lblPNG(0)", "1");
    }
    {
        Evening console(data.path());
        console.Click("lblSent");
        console.Trigger("mnuUndo");
        console.AnswerNextBox("Save?", QMessageBox::No);
        console.AnswerNextBox("Revert?", QMessageBox::No);
        QVERIFY(console.window->close());
    }
    Evening next(data.path());
    QVERIFY(next.Line().startsWith("Bring back 1 change of"));
}

void NothingLostTest::aSnapshotThatWasOpenedIsSavedElsewhere()
{
    QTemporaryDir data;
    Evening console(data.path());
    QVERIFY(QDir().mkpath(console.File("snapshots")));
    const QString kept = console.Put("snapshots/2024-03-14 15.00.00.zcf", 3);
    for (const QString &path : {kept, console.File("temp.qm4")}) {
        const int before = TrimIn(path);
        QVERIFY(console.window->OpenFile(path));
        QVERIFY(console.Title().endsWith("<" + QDir::toNativeSeparators(path) + ">"));
        console.Type("lblPNG(0)", "1");
        QVERIFY(!console.Action("mnuSave")->isEnabled());
        console.AnswerNextBox("Save?", QMessageBox::Yes);
        console.ChooseNextFile({}); // goes through Save As
        console.Trigger("mnuLoad");
        QCOMPARE(TrimIn(path), before);
        console.file.SettingsChanged = false;
    }
}

void NothingLostTest::theFirstConnectionIsNoStepBesideATypedText()
{
    QTemporaryDir data;
    Evening console(data.path(), OffLine);
    console.WithNextDialog([](QDialog *dialog) {
        dialog->findChild<QLineEdit *>("txtTheaterInfo(0)")->setText("Rex");
        dialog->accept();
        QMetaObject::invokeMethod(dialog->findChild<QPushButton *>("cmdOK"), "click");
    });
    console.Trigger("mnuSet");
    console.unit.panel.plugged = true;
    console.Click("cmdConnect");
    QVERIFY(!console.Action("mnuUndo")->text().startsWith("Undo Read from"));
}

void NothingLostTest::theTitleFollowsUndoAndRedo()
{
    QTemporaryDir data;
    Evening console(data.path());
    const QString path = console.Put("a.zcf", 3);
    QVERIFY(console.window->OpenFile(path));
    console.Trigger("mnuRef");
    QVERIFY(console.Title().endsWith("<CP Settings>"));
    console.Trigger("mnuUndo");
    QVERIFY(console.Title().endsWith("<" + QDir::toNativeSeparators(path) + ">"));
    console.Trigger("mnuRedo");
    QVERIFY(console.Title().endsWith("<CP Settings>"));
}

void NothingLostTest::theTitleIsNotTheUnitsWhileUnsentSettingsStand()
{
    QTemporaryDir data;
    Evening console(data.path());
    const QString path = console.Put("a.zcf", 3);
    QVERIFY(console.window->OpenFile(path));
    console.options.AutoRefresh = true;
    console.options.RefreshSeconds = 1;
    console.Tick("tmrRefresh");
    QVERIFY(console.Title().endsWith("<" + QDir::toNativeSeparators(path) + ">"));
    console.Key(Qt::Key_F2);
    console.Tick("tmrRefresh");
    QVERIFY(console.Title().endsWith("<CP Settings>"));
}

void NothingLostTest::aReadThatFailsIsToldInItsPlace()
{
    QTemporaryDir data;
    Evening console(data.path());
    console.Trigger("mnuDiffers");
    console.unit.FailNext(Operation::GetAudio, StreamNotLocked, 6);
    console.Click("cmdReadAgain");
    QCOMPARE(console.Find<QLabel>("lblDiffers")->text(),
             "The unit was not read again: audio settings could not be read");
}

QTEST_MAIN(NothingLostTest)
#include "nothinglost_test.moc"
