#include "support/ui/faderconsole.h"

using namespace kelvo;

class FaderDialogTest : public QObject {
    Q_OBJECT

  private slots:
    void dragOnTheDialogMovesTheMainSliderAndSendsOnce();
    void keysOnTheDialogSendOnce();
    void mainSliderInTheHandCountsWhileTheDialogsHasTheFocus();
    void adjustOpensTheDialogWithItsSliderInFocus();
    void adjustTakesWhatIsTypedInTheDialogFirst();
    void uploadTakesWhatIsTypedInTheDialogFirst();
    void dialogHasItsWidthAndItsSliderFollowsItsHeight();
    void dialogIsClosedByNeitherEnterNorEscape();
    void closingTheDialogTakesWhatIsTyped();
    void closingTheDialogOnABadValueTellsItOnceAndDropsIt();
};

void FaderDialogTest::dragOnTheDialogMovesTheMainSliderAndSendsOnce()
{
    FaderConsole console;
    console.OpenDialog();
    console.DragTo(console.OfDialog(), 49);
    QCOMPARE(console.Wrong("5.0", 49), QString());
    QVERIFY(!console.Find<QTimer>("tmrPoll")->isActive());
    QCOMPARE(console.Calls(), Calls{});
    console.Drop(console.OfDialog());
    QCOMPARE(console.Wrong("5.0", 49), QString());
    QVERIFY(console.Find<QTimer>("tmrPoll")->isActive());
    QCOMPARE(console.Calls(), Calls{"SetVol 50"});
}

void FaderDialogTest::keysOnTheDialogSendOnce()
{
    FaderConsole console;
    console.OpenDialog();
    QVERIFY(console.OfDialog()->hasFocus());
    console.Press(Qt::Key_Right);
    console.Repeat(Qt::Key_Right);
    QCOMPARE(console.Calls(), Calls{});
    console.Release(Qt::Key_Right);
    QCOMPARE(console.Wrong("7.2", 27), QString());
    QCOMPARE(console.Calls(), Calls{"SetVol 72"});
}

void FaderDialogTest::mainSliderInTheHandCountsWhileTheDialogsHasTheFocus()
{
    FaderConsole console;
    console.OpenDialog();
    console.DragTo(console.Main(), 9);
    console.Drop(console.Main());
    QCOMPARE(console.Wrong("9.0", 9), QString());
    QCOMPARE(console.Calls(), Calls{"SetVol 90"});
}

void FaderDialogTest::adjustOpensTheDialogWithItsSliderInFocus()
{
    FaderConsole console;
    console.OpenDialog();
    QVERIFY(console.Dialog()->isVisible());
    QVERIFY(!console.Dialog()->isModal());
    QCOMPARE(console.Dialog()->windowTitle(), "Fader:");
    QVERIFY(console.OfDialog()->hasFocus());
}

void FaderDialogTest::adjustTakesWhatIsTypedInTheDialogFirst()
{
    FaderConsole console;
    console.OpenDialog();
    console.TypeOnly("lblVol", "5");
    // A window manager that still hands the focus to the new dialog takes no heed of the first request.
    QTRY_VERIFY((console.window->activateWindow(), console.window->isActiveWindow()));
    console.Click("cmdAdjust(0)");
    QTRY_VERIFY(console.OfDialog()->hasFocus());
    console.Key(Qt::Key_Up);
    QCOMPARE(console.Wrong("5.1", 48), QString());
    console.Dialog()->close();
    QCOMPARE(console.Calls(), (Calls{"SetVol 50", "SetVol 51"}));

    console.OpenDialog();
    console.TypeOnly("lblVol", "11");
    console.window->activateWindow();
    console.AnswerNextBox(RangeTitle, QMessageBox::Ok, FaderError);
    console.Click("cmdAdjust(0)");
    QVERIFY(console.AllBoxesSeen());
    QCOMPARE(console.Text("lblVol"), "11");
    QVERIFY(!console.OfDialog()->hasFocus());
    console.Find<QLineEdit>("lblVol")->setText("5.1");
    console.Key(Qt::Key_Return);
}

void FaderDialogTest::uploadTakesWhatIsTypedInTheDialogFirst()
{
    FaderConsole console;
    console.OpenDialog();
    console.TypeOnly("lblVol", "5");
    console.window->activateWindow();
    console.Click("cmdUp(0)");
    QCOMPARE(console.Wrong("5.0", 49), QString());
    QCOMPARE(console.Calls(), (Calls{"SetVol 50", "SetSystem", "SetAudio"}));
}

void FaderDialogTest::dialogHasItsWidthAndItsSliderFollowsItsHeight()
{
    FaderConsole console;
    console.OpenDialog();
    for (const int height : {300, 480}) {
        console.Dialog()->resize(200, height);
        QTRY_COMPARE(console.Dialog()->size(), QSize(72, height));
        QTRY_COMPARE(console.OfDialog()->height(), height - 80);
        QVERIFY(console.Dialog()->rect().contains(console.OfDialog()->parentWidget()->geometry()));
    }
}

void FaderDialogTest::dialogIsClosedByNeitherEnterNorEscape()
{
    FaderConsole console;
    console.OpenDialog();
    for (const int key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Escape})
        console.Key(key);
    QVERIFY(console.Dialog()->isVisible());
    console.Find<QLineEdit>("lblVol")->setFocus();
    for (const int key : {Qt::Key_Return, Qt::Key_Enter})
        console.Key(key);
    QVERIFY(console.Dialog()->isVisible());
    QCOMPARE(console.Calls(), Calls{});
    console.Key(Qt::Key_Escape);
    QVERIFY(console.Dialog()->isVisible());
    QCOMPARE(console.Calls(), Calls{"SetVol 0"});
}

void FaderDialogTest::closingTheDialogTakesWhatIsTyped()
{
    FaderConsole console;
    console.OpenDialog();
    console.TypeOnly("lblVol", "6.1");
    console.Dialog()->close();
    QVERIFY(!console.Dialog()->isVisible());
    QCOMPARE(console.Wrong("6.1", 38), QString());
    QCOMPARE(console.Calls(), Calls{"SetVol 61"});
    const QDialog *before = console.Dialog();
    console.Click("cmdAdjust(0)");
    QVERIFY(console.Dialog() == before);
    QVERIFY(console.Dialog()->isVisible());
}

void FaderDialogTest::closingTheDialogOnABadValueTellsItOnceAndDropsIt()
{
    FaderConsole console;
    console.OpenDialog();
    console.TypeOnly("lblVol", "11");
    console.AnswerNextBox(RangeTitle, QMessageBox::Ok, FaderError);
    console.Dialog()->close();
    QVERIFY(console.AllBoxesSeen());
    QVERIFY(!console.Dialog()->isVisible());
    QCOMPARE(console.Wrong("7.0", 29), QString());
    QCOMPARE(console.Calls(), Calls{});
}

QTEST_MAIN(FaderDialogTest)
#include "faderdialog_test.moc"
