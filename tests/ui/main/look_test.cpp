#include "support/ui/consoleundertest.h"

#include <QAbstractButton>
#include <QDir>
#include <QLabel>
#include <QTabBar>
#include <QTabWidget>

using namespace kelvo;

/// With KELVO_SCREENSHOTS set to a folder, what is tested here is also kept there as pictures.
class LookTest : public QObject {
    Q_OBJECT

  private slots:
    void everyTabFitsAndShowsItsTexts_data();
    void everyTabFitsAndShowsItsTexts();
    void theLampShowsItsColourFlat_data();
    void theLampShowsItsColourFlat();
};

namespace {

void Keep(QWidget *window, const QString &name)
{
    const QString folder = qEnvironmentVariable("KELVO_SCREENSHOTS");
    if (!folder.isEmpty())
        window->grab().save(QDir(folder).filePath(name + ".png"));
}

/// The captions and texts that the visible controls have no room for.
QStringList CutTexts(const QWidget *window)
{
    QStringList cut;
    const auto check = [&cut](const QWidget *control, const QString &text, int flags) {
        const QSize needed = control->fontMetrics().size(Qt::TextShowMnemonic, text);
        const bool fits = flags & Qt::TextWordWrap || needed.width() <= control->contentsRect().width();
        if (!fits || needed.height() > control->contentsRect().height())
            cut += text;
    };
    for (const auto *label : window->findChildren<QLabel *>()) {
        if (label->isVisible())
            check(label, label->text(), label->wordWrap() ? Qt::TextWordWrap : 0);
    }
    for (const auto *button : window->findChildren<QAbstractButton *>()) {
        if (button->isVisible())
            check(button, button->text(), 0);
    }
    return cut;
}

} // namespace

void LookTest::everyTabFitsAndShowsItsTexts_data()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<bool>("onLine");
    QTest::newRow("the smallest screen, on line") << QSize(800, 600) << true;
    QTest::newRow("the smallest screen, off line") << QSize(800, 600) << false;
    QTest::newRow("a large screen") << QSize(1920, 1080) << true;
}

void LookTest::everyTabFitsAndShowsItsTexts()
{
    QFETCH(QSize, size);
    QFETCH(bool, onLine);
    ConsoleUnderTest console(onLine ? OnLine : OffLine);
    console.window->resize(size);
    auto *SSTAB1 = console.Find<QTabWidget>("SSTAB1");
    for (int tab = 0; tab < TabCount; ++tab) {
        console.GoTo(Tab(tab));
        QCOMPARE(SSTAB1->currentIndex(), tab);
        QTest::qWait(0);
        Keep(console.window.get(), QString("%1-%2-%3").arg(tab).arg(size.width()).arg(onLine ? "on" : "off"));
        QCOMPARE(console.window->size(), size);
        QCOMPARE(CutTexts(console.window.get()).join(", "), QString());
    }
    QVERIFY(SSTAB1->tabBar()->tabRect(TabCount - 1).right() <= SSTAB1->tabBar()->width());
}

void LookTest::theLampShowsItsColourFlat_data()
{
    QTest::addColumn<bool>("onLine");
    QTest::addColumn<QColor>("colour");
    QTest::newRow("green on line") << true << QColor(0, 255, 0);
    QTest::newRow("red off line") << false << QColor(255, 0, 0);
}

void LookTest::theLampShowsItsColourFlat()
{
    QFETCH(bool, onLine);
    QFETCH(QColor, colour);
    ConsoleUnderTest console(onLine ? OnLine : OffLine);
    const QImage lamp = console.Find<QLabel>("lblStat")->grab().toImage();
    QCOMPARE(lamp.pixelColor(2, 2), colour);
    QCOMPARE(lamp.pixelColor(lamp.width() - 3, lamp.height() - 3), colour);
}

QTEST_MAIN(LookTest)
#include "look_test.moc"
