#include "support/ui/levelwindow.h"

using namespace kelvo;

class LevelSliderTest : public QObject {
    Q_OBJECT

  private slots:
    void position0IsDrawnAtTheTop();
    void firstChangeOfTheWindowAlwaysCounts();
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
};

void LevelSliderTest::position0IsDrawnAtTheTop()
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

void LevelSliderTest::firstChangeOfTheWindowAlwaysCounts()
{
    LevelWindow window;
    QCOMPARE(window.entries.FocusPosition, 255);
    window.gain->Slider()->setValue(0);
    QCOMPARE(window.Events(), QStringList({"gain=0", "send"}));
}

void LevelSliderTest::focusPositionIsNotTakenWhenABoxCloses()
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

void LevelSliderTest::oneKeyPressIsOneStep_data()
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

void LevelSliderTest::oneKeyPressIsOneStep()
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
    QCOMPARE(window.Events(), QStringList({QString("gain=%1").arg(position), "send"}));
}

void LevelSliderTest::heldKeyStepsAndSendsOnceOnTheRealRelease()
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
    QCOMPARE(window.Events(), QStringList({"bass=6", "send"}));
    QVERIFY(!window.entries.sliderHeld);
}

void LevelSliderTest::keysStopAtBothEnds()
{
    LevelWindow window;
    LevelSlider *slider = window.gain->Slider();
    window.ShowGain(0);
    slider->setFocus();
    window.Key(Qt::Key_Up);
    window.Key(Qt::Key_PageUp);
    window.Key(Qt::Key_Home);
    QCOMPARE(slider->value(), 0);
    QCOMPARE(window.Events(), QStringList());
    window.ShowGain(24);
    window.Key(Qt::Key_Down);
    window.Key(Qt::Key_End);
    QCOMPARE(slider->value(), 24);
    QCOMPARE(window.Events(), QStringList());
}

void LevelSliderTest::otherKeysDoNothing()
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

void LevelSliderTest::releaseOfAnyKeySendsWhatWasMoved()
{
    LevelWindow window;
    LevelSlider *slider = window.gain->Slider();
    slider->setFocus();
    window.Press(Qt::Key_Up);
    window.Press(Qt::Key_A);
    window.Release(Qt::Key_A);
    QCOMPARE(window.Events(), QStringList({"gain=11", "send"}));
    window.Release(Qt::Key_Up);
    QCOMPARE(window.Events(), QStringList());
}

void LevelSliderTest::leftAndRightGoToTheNeighbourAndRoundTheEnds()
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
    QCOMPARE(window.bands[0]->Slider()->value(), 12);
    QCOMPARE(window.Events(), QStringList());
}

void LevelSliderTest::keyHeldAcrossAFocusChangeIsSentThere()
{
    LevelWindow window;
    LevelSlider *slider = window.bass->Slider();
    slider->setFocus();
    window.Press(Qt::Key_Up);
    window.Press(Qt::Key_Right);
    QCOMPARE(window.Events(), QStringList({"bass=9", "send"}));
    QVERIFY(window.entries.SendArmed);
    window.Release(Qt::Key_Right);
    QCOMPARE(window.Events(), QStringList());

    window.gain->Slider()->setFocus();
    window.Press(Qt::Key_Down);
    window.Key(Qt::Key_Tab);
    QVERIFY(window.entries.SendArmed);
    QCOMPARE(window.Events(), QStringList({"gain=13", "send"}));
}

void LevelSliderTest::keyHeldWhileTheSliderIsDisabledIsStored()
{
    LevelWindow window;
    LevelSlider *slider = window.gain->Slider();
    slider->setFocus();
    window.Press(Qt::Key_Down);
    window.tabs->setEnabled(false);
    QVERIFY(window.entries.SendArmed);
    QVERIFY(!window.entries.sliderHeld);
    QCOMPARE(window.Events(), QStringList({"gain=13", "send"}));
}

void LevelSliderTest::keyHeldIsSentBeforeACommandRuns()
{
    LevelWindow window;
    window.gain->Slider()->setFocus();
    window.Press(Qt::Key_Down);
    QVERIFY(window.entries.CommitEntry());
    QCOMPARE(window.Events(), QStringList({"gain=13", "send"}));
    window.Release(Qt::Key_Down);
    QCOMPARE(window.Events(), QStringList());
}

void LevelSliderTest::dragMovesTheFieldAndSendsOnceAtItsEnd()
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
    QCOMPARE(window.Events(), QStringList({"gain=0", "send"}));
    QVERIFY(!window.entries.sliderHeld);
}

void LevelSliderTest::dragThatEndsWhereItBeganSendsNothing()
{
    LevelWindow window;
    LevelSlider *slider = window.gain->Slider();
    window.DragTo(slider, 4);
    window.MoveTo(slider, 12);
    window.Drop(slider);
    QCOMPARE(slider->value(), 12);
    QCOMPARE(window.Events(), QStringList());
}

void LevelSliderTest::grooveClickIsOneChange()
{
    LevelWindow window;
    LevelSlider *slider = window.gain->Slider();
    window.ClickAt(slider, 23);
    QCOMPARE(slider->value(), 14);
    QCOMPARE(window.Events(), QStringList({"gain=14", "send"}));
    QTest::mouseClick(slider, Qt::RightButton, Qt::NoModifier, ThumbOf(slider, 1));
    QCOMPARE(slider->value(), 14);
    QCOMPARE(window.Events(), QStringList());
}

void LevelSliderTest::dragThatLosesItsReleaseIsTakenOnce()
{
    LevelWindow window;
    LevelSlider *slider = window.gain->Slider();
    window.DragTo(slider, 6);
    window.tabs->setEnabled(false);
    QCOMPARE(window.Events(), QStringList({"gain=6", "send"}));
    window.tabs->setEnabled(true);
    window.MoveTo(slider, 2);
    QTest::mouseRelease(slider, Qt::LeftButton, Qt::NoModifier, ThumbOf(slider, 2));
    QCOMPARE(slider->value(), 6);
    QCOMPARE(window.Events(), QStringList());
}

void LevelSliderTest::wheelNeedsTheFocusAndIsOneChange()
{
    LevelWindow window;
    LevelSlider *slider = window.gain->Slider();
    window.first->setFocus();
    QVERIFY(!window.Wheel(slider, 120));
    QCOMPARE(slider->value(), 12);
    slider->setFocus();
    QVERIFY(window.Wheel(slider, 120));
    QCOMPARE(slider->value(), 11);
    QCOMPARE(window.Events(), QStringList({"gain=11", "send"}));
    QVERIFY(window.Wheel(slider, -60));
    QCOMPARE(window.Events(), QStringList());
    QVERIFY(window.Wheel(slider, -180));
    QCOMPARE(slider->value(), 13);
    QCOMPARE(window.Events(), QStringList({"gain=13", "send"}));
}

void LevelSliderTest::valueSetByCodeFromOutsideIsAChange()
{
    LevelWindow window;
    window.bands[1]->Slider()->setValue(20);
    QCOMPARE(window.bands[1]->Field()->text(), "-4.0");
    QCOMPARE(window.Events(), QStringList({"band=20", "send"}));
    window.bands[1]->Slider()->setValue(20);
    QCOMPARE(window.Events(), QStringList());
}

void LevelSliderTest::shownPositionIsQuiet()
{
    LevelWindow window;
    window.ShowGain(200);
    QCOMPARE(window.gain->Slider()->value(), 24);
    QCOMPARE(window.gain->Field()->text(), "-6.0");
    QCOMPARE(window.Events(), QStringList());
}

QTEST_MAIN(LevelSliderTest)
#include "levelslider_test.moc"
