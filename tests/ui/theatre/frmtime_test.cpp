#include "ui/theatre/frmtime.h"

#include <QCalendarWidget>
#include <QPushButton>
#include <QTest>

using namespace kelvo;
using namespace std::chrono;

namespace {

constexpr LocalTime HalfPastNineAtNight = local_days(2024y / 3 / 5) + 21h + 30min + 7s;

/// The dialog as the technician has it: shown, active, one box found by its name.
struct Opened {
    explicit Opened(LocalTime start) : dialog(start, nullptr)
    {
        dialog.show();
        dialog.activateWindow();
        shown = QTest::qWaitForWindowActive(&dialog);
    }
    template <typename Control = QLineEdit>
    Control *Find(const char *name) const
    {
        return dialog.findChild<Control *>(QString::fromLatin1(name));
    }
    void Type(const char *name, const char *text) const
    {
        Find(name)->setFocus();
        Find(name)->selectAll();
        QTest::keyClicks(Find(name), text);
    }

    FrmTime dialog;
    bool shown = false;
};

} // namespace

class FrmTimeTest : public QObject {
    Q_OBJECT

  private slots:
    void itIsCalledAsTheTechnicianReadsIt()
    {
        const Opened opened(HalfPastNineAtNight);
        QVERIFY(opened.shown);
        QCOMPARE(opened.dialog.objectName(), "frmTime");
        QCOMPARE(opened.dialog.windowTitle(), "Please choose date and time");
        QVERIFY(opened.dialog.width() <= 800 && opened.dialog.height() <= 600);
    }

    void itOpensWithTheGivenTimeOnATwelveHourDial()
    {
        const Opened opened(HalfPastNineAtNight);
        QCOMPARE(opened.Find("txtHour")->text(), "09");
        QCOMPARE(opened.Find("txtMin")->text(), "30");
        QCOMPARE(opened.Find("txtSec")->text(), "07");
        QCOMPARE(opened.Find<QLabel>("lblAP")->text(), "PM");
        QCOMPARE(opened.dialog.findChild<QCalendarWidget *>()->selectedDate(), QDate(2024, 3, 5));
        QVERIFY(opened.dialog.Chosen() == HalfPastNineAtNight);
    }

    void midnightAndNoonReadTwelve_data()
    {
        QTest::addColumn<int>("hour");
        QTest::addColumn<QString>("dial");
        QTest::addColumn<QString>("half");
        QTest::newRow("midnight") << 0 << "12"
                                  << "AM";
        QTest::newRow("one at night") << 1 << "01"
                                      << "AM";
        QTest::newRow("noon") << 12 << "12"
                              << "PM";
        QTest::newRow("one hour before midnight") << 23 << "11"
                                                  << "PM";
    }
    void midnightAndNoonReadTwelve()
    {
        QFETCH(int, hour);
        QFETCH(QString, dial);
        QFETCH(QString, half);
        const LocalTime time = local_days(2031y / 12 / 31) + hours(hour);
        const Opened opened(time);
        QCOMPARE(opened.Find("txtHour")->text(), dial);
        QCOMPARE(opened.Find<QLabel>("lblAP")->text(), half);
        QVERIFY(opened.dialog.Chosen() == time);
    }

    void aBoxLeftWithABadValueReadsDoubleZero_data()
    {
        QTest::addColumn<QString>("box");
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("left");
        QTest::newRow("hour 13") << "txtHour"
                                 << "13"
                                 << "00";
        QTest::newRow("hour 0") << "txtHour"
                                << "0"
                                << "00";
        QTest::newRow("hour 12 stays") << "txtHour"
                                       << "12"
                                       << "12";
        QTest::newRow("hour 1 stays") << "txtHour"
                                      << "1"
                                      << "1";
        QTest::newRow("hour in words") << "txtHour"
                                       << "nine"
                                       << "00";
        QTest::newRow("minute 0 stays") << "txtMin"
                                        << "0"
                                        << "0";
        QTest::newRow("minute 59 stays") << "txtMin"
                                         << "59"
                                         << "59";
        QTest::newRow("minute 60") << "txtMin"
                                   << "60"
                                   << "00";
        QTest::newRow("minute -1") << "txtMin"
                                   << "-1"
                                   << "00";
        QTest::newRow("second 60") << "txtSec"
                                   << "60"
                                   << "00";
        QTest::newRow("second 61 with 20 digits") << "txtSec"
                                                  << "61000000000000000000"
                                                  << "00";
        QTest::newRow("second 5 stays") << "txtSec"
                                        << "5"
                                        << "5";
        QTest::newRow("hour nan") << "txtHour"
                                  << "nan"
                                  << "00";
        QTest::newRow("hour -nan") << "txtHour"
                                   << "-nan"
                                   << "00";
        QTest::newRow("minute inf") << "txtMin"
                                    << "inf"
                                    << "00";
        QTest::newRow("minute -infinity") << "txtMin"
                                          << "-infinity"
                                          << "00";
        const QString nines(400, '9');
        for (const char *box : {"txtHour", "txtMin", "txtSec"}) {
            QTest::addRow("400 nines in %s", box) << box << nines << "00";
            QTest::addRow("400 nines below nothing in %s", box) << box << '-' + nines << "00";
        }
    }
    void aBoxLeftWithABadValueReadsDoubleZero()
    {
        QFETCH(QString, box);
        QFETCH(QString, typed);
        QFETCH(QString, left);
        const Opened opened(HalfPastNineAtNight);
        opened.Type(box.toLatin1(), typed.toLatin1());
        QTest::keyClick(opened.Find(box.toLatin1()), Qt::Key_Tab);
        QCOMPARE(opened.Find(box.toLatin1())->text(), left);
    }

    void wordsThatAProgramTakesForNumbersAreZero_data()
    {
        QTest::addColumn<QString>("typed");
        for (const char *typed : {"nan", "-nan", "NaN", "nan(1)"})
            QTest::newRow(typed) << typed;
    }
    void wordsThatAProgramTakesForNumbersAreZero()
    {
        QFETCH(QString, typed);
        const Opened opened(HalfPastNineAtNight);
        for (const char *box : {"txtHour", "txtMin", "txtSec"})
            opened.Type(box, typed.toLatin1());
        QTest::mouseClick(opened.Find<QPushButton>("cmdOK"), Qt::LeftButton);
        QCOMPARE(opened.dialog.result(), int(QDialog::Accepted));
        QVERIFY(opened.dialog.Chosen() == local_days(2024y / 3 / 5) + 12h);
    }

    void amAndPmChangeByClickAndBySpaceBar()
    {
        const Opened opened(HalfPastNineAtNight);
        auto *lblAP = opened.Find<QLabel>("lblAP");
        QTest::mouseClick(lblAP, Qt::LeftButton);
        QCOMPARE(lblAP->text(), "AM");
        QVERIFY(opened.dialog.Chosen() == HalfPastNineAtNight - 12h);
        opened.Find("txtSec")->setFocus();
        QTest::keyClick(opened.Find("txtSec"), Qt::Key_Tab);
        QVERIFY(lblAP->hasFocus());
        QTest::keyClick(lblAP, Qt::Key_Space);
        QCOMPARE(lblAP->text(), "PM");
    }

    void okGivesWhatIsTypedAndClicked()
    {
        const Opened opened(HalfPastNineAtNight);
        opened.dialog.findChild<QCalendarWidget *>()->setSelectedDate(QDate(2024, 2, 29));
        opened.Type("txtHour", "3");
        opened.Type("txtMin", "4");
        opened.Type("txtSec", "5");
        QTest::mouseClick(opened.Find<QPushButton>("cmdOK"), Qt::LeftButton);
        QCOMPARE(opened.dialog.result(), int(QDialog::Accepted));
        QVERIFY(opened.dialog.Chosen() == local_days(2024y / 2 / 29) + 15h + 4min + 5s);
    }

    void anHourResetToDoubleZeroIsTwelve()
    {
        const Opened opened(HalfPastNineAtNight);
        opened.Type("txtHour", "13");
        QTest::mouseClick(opened.Find<QPushButton>("cmdOK"), Qt::LeftButton);
        QCOMPARE(opened.Find("txtHour")->text(), "00");
        QCOMPARE(opened.dialog.result(), int(QDialog::Accepted));
        QVERIFY(opened.dialog.Chosen() == local_days(2024y / 3 / 5) + 12h + 30min + 7s);
    }

    void enterShowsAResetBeforeItCounts_data()
    {
        QTest::addColumn<QString>("box");
        QTest::newRow("hour") << "txtHour";
        QTest::newRow("minute") << "txtMin";
        QTest::newRow("second") << "txtSec";
    }
    void enterShowsAResetBeforeItCounts()
    {
        QFETCH(QString, box);
        const Opened opened(HalfPastNineAtNight);
        QLineEdit *typed = opened.Find(box.toLatin1());
        opened.Type(box.toLatin1(), "75");
        QTest::keyClick(typed, Qt::Key_Return);
        QVERIFY(opened.dialog.isVisible());
        QVERIFY(typed->hasFocus());
        QCOMPARE(typed->text(), "00");
        QCOMPARE(typed->selectedText(), "00");
        QTest::keyClick(typed, Qt::Key_Return);
        QCOMPARE(opened.dialog.result(), int(QDialog::Accepted));
    }

    void enterTakesAGoodNumberAtOnce()
    {
        const Opened opened(HalfPastNineAtNight);
        opened.Type("txtHour", "7");
        QTest::keyClick(opened.Find("txtHour"), Qt::Key_Enter, Qt::KeypadModifier);
        QCOMPARE(opened.dialog.result(), int(QDialog::Accepted));
        QVERIFY(opened.dialog.Chosen() == local_days(2024y / 3 / 5) + 19h + 30min + 7s);
    }

    void cancelAndEscapeRefuse()
    {
        for (const bool byKey : {false, true}) {
            Opened opened(HalfPastNineAtNight);
            opened.dialog.setResult(QDialog::Accepted);
            if (byKey)
                QTest::keyClick(&opened.dialog, Qt::Key_Escape);
            else
                QTest::mouseClick(opened.Find<QPushButton>("cmdCan"), Qt::LeftButton);
            QCOMPARE(opened.dialog.result(), int(QDialog::Rejected));
            QVERIFY(!opened.dialog.isVisible());
        }
    }
};

QTEST_MAIN(FrmTimeTest)
#include "frmtime_test.moc"
