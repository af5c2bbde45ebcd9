#include "support/ui/levelwindow.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QDragEnterEvent>
#include <QMimeData>

using namespace kelvo;

namespace {

const QString RangeTitle = "Range Check Error";
const QString SixError = "Error, Please enter a number between -6 and 6!";
const QString TenError = "Error, Please enter a number between -10 and 10!";

} // namespace

class LevelPairTest : public QObject {
    Q_OBJECT

  private slots:
    void typedValueIsStoredAndSentOnceByEnter();
    void typedValueGoesDownToItsStep_data();
    void typedValueGoesDownToItsStep();
    void escapeGivesBackTheValueOfTheSlider();
    void unreadableTextGivesBackTheValueOfTheSlider();
    void badValueIsToldOnceAndStaysSelectedInTheField();
    void leavingTheFieldByTabTakesTheValue();
    void leavingAnUntouchedFieldTakesNothing();
    void anotherWindowDoesNotTakeTheText();
    void badValueKeepsTheFocusAndTheClickIsNotCarriedOut();
    void badValueKeepsAListClosedAndATabWhereItIs();
    void afterABadValueTheNextClickWorksAgain();
    void goodValueLetsTheClickThrough();
    void fieldThatWasDisabledTakesAGoodValueAndDropsABadOne();
    void enterInADialogIsNotItsDefaultButton();
    void valueEqualToThePositionAtFocusIsStoredButNotSent();
    void focusPositionIsOneForAllSlidersOfTheWindow();
    void fieldBeingTypedInIsNotRewritten();
    void fieldsOfOneRuleShareOneWidth();
    void hostileTextsAreRefusedOrDropped();
    void textIsNotDroppedIntoAField();
};

void LevelPairTest::typedValueIsStoredAndSentOnceByEnter()
{
    LevelWindow window;
    window.TypeOnly(window.bass->Field(), "3");
    QCOMPARE(window.Events(), QStringList());
    window.Key(Qt::Key_Enter);
    QCOMPARE(window.bass->Slider()->value(), 7);
    QCOMPARE(window.bass->Field()->text(), "3");
    QCOMPARE(window.Events(), QStringList({"bass=7", "send"}));
    QVERIFY(window.bass->Field()->hasFocus());

    window.Type(window.bass->Field(), "3");
    QCOMPARE(window.Events(), QStringList());
}

void LevelPairTest::typedValueGoesDownToItsStep_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<int>("position");
    QTest::addColumn<QString>("shown");
    QTest::newRow("six is the top") << "6" << 0 << "6.0";
    QTest::newRow("minus six is the bottom") << "-6" << 24 << "-6.0";
    QTest::newRow("2.2 goes down to 2.0") << "2.2" << 8 << "2.0";
    QTest::newRow("-2.2 goes down to -2.5") << "-2.2" << 17 << "-2.5";
    QTest::newRow("2.7 goes down to 2.5") << "2.7" << 7 << "2.5";
    QTest::newRow("-2.7 goes down to -3.0") << "-2.7" << 18 << "-3.0";
    QTest::newRow("a comma is a point") << "4,5" << 3 << "4.5";
    QTest::newRow("blanks around") << " 1 " << 10 << "1.0";
}

void LevelPairTest::typedValueGoesDownToItsStep()
{
    QFETCH(QString, typed);
    QFETCH(int, position);
    QFETCH(QString, shown);
    LevelWindow window;
    window.Type(window.gain->Field(), typed);
    QCOMPARE(window.gain->Slider()->value(), position);
    QCOMPARE(window.gain->Field()->text(), shown);
    QCOMPARE(window.Events(), QStringList({QString("gain=%1").arg(position), "send"}));
}

void LevelPairTest::escapeGivesBackTheValueOfTheSlider()
{
    LevelWindow window;
    window.ShowStored(field::Bass(Left), 4);
    window.TypeOnly(window.bass->Field(), "9");
    window.Key(Qt::Key_Escape);
    QCOMPARE(window.bass->Field()->text(), "6");
    QVERIFY(window.bass->Field()->hasFocus());
    QCOMPARE(window.Events(), QStringList());
}

void LevelPairTest::unreadableTextGivesBackTheValueOfTheSlider()
{
    LevelWindow window;
    window.ShowGain(3);
    for (const char *text : {"abc", "--3", "3dB", "-"}) {
        window.Type(window.gain->Field(), text);
        QCOMPARE(window.gain->Field()->text(), "4.5");
    }
    QCOMPARE(window.Events(), QStringList());
}

void LevelPairTest::badValueIsToldOnceAndStaysSelectedInTheField()
{
    LevelWindow window;
    window.boxes.AnswerNextBox(RangeTitle, QMessageBox::Ok, TenError,
                               [&window] { QCOMPARE(window.boxes.OpenBox()->icon(), QMessageBox::Warning); });
    window.Type(window.bass->Field(), "11");
    QVERIFY(window.boxes.AllBoxesSeen());
    QCOMPARE(window.bass->Field()->text(), "11");
    QCOMPARE(window.bass->Field()->selectedText(), "11");
    QTRY_VERIFY(window.bass->Field()->hasFocus());
    QCOMPARE(window.bass->Slider()->value(), 10);
    QCOMPARE(window.Events(), QStringList());

    QTest::keyClicks(window.bass->Field(), "3");
    window.Key(Qt::Key_Return);
    QCOMPARE(window.bass->Field()->text(), "3");
}

void LevelPairTest::leavingTheFieldByTabTakesTheValue()
{
    LevelWindow window;
    window.TypeOnly(window.bass->Field(), "3");
    window.Key(Qt::Key_Tab);
    QVERIFY(!window.bass->Field()->hasFocus());
    QCOMPARE(window.bass->Slider()->value(), 7);
    QCOMPARE(window.Events(), QStringList({"bass=7", "send"}));
}

void LevelPairTest::leavingAnUntouchedFieldTakesNothing()
{
    LevelWindow window;
    window.bass->Field()->setFocus();
    window.first->setFocus();
    QCOMPARE(window.Events(), QStringList());
}

void LevelPairTest::anotherWindowDoesNotTakeTheText()
{
    LevelWindow window;
    window.TypeOnly(window.bass->Field(), "11");
    QFocusEvent away(QEvent::FocusOut, Qt::ActiveWindowFocusReason);
    QApplication::sendEvent(window.bass->Field(), &away);
    QCOMPARE(window.bass->Field()->text(), "11");
    QFocusEvent menu(QEvent::FocusOut, Qt::PopupFocusReason);
    QApplication::sendEvent(window.bass->Field(), &menu);
    QCOMPARE(window.bass->Field()->text(), "11");
    QCOMPARE(window.Events(), QStringList());
}

void LevelPairTest::badValueKeepsTheFocusAndTheClickIsNotCarriedOut()
{
    LevelWindow window;
    window.TypeOnly(window.gain->Field(), "6.1");
    window.boxes.AnswerNextBox(RangeTitle, QMessageBox::Ok, SixError);
    window.Click(window.first);
    QVERIFY(window.boxes.AllBoxesSeen());
    QCOMPARE(window.Events(), QStringList());
    QTRY_VERIFY(window.gain->Field()->hasFocus());
    QCOMPARE(window.gain->Field()->selectedText(), "6.1");
    QVERIFY(!window.first->isDown());

    LevelSlider *treble = window.treble->Slider();
    window.boxes.AnswerNextBox(RangeTitle, QMessageBox::Ok, SixError);
    window.ClickAt(treble, 20);
    QVERIFY(window.boxes.AllBoxesSeen());
    QCOMPARE(treble->value(), 10);
    QCOMPARE(window.Events(), QStringList());
}

void LevelPairTest::badValueKeepsAListClosedAndATabWhereItIs()
{
    LevelWindow window;
    window.TypeOnly(window.gain->Field(), "9");
    window.boxes.AnswerNextBox(RangeTitle, QMessageBox::Ok, SixError);
    window.Click(window.list);
    QVERIFY(window.boxes.AllBoxesSeen());
    QVERIFY(!QApplication::activePopupWidget());

    const QPoint other = window.tabs->tabBar()->tabRect(1).center();
    window.boxes.AnswerNextBox(RangeTitle, QMessageBox::Ok, SixError);
    QTest::mouseClick(window.tabs->tabBar(), Qt::LeftButton, Qt::NoModifier, other);
    QVERIFY(window.boxes.AllBoxesSeen());
    QCOMPARE(window.tabs->currentIndex(), 0);

    QVERIFY(QTest::qWaitForWindowActive(&window));
    window.boxes.AnswerNextBox(RangeTitle, QMessageBox::Ok, SixError);
    window.Key(Qt::Key_O, Qt::AltModifier);
    QVERIFY(window.boxes.AllBoxesSeen());
    QCOMPARE(window.tabs->currentIndex(), 0);

    window.boxes.AnswerNextBox(RangeTitle, QMessageBox::Ok, SixError);
    window.Key(Qt::Key_Tab, Qt::ControlModifier);
    QVERIFY(QTest::qWaitForWindowActive(&window));
    QVERIFY(window.boxes.AllBoxesSeen());
    QCOMPARE(window.tabs->currentIndex(), 0);
    QTRY_VERIFY(window.gain->Field()->hasFocus());
    QCOMPARE(window.Events(), QStringList());
}

void LevelPairTest::afterABadValueTheNextClickWorksAgain()
{
    LevelWindow window;
    window.TypeOnly(window.gain->Field(), "7");
    window.boxes.AnswerNextBox(RangeTitle, QMessageBox::Ok, SixError);
    window.Click(window.first);
    QVERIFY(window.boxes.AllBoxesSeen());
    window.Key(Qt::Key_Escape);
    window.Click(window.first);
    QCOMPARE(window.Events(), QStringList("click"));
    QTRY_VERIFY(window.first->hasFocus());
}

void LevelPairTest::goodValueLetsTheClickThrough()
{
    LevelWindow window;
    window.TypeOnly(window.gain->Field(), "1");
    const QPoint other = window.tabs->tabBar()->tabRect(1).center();
    window.Click(window.first);
    QCOMPARE(window.Events(), QStringList({"gain=10", "send", "click"}));
    window.TypeOnly(window.gain->Field(), "2");
    QTest::mouseClick(window.tabs->tabBar(), Qt::LeftButton, Qt::NoModifier, other);
    QCOMPARE(window.Events(), QStringList({"gain=8", "send"}));
    QCOMPARE(window.tabs->currentIndex(), 1);
}

void LevelPairTest::fieldThatWasDisabledTakesAGoodValueAndDropsABadOne()
{
    LevelWindow window;
    window.TypeOnly(window.gain->Field(), "1");
    window.tabs->setEnabled(false);
    QCOMPARE(window.Events(), QStringList({"gain=10", "send"}));
    window.tabs->setEnabled(true);
    window.TypeOnly(window.gain->Field(), "7");
    window.tabs->setEnabled(false);
    QCOMPARE(window.gain->Field()->text(), "1.0");
    QCOMPARE(window.Events(), QStringList());
}

void LevelPairTest::enterInADialogIsNotItsDefaultButton()
{
    struct Dialog : QDialog, Hands {
        QWidget *Window() const override { return const_cast<Dialog *>(this); }
    } dialog;
    auto *rows = new QVBoxLayout(&dialog);
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    EntryWindow entries;
    EditedRoom edited;
    QStringList &events = edited.events;
    LevelPair pair(field::Bass(Left), ShelfRule, edited.editor, entries, {"lblBass", "sclBass"}, nullptr);
    rows->addWidget(pair.Field());
    rows->addWidget(pair.Slider());
    rows->addWidget(buttons);
    connect(buttons, &QDialogButtonBox::accepted, &dialog, [&] { events << "accepted"; });
    connect(buttons, &QDialogButtonBox::rejected, &dialog, [&] { events << "rejected"; });
    dialog.show();
    QVERIFY(QTest::qWaitForWindowActive(&dialog));
    dialog.Type(pair.Field(), "1");
    dialog.Key(Qt::Key_Enter);
    dialog.Key(Qt::Key_Escape);
    QCOMPARE(events, QStringList({"bass=9", "send"}));
    QVERIFY(dialog.isVisible());
}

void LevelPairTest::valueEqualToThePositionAtFocusIsStoredButNotSent()
{
    LevelWindow window;
    window.bass->Slider()->setFocus();
    QCOMPARE(window.entries.FocusPosition, 10);
    window.Key(Qt::Key_Up);
    QCOMPARE(window.Events(), QStringList({"bass=9", "send"}));
    window.Type(window.bass->Field(), "0");
    QCOMPARE(window.bass->Slider()->value(), 10);
    QCOMPARE(window.Events(), QStringList("bass=10"));
}

void LevelPairTest::focusPositionIsOneForAllSlidersOfTheWindow()
{
    LevelWindow window;
    window.ShowGain(3);
    window.gain->Slider()->setFocus();
    QCOMPARE(window.entries.FocusPosition, 3);
    window.Type(window.bass->Field(), "7");
    QCOMPARE(window.Events(), QStringList("bass=3"));
}

void LevelPairTest::fieldBeingTypedInIsNotRewritten()
{
    LevelWindow window;
    window.TypeOnly(window.gain->Field(), "2.");
    window.ShowGain(0);
    QCOMPARE(window.gain->Field()->text(), "2.");
    window.Key(Qt::Key_Return);
    QCOMPARE(window.gain->Field()->text(), "2.0");
    QCOMPARE(window.Events(), QStringList({"gain=8", "send"}));
    window.ShowGain(0);
    QCOMPARE(window.gain->Field()->text(), "6.0");
}

void LevelPairTest::fieldsOfOneRuleShareOneWidth()
{
    LevelWindow window;
    QCOMPARE(window.bass->Field()->width(), window.treble->Field()->width());
    QCOMPARE(window.bands[0]->Field()->width(), window.gain->Field()->width());
    QVERIFY(window.gain->Field()->width() > window.fontMetrics().horizontalAdvance("-6.0"));
    QVERIFY(window.bass->Field()->width() > window.fontMetrics().horizontalAdvance("-10"));
    const int before = window.gain->Field()->width();
    window.ShowGain(24);
    QCoreApplication::processEvents();
    QCOMPARE(window.gain->Field()->width(), before);
}

void LevelPairTest::hostileTextsAreRefusedOrDropped()
{
    LevelWindow window;
    for (const QString &text : {QString(10000, '9'), QString("1e3"), QString("1e999999999")}) {
        window.gain->Field()->setFocus();
        window.gain->Field()->setText(text);
        window.boxes.AnswerNextBox(RangeTitle, QMessageBox::Ok, SixError);
        window.Key(Qt::Key_Return);
        QVERIFY(window.boxes.AllBoxesSeen());
    }
    for (const QString &text :
         {QString(10000, 'x'), QString(QChar(1)), QString("3\u2028"), QString(40000, '-')}) {
        window.gain->Field()->setText(text);
        window.Key(Qt::Key_Return);
        QCOMPARE(window.gain->Field()->text(), "0.0");
    }
    QCOMPARE(window.Events(), QStringList());
}

void LevelPairTest::textIsNotDroppedIntoAField()
{
    LevelWindow window;
    QMimeData text;
    text.setText("3");
    QDragEnterEvent dragged({5, 5}, Qt::CopyAction, &text, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(window.gain->Field(), &dragged);
    QVERIFY(!dragged.isAccepted());
}

QTEST_MAIN(LevelPairTest)
#include "levelpair_test.moc"
