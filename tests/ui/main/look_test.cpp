#include "support/ui/consoleundertest.h"
#include "ui/controls/choices.h"
#include "ui/main/look.h"

#include <QAbstractButton>
#include <QCheckBox>
#include <QDir>
#include <QLabel>
#include <QRadioButton>
#include <QStyleOptionButton>
#include <QTabBar>
#include <QTabWidget>

using namespace kelvo;

/// With KELVO_SCREENSHOTS set to a folder, what is tested here is also kept there as pictures.
class LookTest : public QObject {
    Q_OBJECT

  private slots:
    void aCaptionBesideAMarkThatIsCutIsFound_data();
    void aCaptionBesideAMarkThatIsCutIsFound();
    void everyTabFitsAndShowsItsTexts_data();
    void everyTabFitsAndShowsItsTexts();
    void theWindowsOfTheToolsShowTheirTexts_data();
    void theWindowsOfTheToolsShowTheirTexts();
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

/// Where the style paints a button's caption: beside the mark of an option button or a check box.
QSize RoomForCaption(const QAbstractButton &button)
{
    QStyle::SubElement part = QStyle::SE_PushButtonContents;
    if (qobject_cast<const QRadioButton *>(&button))
        part = QStyle::SE_RadioButtonContents;
    else if (qobject_cast<const QCheckBox *>(&button))
        part = QStyle::SE_CheckBoxContents;
    QStyleOptionButton option;
    option.initFrom(&button);
    option.text = button.text();
    return button.style()->subElementRect(part, &option, &button).size();
}

/// The captions and texts that the visible controls have no room for.
QStringList CutTexts(const QWidget *window)
{
    QStringList cut;
    const auto check = [&cut](const QWidget &control, const QString &text, QSize room, int flags) {
        const QSize needed = control.fontMetrics()
                                 .boundingRect(QRect(QPoint(), room), flags | Qt::TextShowMnemonic, text)
                                 .size();
        if (needed.width() > room.width() || needed.height() > room.height())
            cut += text;
    };
    for (const auto *label : window->findChildren<QLabel *>()) {
        if (label->isVisible())
            check(*label, label->text(), label->contentsRect().size(),
                  label->wordWrap() ? Qt::TextWordWrap : 0);
    }
    for (const auto *button : window->findChildren<QAbstractButton *>()) {
        if (button->isVisible())
            check(*button, button->text(), RoomForCaption(*button), 0);
    }
    return cut;
}

/// How many columns from the left a control paints on when it has all the room it could want.
int PaintedWidth(QWidget &control)
{
    control.resize(2 * control.sizeHint());
    const QImage image = control.grab().toImage();
    const QRgb ground = image.pixel(image.width() - 1, 0);
    for (int x = image.width() - 1; x > 0; --x)
        for (int y = 0; y < image.height(); ++y)
            if (image.pixel(x, y) != ground)
                return x + 1;
    return 0;
}

} // namespace

void LookTest::aCaptionBesideAMarkThatIsCutIsFound_data()
{
    QTest::addColumn<bool>("checkMark");
    QTest::newRow("option button") << false;
    QTest::newRow("check box") << true;
}

void LookTest::aCaptionBesideAMarkThatIsCutIsFound()
{
    QFETCH(bool, checkMark);
    ApplyLook();
    QWidget window;
    const QString caption = "Matrix Decoded";
    QAbstractButton *button = checkMark ? static_cast<QAbstractButton *>(new CheckBox(caption, &window))
                                        : new OptionButton(caption, &window);
    window.show();
    const int painted = PaintedWidth(*button);
    button->resize(button->sizeHint());
    QCOMPARE(CutTexts(&window), QStringList());
    button->resize(painted - 1, button->height());
    QCOMPARE(CutTexts(&window), QStringList(caption));
}

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

void LookTest::theWindowsOfTheToolsShowTheirTexts_data()
{
    QTest::addColumn<QString>("item");
    QTest::addColumn<QString>("form");
    QTest::newRow("what differs") << "mnuDiffers"
                                  << "frmDiffers";
    QTest::newRow("verify") << "mnuVerify"
                            << "frmVerify";
}

void LookTest::theWindowsOfTheToolsShowTheirTexts()
{
    QFETCH(QString, item);
    QFETCH(QString, form);
    ConsoleUnderTest console;
    console.unit.audio.ChannelTrim[Center] = 3;
    console.Trigger(qPrintable(item));
    auto *window = console.Find<QDialog>(form);
    for (const QSize size : {window->size(), window->minimumSizeHint()}) {
        window->resize(size);
        QTest::qWait(0);
        Keep(window, QString("%1-%2").arg(form).arg(size.width()));
        QVERIFY(window->width() <= 640 && window->height() <= 480);
        QCOMPARE(CutTexts(window).join(", "), QString());
    }
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
