#include "support/ui/levelwindow.h"

using namespace kelvo;

/// The focus position of a window whose program moves a slider itself: a channel is chosen, a unit is read.
class FocusPositionTest : public QObject {
    Q_OBJECT

  private slots:
    void itFollowsTheProgramThatMovesTheFocusedSlider()
    {
        LevelWindow window;
        LevelSlider *slider = window.gain->Slider();
        slider->setFocus();
        QCOMPARE(window.entries.FocusPosition, 12);
        window.ShowGain(5);
        QCOMPARE(window.Events(), QStringList());
        QCOMPARE(window.entries.FocusPosition, 5);
        // Back to where it stood at first is a change now; to where the program put it is none.
        window.DragTo(slider, 12);
        window.Drop(slider);
        QCOMPARE(window.Events(), QStringList({"gain=12", "send"}));
        window.DragTo(slider, 5);
        window.Drop(slider);
        QCOMPARE(window.Events(), QStringList("gain=5"));
    }

    void itFollowsBeyondTheEndsToWhereTheSliderStops()
    {
        LevelWindow window;
        window.gain->Slider()->setFocus();
        window.ShowGain(200);
        QCOMPARE(window.entries.FocusPosition, 24);
    }

    void itStaysWhenAnotherSliderIsMoved()
    {
        LevelWindow window;
        window.ShowStored(field::Bass(Left), 3);
        QCOMPARE(window.entries.FocusPosition, 255);
        window.gain->Slider()->setFocus();
        window.ShowStored(field::Bass(Left), 9);
        QCOMPARE(window.entries.FocusPosition, 12);
    }

    void itStaysWhenThePositionIsShownThatTheUserChose()
    {
        LevelWindow window;
        window.gain->Slider()->setFocus();
        window.Key(Qt::Key_Up);
        window.ShowGain(11);
        QCOMPARE(window.entries.FocusPosition, 12);
    }

    void itStaysWhileTheHandIsOnTheSlider()
    {
        LevelWindow window;
        LevelSlider *slider = window.gain->Slider();
        slider->setFocus();
        window.DragTo(slider, 8);
        window.ShowGain(7);
        QCOMPARE(window.entries.FocusPosition, 12);
        window.Drop(slider);
        window.Press(Qt::Key_Up);
        window.ShowGain(4);
        QCOMPARE(window.entries.FocusPosition, 12);
        window.Release(Qt::Key_Up);
        QCOMPARE(window.Events().back(), "send");
    }

    void itFollowsWhileAnotherWindowIsInFront()
    {
        LevelWindow window;
        LevelSlider *slider = window.gain->Slider();
        slider->setFocus();
        QWidget other;
        other.show();
        other.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&other));
        QVERIFY(!slider->hasFocus());
        window.ShowGain(5);
        window.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        QVERIFY(slider->hasFocus());
        QCOMPARE(window.entries.FocusPosition, 5);
    }
};

QTEST_MAIN(FocusPositionTest)
#include "focusposition_test.moc"
