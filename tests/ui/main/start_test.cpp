#include "support/ui/consoleundertest.h"

#include <QFile>
#include <QLabel>
#include <QTabWidget>

using namespace kelvo;

class StartTest : public QObject {
    Q_OBJECT

  private slots:
    void aUnitAtStartIsReadAndNamedInTheTitle();
    void noUnitAtStartShowsTheDefaultsAndOneMessage();
};

void StartTest::aUnitAtStartIsReadAndNamedInTheTitle()
{
    ConsoleUnderTest console;
    QCOMPARE(console.window->windowTitle(), "Kelvo Cinema Processor and EQ Software   <CP Settings>");
    QCOMPARE(console.Find<QLabel>("lblStat")->text(), "On Line");
    QVERIFY(QFile::exists(console.File("temp.qm4")));
}

void StartTest::noUnitAtStartShowsTheDefaultsAndOneMessage()
{
    ConsoleUnderTest console(OffLine);
    QCOMPARE(console.window->windowTitle(), "Kelvo Cinema Processor and EQ Software   <Untitled>");
    QCOMPARE(console.Find<QLabel>("lblStat")->text(), "Off Line");
    QVERIFY(!QFile::exists(console.File("temp.qm4")));
    for (int tab = 0; tab < TabCount; ++tab)
        QVERIFY(!console.Find<QTabWidget>("SSTAB1")->widget(tab)->isEnabled());
}

QTEST_MAIN(StartTest)
#include "start_test.moc"
