#include "support/ui/consoleundertest.h"
#include "unit/qm4slibrary.h"

#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include <filesystem>

using namespace kelvo;

/// A technician's session over a device library that is loaded from a file, as the maker's is: from the start
/// to a pulled cable. The library writes down what it was called with and the console writes its files. With
/// KELVO_SESSION_FOLDER in the environment all of it is left in that folder, so that the sessions of two
/// systems can be compared.
class SessionTest : public QObject {
    Q_OBJECT

  private slots:
    void initTestCase();
    void aSessionFromTheStartToAPulledCable();
    void aLibraryForTheOtherKindOfProgramIsRefusedWithBothNamed();

  private:
    QString File(const QString &name) const { return folder_.filePath(name); }
    QStringList NewCalls();
    void Fail(const QByteArray &operations);

    void EditAndUpload(ConsoleUnderTest &console);
    void SaveAndLoad(ConsoleUnderTest &console);
    void PullTheCable(ConsoleUnderTest &console);
    void Exit(ConsoleUnderTest &console);

    QTemporaryDir temporary_;
    QDir folder_;
    qsizetype callsSeen_ = 0;
};

namespace {

// Names that no code page holds together.
const QString ProgramFolder = QStringLiteral(u"Vorf\u00FChrer \u0416 \u6620");
const QString TheaterName = QStringLiteral(u"Od\u00E9on \u041A\u0438\u043D\u043E 3");

QByteArray ContentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// The library's block as it starts out, with one byte changed, as the record of calls shows it.
QString AudioDigits(int changed, int value)
{
    QByteArray block(224, 12);
    block[193] = 3;
    block[changed] = char(value);
    return block.toHex();
}

QString SystemDigits()
{
    QByteArray block(128, 1);
    block[4] = 0;
    return block.toHex();
}

} // namespace

void SessionTest::initTestCase()
{
    folder_ = QDir(qEnvironmentVariable("KELVO_SESSION_FOLDER", temporary_.path()));
    QVERIFY(folder_.mkpath(ProgramFolder));
    const QString library = QString::fromStdString(SharedLibrary::FileName("qm4slib"));
    QFile::remove(File(ProgramFolder + "/" + library));
    QVERIFY(QFile::copy(QString(KELVO_FAKE_LIBRARIES) + "/plain/" + library,
                        File(ProgramFolder + "/" + library)));
    qputenv("KELVO_FAKE_CALLS", QFile::encodeName(File("calls")));
    qputenv("KELVO_FAKE_FAILURES", QFile::encodeName(File("failures")));
}

/// What the library was called with since this was asked last.
QStringList SessionTest::NewCalls()
{
    const QStringList all = QString::fromLatin1(ContentOf(File("calls"))).split('\n', Qt::SkipEmptyParts);
    const QStringList fresh = all.mid(callsSeen_);
    callsSeen_ = all.size();
    return fresh;
}

void SessionTest::Fail(const QByteArray &operations)
{
    QFile file(File("failures"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(operations);
}

void SessionTest::aSessionFromTheStartToAPulledCable()
{
    Qm4sLibrary library(
        {.given = {}, .programFolder = File(ProgramFolder).toStdString(), .executableFolder = {}});
    QVERIFY2(library.TryLoad(), library.Problem().c_str());
    ConsoleUnderTest console(library, [this](ConsoleUnderTest &starting) {
        starting.places.programDirectory = File(ProgramFolder);
        starting.places.serialIniMissing = [] { return true; };
    });
    QCOMPARE(console.Find<QLabel>("lblStat")->text(), "On Line");
    QCOMPARE(NewCalls(), QStringList({"DLLCreateIni", "InitDLL 1", "GetUnitVersion", "GetAudio", "GetSystem",
                                      "GetMute", "GetVol", "GetFormat", "StopStream", "StopStream"}));
    EditAndUpload(console);
    SaveAndLoad(console);
    PullTheCable(console);
    Exit(console);
}

void SessionTest::EditAndUpload(ConsoleUnderTest &console)
{
    console.Click("cmdMute5");
    QCOMPARE(NewCalls(), QStringList("SetMute -1"));
    console.GoTo(Tab::Eq);
    console.Type("lblBand(0)", "2.5");
    QCOMPARE(console.Find<QLineEdit>("lblBand(0)")->text(), "2.5");
    QCOMPARE(NewCalls(), QStringList());
    QCOMPARE(console.Find<QLabel>("lblSent")->text(), "1 change not in the unit - F2");

    console.Key(Qt::Key_F2);
    const QStringList upload = NewCalls();
    QCOMPARE(upload.size(), 2);
    QCOMPARE(upload[0], "SetSystem " + SystemDigits());
    // The first four bytes are the clock's; band 0 of the left channel is byte 12, and 2.5 dB is position 7.
    constexpr int ClockDigits = 8;
    const QString name = "SetAudio ";
    QVERIFY(upload[1].startsWith(name));
    QCOMPARE(upload[1].mid(name.size() + ClockDigits), AudioDigits(12, 7).mid(ClockDigits));
    QCOMPARE(console.Find<QLabel>("lblSent")->text(), "All sent");

    console.Tick("tmrPoll");
    QCOMPARE(NewCalls(), QStringList({"GetFormat", "GetMute", "GetVol"}));
}

void SessionTest::SaveAndLoad(ConsoleUnderTest &console)
{
    console.WithNextDialog([](QDialog *dialog) {
        dialog->findChild<QLineEdit *>("txtTheaterInfo(1)")->setText(TheaterName);
        dialog->findChild<QPushButton *>("cmdOK")->click();
    });
    console.Trigger("mnuSet");
    const QString path = File(ProgramFolder + "/" + TheaterName + ".zcf");
    console.ChooseNextFile(path);
    console.Trigger("mnuSaveAs");
    const QByteArray saved = ContentOf(path);
    QVERIFY(saved.startsWith("\"Kelvo CP Settings File: V1.0\"\r\n"));
    QVERIFY(saved.contains(("\"" + TheaterName + "\"\r\n").toUtf8()));

    console.Trigger("mnuNew");
    QCOMPARE(console.Find<QLineEdit>("lblBand(0)")->text(), "0.0");
    QCOMPARE(NewCalls(), QStringList());
    console.ChooseNextFile(path);
    console.Trigger("mnuLoad");
    QCOMPARE(console.Find<QLineEdit>("lblBand(0)")->text(), "2.5");
    QCOMPARE(console.Find<QLineEdit>("txtTheaterInfo(1)")->text(), TheaterName);
    QCOMPARE(NewCalls(), QStringList({"SetVol 70", "SelectFormat 2", "SetMute -1"}));
}

void SessionTest::PullTheCable(ConsoleUnderTest &console)
{
    Fail("GetMute 1\n");
    console.AnswerNextBox(
        "Connection Error", QMessageBox::Ok,
        "The following Errors were encountered:\n\n- Serial Port Error\n\n\nCannot Continue On Line!\n");
    console.Tick("tmrPoll");
    QVERIFY(console.AllBoxesSeen());
    QCOMPARE(console.Find<QLabel>("lblStat")->text(), "Off Line");
    QStringList expected{"GetFormat"};
    for (int attempt = 0; attempt < 6; ++attempt)
        expected += {"GetMute", "ClearError"};
    expected += "DLLShutdown";
    QCOMPARE(NewCalls(), expected);
}

void SessionTest::Exit(ConsoleUnderTest &console)
{
    QVERIFY(QFile::exists(File(ProgramFolder + "/temp.qm4")));
    QVERIFY(console.window->close());
    QVERIFY(!QFile::exists(File(ProgramFolder + "/temp.qm4")));
    const QByteArrayList lines = ContentOf(File(ProgramFolder + "/settings.dat")).split('\n');
    QVERIFY(lines.size() >= 6);
    QCOMPARE(lines[0].trimmed(), "1");
    QCOMPARE(NewCalls(), QStringList());
}

void SessionTest::aLibraryForTheOtherKindOfProgramIsRefusedWithBothNamed()
{
    // A real one where a build made it; else as much of one as tells its kind.
    const QString other = qEnvironmentVariable("KELVO_OTHER_LIBRARY", File("other"));
    if (!QFile::exists(other)) {
        QFile header(other);
        QVERIFY(header.open(QIODevice::WriteOnly));
        header.write("\x7F"
                     "ELF");
        header.putChar(sizeof(void *) == 8 ? '\1' : '\2');
    }
    Qm4sLibrary library({.given = other.toStdString(), .programFolder = {}, .executableFolder = {}});
    QVERIFY(!library.TryLoad());
    const QString problem = QString::fromStdString(library.Problem());
    QVERIFY2(problem.contains("32-bit") && problem.contains("64-bit"), qPrintable(problem));
    QFile::remove(File("other"));
}

QTEST_MAIN(SessionTest)
#include "session_test.moc"
