#include "support/ui/consoleundertest.h"

#include "files/configfile.h"
#include "model/tables.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QProcess>
#include <QPushButton>
#include <QRadioButton>
#include <QThread>

#include <cstdio>
#include <random>

using namespace kelvo;

namespace {

constexpr auto EditingRun = "--edit"; ///< this program as the console that is killed: folder, seed, edits

int FromEnvironment(const char *name, int otherwise)
{
    bool given = false;
    const int value = qEnvironmentVariableIntValue(name, &given);
    return given ? value : otherwise;
}

/// Every setting and text of a room, as one word. Live values are not brought back.
QByteArray SettingsOf(const RoomSettings &room)
{
    QByteArray word;
    ForEachField([&](FieldId id, const Field &field) {
        if (field.place == Place::Text)
            word += QByteArray::fromStdString(room.TheaterInfo[field.at]).toHex() + ',';
        else if (field.place != Place::Live)
            word += QByteArray::number(Get(room, id)) + ',';
    });
    return word;
}

QByteArray SettingsOf(const Slots &kept)
{
    QByteArray word;
    for (int slot = 0; slot < SlotCount; ++slot)
        if (const RoomSettings *room = kept.Kept(slot)) {
            RoomSettings recalled = *room; // a slot has no texts
            recalled.TheaterInfo = {};
            word += char(Slots::NameOf(slot)) + SettingsOf(recalled);
        }
    return word;
}

/// A console that is edited at random, and tells after each edit what its screen shows.
class Edits : public QObject {
    Q_OBJECT

  public:
    Edits(const QString &folder, unsigned seed, int edits) : folder_(folder), random_(seed), edits_(edits) {}

  private slots:
    void untilKilled();

  private:
    int Number(int count) { return std::uniform_int_distribution<int>(0, count - 1)(random_); }
    template <typename Control>
    Control *Any()
    {
        QList<Control *> usable;
        for (Control *control : console_->window->findChildren<Control *>())
            if (control->isVisible() && control->isEnabled())
                usable += control;
        return usable.isEmpty() ? nullptr : usable[Number(int(usable.size()))];
    }
    static constexpr std::array Tabs{Tab::OutputTrim, Tab::Eq, Tab::Eq, Tab::Obe, Tab::Options};

    void Edit();
    void TypeLevel();
    void MoveSlider();
    void Choose();
    void ChangeChannel();
    void UseSlot();
    void UseFile();
    void Answer(QDialog *dialog);
    void Tell() const;

    QString folder_;
    std::mt19937 random_;
    int edits_;
    std::unique_ptr<ConsoleUnderTest> console_;
};

void Edits::untilKilled()
{
    RoomSettings rex;
    rex.TheaterInfo[NameOfTheater] = "Rex";
    rex.Audio.ChannelTrim.fill(9);
    Set(rex, field::Kept(3), 44);
    QVERIFY(!SaveConfigFile(QDir(folder_).filePath("rex.zcf").toStdString(), rex));
    console_ = std::make_unique<ConsoleUnderTest>(OnLine, Tab::OutputTrim, [this](ConsoleUnderTest &console) {
        console.places.dataFolder = folder_;
        console.WithEveryDialog([this](QDialog *dialog) { Answer(dialog); });
    });
    Tell();
    for (int edit = 0; edit < edits_; ++edit) {
        Edit();
        Tell();
    }
}

void Edits::Edit()
{
    switch (Number(16)) {
    case 0:
    case 1:
    case 2:
        return TypeLevel();
    case 3:
    case 4:
    case 5:
        return MoveSlider();
    case 6:
        return console_->GoTo(Tabs[std::size_t(Number(int(Tabs.size())))]);
    case 7:
        return Choose();
    case 8:
        return ChangeChannel();
    case 9:
    case 10:
        return console_->Key(Qt::Key_Z, Qt::ControlModifier);
    case 11:
        return console_->Key(Qt::Key_Y, Qt::ControlModifier);
    case 12:
    case 13:
        return UseSlot();
    case 14:
        return console_->Trigger("mnuSet");
    default:
        return Number(8) == 0 ? UseFile() : console_->Trigger("mnuAuto");
    }
}

void Edits::TypeLevel()
{
    auto *field = Any<LevelField>();
    if (!field)
        return;
    console_->Type(field, QString::number(0.5 * Number(12) - 3));
    if (field->IsPending()) // beyond this one's range
        console_->Key(Qt::Key_Escape);
}

void Edits::MoveSlider()
{
    auto *slider = Any<LevelSlider>();
    if (!slider)
        return;
    if (Number(2) == 0) {
        slider->setFocus();
        console_->Key(Number(2) == 0 ? Qt::Key_Up : Qt::Key_Down);
        return;
    }
    console_->Take(slider);
    for (int move = Number(6); move >= 0; --move)
        console_->MoveTo(slider, Number(slider->maximum() + 1));
    console_->Drop(slider);
}

void Edits::Choose()
{
    console_->GoTo(Tab::Options);
    if (Number(3) == 0) {
        console_->Click(Any<QCheckBox>());
    } else if (Number(2) == 0) {
        console_->Click(Any<QRadioButton>());
    } else {
        Any<QComboBox>()->setFocus();
        console_->Key(Number(2) == 0 ? Qt::Key_Up : Qt::Key_Down);
    }
}

void Edits::ChangeChannel()
{
    console_->GoTo(Tab::Eq);
    console_->Click(Member("cmdEQChan", Number(ChannelCount)));
    constexpr std::array commands{"cmdCopy", "cmdPaste", "cmdPaste", "cmdClear"};
    console_->Click(commands[std::size_t(Number(int(commands.size())))]);
}

void Edits::UseSlot()
{
    const Qt::Key key = Qt::Key(Qt::Key_F5 + Number(SlotCount));
    console_->Key(key, Number(2) == 0 ? Qt::ShiftModifier : Qt::NoModifier);
}

void Edits::UseFile()
{
    constexpr std::array commands{"mnuNew", "mnuLoad", "mnuSaveAs"};
    console_->Trigger(commands[std::size_t(Number(int(commands.size())))]);
}

void Edits::Answer(QDialog *dialog)
{
    if (auto *box = qobject_cast<QMessageBox *>(dialog)) {
        const bool yes = box->button(QMessageBox::Yes) && box->windowTitle() != "Save?";
        QTest::mouseClick(box->button(yes                            ? QMessageBox::Yes
                                      : box->button(QMessageBox::No) ? QMessageBox::No
                                                                     : QMessageBox::Ok),
                          Qt::LeftButton);
    } else if (auto *files = qobject_cast<QFileDialog *>(dialog)) {
        const bool saves = files->acceptMode() == QFileDialog::AcceptSave;
        files->selectFile(QDir(folder_).filePath(saves ? QString("own %1.zcf").arg(Number(2)) : "rex.zcf"));
        QMetaObject::invokeMethod(files, "accept");
    } else {
        const auto texts = dialog->findChildren<QLineEdit *>();
        texts[Number(int(texts.size()))]->setText(QString("R\u00e9x %1 \"=\\").arg(Number(9)));
        QTest::mouseClick(dialog->findChild<QPushButton *>("cmdOK"), Qt::LeftButton);
    }
}

void Edits::Tell() const
{
    const Editor &edits = console_->window->Edits();
    const QByteArray line = QByteArray::number(qulonglong(edits.Steps().DoneInAll())) + ' ' +
                            SettingsOf(edits.Room()) + ' ' + SettingsOf(edits.Kept()) + '\n';
    std::fwrite(line.data(), 1, std::size_t(line.size()), stdout);
    std::fflush(stdout);
}

/// What a run told after an edit, or what it left for the next start.
struct Shown {
    QByteArray steps, settings, slotsKept;

    explicit Shown(const QByteArray &line)
    {
        const QList<QByteArray> words = line.split(' ');
        steps = words.value(0);
        settings = words.value(1);
        slotsKept = words.value(2);
    }
    explicit Shown(const LeftBehind &left)
        : steps(QByteArray::number(qulonglong(left.done))),
          settings(SettingsOf(left.room)),
          slotsKept(SettingsOf(left.slotsKept))
    {
    }
    bool HasSteps() const { return steps != "0"; }
    bool NothingToOffer() const { return !HasSteps() && slotsKept.isEmpty(); }
    /// Without a step in effect there are no settings to bring back.
    bool operator==(const Shown &other) const
    {
        return steps == other.steps && slotsKept == other.slotsKept &&
               (!HasSteps() || settings == other.settings);
    }
};

/// The program as a console of its own over a data folder.
struct Run {
    Run(const QString &folder, int seed, int edits)
    {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert("TMPDIR", folder);
        process.setProcessEnvironment(environment);
        process.setStandardErrorFile(QDir(folder).filePath("errors.txt"));
        process.start(QCoreApplication::applicationFilePath(),
                      {EditingRun, folder, QString::number(seed), QString::number(edits)});
    }
    ~Run()
    {
        process.kill();
        process.waitForFinished();
    }
    /// The next line, without its end; null when there is none any more. A line that was cut is none.
    QByteArray NextLine()
    {
        while (!process.canReadLine() && process.waitForReadyRead())
            ;
        return process.canReadLine() ? process.readLine().chopped(1) : QByteArray();
    }

    QProcess process;
};

} // namespace

/// A console is killed at any moment of its edits; the next start offers what it had shown. Some kills of a
/// short run; the whole of it, a few minutes:
///
///     KELVO_KILLS=50 KELVO_KILL_EDITS=1000 KELVO_KILL_SEED=7 build/dev/tests/ui/killed_test
class KilledTest : public QObject {
    Q_OBJECT

  public:
    /// The toolkit ends a test function after five minutes unless it is told otherwise.
    static void Prepare() { qputenv("QTEST_FUNCTION_TIMEOUT", "7200000"); }

  private slots:
    void initTestCase();
    void theNextStartBringsBackWhatWasShown();

  private:
    void KillAndBringBack(const std::vector<QByteArray> &told);

    const int seed_ = FromEnvironment("KELVO_KILL_SEED", 1);
    const int edits_ = FromEnvironment("KELVO_KILL_EDITS", 100);
    const int kills_ = FromEnvironment("KELVO_KILLS", 5);
    std::mt19937 random_{unsigned(seed_)};
};

void KilledTest::initTestCase()
{
#ifdef Q_OS_WIN
    QSKIP("the signal is one of other systems");
#endif
}

void KilledTest::theNextStartBringsBackWhatWasShown()
{
    QTemporaryDir folder;
    std::vector<QByteArray> told;
    Run whole(folder.path(), seed_, edits_);
    for (QByteArray line = whole.NextLine(); !line.isNull(); line = whole.NextLine())
        told.push_back(line);
    whole.process.waitForFinished();
    QCOMPARE(whole.process.exitCode(), 0);
    QCOMPARE(int(told.size()), edits_ + 1);
    QVERIFY(told.front() != told.back());
    for (int kill = 0; kill < kills_; ++kill) {
        KillAndBringBack(told);
        if (QTest::currentTestFailed())
            QFAIL(qPrintable(QString("seed %1, kill %2").arg(seed_).arg(kill)));
    }
}

/// `told` are the lines of a run that was not killed: the same seed makes the same edits.
void KilledTest::KillAndBringBack(const std::vector<QByteArray> &told)
{
    constexpr int LongestEdit = 4000; ///< microseconds, about
    const auto number = [this](int count) {
        return std::uniform_int_distribution<int>(0, count - 1)(random_);
    };
    QTemporaryDir folder;
    Run run(folder.path(), seed_, edits_);
    std::size_t lines = 0;
    QByteArray last;
    const auto take = [&](const QByteArray &line) {
        QVERIFY(lines < told.size());
        QCOMPARE(line, told[lines]);
        last = line;
        ++lines;
    };
    for (int edit = number(edits_); edit >= 0; --edit)
        take(run.NextLine());
    QThread::usleep(unsigned(number(LongestEdit)));
    run.process.kill();
    run.process.waitForFinished();
    for (QByteArray line = run.NextLine(); !line.isNull(); line = run.NextLine())
        take(line);
    if (QTest::currentTestFailed())
        return;

    const Shown shown(last);
    const Shown next(lines < told.size() ? told[lines] : last); // kept and not shown any more
    // Beside the one that the run was writing there may be those that an Open without a question left.
    std::optional<Shown> newest;
    for (const LeftBehind &found : FindJournals(QDir(folder.path()).filePath("journals").toStdString())) {
        const Shown one(found);
        if (!newest && (one == shown || one == next))
            newest = one;
        else
            HeldJournal(found).Remove();
    }
    if (!newest) {
        QVERIFY2(shown.NothingToOffer() || next.NothingToOffer(), qPrintable(QString("edit %1").arg(lines)));
        return;
    }
    const Shown &left = *newest;

    ConsoleUnderTest console(OnLine, Tab::FormatSelection,
                             [&folder](ConsoleUnderTest &test) { test.places.dataFolder = folder.path(); });
    const QString offer = console.Find<QLabel>("lblSent")->text();
    const QString count = left.steps + (left.steps == "1" ? " change " : " changes ");
    QVERIFY2(offer.startsWith("Bring back " + (left.HasSteps() ? count : QString("the slots "))),
             qPrintable(offer));
    const QByteArray before = SettingsOf(console.room);
    console.Trigger("mnuRecover");
    QCOMPARE(SettingsOf(console.room), left.HasSteps() ? left.settings : before);
    QCOMPARE(SettingsOf(console.window->Edits().Kept()), left.slotsKept);
}

int main(int count, char **words)
{
    KilledTest::Prepare();
    QApplication application(count, words);
    const QStringList given = application.arguments();
    if (given.value(1) == EditingRun) {
        // What a test program tells of itself must not stand among the lines.
        Edits edits(given.value(2), given.value(3).toUInt(), given.value(4).toInt());
        return QTest::qExec(&edits, {given[0], "-o", given.value(2) + "/log.txt,txt"});
    }
    KilledTest test;
    return QTest::qExec(&test, count, words);
}

#include "killed_test.moc"
