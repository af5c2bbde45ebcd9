#include "support/ui/levelwindow.h"

#include <QTimer>

using namespace kelvo;

namespace {

/// A slider with the focus, and the timer of the key that is held on it.
struct Window : LevelWindow {
    Window() { Slider()->setFocus(); }

    LevelSlider *Slider() const { return gain->Slider(); }
    static QTimer *Hold(const LevelSlider *slider)
    {
        auto *tmrHold = slider->findChild<QTimer *>("tmrHold");
        if (!tmrHold)
            qFatal("no key was ever held");
        return tmrHold;
    }
    QTimer *Hold() const { return Hold(Slider()); }
    void LetASecondPass() const
    {
        QVERIFY(Hold()->isActive());
        QMetaObject::invokeMethod(Hold(), "timeout", Qt::DirectConnection, QGenericArgument());
    }
};

} // namespace

/// A key on a slider whose release lands elsewhere or nowhere.
class HeldKeyTest : public QObject {
    Q_OBJECT

  private slots:
    void aReleaseThatNeverComesCountsAsComeAfterASecond()
    {
        Window window;
        window.Press(Qt::Key_Up);
        window.Repeat(Qt::Key_Up);
        QVERIFY(!window.entries.SendArmed);
        QVERIFY(window.Hold()->isSingleShot());
        QCOMPARE(window.Hold()->interval(), 1000);
        window.LetASecondPass();
        QCOMPARE(window.Events(), QStringList({"gain=10", "send"}));
        QVERIFY(window.entries.SendArmed);
        QVERIFY(!window.entries.sliderHeld);
        QVERIFY(!window.Hold()->isActive());
        window.Release(Qt::Key_Up); // it comes after all
        QCOMPARE(window.Events(), QStringList());
    }

    void aRepeatOrAnotherKeyBeginsTheSecondAnew()
    {
        Window window;
        window.Press(Qt::Key_Up);
        window.Hold()->stop();
        window.Repeat(Qt::Key_Up);
        QVERIFY(window.Hold()->isActive());
        window.Hold()->stop();
        window.Press(Qt::Key_Down);
        QVERIFY(window.Hold()->isActive());
        QCOMPARE(window.Events(), QStringList());
    }

    void aKeyThatRepeatsAfterItsSecondIsHeldAgain()
    {
        Window window;
        window.Press(Qt::Key_Up);
        window.LetASecondPass();
        QCOMPARE(window.Events(), QStringList({"gain=11", "send"}));
        window.Repeat(Qt::Key_Up);
        QVERIFY(window.Hold()->isActive());
        QCOMPARE(window.Events(), QStringList());
        window.Release(Qt::Key_Up);
        QCOMPARE(window.Events(), QStringList({"gain=10", "send"}));
    }

    void theSecondEndsWithTheKeysHold()
    {
        Window window;
        window.Key(Qt::Key_Up);
        QVERIFY(!window.Hold()->isActive());
        window.Press(Qt::Key_Up);
        window.tabs->setEnabled(false); // as when the link is lost
        QVERIFY(!window.Hold()->isActive());
        QVERIFY(window.entries.SendArmed);
    }

    void theWayToTheNeighbourHoldsNothing()
    {
        Window window;
        LevelSlider *bass = window.bass->Slider();
        LevelSlider *treble = window.treble->Slider();
        bass->setFocus();
        window.Press(Qt::Key_Right);
        QVERIFY(treble->hasFocus());
        QVERIFY(!window.Hold(bass)->isActive());
        window.Press(Qt::Key_Up);
        QVERIFY(window.Hold(treble)->isActive());
    }

    void aMouseMayHoldAsLongAsItLikes()
    {
        Window window;
        window.Key(Qt::Key_Up);
        window.DragTo(window.Slider(), 5);
        QVERIFY(!window.Hold()->isActive());
        QVERIFY(window.entries.sliderHeld == window.Slider());
        window.Drop(window.Slider());
    }
};

QTEST_MAIN(HeldKeyTest)
#include "heldkey_test.moc"
