#include "support/ui/differsconsole.h"

#include <QClipboard>
#include <QDir>
#include <QLineEdit>

using namespace kelvo;

class FrmDiffersTest : public QObject {
    Q_OBJECT

  private slots:
    void f9OpensItOnAnyTabWithScreenAgainstUnit();
    void escapeClosesItAndItsSizeIsRemembered();
    void anEditShowsAtOnceInWords();
    void manyEditsAreOneLook();
    void theLineBelowTellsHowMuch();
    void aClickOnAValuesHeadingSortsBySize();
    void typingFiltersByAnyColumn();
    void enterInTheFilterPressesNoButton();
    void theChoiceOutlivesARefresh();
    void liveValuesStandLastAndCannotBeChosen();
    void theTableIsCopiedAsItIsShown();
    void theTableIsSavedAsCsv();
    void aTableThatCannotBeSavedIsTold();
};

namespace {

/// Somebody turns the unit's fader from 7.0 to 4.1, and the console asks.
void TurnFaderAndReadAgain(DiffersConsole &console)
{
    console.unit.panel.level = 41;
    console.Click("cmdReadAgain");
}

} // namespace

void FrmDiffersTest::f9OpensItOnAnyTabWithScreenAgainstUnit()
{
    for (int tab = 0; tab < TabCount; ++tab) {
        DiffersConsole console(OnLine, Tab(tab));
        console.Key(Qt::Key_F9);
        QVERIFY(console.Differs()->isVisible());
        QCOMPARE(console.Find<QComboBox>("cboLeft")->currentText(), "Screen");
        QCOMPARE(console.Find<QComboBox>("cboRight")->currentText(), "Unit");
        QCOMPARE(console.Rows(), QStringList());
        QCOMPARE(console.Total(), "No difference");
        QCOMPARE(console.Calls(), Calls());
    }
}

void FrmDiffersTest::escapeClosesItAndItsSizeIsRemembered()
{
    DiffersConsole console;
    QCOMPARE(console.Action("mnuDiffers")->text(), "What Differs ...");
    console.Trigger("mnuDiffers");
    QVERIFY(QTest::qWaitForWindowActive(console.Differs()));
    console.Differs()->resize(555, 444);
    QTest::keyClick(console.Find<QLineEdit>("txtFilter"), Qt::Key_Escape);
    QVERIFY(!console.Differs()->isVisible());
    console.window.reset();
    console.window = std::make_unique<FrmMain>(console.room, console.options, console.file, console.unit,
                                               console.clock, console.places);
    console.window->show();
    console.Trigger("mnuDiffers");
    QCOMPARE(console.Differs()->size(), QSize(555, 444));
}

void FrmDiffersTest::anEditShowsAtOnceInWords()
{
    DiffersConsole console(OnLine, Tab::OutputTrim);
    console.OpenDiffers();
    console.TypeBeside("lblPNG(2)", "2.2"); // taken down to the step below
    QCOMPARE(console.Rows(), QStringList{"Output Trim | Center, output trim | +2.0 dB | +0.5 dB"});
    console.TypeBeside("lblPNG(2)", "0.5");
    QCOMPARE(console.Rows(), QStringList());
    QCOMPARE(console.Calls(), Calls());
}

void FrmDiffersTest::manyEditsAreOneLook()
{
    DiffersConsole console(OnLine, Tab::OutputTrim);
    console.OpenDiffers();
    console.Rows();
    int looks = 0;
    connect(console.Table()->model(), &QAbstractItemModel::modelReset, this, [&] { ++looks; });
    auto *trim = console.Find<QSlider>("sclPNG(0)");
    for (int position = 0; position < 10; ++position)
        trim->setValue(position);
    QCOMPARE(looks, 0);
    QCOMPARE(console.Rows(), QStringList{"Output Trim | Left, output trim | +1.5 dB | 0.0 dB"});
    QCOMPARE(looks, 1);
    console.Differs()->close();
    trim->setValue(4);
    QCoreApplication::processEvents();
    QCOMPARE(looks, 1);
}

void FrmDiffersTest::theLineBelowTellsHowMuch()
{
    DiffersConsole console(OnLine, Tab::OutputTrim);
    console.OpenDiffers();
    console.TypeBeside("lblPNG(2)", "2.0");
    QCOMPARE(console.Total(), "1 setting differs");
    console.TypeBeside("lblPNG(0)", "2.0");
    QCOMPARE(console.Total(), "2 settings differ");
    console.unit.system.stored8 ^= 1;
    console.unit.audio.reserved194 = {};
    TurnFaderAndReadAgain(console);
    QCOMPARE(console.Total(), "2 settings differ, 1 live value, 31 other bytes");
    console.Find<QLineEdit>("txtFilter")->setText("Center");
    QCOMPARE(console.Total(), "2 settings differ, 1 live value, 31 other bytes");
}

void FrmDiffersTest::aClickOnAValuesHeadingSortsBySize()
{
    DiffersConsole console(OnLine, Tab::OutputTrim);
    MoveThreeTrims(console);
    console.OpenDiffers();
    TurnFaderAndReadAgain(console);
    const QString live = "Live | Fader | 7.0 | 4.1";
    QCOMPARE(console.Rows(), (QStringList{LeftTrim, CenterTrim, RightTrim, live}));
    const QStringList largestFirst{CenterTrim, RightTrim, LeftTrim, live};
    const QStringList smallestFirst{LeftTrim, RightTrim, CenterTrim, live};
    console.ClickHeading(2);
    QCOMPARE(console.Rows(), largestFirst);
    console.ClickHeading(2);
    QCOMPARE(console.Rows(), smallestFirst);
    console.ClickHeading(3);
    QCOMPARE(console.Rows(), largestFirst);
    console.ClickHeading(0);
    QCOMPARE(console.Rows(), (QStringList{LeftTrim, CenterTrim, RightTrim, live}));
}

void FrmDiffersTest::typingFiltersByAnyColumn()
{
    DiffersConsole console(OnLine, Tab::OutputTrim);
    MoveThreeTrims(console);
    console.OpenDiffers();
    const auto shown = [&](const char *typed) {
        auto *filter = console.Find<QLineEdit>("txtFilter");
        filter->clear();
        QTest::keyClicks(filter, typed);
        return console.Rows();
    };
    QCOMPARE(shown("center"), QStringList{CenterTrim});
    QCOMPARE(shown("+2"), QStringList{RightTrim});
    QCOMPARE(shown("output trim"), (QStringList{LeftTrim, CenterTrim, RightTrim}));
    QCOMPARE(shown("nowhere"), QStringList());
    QVERIFY(!console.Find<QPushButton>("cmdCopyTable")->isEnabled());
    QVERIFY(!console.Find<QPushButton>("cmdSaveTable")->isEnabled());
}

void FrmDiffersTest::enterInTheFilterPressesNoButton()
{
    DiffersConsole console(OnLine, Tab::OutputTrim);
    MoveThreeTrims(console);
    console.OpenDiffers();
    console.ClickRow(0);
    QTest::keyClick(console.Find<QLineEdit>("txtFilter"), Qt::Key_Return);
    QVERIFY(console.Differs()->isVisible());
    QCOMPARE(console.Calls(), Calls());
    QCOMPARE(console.room.Audio.ChannelTrim[Left], Byte(10));
}

void FrmDiffersTest::theChoiceOutlivesARefresh()
{
    DiffersConsole console(OnLine, Tab::OutputTrim);
    MoveThreeTrims(console);
    console.OpenDiffers();
    console.ClickRow(1);
    console.ClickRow(2, Qt::ControlModifier);
    const auto chosen = [&] {
        QStringList names;
        for (const QModelIndex &index : console.Table()->selectionModel()->selectedRows(1))
            names += index.data().toString();
        names.sort();
        return names;
    };
    QCOMPARE(chosen(), (QStringList{"Center, output trim", "Right, output trim"}));
    console.TypeBeside("lblPNG(4)", "3.0");
    console.TypeBeside("lblPNG(0)", "0.0");
    QCOMPARE(console.Rows().size(), 2);
    QCOMPARE(chosen(), (QStringList{"Center, output trim", "Right, output trim"}));
    QVERIFY(console.Find<QPushButton>("cmdTake")->isEnabled());
}

void FrmDiffersTest::liveValuesStandLastAndCannotBeChosen()
{
    DiffersConsole console(OnLine, Tab::OutputTrim);
    console.Type("lblPNG(0)", "1.0");
    console.OpenDiffers();
    TurnFaderAndReadAgain(console);
    QCOMPARE(console.Rows(), (QStringList{LeftTrim, "Live | Fader | 7.0 | 4.1"}));
    console.ClickRow(1);
    QVERIFY(!console.Table()->selectionModel()->hasSelection());
    QVERIFY(!console.Find<QPushButton>("cmdTake")->isEnabled());
    console.Table()->selectAll();
    QCOMPARE(console.Table()->selectionModel()->selectedRows().size(), 1);
}

void FrmDiffersTest::theTableIsCopiedAsItIsShown()
{
    DiffersConsole console(OnLine, Tab::OutputTrim);
    MoveThreeTrims(console);
    console.OpenDiffers();
    console.ClickHeading(2);
    QTest::keyClicks(console.Find<QLineEdit>("txtFilter"), "t, output");
    console.Click("cmdCopyTable");
    QCOMPARE(QApplication::clipboard()->text(), "Section\tSetting\tScreen\tUnit\n"
                                                "Output Trim\tRight, output trim\t+2.0 dB\t0.0 dB\n"
                                                "Output Trim\tLeft, output trim\t+1.0 dB\t0.0 dB\n");
}

void FrmDiffersTest::theTableIsSavedAsCsv()
{
    DiffersConsole console(OnLine, Tab::OutputTrim);
    MoveThreeTrims(console);
    console.OpenDiffers();
    console.ChooseNextFile(console.File("evening.csv"));
    console.Click("cmdSaveTable");
    QCOMPARE(ContentOf(console.File("evening.csv")), "Section,Setting,Screen,Unit\r\n"
                                                     "Output Trim,\"Left, output trim\",+1.0 dB,0.0 dB\r\n"
                                                     "Output Trim,\"Center, output trim\",-6.0 dB,+0.5 dB\r\n"
                                                     "Output Trim,\"Right, output trim\",+2.0 dB,0.0 dB\r\n");
}

void FrmDiffersTest::aTableThatCannotBeSavedIsTold()
{
    DiffersConsole console(OnLine, Tab::OutputTrim);
    MoveThreeTrims(console);
    console.OpenDiffers();
    const QString path = console.File("none/evening.csv");
    console.WithNextDialog([&](QDialog *dialog) {
        dialog->findChild<QLineEdit *>("fileNameEdit")->setText(path);
        console.AnswerNextBox("File Error", QMessageBox::Ok,
                              "Cannot save " + path + ": No such file or directory.");
        // The dialog itself would refuse the folder.
        QVERIFY(QDir(console.File("")).mkdir("none"));
        static_cast<QDialog *>(dialog)->accept();
        QVERIFY(QDir(console.File("")).rmdir("none"));
    });
    console.Click("cmdSaveTable");
    QVERIFY(console.AllBoxesSeen());
}

QTEST_MAIN(FrmDiffersTest)
#include "frmdiffers_test.moc"
