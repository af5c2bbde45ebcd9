#include "ui/main/frmref.h"

#include <QAbstractButton>
#include <QLabel>
#include <QLineEdit>
#include <QTest>

using namespace kelvo;

class FrmRefTest : public QObject {
    Q_OBJECT

  private slots:
    void theDialogShowsThePreferences();
    void thePeriodFollowsItsBox();
    void aPeriodIsItsLeadingNumber_data();
    void aPeriodIsItsLeadingNumber();
    void theCloseButtonTakesTheValues();
    void escapeClosesAsTheCloseBoxDoes();
};

namespace {

QLineEdit *Period(const FrmRef &frmRef)
{
    return frmRef.findChild<QLineEdit *>("txtRef");
}

QAbstractButton *Button(const FrmRef &frmRef, const char *name)
{
    return frmRef.findChild<QAbstractButton *>(name);
}

} // namespace

void FrmRefTest::theDialogShowsThePreferences()
{
    Preferences options{.AutoRefresh = true, .RefreshSeconds = 25};
    FrmRef frmRef(options, nullptr);
    QCOMPARE(frmRef.windowTitle(), "Automatic Update");
    QCOMPARE(Button(frmRef, "chkRef")->text(), "Enable Automatic Update");
    QVERIFY(Button(frmRef, "chkRef")->isChecked());
    QCOMPARE(Period(frmRef)->text(), "25");
    QStringList texts;
    for (const QLabel *label : frmRef.findChildren<QLabel *>())
        texts += label->text();
    QCOMPARE(texts, (QStringList{"Every", "seconds"}));
}

void FrmRefTest::thePeriodFollowsItsBox()
{
    Preferences options;
    FrmRef frmRef(options, nullptr);
    QVERIFY(!Period(frmRef)->isEnabled());
    Button(frmRef, "chkRef")->click();
    QVERIFY(Period(frmRef)->isEnabled());
    Button(frmRef, "chkRef")->click();
    QVERIFY(!Period(frmRef)->isEnabled());
}

void FrmRefTest::aPeriodIsItsLeadingNumber_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("period"); // 25 was there before
    QTest::newRow("a number") << "10" << 10;
    QTest::newRow("a number and letters") << "12abc" << 12;
    QTest::newRow("a fraction is dropped") << "9.9" << 9;
    QTest::newRow("a comma as well") << "9,9" << 9;
    QTest::newRow("blanks before it") << "  7" << 7;
    QTest::newRow("an exponent") << "1e3" << 1000;
    QTest::newRow("the longest") << "32767" << 32767;
    QTest::newRow("longer than the longest") << "32768" << 25;
    QTest::newRow("nought") << "0" << 25;
    QTest::newRow("less than one") << "0.9" << 25;
    QTest::newRow("negative") << "-5" << 25;
    QTest::newRow("letters") << "abc" << 25;
    QTest::newRow("nothing") << "" << 25;
    QTest::newRow("beyond every number") << "1e999" << 25;
}

void FrmRefTest::aPeriodIsItsLeadingNumber()
{
    QFETCH(QString, text);
    QFETCH(int, period);
    Preferences options{.AutoRefresh = true, .RefreshSeconds = 25};
    FrmRef frmRef(options, nullptr);
    frmRef.show();
    Period(frmRef)->setText(text);
    frmRef.close();
    QCOMPARE(int(options.RefreshSeconds), period);
    QCOMPARE(options.AutoRefresh, Word(1));
}

void FrmRefTest::theCloseButtonTakesTheValues()
{
    Preferences options{.AutoRefresh = true, .RefreshSeconds = 25};
    FrmRef frmRef(options, nullptr);
    frmRef.show();
    Period(frmRef)->setText("60");
    Button(frmRef, "chkRef")->click();
    Button(frmRef, "Command1")->click();
    QVERIFY(!frmRef.isVisible());
    QCOMPARE(options.RefreshSeconds, Word(60));
    QCOMPARE(options.AutoRefresh, Word(0));
}

void FrmRefTest::escapeClosesAsTheCloseBoxDoes()
{
    Preferences options;
    FrmRef frmRef(options, nullptr);
    frmRef.show();
    Button(frmRef, "chkRef")->click();
    Period(frmRef)->setText("5");
    QTest::keyClick(&frmRef, Qt::Key_Escape);
    QVERIFY(!frmRef.isVisible());
    QCOMPARE(options.AutoRefresh, Word(1));
    QCOMPARE(options.RefreshSeconds, Word(5));
}

QTEST_MAIN(FrmRefTest)
#include "frmref_test.moc"
