#include "support/ui/consoleundertest.h"

#include <QAction>
#include <QFile>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextBrowser>

using namespace kelvo;

class GuideWindowTest : public QObject {
    Q_OBJECT

  private slots:
    void theStartMakesNoWindow();
    void shiftF1OpensItWhereverTheFocusIs_data();
    void shiftF1OpensItWhereverTheFocusIs();
    void shiftF1NeverConnects();
    void nothingOpensInsideACall();
    void itStaysOpenBesideEveryTab();
    void aMissingGuideLeavesItEmpty();
    void aClickOnAHeadingGoesThere();
    void theSearchIsAlwaysThere();
    void ctrlFComesBackToTheSearch();
    void thePageIsReadOnFromTheSearchBox();
    void escapeClosesItWhereverTheFocusIs_data();
    void escapeClosesItWhereverTheFocusIs();
    void itComesBackAsItWasLeft();
    void itRemembersItsSize();
    void theUnitsOwnKeysActInItToo();
};

namespace {

void WriteGuide(ConsoleUnderTest &test)
{
    QByteArray rtf = "{\\rtf1{\\stylesheet{\\s1 heading 1;}}";
    for (int chapter = 1; chapter <= 12; ++chapter)
        rtf += "\\pard\\s1 Chapter " + QByteArray::number(chapter) + "\\par\\pard " +
               QByteArray("A line of the guide.\\par ").repeated(40);
    QFile guide(test.File("Zentra-HELP.rtf"));
    QVERIFY(guide.open(QFile::WriteOnly));
    guide.write(rtf + "}");
}

/// A console whose guide is open in its window.
struct Opened : ConsoleUnderTest {
    explicit Opened(ConsoleStart start = OnLine, Tab tab = Tab::FormatSelection)
        : ConsoleUnderTest(start, tab, WriteGuide)
    {
        OpenGuide();
    }
    void OpenGuide()
    {
        Press(Qt::Key_F1, Qt::ShiftModifier);
        guide = Find<QDialog>("frmGuide");
        QTRY_COMPARE(QApplication::activeWindow(), guide);
        Release(Qt::Key_F1, Qt::ShiftModifier);
    }
    template <typename Control>
    Control *In(const char *name) const
    {
        return guide->findChild<Control *>(QString::fromLatin1(name));
    }
    QTextBrowser *Page() const { return In<QTextBrowser>("RTFc"); }
    int Scrolled() const { return Page()->verticalScrollBar()->value(); }

    QDialog *guide = nullptr;
};

bool IsOpen(const ConsoleUnderTest &console)
{
    const auto *guide = console.window->findChild<QDialog *>("frmGuide");
    return guide && guide->isVisible();
}

} // namespace

void GuideWindowTest::theStartMakesNoWindow()
{
    ConsoleUnderTest console(OnLine, Tab::FormatSelection, WriteGuide);
    QVERIFY(!console.window->findChild<QDialog *>("frmGuide"));
    const QAction *mnuGuide = console.Action("mnuGuide");
    QCOMPARE(mnuGuide->text(), "Guide");
    QCOMPARE(mnuGuide->shortcut(), QKeySequence("Shift+F1"));
    QVERIFY(console.Find<QMenu>("mnuTools")->actions().contains(mnuGuide));
}

void GuideWindowTest::shiftF1OpensItWhereverTheFocusIs_data()
{
    QTest::addColumn<int>("tab");
    QTest::addColumn<QString>("focus");
    QTest::newRow("the window") << 0 << "";
    QTest::newRow("a level's text") << 1 << "lblPNG(2)";
    QTest::newRow("a level's slider") << 1 << "sclPNG(2)";
    QTest::newRow("a list") << 3 << "cboObeF";
    QTest::newRow("a button") << 5 << "cmdUp(4)";
    QTest::newRow("the help page") << 7 << "RTFc";
}

void GuideWindowTest::shiftF1OpensItWhereverTheFocusIs()
{
    QFETCH(int, tab);
    QFETCH(QString, focus);
    ConsoleUnderTest console(OnLine, Tab(tab), WriteGuide);
    if (!focus.isEmpty()) {
        console.Find<QWidget>(focus)->setFocus();
        QVERIFY(console.Find<QWidget>(focus)->hasFocus());
    }
    console.Key(Qt::Key_F1, Qt::ShiftModifier);
    QVERIFY(IsOpen(console));
    QCOMPARE(console.Calls(), Calls());
}

void GuideWindowTest::shiftF1NeverConnects()
{
    ConsoleUnderTest console(OffLine, Tab::FormatSelection, WriteGuide);
    console.unit.panel.plugged = true;
    console.Key(Qt::Key_F1, Qt::ShiftModifier);
    QVERIFY(IsOpen(console));
    QCOMPARE(console.Find<QLabel>("lblStat")->text(), "Off Line");
    // Nor where the item cannot take the key.
    console.Find<QDialog>("frmGuide")->close();
    console.window->activateWindow();
    console.Find<QMenu>("mnuTools")->setEnabled(false);
    console.Key(Qt::Key_F1, Qt::ShiftModifier);
    QVERIFY(!IsOpen(console));
    QCOMPARE(console.Find<QLabel>("lblStat")->text(), "Off Line");
    QCOMPARE(console.Calls(), Calls());
}

void GuideWindowTest::nothingOpensInsideACall()
{
    ConsoleUnderTest console(OnLine, Tab::FormatSelection, WriteGuide);
    int pauses = 0;
    console.clock.duringPause = [&] {
        ++pauses;
        console.Trigger("mnuGuide");
    };
    console.unit.FailNext(Operation::SetSystem, 2, 1);
    console.Key(Qt::Key_F2);
    QCOMPARE(pauses, 1);
    QVERIFY(!IsOpen(console));
}

void GuideWindowTest::itStaysOpenBesideEveryTab()
{
    Opened console(OffLine);
    for (int tab = 0; tab < TabCount; ++tab) {
        console.GoTo(Tab(tab));
        QVERIFY(IsOpen(console));
        QVERIFY(console.Page()->isEnabled());
    }
    QVERIFY(console.Page()->toPlainText().startsWith("Chapter 1\nA line of the guide."));
    console.guide->activateWindow();
    QTRY_COMPARE(QApplication::activeWindow(), console.guide);
    QVERIFY(console.Page()->hasFocus());
    console.Key(Qt::Key_PageDown);
    QVERIFY(console.Scrolled() > 0);
    QCOMPARE(console.Calls(), Calls());
}

void GuideWindowTest::aMissingGuideLeavesItEmpty()
{
    ConsoleUnderTest console;
    console.Trigger("mnuGuide");
    QVERIFY(IsOpen(console));
    QCOMPARE(console.Find<QDialog>("frmGuide")->findChild<QTextBrowser *>("RTFc")->toPlainText(), "");
}

void GuideWindowTest::aClickOnAHeadingGoesThere()
{
    Opened console;
    auto *contents = console.In<QListWidget>("lstContents");
    QCOMPARE(contents->count(), 12);
    QTest::mouseClick(contents->viewport(), Qt::LeftButton, {},
                      contents->visualItemRect(contents->item(6)).center());
    QCOMPARE(console.Page()->cursorForPosition(QPoint(20, 8)).block().text(), "Chapter 7");
}

void GuideWindowTest::theSearchIsAlwaysThere()
{
    Opened console;
    auto *txtSearch = console.In<QLineEdit>("txtSearch");
    QVERIFY(txtSearch->isVisible());
    QVERIFY(!console.In<QPushButton>("cmdCloseFind"));
    console.TypeOnly(txtSearch, "chapter 1");
    QCOMPARE(console.In<QLabel>("lblFound")->text(), "1 of 4"); // 1, 10, 11 and 12
    console.Key(Qt::Key_F3);
    QCOMPARE(console.In<QLabel>("lblFound")->text(), "2 of 4");
    QCOMPARE(console.Page()->textCursor().block().text(), "Chapter 10");
    console.Key(Qt::Key_Return);
    QCOMPARE(console.In<QLabel>("lblFound")->text(), "3 of 4");
    console.Page()->setFocus();
    console.Key(Qt::Key_F3, Qt::ShiftModifier);
    QCOMPARE(console.In<QLabel>("lblFound")->text(), "2 of 4");
    QVERIFY(IsOpen(console));
    // The tab's own search is another one.
    QCOMPARE(console.Find<QLineEdit>("txtFind")->text(), "");
}

void GuideWindowTest::ctrlFComesBackToTheSearch()
{
    Opened console;
    console.TypeOnly(console.In<QLineEdit>("txtSearch"), "chapter");
    console.Page()->setFocus();
    console.Key(Qt::Key_F, Qt::ControlModifier);
    QVERIFY(console.In<QLineEdit>("txtSearch")->hasFocus());
    QCOMPARE(console.In<QLineEdit>("txtSearch")->selectedText(), "chapter");
}

void GuideWindowTest::thePageIsReadOnFromTheSearchBox()
{
    Opened console;
    console.In<QLineEdit>("txtSearch")->setFocus();
    console.Key(Qt::Key_PageDown);
    const int page = console.Scrolled();
    QVERIFY(page > 0);
    console.Key(Qt::Key_Down);
    QVERIFY(console.Scrolled() > page);
    console.Key(Qt::Key_PageUp);
    QVERIFY(console.Scrolled() < page);
}

void GuideWindowTest::escapeClosesItWhereverTheFocusIs_data()
{
    QTest::addColumn<QString>("focus");
    for (const char *focus : {"RTFc", "lstContents", "txtSearch", "cmdNext"})
        QTest::newRow(focus) << focus;
}

void GuideWindowTest::escapeClosesItWhereverTheFocusIs()
{
    QFETCH(QString, focus);
    Opened console;
    console.TypeOnly(console.In<QLineEdit>("txtSearch"), "chapter");
    auto *receiver = console.In<QWidget>(focus.toLatin1());
    receiver->setFocus();
    QVERIFY(receiver->hasFocus());
    console.Key(Qt::Key_Escape);
    QVERIFY(!IsOpen(console));
}

void GuideWindowTest::itComesBackAsItWasLeft()
{
    Opened console;
    console.TypeOnly(console.In<QLineEdit>("txtSearch"), "chapter 9");
    const int place = console.Scrolled();
    QVERIFY(place > 0);
    console.Key(Qt::Key_Escape);
    console.window->activateWindow();
    QTRY_COMPARE(QApplication::activeWindow(), console.window.get());
    console.OpenGuide();
    QCOMPARE(console.Scrolled(), place);
    QCOMPARE(console.In<QLineEdit>("txtSearch")->text(), "chapter 9");
    QCOMPARE(console.In<QLabel>("lblFound")->text(), "1 of 1");
}

void GuideWindowTest::itRemembersItsSize()
{
    QTemporaryDir folder;
    const auto withMemory = [&folder](ConsoleUnderTest &test) {
        test.places.memoryFile = folder.filePath("windows.conf");
    };
    const auto open = [](ConsoleUnderTest &console) {
        console.Trigger("mnuGuide");
        return console.Find<QDialog>("frmGuide");
    };
    {
        ConsoleUnderTest console(OnLine, Tab::FormatSelection, withMemory);
        QDialog *guide = open(console);
        QVERIFY(guide->size() != QSize(520, 430));
        guide->resize(520, 430);
        guide->close();
    }
    ConsoleUnderTest console(OnLine, Tab::FormatSelection, withMemory);
    QCOMPARE(open(console)->size(), QSize(520, 430));
}

void GuideWindowTest::theUnitsOwnKeysActInItToo()
{
    Opened console(OffLine);
    console.unit.panel.plugged = true;
    console.Key(Qt::Key_F1);
    QCOMPARE(console.Find<QLabel>("lblStat")->text(), "On Line");
    console.Forget();
    console.Find<QWidget>("frmGuide")->activateWindow();
    console.Find<QWidget>("txtSearch")->setFocus();
    console.Key(Qt::Key_F4);
    QCOMPARE(console.Calls(), Calls{"SetMute -1"});
    console.Key(Qt::Key_F2);
    QCOMPARE(console.Calls(), (Calls{"SetMute -1", "SetSystem", "SetAudio"}));
}

QTEST_MAIN(GuideWindowTest)
#include "guidewindow_test.moc"
