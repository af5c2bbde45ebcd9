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

const QString SixError = "Range Check Error: Error, Please enter a number between -6 and 6!";
const QString TenError = "Range Check Error: Error, Please enter a number between -10 and 10!";

/// A window with bass and treble (neighbours), a lone gain pair, three bands, a button, a list and tabs. What
/// the pairs store and send is written down in order.
class Window : public QWidget {
  public:
    Window()
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

    EntryWindow entries;
    QPushButton *first;
    QComboBox *list;
    QTabWidget *tabs;
    LevelPair *bass, *treble, *gain;
    std::array<LevelPair *, 3> bands{};
    QStringList events;

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

void Type(LevelPair *pair, const QString &text)
{
    pair->Field()->setFocus();
    pair->Field()->selectAll();
    QTest::keyClicks(pair->Field(), text);
}

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
    Window window;
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
    Window window;
    Type(window.bass, "3");
    QCOMPARE(window.Events(), QStringList());
    QTest::keyClick(window.bass->Field(), Qt::Key_Enter);
    QCOMPARE(window.bass->Position(), 7);
    QCOMPARE(window.bass->Field()->text(), "3");
    QCOMPARE(window.Events(), QStringList({"Bass=7", "send"}));
    QVERIFY(window.bass->Field()->hasFocus());

    Type(window.bass, "3");
    QTest::keyClick(window.bass->Field(), Qt::Key_Return);
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
    Window window;
    Type(window.gain, typed);
    QTest::keyClick(window.gain->Field(), Qt::Key_Return);
    QCOMPARE(window.gain->Position(), position);
    QCOMPARE(window.gain->Field()->text(), shown);
    QCOMPARE(window.Events(), QStringList({QString("Gain=%1").arg(position), "send"}));
}

void LevelPairTest::escapeGivesBackTheValueOfTheSlider()
{
    Window window;
    window.bass->ShowPosition(4);
    Type(window.bass, "9");
    QTest::keyClick(window.bass->Field(), Qt::Key_Escape);
    QCOMPARE(window.bass->Field()->text(), "6");
    QVERIFY(window.bass->Field()->hasFocus());
    QCOMPARE(window.Events(), QStringList());
}

void LevelPairTest::unreadableTextGivesBackTheValueOfTheSlider()
{
    BoxAnswers boxes;
    Window window;
    window.gain->ShowPosition(3);
    for (const char *text : {"abc", "--3", "3dB", "-"}) {
        Type(window.gain, text);
        QTest::keyClick(window.gain->Field(), Qt::Key_Return);
        QCOMPARE(window.gain->Field()->text(), "4.5");
    }
    QCOMPARE(window.Events(), QStringList());
    QCOMPARE(boxes.Seen(), QStringList());
}

void LevelPairTest::badValueIsToldOnceAndStaysSelectedInTheField()
{
    BoxAnswers boxes;
    Window window;
    Type(window.bass, "11");
    QTest::keyClick(window.bass->Field(), Qt::Key_Return);
    QCOMPARE(boxes.Seen(), QStringList(TenError));
    QCOMPARE(boxes.LastIcon(), QMessageBox::Warning);
    QCOMPARE(window.bass->Field()->text(), "11");
    QCOMPARE(window.bass->Field()->selectedText(), "11");
    QTRY_VERIFY(window.bass->Field()->hasFocus());
    QCOMPARE(window.bass->Position(), 10);
    QCOMPARE(window.Events(), QStringList());

    QTest::keyClicks(window.bass->Field(), "3");
    QTest::keyClick(window.bass->Field(), Qt::Key_Return);
    QCOMPARE(window.bass->Field()->text(), "3");
    QCOMPARE(boxes.Seen(), QStringList());
}

void LevelPairTest::leavingTheFieldByTabTakesTheValue()
{
    Window window;
    Type(window.bass, "3");
    QTest::keyClick(window.bass->Field(), Qt::Key_Tab);
    QVERIFY(!window.bass->Field()->hasFocus());
    QCOMPARE(window.bass->Position(), 7);
    QCOMPARE(window.Events(), QStringList({"Bass=7", "send"}));
}

void LevelPairTest::leavingAnUntouchedFieldTakesNothing()
{
    Window window;
    window.bass->Field()->setFocus();
    window.first->setFocus();
    QCOMPARE(window.Events(), QStringList());
}

void LevelPairTest::anotherWindowDoesNotTakeTheText()
{
    Window window;
    Type(window.bass, "11");
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
    BoxAnswers boxes;
    Window window;
    Type(window.gain, "6.1");
    QTest::mouseClick(window.first, Qt::LeftButton);
    QCOMPARE(boxes.Seen(), QStringList(SixError));
    QCOMPARE(window.Events(), QStringList());
    QTRY_VERIFY(window.gain->Field()->hasFocus());
    QCOMPARE(window.gain->Field()->selectedText(), "6.1");
    QVERIFY(!window.first->isDown());

    LevelSlider *treble = window.treble->Slider();
    QTest::mouseClick(treble, Qt::LeftButton, Qt::NoModifier, ThumbOf(treble, 20));
    QCOMPARE(boxes.Seen(), QStringList(SixError));
    QCOMPARE(treble->value(), 10);
    QCOMPARE(window.Events(), QStringList());
}

void LevelPairTest::badValueKeepsAListClosedAndATabWhereItIs()
{
    BoxAnswers boxes;
    Window window;
    Type(window.gain, "9");
    QTest::mouseClick(window.list, Qt::LeftButton);
    QCOMPARE(boxes.Seen(), QStringList(SixError));
    QVERIFY(!QApplication::activePopupWidget());

    const QPoint other = window.tabs->tabBar()->tabRect(1).center();
    QTest::mouseClick(window.tabs->tabBar(), Qt::LeftButton, Qt::NoModifier, other);
    QCOMPARE(boxes.Seen(), QStringList(SixError));
    QCOMPARE(window.tabs->currentIndex(), 0);

    QVERIFY(QTest::qWaitForWindowActive(&window));
    QTest::keyClick(&window, Qt::Key_O, Qt::AltModifier);
    QCOMPARE(boxes.Seen(), QStringList(SixError));
    QCOMPARE(window.tabs->currentIndex(), 0);

    QTest::keyClick(window.gain->Field(), Qt::Key_Tab, Qt::ControlModifier);
    QVERIFY(QTest::qWaitForWindowActive(&window));
    QCOMPARE(boxes.Seen(), QStringList(SixError));
    QCOMPARE(window.tabs->currentIndex(), 0);
    QTRY_VERIFY(window.gain->Field()->hasFocus());
    QCOMPARE(window.Events(), QStringList());
}

void LevelPairTest::afterABadValueTheNextClickWorksAgain()
{
    BoxAnswers boxes;
    Window window;
    Type(window.gain, "7");
    QTest::mouseClick(window.first, Qt::LeftButton);
    QCOMPARE(boxes.Seen(), QStringList(SixError));
    QTest::keyClick(window.gain->Field(), Qt::Key_Escape);
    QTest::mouseClick(window.first, Qt::LeftButton);
    QCOMPARE(window.Events(), QStringList("click"));
    QTRY_VERIFY(window.first->hasFocus());
}

void LevelPairTest::goodValueLetsTheClickThrough()
{
    Window window;
    Type(window.gain, "1");
    const QPoint other = window.tabs->tabBar()->tabRect(1).center();
    QTest::mouseClick(window.first, Qt::LeftButton);
    QCOMPARE(window.Events(), QStringList({"Gain=10", "send", "click"}));
    Type(window.gain, "2");
    QTest::mouseClick(window.tabs->tabBar(), Qt::LeftButton, Qt::NoModifier, other);
    QCOMPARE(window.Events(), QStringList({"Gain=8", "send"}));
    QCOMPARE(window.tabs->currentIndex(), 1);
}

void LevelPairTest::fieldThatWasDisabledTakesAGoodValueAndDropsABadOne()
{
    BoxAnswers boxes;
    Window window;
    Type(window.gain, "1");
    window.tabs->setEnabled(false);
    QCOMPARE(window.Events(), QStringList({"Gain=10", "send"}));
    window.tabs->setEnabled(true);
    Type(window.gain, "7");
    window.tabs->setEnabled(false);
    QCOMPARE(window.gain->Field()->text(), "1.0");
    QCOMPARE(window.Events(), QStringList());
    QCOMPARE(boxes.Seen(), QStringList());
}

void LevelPairTest::enterInADialogIsNotItsDefaultButton()
{
    QDialog dialog;
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
    Type(&pair, "1");
    QTest::keyClick(pair.Field(), Qt::Key_Return);
    QTest::keyClick(pair.Field(), Qt::Key_Enter);
    QTest::keyClick(pair.Field(), Qt::Key_Escape);
    QCOMPARE(events, QStringList("9"));
    QVERIFY(dialog.isVisible());
}

void LevelPairTest::valueEqualToThePositionAtFocusIsStoredButNotSent()
{
    Window window;
    window.bass->Slider()->setFocus();
    QCOMPARE(window.entries.FocusPosition, 10);
    Tap(window.bass->Slider(), Qt::Key_Up);
    QCOMPARE(window.Events(), QStringList({"Bass=9", "send"}));
    Type(window.bass, "0");
    QTest::keyClick(window.bass->Field(), Qt::Key_Return);
    QCOMPARE(window.bass->Position(), 10);
    QCOMPARE(window.Events(), QStringList("Bass=10"));
}

void LevelPairTest::firstChangeOfTheWindowAlwaysCounts()
{
    Window window;
    QCOMPARE(window.entries.FocusPosition, 255);
    window.gain->Slider()->setValue(0);
    QCOMPARE(window.Events(), QStringList({"Gain=0", "send"}));
}

void LevelPairTest::focusPositionIsOneForAllSlidersOfTheWindow()
{
    Window window;
    window.gain->ShowPosition(3);
    window.gain->Slider()->setFocus();
    QCOMPARE(window.entries.FocusPosition, 3);
    Type(window.bass, "7");
    QTest::keyClick(window.bass->Field(), Qt::Key_Return);
    QCOMPARE(window.Events(), QStringList("Bass=3"));
}

void LevelPairTest::focusPositionIsNotTakenWhenABoxCloses()
{
    Window window;
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
    Window window;
    LevelSlider *slider = window.gain->Slider();
    slider->setFocus();
    Press(slider, key, modifiers);
    QCOMPARE(slider->value(), position);
    QCOMPARE(window.gain->Field()->text(), QString::number((12 - position) / 2.0, 'f', 1));
    QCOMPARE(window.Events(), QStringList());
    QVERIFY(!window.entries.SendArmed);
    Release(slider, key, modifiers);
    QVERIFY(window.entries.SendArmed);
    QCOMPARE(window.Events(), QStringList({QString("Gain=%1").arg(position), "send"}));
}

void LevelPairTest::heldKeyStepsAndSendsOnceOnTheRealRelease()
{
    Window window;
    LevelSlider *slider = window.bass->Slider();
    slider->setFocus();
    Press(slider, Qt::Key_Up);
    for (int i = 0; i < 3; ++i)
        Repeat(slider, Qt::Key_Up);
    QCOMPARE(slider->value(), 6);
    QCOMPARE(window.bass->Field()->text(), "4");
    QCOMPARE(window.Events(), QStringList());
    QVERIFY(window.entries.sliderHeld == slider);
    Release(slider, Qt::Key_Up);
    QCOMPARE(window.Events(), QStringList({"Bass=6", "send"}));
    QVERIFY(!window.entries.sliderHeld);
}

void LevelPairTest::keysStopAtBothEnds()
{
    Window window;
    LevelSlider *slider = window.gain->Slider();
    window.gain->ShowPosition(0);
    slider->setFocus();
    Tap(slider, Qt::Key_Up);
    Tap(slider, Qt::Key_PageUp);
    Tap(slider, Qt::Key_Home);
    QCOMPARE(slider->value(), 0);
    QCOMPARE(window.Events(), QStringList());
    window.gain->ShowPosition(24);
    Tap(slider, Qt::Key_Down);
    Tap(slider, Qt::Key_End);
    QCOMPARE(slider->value(), 24);
    QCOMPARE(window.Events(), QStringList());
}

void LevelPairTest::otherKeysDoNothing()
{
    Window window;
    LevelSlider *slider = window.gain->Slider();
    slider->setFocus();
    for (const int key : {int(Qt::Key_A), int(Qt::Key_Plus), int(Qt::Key_Minus), int(Qt::Key_Space),
                          int(Qt::Key_Shift), int(Qt::Key_Return)})
        Tap(slider, key);
    QCOMPARE(slider->value(), 12);
    QVERIFY(window.entries.SendArmed);
    QCOMPARE(window.Events(), QStringList());
}

void LevelPairTest::releaseOfAnyKeySendsWhatWasMoved()
{
    Window window;
    LevelSlider *slider = window.gain->Slider();
    slider->setFocus();
    Press(slider, Qt::Key_Up);
    Press(slider, Qt::Key_A);
    Release(slider, Qt::Key_A);
    QCOMPARE(window.Events(), QStringList({"Gain=11", "send"}));
    Release(slider, Qt::Key_Up);
    QCOMPARE(window.Events(), QStringList());
}

void LevelPairTest::leftAndRightGoToTheNeighbourAndRoundTheEnds()
{
    Window window;
    window.bass->Slider()->setFocus();
    Tap(window.bass->Slider(), Qt::Key_Right);
    QVERIFY(window.treble->Slider()->hasFocus());
    Tap(window.treble->Slider(), Qt::Key_Right);
    QVERIFY(window.bass->Slider()->hasFocus());
    Tap(window.bass->Slider(), Qt::Key_Left);
    QVERIFY(window.treble->Slider()->hasFocus());

    window.bands[0]->Slider()->setFocus();
    Tap(window.bands[0]->Slider(), Qt::Key_Left);
    QVERIFY(window.bands[2]->Slider()->hasFocus());
    Tap(window.bands[2]->Slider(), Qt::Key_Right);
    QVERIFY(window.bands[0]->Slider()->hasFocus());
    Tap(window.bands[0]->Slider(), Qt::Key_Right);
    QVERIFY(window.bands[1]->Slider()->hasFocus());
    QCOMPARE(window.bands[0]->Position(), 12);
    QCOMPARE(window.Events(), QStringList());
}

void LevelPairTest::keyHeldAcrossAFocusChangeIsSentThere()
{
    Window window;
    LevelSlider *slider = window.bass->Slider();
    slider->setFocus();
    Press(slider, Qt::Key_Up);
    Press(slider, Qt::Key_Right);
    QCOMPARE(window.Events(), QStringList({"Bass=9", "send"}));
    QVERIFY(window.entries.SendArmed);
    Release(window.treble->Slider(), Qt::Key_Right);
    QCOMPARE(window.Events(), QStringList());

    window.gain->Slider()->setFocus();
    Press(window.gain->Slider(), Qt::Key_Down);
    QTest::keyClick(window.gain->Slider(), Qt::Key_Tab);
    QVERIFY(window.entries.SendArmed);
    QCOMPARE(window.Events(), QStringList({"Gain=13", "send"}));
}

void LevelPairTest::keyHeldWhileTheSliderIsDisabledIsStored()
{
    Window window;
    LevelSlider *slider = window.gain->Slider();
    slider->setFocus();
    Press(slider, Qt::Key_Down);
    window.tabs->setEnabled(false);
    QVERIFY(window.entries.SendArmed);
    QVERIFY(!window.entries.sliderHeld);
    QCOMPARE(window.Events(), QStringList({"Gain=13", "send"}));
}

void LevelPairTest::keyHeldIsSentBeforeACommandRuns()
{
    Window window;
    window.gain->Slider()->setFocus();
    Press(window.gain->Slider(), Qt::Key_Down);
    QVERIFY(window.entries.CommitEntry());
    QCOMPARE(window.Events(), QStringList({"Gain=13", "send"}));
    Release(window.gain->Slider(), Qt::Key_Down);
    QCOMPARE(window.Events(), QStringList());
}

void LevelPairTest::dragMovesTheFieldAndSendsOnceAtItsEnd()
{
    Window window;
    LevelSlider *slider = window.gain->Slider();
    QTest::mousePress(slider, Qt::LeftButton, Qt::NoModifier, ThumbOf(slider, 12));
    QVERIFY(window.entries.sliderHeld == slider);
    for (int position = 11; position >= 0; --position) {
        QTest::mouseMove(slider, ThumbOf(slider, position));
        QCOMPARE(slider->value(), position);
        QCOMPARE(window.gain->Field()->text(), QString::number((12 - position) / 2.0, 'f', 1));
    }
    QCOMPARE(window.Events(), QStringList());
    QTest::mouseRelease(slider, Qt::LeftButton, Qt::NoModifier, ThumbOf(slider, 0));
    QCOMPARE(window.Events(), QStringList({"Gain=0", "send"}));
    QVERIFY(!window.entries.sliderHeld);
}

void LevelPairTest::dragThatEndsWhereItBeganSendsNothing()
{
    Window window;
    LevelSlider *slider = window.gain->Slider();
    QTest::mousePress(slider, Qt::LeftButton, Qt::NoModifier, ThumbOf(slider, 12));
    QTest::mouseMove(slider, ThumbOf(slider, 4));
    QTest::mouseMove(slider, ThumbOf(slider, 12));
    QTest::mouseRelease(slider, Qt::LeftButton, Qt::NoModifier, ThumbOf(slider, 12));
    QCOMPARE(slider->value(), 12);
    QCOMPARE(window.Events(), QStringList());
}

void LevelPairTest::grooveClickIsOneChange()
{
    Window window;
    LevelSlider *slider = window.gain->Slider();
    QTest::mouseClick(slider, Qt::LeftButton, Qt::NoModifier, ThumbOf(slider, 23));
    QCOMPARE(slider->value(), 14);
    QCOMPARE(window.Events(), QStringList({"Gain=14", "send"}));
    QTest::mouseClick(slider, Qt::RightButton, Qt::NoModifier, ThumbOf(slider, 1));
    QCOMPARE(slider->value(), 14);
    QCOMPARE(window.Events(), QStringList());
}

void LevelPairTest::dragThatLosesItsReleaseIsTakenOnce()
{
    Window window;
    LevelSlider *slider = window.gain->Slider();
    QTest::mousePress(slider, Qt::LeftButton, Qt::NoModifier, ThumbOf(slider, 12));
    QTest::mouseMove(slider, ThumbOf(slider, 6));
    window.tabs->setEnabled(false);
    QCOMPARE(window.Events(), QStringList({"Gain=6", "send"}));
    window.tabs->setEnabled(true);
    QTest::mouseMove(slider, ThumbOf(slider, 2));
    QTest::mouseRelease(slider, Qt::LeftButton, Qt::NoModifier, ThumbOf(slider, 2));
    QCOMPARE(slider->value(), 6);
    QCOMPARE(window.Events(), QStringList());
}

void LevelPairTest::wheelNeedsTheFocusAndIsOneChange()
{
    Window window;
    LevelSlider *slider = window.gain->Slider();
    window.first->setFocus();
    QVERIFY(!Wheel(slider, 120));
    QCOMPARE(slider->value(), 12);
    slider->setFocus();
    QVERIFY(Wheel(slider, 120));
    QCOMPARE(slider->value(), 11);
    QCOMPARE(window.Events(), QStringList({"Gain=11", "send"}));
    QVERIFY(Wheel(slider, -60));
    QCOMPARE(window.Events(), QStringList());
    QVERIFY(Wheel(slider, -180));
    QCOMPARE(slider->value(), 13);
    QCOMPARE(window.Events(), QStringList({"Gain=13", "send"}));
}

void LevelPairTest::valueSetByCodeFromOutsideIsAChange()
{
    Window window;
    window.bands[1]->Slider()->setValue(20);
    QCOMPARE(window.bands[1]->Field()->text(), "-4.0");
    QCOMPARE(window.Events(), QStringList({"Band=20", "send"}));
    window.bands[1]->Slider()->setValue(20);
    QCOMPARE(window.Events(), QStringList());
}

void LevelPairTest::shownPositionIsQuiet()
{
    Window window;
    window.gain->ShowPosition(200);
    QCOMPARE(window.gain->Position(), 24);
    QCOMPARE(window.gain->Field()->text(), "-6.0");
    window.gain->ShowPosition(-1);
    QCOMPARE(window.gain->Position(), 0);
    QCOMPARE(window.Events(), QStringList());
}

void LevelPairTest::fieldBeingTypedInIsNotRewritten()
{
    Window window;
    Type(window.gain, "2.");
    window.gain->ShowPosition(0);
    QCOMPARE(window.gain->Field()->text(), "2.");
    QTest::keyClick(window.gain->Field(), Qt::Key_Return);
    QCOMPARE(window.gain->Field()->text(), "2.0");
    QCOMPARE(window.Events(), QStringList({"Gain=8", "send"}));
    window.gain->ShowPosition(0);
    QCOMPARE(window.gain->Field()->text(), "6.0");
}

void LevelPairTest::fieldsOfOneRuleShareOneWidth()
{
    Window window;
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
    BoxAnswers boxes;
    Window window;
    for (const QString &text : {QString(10000, '9'), QString("1e3"), QString("1e999999999")}) {
        window.gain->Field()->setFocus();
        window.gain->Field()->setText(text);
        QTest::keyClick(window.gain->Field(), Qt::Key_Return);
        QCOMPARE(boxes.Seen(), QStringList(SixError));
    }
    for (const QString &text :
         {QString(10000, 'x'), QString(QChar(1)), QString("3\u2028"), QString(40000, '-')}) {
        window.gain->Field()->setText(text);
        QTest::keyClick(window.gain->Field(), Qt::Key_Return);
        QCOMPARE(window.gain->Field()->text(), "0.0");
    }
    QCOMPARE(boxes.Seen(), QStringList());
    QCOMPARE(window.Events(), QStringList());
}

void LevelPairTest::textIsNotDroppedIntoAField()
{
    Window window;
    QMimeData text;
    text.setText("3");
    QDragEnterEvent dragged({5, 5}, Qt::CopyAction, &text, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(window.gain->Field(), &dragged);
    QVERIFY(!dragged.isAccepted());
}

QTEST_MAIN(LevelPairTest)
#include "levelpair_test.moc"
