#include "model/flagguard.h"
#include "ui/walk/acts.h"
#include "ui/walk/checks.h"

#include <QElapsedTimer>
#include <QLabel>

using namespace kelvo;

namespace {

constexpr int ActsBetweenRests = 20;
constexpr int ActsBetweenUploads = 400;
constexpr int ActsBetweenUndoing = 100;
constexpr int LongestAct = 60000; ///< milliseconds

/// Where a long walk must have been: windows, boxes by title, and states.
constexpr std::array Stations{
    "frmTheater",
    "frmTime",
    "frmRef",
    "frmFader",
    "frmSimulator",
    "frmHistory",
    "frmDiffers",
    "frmVerify",
    "frmGuide",
    "brought back",
    "undone to the start",
    "Open",
    "Save As",
    "Connection Error",
    "Range Check Error",
    "File Error",
    "Error",
    "Copy?",
    "Reset Channel?",
    "Set Fader = 7.0",
    "Fader=7.0?",
    "Confirm Upload!",
    "Save?",
    "Revert?",
    "start",
    "on line, tab 0",
    "on line, tab 1",
    "on line, tab 2",
    "on line, tab 3",
    "on line, streaming, tab 4",
    "on line, tab 5",
    "on line, tab 6",
    "on line, tab 7",
    "off line, tab 4",
    "off line, never connected, tab 0",
};

int FromEnvironment(const char *name, int otherwise)
{
    bool given = false;
    const int value = qEnvironmentVariableIntValue(name, &given);
    return given ? value : otherwise;
}

/// All acts, each as often as its weight.
std::vector<const Act *> Table()
{
    std::vector<const Act *> table;
    for (const auto acts :
         {LevelActs(), PanelActs(), UnitActs(), MenuActs(), DialogActs(), EditActs(), ToolActs()})
        for (const Act &act : acts)
            table.insert(table.end(), std::size_t(act.weight), &act);
    return table;
}

/// Hands off, nothing half typed: what is wrong now? "" = nothing.
QString WrongAtRest(Walker &walker)
{
    if (const QString wrong = walker.LetGo(); !wrong.isEmpty())
        return wrong;
    for (const auto checks : {LevelChecks(), PanelChecks(), UnitChecks(), EditChecks()})
        for (const Check &check : checks)
            if (const QString wrong = check.wrong(walker); !wrong.isEmpty())
                return QString("%1: %2").arg(check.name, wrong);
    return {};
}

/// Connects when needed, ends a stream, polls and uploads: what still differs? "" = nothing.
QString WrongAfterUpload(Walker &walker)
{
    if (const QString wrong = walker.LetGo(); !wrong.isEmpty())
        return wrong;
    walker.BeginAct("upload");
    walker.unit.panel.plugged = true;
    walker.unit.ForgetFailures();
    const FlagGuard patient(walker.patient);
    ConsoleUnderTest &console = walker.Console();
    if (!walker.OnLine())
        console.Key(Qt::Key_F1);
    if (walker.Streaming())
        console.GoTo(Tab::FormatSelection);
    console.Tick("tmrPoll");
    // The question whether to upload may be answered with No.
    const int before = walker.witness.callsOf[Operation::SetAudio];
    for (int tries = 0; tries < 24 && walker.witness.callsOf[Operation::SetAudio] == before; ++tries)
        console.Key(Qt::Key_F2);
    if (const QString wrong = walker.EndAct(); !wrong.isEmpty())
        return wrong;
    const QString sent = console.Find<QLabel>("lblSent")->text();
    if (!walker.OnLine() || (sent != "All sent" && !OffersOf(console).contains(sent)))
        return "after the upload: " + sent;
    RoomSettings inUnit = walker.Holds().Room();
    inUnit.Audio = walker.unit.audio;
    inUnit.System = walker.unit.system;
    inUnit.FaderLevel = walker.unit.panel.level;
    inUnit.CurrentFormat = walker.unit.panel.format;
    return inUnit == walker.Holds().Room() ? "" : "the unit holds something else after the upload";
}

/// Undoes everything and redoes it: what is another room than it was? "" = none. The ledger looks after both.
QString WrongAfterUndoing(Walker &walker)
{
    if (const QString wrong = walker.LetGo(); !wrong.isEmpty())
        return wrong;
    const FlagGuard patient(walker.patient);
    ConsoleUnderTest &console = walker.Console();
    const RoomSettings end = console.room;
    const std::size_t done = console.window->Edits().Steps().Done();
    if (done == 0)
        return {};
    const bool byRow = walker.Chance(2);
    const auto moveTo = [&](std::size_t row) {
        walker.BeginAct("move in the history");
        const auto at = [&console] { return console.window->Edits().Steps().Done(); };
        if (byRow) {
            walker.Choose("mnuHistory");
            walker.ClickRow(int(row));
        }
        for (std::size_t left = done; left > 0 && at() != row; --left)
            walker.Choose(at() > row ? "mnuUndo" : "mnuRedo");
        const QString wrong = walker.EndAct();
        return wrong.isEmpty() && at() != row ? QString("%1 cannot be reached").arg(row) : wrong;
    };
    ++walker.places["undone to the start"];
    if (const QString wrong = moveTo(0); !wrong.isEmpty())
        return wrong;
    const RoomSettings *start = walker.Kept().Start();
    const bool whole = start && Differing(*start, console.room).none();
    if (start && !whole)
        return "after undoing everything the room is not that of the start";
    walker.places["undone to the start after a re-read"] += !start;
    if (const QString wrong = moveTo(done); !wrong.isEmpty())
        return wrong;
    if (start && Differing(end, console.room).any())
        return "after redoing everything the room is not that of the end";
    return {};
}

} // namespace

/// A random walk through the whole console. `KELVO_WALK` is the number of acts, `KELVO_WALK_SEED` the seed:
///
///     QT_QPA_PLATFORM=offscreen LC_ALL=C.UTF-8 KELVO_PLAIN_FILE_DIALOG=1
///     KELVO_WALK=100000 KELVO_WALK_SEED=13 build/dev/tests/ui/randomwalk_test
///
/// A failure names seed, act and check, and the acts that led there; the same seed leads there again. With
/// `KELVO_WALK_REST=1` everything is looked at after each act, which is another walk, but a shorter way to a
/// cause.
class RandomWalkTest : public QObject {
    Q_OBJECT

  public:
    /// The toolkit ends a test function after five minutes unless it is told otherwise.
    static void initMain() { qputenv("QTEST_FUNCTION_TIMEOUT", "7200000"); }

  private slots:
    void screenRecordAndUnitAgreeAtEveryRest();
};

void RandomWalkTest::screenRecordAndUnitAgreeAtEveryRest()
{
    const int acts = FromEnvironment("KELVO_WALK", 3000);
    const int seed = FromEnvironment("KELVO_WALK_SEED", 1);
    const int rest = FromEnvironment("KELVO_WALK_REST", ActsBetweenRests);
    const auto table = Table();
    Walker walker{unsigned(seed)};
    std::map<std::string, int> count;
    for (int number = 1; number <= acts; ++number) {
        const Act &act = *walker.Pick(table);
        QElapsedTimer time;
        time.start();
        walker.BeginAct(act.name);
        act.run(walker);
        QString wrong = walker.EndAct();
        if (wrong.isEmpty() && time.elapsed() > LongestAct)
            wrong = "it took too long";
        if (wrong.isEmpty() && number % rest == 0)
            wrong = WrongAtRest(walker);
        if (wrong.isEmpty() && number % ActsBetweenUndoing == 0)
            wrong = WrongAfterUndoing(walker);
        if (wrong.isEmpty() && number % ActsBetweenUploads == 0)
            wrong = WrongAfterUpload(walker);
        if (!wrong.isEmpty() || QTest::currentTestFailed())
            QFAIL(qPrintable(QString("seed %1, act %2, %3: %4\nafter: %5\nits calls: %6")
                                 .arg(seed)
                                 .arg(number)
                                 .arg(walker.State(), wrong, walker.LastActs(), walker.LastCalls())));
    }
    // A walk that never got anywhere would prove nothing.
    using enum Operation;
    for (const Operation operation :
         {SetAudio, SetSystem, SetVol, SetMute, SelectFormat, InitDLL, StopStream})
        QVERIFY2(walker.witness.callsOf[operation] > acts / 1000, RowOf(operation).name);
    constexpr int FarEnough = 50000;
    for (const char *place : Stations)
        QVERIFY2(acts < FarEnough || walker.places[place] > 0, place);
}

QTEST_MAIN(RandomWalkTest)
#include "randomwalk_test.moc"
