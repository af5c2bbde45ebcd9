#include "support/ui/consoleundertest.h"

#include "files/configfile.h"

#include <QDir>

using namespace kelvo;

/// Settings read from a unit do not go over a file that was opened before without a question.
class SaveOverTest : public QObject {
    Q_OBJECT

  private slots:
    void theFirstSaveAfterAConnectionAsks();
    void noLeadsToSaveAs();
    void aCancelledSaveAsIsAskedAgain();
    void updateAsksAsAConnectionDoes();
    void anAutomaticReReadAsksNothing();
    void anUndoneReadAsksNothing();
    void anExitsSaveAsksToo();
};

namespace {

constexpr auto Question = "The settings on the screen were read from the unit. Save them over %1?";

/// A file is open, then the cable goes out and comes back.
struct Evening : ConsoleUnderTest {
    QString path = File("Rex 1.zcf");

    Evening() : ConsoleUnderTest(OnLine, Tab::OutputTrim)
    {
        RoomSettings rex;
        rex.Audio.ChannelTrim.fill(3);
        if (SaveConfigFile(path.toStdString(), rex) || !window->OpenFile(path))
            qFatal("no file to begin with");
    }
    void ConnectAgain()
    {
        unit.panel.plugged = false;
        AnswerNextBox("Connection Error", QMessageBox::Ok);
        Tick("tmrPoll");
        unit.panel.plugged = true;
        Click("cmdConnect");
    }
    int SavedTrim() const
    {
        RoomSettings saved;
        return LoadConfigFile(path.toStdString(), saved) ? -1 : saved.Audio.ChannelTrim[Left];
    }
    QString Asked() const { return QString(Question).arg(QDir::toNativeSeparators(path)); }
};

} // namespace

void SaveOverTest::theFirstSaveAfterAConnectionAsks()
{
    Evening console;
    console.Trigger("mnuSave"); // no connection since the file was opened
    QCOMPARE(console.SavedTrim(), 3);
    console.ConnectAgain();
    console.AnswerNextBox("Save?", QMessageBox::Yes, console.Asked());
    console.Trigger("mnuSave");
    QCOMPARE(console.SavedTrim(), int(console.unit.audio.ChannelTrim[Left]));
    console.Type("lblPNG(0)", "4");
    console.Trigger("mnuSave");
    QCOMPARE(console.SavedTrim(), 4);
}

void SaveOverTest::noLeadsToSaveAs()
{
    Evening console;
    console.ConnectAgain();
    console.AnswerNextBox("Save?", QMessageBox::No, console.Asked());
    console.ChooseNextFile(console.File("other.zcf"));
    console.Trigger("mnuSave");
    QCOMPARE(console.SavedTrim(), 3);
    QVERIFY(QFile::exists(console.File("other.zcf")));
    console.Trigger("mnuSave");
    QCOMPARE(console.file.CurrentFileName, console.File("other.zcf").toStdString());
}

void SaveOverTest::aCancelledSaveAsIsAskedAgain()
{
    Evening console;
    console.ConnectAgain();
    for (int time = 0; time < 2; ++time) {
        console.AnswerNextBox("Save?", QMessageBox::No);
        console.ChooseNextFile({});
        console.Trigger("mnuSave");
    }
    QCOMPARE(console.SavedTrim(), 3);
}

void SaveOverTest::updateAsksAsAConnectionDoes()
{
    Evening console;
    console.Trigger("mnuRef");
    console.AnswerNextBox("Save?", QMessageBox::Yes, console.Asked());
    console.Trigger("mnuSave");
    QCOMPARE(console.SavedTrim(), int(console.unit.audio.ChannelTrim[Left]));
}

void SaveOverTest::anAutomaticReReadAsksNothing()
{
    Evening console;
    console.options.AutoRefresh = true;
    console.options.RefreshSeconds = 1;
    console.Tick("tmrRefresh");
    console.Trigger("mnuSave");
    QCOMPARE(console.SavedTrim(), 3); // the file's settings were not in the unit, so they stood
}

void SaveOverTest::anUndoneReadAsksNothing()
{
    Evening console;
    console.Trigger("mnuRef");
    console.Trigger("mnuUndo");
    console.Trigger("mnuSave");
    QCOMPARE(console.SavedTrim(), 3);
}

void SaveOverTest::anExitsSaveAsksToo()
{
    Evening console;
    console.ConnectAgain();
    console.Type("lblPNG(0)", "4");
    console.AnswerNextBox("Save?", QMessageBox::Yes, "Do you want to save changes before you exit?");
    console.AnswerNextBox("Save?", QMessageBox::Yes, console.Asked());
    console.AnswerNextBox("Revert?", QMessageBox::No);
    QVERIFY(console.window->close());
    QCOMPARE(console.SavedTrim(), 4);
}

QTEST_MAIN(SaveOverTest)
#include "saveover_test.moc"
