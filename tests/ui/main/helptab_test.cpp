#include "support/ui/consoleundertest.h"

#include <QFile>
#include <QScrollBar>
#include <QTextBrowser>
#include <QWheelEvent>

using namespace kelvo;

class HelpTabTest : public QObject {
    Q_OBJECT

  private slots:
    void aMissingHelpFileLeavesThePageEmpty();
    void theGuideOfTheProgramDirectoryIsShown();
    void theGuideCanBeReadOffLine_data();
    void theGuideCanBeReadOffLine();
    void theWheelReadsOffLine();
    void otherTabsDoNotScrollTheGuide();
    void theFaderKeepsItsKeysBesideTheGuide();
};

namespace {

void WriteGuide(ConsoleUnderTest &test)
{
    QFile guide(test.File("Zentra-HELP.rtf"));
    QVERIFY(guide.open(QFile::WriteOnly));
    QByteArray lines;
    for (int line = 0; line < 400; ++line)
        lines += "A line of the guide.\\par\n";
    guide.write("{\\rtf1\\ansi First words.\\par\n" + lines + "}");
}

QTextBrowser *Guide(const ConsoleUnderTest &console)
{
    return console.Find<QTextBrowser>("RTFc");
}

} // namespace

void HelpTabTest::aMissingHelpFileLeavesThePageEmpty()
{
    ConsoleUnderTest console(OnLine, Tab::Help);
    QCOMPARE(Guide(console)->toPlainText(), "");
}

void HelpTabTest::theGuideOfTheProgramDirectoryIsShown()
{
    ConsoleUnderTest console(OnLine, Tab::Help, WriteGuide);
    QVERIFY(Guide(console)->toPlainText().startsWith("First words."));
    QVERIFY(Guide(console)->isEnabled());
}

void HelpTabTest::theGuideCanBeReadOffLine_data()
{
    QTest::addColumn<bool>("onLine");
    QTest::newRow("on line, with the focus on the tab strip") << true;
    QTest::newRow("off line") << false;
}

void HelpTabTest::theGuideCanBeReadOffLine()
{
    QFETCH(bool, onLine);
    ConsoleUnderTest console(onLine ? OnLine : OffLine, Tab::Help, WriteGuide);
    const QScrollBar *bar = Guide(console)->verticalScrollBar();
    QCOMPARE(bar->value(), 0);
    console.Key(Qt::Key_PageDown);
    const int page = bar->value();
    QVERIFY(page > 0);
    console.Key(Qt::Key_PageUp);
    QCOMPARE(bar->value(), 0);
    QCOMPARE(console.Calls(), Calls());
}

void HelpTabTest::theWheelReadsOffLine()
{
    ConsoleUnderTest console(OffLine, Tab::Help, WriteGuide);
    QWidget *page = Guide(console)->viewport();
    const QPointF middle = page->rect().center();
    QWheelEvent down(middle, page->mapToGlobal(middle), {}, {0, -120}, Qt::NoButton, Qt::NoModifier,
                     Qt::NoScrollPhase, false);
    QApplication::sendEvent(page, &down);
    QVERIFY(Guide(console)->verticalScrollBar()->value() > 0);
}

void HelpTabTest::otherTabsDoNotScrollTheGuide()
{
    ConsoleUnderTest console(OffLine, Tab::Help, WriteGuide);
    QVERIFY(Guide(console)->verticalScrollBar()->maximum() > 0);
    console.GoTo(Tab::Options);
    console.Key(Qt::Key_PageDown);
    QCOMPARE(Guide(console)->verticalScrollBar()->value(), 0);
}

void HelpTabTest::theFaderKeepsItsKeysBesideTheGuide()
{
    ConsoleUnderTest console(OnLine, Tab::Help, WriteGuide);
    console.Find<QSlider>("sclVol")->setFocus();
    console.Key(Qt::Key_Down);
    QCOMPARE(console.Calls(), Calls{"SetVol 69"});
    QCOMPARE(Guide(console)->verticalScrollBar()->value(), 0);
}

QTEST_MAIN(HelpTabTest)
#include "helptab_test.moc"
