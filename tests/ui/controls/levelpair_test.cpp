#include "ui/controls/levelpair.h"

#include "support/ui/boxanswers.h"
#include "support/ui/hands.h"

#include <QComboBox>
#include <QDialog>
#include <QDialogButtonBox>
#include <QDragEnterEvent>
#include <QHBoxLayout>
#include <QMimeData>
#include <QPushButton>
#include <QTabWidget>
#include <QTest>
#include <QVBoxLayout>

using namespace kelvo;

namespace {

const QString RangeTitle = "Range Check Error";
const QString SixError = "Error, Please enter a number between -6 and 6!";
const QString TenError = "Error, Please enter a number between -10 and 10!";

/// A window with bass and treble (neighbours), a lone gain pair, three bands, a button, a list and tabs. What
/// the pairs store and send is written down in order.
class LevelWindow : public QWidget, public Hands {
  public:
    LevelWindow()
    {
        auto *rows = new QVBoxLayout(this);
        first = new QPushButton("first");
        list = new QComboBox;
        list->addItems({"one", "two"});
        tabs = new QTabWidget;
        auto *page = new QWidget;
        auto *columns = new QHBoxLayout(page);
        bass = Add(columns, ShelfRule, "Bass");
        treble = Add(columns, ShelfRule, "Treb");
        gain = Add(columns, HalfDecibelRule, "Gain");
        for (LevelPair *&band : bands)
            band = Add(columns, HalfDecibelRule, "Band");
        tabs->addTab(page, "&Levels");
        tabs->addTab(new QWidget, "&Other");
        rows->addWidget(first);
        rows->addWidget(list);
        rows->addWidget(tabs);
        connect(first, &QPushButton::clicked, this, [this] { events << "click"; });
        JoinNeighbours(std::array{bass, treble});
        JoinNeighbours(bands);
        resize(700, 400);
        show();
        first->setFocus();
        (void)QTest::qWaitForWindowActive(this);
    }

    QStringList Events()
    {
        QStringList taken;
        taken.swap(events);
        return taken;
    }

    BoxAnswers boxes;
    EntryWindow entries;
    QPushButton *first;
    QComboBox *list;
    QTabWidget *tabs;
    LevelPair *bass, *treble, *gain;
    std::array<LevelPair *, 3> bands{};
    QStringList events;

  protected:
    QWidget *Window() const override { return const_cast<LevelWindow *>(this); }

  private:
    LevelPair *Add(QHBoxLayout *columns, const LevelRule &rule, const QString &name)
    {
        auto *pair =
            new LevelPair(rule, entries, {"lbl", "scl"},
                          {[this, name](int position) { events << name + "=" + QString::number(position); },
                           [this] { events << "send"; }},
                          this);
        auto *column = new QVBoxLayout;
        column->addWidget(pair->Slider());
        column->addWidget(pair->Field());
        columns->addLayout(column);
        return pair;
    }
};

} // namespace

class LevelPairTest : public QObject {
    Q_OBJECT

  private slots:
    void position0IsDrawnAtTheTop();
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
    void firstChangeOfTheWindowAlwaysCounts();
    void focusPositionIsOneForAllSlidersOfTheWindow();
    void focusPositionIsNotTakenWhenABoxCloses();
    void oneKeyPressIsOneStep_data();
    void oneKeyPressIsOneStep();
    void heldKeyStepsAndSendsOnceOnTheRealRelease();
    void keysStopAtBothEnds();
    void otherKeysDoNothing();
    void releaseOfAnyKeySendsWhatWasMoved();
    void leftAndRightGoToTheNeighbourAndRoundTheEnds();
    void keyHeldAcrossAFocusChangeIsSentThere();
    void keyHeldWhileTheSliderIsDisabledIsStored();
    void keyHeldIsSentBeforeACommandRuns();
    void dragMovesTheFieldAndSendsOnceAtItsEnd();
    void dragThatEndsWhereItBeganSendsNothing();
    void grooveClickIsOneChange();
    void dragThatLosesItsReleaseIsTakenOnce();
    void wheelNeedsTheFocusAndIsOneChange();
    void valueSetByCodeFromOutsideIsAChange();
    void shownPositionIsQuiet();
    void fieldBeingTypedInIsNotRewritten();
    void fieldsOfOneRuleShareOneWidth();
    void hostileTextsAreRefusedOrDropped();
    void textIsNotDroppedIntoAField();
};

void LevelPairTest::position0IsDrawnAtTheTop()
{
    LevelWindow window;
    const LevelSlider *slider = window.gain->Slider();
    QCOMPARE(slider->orientation(), Qt::Vertical);
    QCOMPARE(slider->minimum(), 0);
    QCOMPARE(slider->maximum(), 24);
    QVERIFY(slider->CentreOf(0) < slider->CentreOf(12));
    QVERIFY(slider->CentreOf(12) < slider->CentreOf(24));
    QVERIFY(slider->CentreOf(0) < 12);
    QVERIFY(slider->CentreOf(24) > slider->height() - 12);
}

void LevelPairTest::typedValueIsStoredAndSentOnceByEnter()
{
    LevelWindow window;
    window.TypeOnly(window.bass->Field(), "3");
    QCOMPARE(window.Events(), QStringList());
    window.Key(Qt::Key_Enter);
    QCOMPARE(window.bass->Position(), 7);
    QCOMPARE(window.bass->Field()->text(), "3");
    QCOMPARE(window.Events(), QStringList({"Bass=7", "send"}));
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
    QCOMPARE(window.gain->Position(), position);
    QCOMPARE(window.gain->Field()->text(), shown);
    QCOMPARE(window.Events(), QStringList({QString("Gain=%1").arg(position), "send"}));
}

void LevelPairTest::escapeGivesBackTheValueOfTheSlider()
{
    LevelWindow window;
    window.bass->ShowPosition(4);
    window.TypeOnly(window.bass->Field(), "9");
    window.Key(Qt::Key_Escape);
    QCOMPARE(window.bass->Field()->text(), "6");
    QVERIFY(window.bass->Field()->hasFocus());
    QCOMPARE(window.Events(), QStringList());
}

void LevelPairTest::unreadableTextGivesBackTheValueOfTheSlider()
{
    LevelWindow window;
    window.gain->ShowPosition(3);
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
    QCOMPARE(window.bass->Position(), 10);
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
    QCOMPARE(window.bass->Position(), 7);
    QCOMPARE(window.Events(), QStringList({"Bass=7", "send"}));
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
    QCOMPARE(window.Events(), QStringList({"Gain=10", "send", "click"}));
    window.TypeOnly(window.gain->Field(), "2");
    QTest::mouseClick(window.tabs->tabBar(), Qt::LeftButton, Qt::NoModifier, other);
    QCOMPARE(window.Events(), QStringList({"Gain=8", "send"}));
    QCOMPARE(window.tabs->currentIndex(), 1);
}

void LevelPairTest::fieldThatWasDisabledTakesAGoodValueAndDropsABadOne()
{
    LevelWindow window;
    window.TypeOnly(window.gain->Field(), "1");
    window.tabs->setEnabled(false);
    QCOMPARE(window.Events(), QStringList({"Gain=10", "send"}));
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
    QStringList events;
    LevelPair pair(ShelfRule, entries, {"lblBass", "sclBass"},
                   {[&](int position) { events << QString::number(position); }, [] {}}, nullptr);
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
    QCOMPARE(events, QStringList("9"));
    QVERIFY(dialog.isVisible());
}

void LevelPairTest::valueEqualToThePositionAtFocusIsStoredButNotSent()
{
    LevelWindow window;
    window.bass->Slider()->setFocus();
    QCOMPARE(window.entries.FocusPosition, 10);
    window.Key(Qt::Key_Up);
    QCOMPARE(window.Events(), QStringList({"Bass=9", "send"}));
    window.Type(window.bass->Field(), "0");
    QCOMPARE(window.bass->Position(), 10);
    QCOMPARE(window.Events(), QStringList("Bass=10"));
}

void LevelPairTest::firstChangeOfTheWindowAlwaysCounts()
{
    LevelWindow window;
    QCOMPARE(window.entries.FocusPosition, 255);
    window.gain->Slider()->setValue(0);
    QCOMPARE(window.Events(), QStringList({"Gain=0", "send"}));
}

void LevelPairTest::focusPositionIsOneForAllSlidersOfTheWindow()
{
    LevelWindow window;
    window.gain->ShowPosition(3);
    window.gain->Slider()->setFocus();
    QCOMPARE(window.entries.FocusPosition, 3);
    window.Type(window.bass->Field(), "7");
    QCOMPARE(window.Events(), QStringList("Bass=3"));
}

void LevelPairTest::focusPositionIsNotTakenWhenABoxCloses()
{
    LevelWindow window;
    LevelSlider *slider = window.gain->Slider();
    slider->setFocus();
    slider->setValue(5);
    QFocusEvent away(QEvent::FocusOut, Qt::ActiveWindowFocusReason);
    QApplication::sendEvent(slider, &away);
    QFocusEvent back(QEvent::FocusIn, Qt::ActiveWindowFocusReason);
    QApplication::sendEvent(slider, &back);
    QCOMPARE(window.entries.FocusPosition, 12);
}

void LevelPairTest::oneKeyPressIsOneStep_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<bool>("keypad");
    QTest::addColumn<int>("position");
    QTest::newRow("Up") << int(Qt::Key_Up) << false << 11;
    QTest::newRow("Down") << int(Qt::Key_Down) << false << 13;
    QTest::newRow("Right acts as Up") << int(Qt::Key_Right) << false << 11;
    QTest::newRow("Left acts as Down") << int(Qt::Key_Left) << false << 13;
    QTest::newRow("numeric-pad plus") << int(Qt::Key_Plus) << true << 11;
    QTest::newRow("numeric-pad minus") << int(Qt::Key_Minus) << true << 13;
    QTest::newRow("numeric-pad Up") << int(Qt::Key_Up) << true << 11;
    QTest::newRow("Page Up") << int(Qt::Key_PageUp) << false << 10;
    QTest::newRow("Page Down") << int(Qt::Key_PageDown) << false << 14;
    QTest::newRow("Home") << int(Qt::Key_Home) << false << 0;
    QTest::newRow("End") << int(Qt::Key_End) << false << 24;
}

void LevelPairTest::oneKeyPressIsOneStep()
{
    QFETCH(int, key);
    QFETCH(bool, keypad);
    QFETCH(int, position);
    const auto modifiers = keypad ? Qt::KeypadModifier : Qt::NoModifier;
    LevelWindow window;
    LevelSlider *slider = window.gain->Slider();
    slider->setFocus();
    window.Press(key, modifiers);
    QCOMPARE(slider->value(), position);
    QCOMPARE(window.gain->Field()->text(), QString::number((12 - position) / 2.0, 'f', 1));
    QCOMPARE(window.Events(), QStringList());
    QVERIFY(!window.entries.SendArmed);
    window.Release(key, modifiers);
    QVERIFY(window.entries.SendArmed);
    QCOMPARE(window.Events(), QStringList({QString("Gain=%1").arg(position), "send"}));
}

void LevelPairTest::heldKeyStepsAndSendsOnceOnTheRealRelease()
{
    LevelWindow window;
    LevelSlider *slider = window.bass->Slider();
    slider->setFocus();
    window.Press(Qt::Key_Up);
    for (int i = 0; i < 3; ++i)
        window.Repeat(Qt::Key_Up);
    QCOMPARE(slider->value(), 6);
    QCOMPARE(window.bass->Field()->text(), "4");
    QCOMPARE(window.Events(), QStringList());
    QVERIFY(window.entries.sliderHeld == slider);
    window.Release(Qt::Key_Up);
    QCOMPARE(window.Events(), QStringList({"Bass=6", "send"}));
    QVERIFY(!window.entries.sliderHeld);
}

void LevelPairTest::keysStopAtBothEnds()
{
    LevelWindow window;
    LevelSlider *slider = window.gain->Slider();
    window.gain->ShowPosition(0);
    slider->setFocus();
    window.Key(Qt::Key_Up);
    window.Key(Qt::Key_PageUp);
    window.Key(Qt::Key_Home);
    QCOMPARE(slider->value(), 0);
    QCOMPARE(window.Events(), QStringList());
    window.gain->ShowPosition(24);
    window.Key(Qt::Key_Down);
    window.Key(Qt::Key_End);
    QCOMPARE(slider->value(), 24);
    QCOMPARE(window.Events(), QStringList());
}

void LevelPairTest::otherKeysDoNothing()
{
    LevelWindow window;
    LevelSlider *slider = window.gain->Slider();
    slider->setFocus();
    for (const int key : {int(Qt::Key_A), int(Qt::Key_Plus), int(Qt::Key_Minus), int(Qt::Key_Space),
                          int(Qt::Key_Shift), int(Qt::Key_Return)})
        window.Key(key);
    QCOMPARE(slider->value(), 12);
    QVERIFY(window.entries.SendArmed);
    QCOMPARE(window.Events(), QStringList());
}

void LevelPairTest::releaseOfAnyKeySendsWhatWasMoved()
{
    LevelWindow window;
    LevelSlider *slider = window.gain->Slider();
    slider->setFocus();
    window.Press(Qt::Key_Up);
    window.Press(Qt::Key_A);
    window.Release(Qt::Key_A);
    QCOMPARE(window.Events(), QStringList({"Gain=11", "send"}));
    window.Release(Qt::Key_Up);
    QCOMPARE(window.Events(), QStringList());
}

void LevelPairTest::leftAndRightGoToTheNeighbourAndRoundTheEnds()
{
    LevelWindow window;
    window.bass->Slider()->setFocus();
    window.Key(Qt::Key_Right);
    QVERIFY(window.treble->Slider()->hasFocus());
    window.Key(Qt::Key_Right);
    QVERIFY(window.bass->Slider()->hasFocus());
    window.Key(Qt::Key_Left);
    QVERIFY(window.treble->Slider()->hasFocus());

    window.bands[0]->Slider()->setFocus();
    window.Key(Qt::Key_Left);
    QVERIFY(window.bands[2]->Slider()->hasFocus());
    window.Key(Qt::Key_Right);
    QVERIFY(window.bands[0]->Slider()->hasFocus());
    window.Key(Qt::Key_Right);
    QVERIFY(window.bands[1]->Slider()->hasFocus());
    QCOMPARE(window.bands[0]->Position(), 12);
    QCOMPARE(window.Events(), QStringList());
}

void LevelPairTest::keyHeldAcrossAFocusChangeIsSentThere()
{
    LevelWindow window;
    LevelSlider *slider = window.bass->Slider();
    slider->setFocus();
    window.Press(Qt::Key_Up);
    window.Press(Qt::Key_Right);
    QCOMPARE(window.Events(), QStringList({"Bass=9", "send"}));
    QVERIFY(window.entries.SendArmed);
    window.Release(Qt::Key_Right);
    QCOMPARE(window.Events(), QStringList());

    window.gain->Slider()->setFocus();
    window.Press(Qt::Key_Down);
    window.Key(Qt::Key_Tab);
    QVERIFY(window.entries.SendArmed);
    QCOMPARE(window.Events(), QStringList({"Gain=13", "send"}));
}

void LevelPairTest::keyHeldWhileTheSliderIsDisabledIsStored()
{
    LevelWindow window;
    LevelSlider *slider = window.gain->Slider();
    slider->setFocus();
    window.Press(Qt::Key_Down);
    window.tabs->setEnabled(false);
    QVERIFY(window.entries.SendArmed);
    QVERIFY(!window.entries.sliderHeld);
    QCOMPARE(window.Events(), QStringList({"Gain=13", "send"}));
}

void LevelPairTest::keyHeldIsSentBeforeACommandRuns()
{
    LevelWindow window;
    window.gain->Slider()->setFocus();
    window.Press(Qt::Key_Down);
    QVERIFY(window.entries.CommitEntry());
    QCOMPARE(window.Events(), QStringList({"Gain=13", "send"}));
    window.Release(Qt::Key_Down);
    QCOMPARE(window.Events(), QStringList());
}

void LevelPairTest::dragMovesTheFieldAndSendsOnceAtItsEnd()
{
    LevelWindow window;
    LevelSlider *slider = window.gain->Slider();
    window.Take(slider);
    QVERIFY(window.entries.sliderHeld == slider);
    for (int position = 11; position >= 0; --position) {
        window.MoveTo(slider, position);
        QCOMPARE(slider->value(), position);
        QCOMPARE(window.gain->Field()->text(), QString::number((12 - position) / 2.0, 'f', 1));
    }
    QCOMPARE(window.Events(), QStringList());
    window.Drop(slider);
    QCOMPARE(window.Events(), QStringList({"Gain=0", "send"}));
    QVERIFY(!window.entries.sliderHeld);
}

void LevelPairTest::dragThatEndsWhereItBeganSendsNothing()
{
    LevelWindow window;
    LevelSlider *slider = window.gain->Slider();
    window.DragTo(slider, 4);
    window.MoveTo(slider, 12);
    window.Drop(slider);
    QCOMPARE(slider->value(), 12);
    QCOMPARE(window.Events(), QStringList());
}

void LevelPairTest::grooveClickIsOneChange()
{
    LevelWindow window;
    LevelSlider *slider = window.gain->Slider();
    window.ClickAt(slider, 23);
    QCOMPARE(slider->value(), 14);
    QCOMPARE(window.Events(), QStringList({"Gain=14", "send"}));
    QTest::mouseClick(slider, Qt::RightButton, Qt::NoModifier, ThumbOf(slider, 1));
    QCOMPARE(slider->value(), 14);
    QCOMPARE(window.Events(), QStringList());
}

void LevelPairTest::dragThatLosesItsReleaseIsTakenOnce()
{
    LevelWindow window;
    LevelSlider *slider = window.gain->Slider();
    window.DragTo(slider, 6);
    window.tabs->setEnabled(false);
    QCOMPARE(window.Events(), QStringList({"Gain=6", "send"}));
    window.tabs->setEnabled(true);
    window.MoveTo(slider, 2);
    QTest::mouseRelease(slider, Qt::LeftButton, Qt::NoModifier, ThumbOf(slider, 2));
    QCOMPARE(slider->value(), 6);
    QCOMPARE(window.Events(), QStringList());
}

void LevelPairTest::wheelNeedsTheFocusAndIsOneChange()
{
    LevelWindow window;
    LevelSlider *slider = window.gain->Slider();
    window.first->setFocus();
    QVERIFY(!window.Wheel(slider, 120));
    QCOMPARE(slider->value(), 12);
    slider->setFocus();
    QVERIFY(window.Wheel(slider, 120));
    QCOMPARE(slider->value(), 11);
    QCOMPARE(window.Events(), QStringList({"Gain=11", "send"}));
    QVERIFY(window.Wheel(slider, -60));
    QCOMPARE(window.Events(), QStringList());
    QVERIFY(window.Wheel(slider, -180));
    QCOMPARE(slider->value(), 13);
    QCOMPARE(window.Events(), QStringList({"Gain=13", "send"}));
}

void LevelPairTest::valueSetByCodeFromOutsideIsAChange()
{
    LevelWindow window;
    window.bands[1]->Slider()->setValue(20);
    QCOMPARE(window.bands[1]->Field()->text(), "-4.0");
    QCOMPARE(window.Events(), QStringList({"Band=20", "send"}));
    window.bands[1]->Slider()->setValue(20);
    QCOMPARE(window.Events(), QStringList());
}

void LevelPairTest::shownPositionIsQuiet()
{
    LevelWindow window;
    window.gain->ShowPosition(200);
    QCOMPARE(window.gain->Position(), 24);
    QCOMPARE(window.gain->Field()->text(), "-6.0");
    window.gain->ShowPosition(-1);
    QCOMPARE(window.gain->Position(), 0);
    QCOMPARE(window.Events(), QStringList());
}

void LevelPairTest::fieldBeingTypedInIsNotRewritten()
{
    LevelWindow window;
    window.TypeOnly(window.gain->Field(), "2.");
    window.gain->ShowPosition(0);
    QCOMPARE(window.gain->Field()->text(), "2.");
    window.Key(Qt::Key_Return);
    QCOMPARE(window.gain->Field()->text(), "2.0");
    QCOMPARE(window.Events(), QStringList({"Gain=8", "send"}));
    window.gain->ShowPosition(0);
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
    window.gain->ShowPosition(24);
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
