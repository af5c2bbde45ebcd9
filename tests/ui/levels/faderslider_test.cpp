#include "support/ui/faderconsole.h"

#include <QLabel>

using namespace kelvo;

class FaderSliderTest : public QObject {
    Q_OBJECT

  private slots:
    void mainSliderIsTheOneFoundInTheMainWindow();
    void eachKeyIsOneTenthAndSentOnItsRelease_data();
    void eachKeyIsOneTenthAndSentOnItsRelease();
    void heldKeyPausesThePollAndSendsOnce();
    void keysStopAtBothEndsAndSendNothingThere();
    void dragFollowsEverywherePausesThePollAndSendsOnce();
    void anyMouseButtonPausesThePoll();
    void grooveAndWheelAreOneChangeEach();
    void homeAndEndAreNobodysInTheDialogEither();
    void aButtonHeldInTheGrooveStepsOnce();
    void sliderSetByCodeCountsForTheActiveOneAlone();
    void keyOnALevelBeyondTheScaleComesBackIntoIt();
    void pollingThatAStreamStoppedStaysStopped();
    void releaseThatLandsElsewhereResumesThePoll();
    void cableLostDuringADragIsOneMessageAndTheLevelIsKept();
};

void FaderSliderTest::mainSliderIsTheOneFoundInTheMainWindow()
{
    FaderConsole console;
    QVERIFY(console.Main()->window() == console.window.get());
    QVERIFY(console.OfDialog()->window() == console.Dialog());
    QVERIFY(!console.Dialog()->isVisible());
    QCOMPARE(console.Wrong("7.0", 29), QString());
}

void FaderSliderTest::eachKeyIsOneTenthAndSentOnItsRelease_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<bool>("keypad");
    QTest::addColumn<int>("level");
    QTest::newRow("Up") << int(Qt::Key_Up) << false << 71;
    QTest::newRow("Right") << int(Qt::Key_Right) << false << 71;
    QTest::newRow("numeric-pad plus") << int(Qt::Key_Plus) << true << 71;
    QTest::newRow("Down") << int(Qt::Key_Down) << false << 69;
    QTest::newRow("Left") << int(Qt::Key_Left) << false << 69;
    QTest::newRow("numeric-pad minus") << int(Qt::Key_Minus) << true << 69;
    QTest::newRow("Page Up") << int(Qt::Key_PageUp) << false << 80;
    QTest::newRow("Home") << int(Qt::Key_Home) << false << 70;
    QTest::newRow("End") << int(Qt::Key_End) << false << 70;
    QTest::newRow("plus of the main keys") << int(Qt::Key_Plus) << false << 70;
}

void FaderSliderTest::eachKeyIsOneTenthAndSentOnItsRelease()
{
    QFETCH(int, key);
    QFETCH(bool, keypad);
    QFETCH(int, level);
    const auto modifiers = keypad ? Qt::KeypadModifier : Qt::NoModifier;
    FaderConsole console;
    console.Main()->setFocus();
    console.Press(key, modifiers);
    QCOMPARE(int(console.room.FaderLevel), level);
    QCOMPARE(console.Calls(), Calls{});
    console.Release(key, modifiers);
    QCOMPARE(console.Wrong(QString::number(level / 10.0, 'f', 1), 99 - level), QString());
    QCOMPARE(console.Calls(), level == 70 ? Calls{} : Calls{"SetVol " + std::to_string(level)});
}

void FaderSliderTest::heldKeyPausesThePollAndSendsOnce()
{
    FaderConsole console;
    auto *tmrPoll = console.Find<QTimer>("tmrPoll");
    QVERIFY(tmrPoll->isActive());
    console.Main()->setFocus();
    console.Press(Qt::Key_Down);
    for (int i = 0; i < 4; ++i)
        console.Repeat(Qt::Key_Down);
    QVERIFY(!tmrPoll->isActive());
    QCOMPARE(console.Wrong("6.5", 34), QString());
    QCOMPARE(console.Calls(), Calls{});
    console.Release(Qt::Key_Down);
    QVERIFY(tmrPoll->isActive());
    QCOMPARE(tmrPoll->interval(), 2000);
    QCOMPARE(console.Calls(), Calls{"SetVol 65"});
}

void FaderSliderTest::keysStopAtBothEndsAndSendNothingThere()
{
    FaderConsole console;
    console.Type("lblVol(3)", "9.9");
    console.Forget();
    console.Main()->setFocus();
    for (const int key : {Qt::Key_Up, Qt::Key_PageUp, Qt::Key_Home})
        console.Key(key);
    QCOMPARE(console.Wrong("9.9", 0), QString());
    QCOMPARE(console.Calls(), Calls{});
    console.Type("lblVol(3)", "0");
    console.Forget();
    console.Main()->setFocus();
    for (const int key : {Qt::Key_Down, Qt::Key_PageDown, Qt::Key_End})
        console.Key(key);
    QCOMPARE(console.Wrong("0.0", 99), QString());
    QCOMPARE(console.Calls(), Calls{});
}

void FaderSliderTest::dragFollowsEverywherePausesThePollAndSendsOnce()
{
    FaderConsole console;
    console.DragTo(console.Main(), 20);
    QCOMPARE(console.Wrong("7.9", 20), QString());
    QVERIFY(!console.Find<QTimer>("tmrPoll")->isActive());
    QCOMPARE(console.Calls(), Calls{});
    // A hold is one change: what the unit lacks is told at its end.
    QCOMPARE(console.Find<QLabel>("lblSent")->text(), "All sent");
    console.Drop(console.Main());
    QCOMPARE(console.Find<QLabel>("lblSent")->text(), "All sent");
    QVERIFY(console.Find<QTimer>("tmrPoll")->isActive());
    QCOMPARE(console.Calls(), Calls{"SetVol 79"});

    console.ClickAt(console.Main(), 20);
    QCOMPARE(console.Calls(), Calls{"SetVol 79"});
}

void FaderSliderTest::anyMouseButtonPausesThePoll()
{
    FaderConsole console;
    auto *tmrPoll = console.Find<QTimer>("tmrPoll");
    for (const auto button : {Qt::LeftButton, Qt::MiddleButton, Qt::RightButton}) {
        QTest::mousePress(console.Main(), button, {}, ThumbOf(console.Main(), 29));
        QVERIFY(!tmrPoll->isActive());
        QTest::mouseRelease(console.Main(), button, {}, ThumbOf(console.Main(), 29));
        QVERIFY(tmrPoll->isActive());
    }
    QCOMPARE(console.Wrong("7.0", 29), QString());
    QCOMPARE(console.Calls(), Calls{});
}

void FaderSliderTest::grooveAndWheelAreOneChangeEach()
{
    FaderConsole console;
    console.ClickAt(console.Main(), 90);
    QCOMPARE(console.Wrong("6.0", 39), QString());
    QCOMPARE(console.Calls(), Calls{"SetVol 60"});
    QVERIFY(console.Wheel(console.Main(), 120));
    QCOMPARE(console.Calls(), (Calls{"SetVol 60", "SetVol 61"}));
    QVERIFY(console.Find<QTimer>("tmrPoll")->isActive());
}

void FaderSliderTest::homeAndEndAreNobodysInTheDialogEither()
{
    FaderConsole console;
    console.OpenDialog();
    for (const int key : {Qt::Key_Home, Qt::Key_End})
        console.Key(key);
    QCOMPARE(console.Wrong("7.0", 29), QString());
    QCOMPARE(console.Calls(), Calls{});
}

void FaderSliderTest::aButtonHeldInTheGrooveStepsOnce()
{
    FaderConsole console;
    QTest::mousePress(console.Main(), Qt::LeftButton, {}, ThumbOf(console.Main(), 5));
    QCOMPARE(console.Main()->value(), 19);
    // Half a second is the toolkit's own time until it pages again, and again.
    QVERIFY(!QTest::qWaitFor([&] { return console.Main()->value() != 19; }, 700));
    QTest::mouseRelease(console.Main(), Qt::LeftButton, {}, ThumbOf(console.Main(), 5));
    QCOMPARE(console.Wrong("8.0", 19), QString());
    QCOMPARE(console.Calls(), Calls{"SetVol 80"});
}

void FaderSliderTest::sliderSetByCodeCountsForTheActiveOneAlone()
{
    FaderConsole console;
    console.OfDialog()->setValue(50);
    QCOMPARE(console.Wrong("7.0", 29), QString());
    QCOMPARE(console.Calls(), Calls{});
    console.Main()->setValue(50);
    QCOMPARE(console.Wrong("4.9", 50), QString());
    QCOMPARE(console.Calls(), Calls{"SetVol 49"});
    console.Main()->setValue(29);
    console.OpenDialog();
    console.Main()->setValue(10);
    QCOMPARE(console.Wrong("7.0", 29), QString());
    QCOMPARE(console.Calls(), Calls{});
    console.OfDialog()->setValue(10);
    QCOMPARE(console.Wrong("8.9", 10), QString());
    QCOMPARE(console.Calls(), Calls{"SetVol 89"});
}

void FaderSliderTest::keyOnALevelBeyondTheScaleComesBackIntoIt()
{
    FaderConsole console;
    console.unit.panel.level = 150;
    console.Tick("tmrPoll");
    console.Forget();
    console.Main()->setFocus();
    console.Key(Qt::Key_Up);
    QCOMPARE(console.Wrong("9.9", 0), QString());
    QCOMPARE(console.Calls(), Calls{"SetVol 99"});
}

void FaderSliderTest::pollingThatAStreamStoppedStaysStopped()
{
    FaderConsole console(OnLine, Tab::OpticalSetup);
    console.Click("cmdStart");
    auto *tmrPoll = console.Find<QTimer>("tmrPoll");
    QVERIFY(!tmrPoll->isActive());
    console.Main()->setFocus();
    console.Key(Qt::Key_Down);
    QVERIFY(!tmrPoll->isActive());
    console.Click("cmdStart");
    QVERIFY(tmrPoll->isActive());
}

void FaderSliderTest::releaseThatLandsElsewhereResumesThePoll()
{
    FaderConsole console;
    console.Main()->setFocus();
    console.Press(Qt::Key_Down);
    console.Key(Qt::Key_Tab);
    QVERIFY(!console.Main()->hasFocus());
    QVERIFY(console.Find<QTimer>("tmrPoll")->isActive());
    QCOMPARE(console.Calls(), Calls{"SetVol 69"});
    console.Release(Qt::Key_Down);
    QCOMPARE(console.Calls(), Calls{"SetVol 69"});
}

void FaderSliderTest::cableLostDuringADragIsOneMessageAndTheLevelIsKept()
{
    FaderConsole console;
    console.DragTo(console.Main(), 39);
    console.unit.panel.plugged = false;
    console.AnswerNextBox("Connection Error", QMessageBox::Ok);
    console.Drop(console.Main());
    QVERIFY(console.AllBoxesSeen());
    QCOMPARE(console.Count("SetVol 60"), 6);
    QCOMPARE(console.Wrong("6.0", 39), QString());
    QCOMPARE(console.room.FaderLevel, Word(60));
    QVERIFY(!console.Main()->isEnabled());
    QVERIFY(!console.OfDialog()->isEnabled());
    console.Tick("tmrPoll");
    QVERIFY(console.AllBoxesSeen());
}

QTEST_MAIN(FaderSliderTest)
#include "faderslider_test.moc"
