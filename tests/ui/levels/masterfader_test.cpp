#include "model/flagguard.h"
#include "support/ui/consoleundertest.h"

#include <QLineEdit>
#include <QPushButton>

#include <algorithm>

using namespace kelvo;

namespace {

const QString RangeTitle = "Range Check Error";
const QString FaderError = "Error, Please enter a number between 0 and 9.9!";
const QString Set7Title = "Set Fader = 7.0";
const QString Set7Question = "Are you sure you want to Set Fader = 7.0 ?";

int CountIn(const Calls &calls, const char *call)
{
    return int(std::ranges::count(calls, call));
}

/// The console with both fader sliders at hand.
struct Console : ConsoleUnderTest {
    using ConsoleUnderTest::ConsoleUnderTest;

    LevelSlider *Main() const { return Find<LevelSlider>("sclVol"); }
    QDialog *Dialog() const { return Find<QDialog>("frmFader"); }
    LevelSlider *OfDialog() const { return Dialog()->findChild<LevelSlider *>("sclVol"); }
    QString Text(const char *field) const { return Find<QLineEdit>(field)->text(); }

    int Count(const char *call) const { return CountIn(Calls(), call); }

    /// Opens the dialog as a user does, through "Adjust Fader" of the tab Output Trim.
    void OpenDialog()
    {
        GoTo(Tab::OutputTrim);
        Click("cmdAdjust(0)");
        QTRY_COMPARE(QApplication::activeWindow(), Dialog());
        Forget();
    }

    /// What is wrong with the five fields and two sliders at a level; "" = nothing.
    QString Wrong(const QString &text, int position) const
    {
        for (const char *field : {"lblVol(0)", "lblVol(1)", "lblVol(2)", "lblVol(3)", "lblVol"})
            if (Text(field) != text)
                return QString("%1 shows %2").arg(field, Text(field));
        for (const QSlider *slider : {Main(), OfDialog()})
            if (slider->value() != position)
                return QString("a slider stands at %1").arg(slider->value());
        return {};
    }
};

} // namespace

class MasterFaderTest : public QObject {
    Q_OBJECT

  private slots:
    void mainSliderIsTheOneFoundInTheMainWindow();
    void valueTypedInAnyFieldShowsEverywhereAndIsSentOnce_data();
    void valueTypedInAnyFieldShowsEverywhereAndIsSentOnce();
    void valueTheUnitHoldsAlreadyIsNotSent();
    void valueShownButNotInTheUnitIsSent();
    void noNumberAndEscapeAreZero();
    void badValueIsRefusedAndAnOverflowIsDropped();
    void fieldIsLeftWithNothingSelectedAfterEnter();
    void eachKeyIsOneTenthAndSentOnItsRelease_data();
    void eachKeyIsOneTenthAndSentOnItsRelease();
    void heldKeyPausesThePollAndSendsOnce();
    void keysStopAtBothEndsAndSendNothingThere();
    void dragFollowsEverywherePausesThePollAndSendsOnce();
    void anyMouseButtonPausesThePoll();
    void grooveAndWheelAreOneChangeEach();
    void dragOnTheDialogMovesTheMainSliderAndSendsOnce();
    void keysOnTheDialogSendOnce();
    void mainSliderInTheHandCountsWhileTheDialogsHasTheFocus();
    void sliderSetByCodeCountsForTheActiveOneAlone();
    void levelReadFromTheUnitIsNotSentBack();
    void levelBeyondTheScaleIsShownAsItIsAndCanBeTypedOver();
    void keyOnALevelBeyondTheScaleComesBackIntoIt();
    void pollingThatAStreamStoppedStaysStopped();
    void releaseThatLandsElsewhereResumesThePoll();
    void fieldBeingTypedInIsNotRewrittenByAPoll();
    void setTo7AsksAndSendsOnYesAlone();
    void tabQuestionSetsAndSendsNominal();
    void adjustOpensTheDialogWithItsSliderInFocus();
    void adjustTakesWhatIsTypedInTheDialogFirst();
    void uploadTakesWhatIsTypedInTheDialogFirst();
    void setTo7TakesWhatIsTypedFirst();
    void dialogHasItsWidthAndItsSliderFollowsItsHeight();
    void dialogIsClosedByNeitherEnterNorEscape();
    void closingTheDialogTakesWhatIsTyped();
    void closingTheDialogOnABadValueTellsItOnceAndDropsIt();
    void nothingIsSentWhileTheProgramItselfSetsControls();
    void cableLostDuringADragIsOneMessageAndTheLevelIsKept();
};

void MasterFaderTest::mainSliderIsTheOneFoundInTheMainWindow()
{
    Console console;
    QVERIFY(console.Main()->window() == console.window.get());
    QVERIFY(console.OfDialog()->window() == console.Dialog());
    QVERIFY(!console.Dialog()->isVisible());
    QCOMPARE(console.Wrong("7.0", 29), QString());
}

void MasterFaderTest::valueTypedInAnyFieldShowsEverywhereAndIsSentOnce_data()
{
    QTest::addColumn<QString>("field");
    QTest::addColumn<int>("tab");
    QTest::newRow("beside the tabs") << "lblVol(3)" << int(Tab::FormatSelection);
    QTest::newRow("Output Trim") << "lblVol(0)" << int(Tab::OutputTrim);
    QTest::newRow("E.Q") << "lblVol(1)" << int(Tab::Eq);
    QTest::newRow("OBE") << "lblVol(2)" << int(Tab::Obe);
    QTest::newRow("the dialog") << "lblVol" << int(Tab::OutputTrim);
}

void MasterFaderTest::valueTypedInAnyFieldShowsEverywhereAndIsSentOnce()
{
    QFETCH(QString, field);
    QFETCH(int, tab);
    Console console(OnLine, Tab(tab));
    if (field == "lblVol")
        console.OpenDialog();
    console.Type(field, "6,5");
    QCOMPARE(console.Wrong("6.5", 34), QString());
    QCOMPARE(console.Calls(), Calls{"SetVol 65"});
    QCOMPARE(console.unit.panel.level, Word(65));
    QVERIFY(!console.settings.SettingsChanged);

    console.Type(field, "7");
    QCOMPARE(console.Wrong("7.0", 29), QString());
    QCOMPARE(console.Calls(), (Calls{"SetVol 65", "SetVol 70"}));
}

void MasterFaderTest::valueTheUnitHoldsAlreadyIsNotSent()
{
    Console console;
    console.Type("lblVol(3)", "7");
    QCOMPARE(console.Text("lblVol(3)"), "7.0");
    QCOMPARE(console.Calls(), Calls{});
}

void MasterFaderTest::valueShownButNotInTheUnitIsSent()
{
    Console console(OnLine, Tab::FormatSelection, [](auto &start) { start.unit.panel.level = 50; });
    console.Trigger("mnuNew");
    QCOMPARE(console.Text("lblVol(3)"), "7.0");
    QCOMPARE(console.Calls(), Calls{});
    console.Type("lblVol(3)", "7");
    QCOMPARE(console.Calls(), Calls{"SetVol 70"});
}

void MasterFaderTest::noNumberAndEscapeAreZero()
{
    for (const char *text : {"abc", "", "--3", "-"}) {
        Console console;
        console.Type("lblVol(3)", text);
        QCOMPARE(console.Wrong("0.0", 99), QString());
        QCOMPARE(console.Calls(), Calls{"SetVol 0"});
    }
    Console console;
    console.TypeOnly("lblVol(3)", "8");
    console.Key(Qt::Key_Escape);
    QCOMPARE(console.Wrong("0.0", 99), QString());
    QCOMPARE(console.Calls(), Calls{"SetVol 0"});
    QVERIFY(console.Find<QLineEdit>("lblVol(3)")->hasFocus());
}

void MasterFaderTest::badValueIsRefusedAndAnOverflowIsDropped()
{
    Console console;
    for (const char *text : {"10", "-0.1", "1e3", "9.96", "3276.7"}) {
        console.AnswerNextBox(RangeTitle, QMessageBox::Ok, FaderError);
        console.Type("lblVol(3)", text);
        QCOMPARE(console.Find<QLineEdit>("lblVol(3)")->selectedText(), text);
        QTRY_VERIFY(console.Find<QLineEdit>("lblVol(3)")->hasFocus());
        QVERIFY(console.AllBoxesSeen());
    }
    for (const char *text : {"3276.8", "40000", "1e400"}) {
        console.Type("lblVol(3)", text);
        QCOMPARE(console.Text("lblVol(3)"), "7.0");
    }
    QCOMPARE(console.Wrong("7.0", 29), QString());
    QCOMPARE(console.Calls(), Calls{});
}

void MasterFaderTest::fieldIsLeftWithNothingSelectedAfterEnter()
{
    Console console;
    console.Type("lblVol(3)", "5");
    QVERIFY(!console.Find<QLineEdit>("lblVol(3)")->hasSelectedText());
    QVERIFY(console.Find<QLineEdit>("lblVol(3)")->hasFocus());
}

void MasterFaderTest::eachKeyIsOneTenthAndSentOnItsRelease_data()
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
    QTest::newRow("Home") << int(Qt::Key_Home) << false << 99;
    QTest::newRow("End") << int(Qt::Key_End) << false << 0;
    QTest::newRow("plus of the main keys") << int(Qt::Key_Plus) << false << 70;
}

void MasterFaderTest::eachKeyIsOneTenthAndSentOnItsRelease()
{
    QFETCH(int, key);
    QFETCH(bool, keypad);
    QFETCH(int, level);
    const auto modifiers = keypad ? Qt::KeypadModifier : Qt::NoModifier;
    Console console;
    console.Main()->setFocus();
    console.Press(key, modifiers);
    QCOMPARE(int(console.settings.FaderLevel), level);
    QCOMPARE(console.Calls(), Calls{});
    console.Release(key, modifiers);
    QCOMPARE(console.Wrong(QString::number(level / 10.0, 'f', 1), 99 - level), QString());
    QCOMPARE(console.Calls(), level == 70 ? Calls{} : Calls{"SetVol " + std::to_string(level)});
}

void MasterFaderTest::heldKeyPausesThePollAndSendsOnce()
{
    Console console;
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

void MasterFaderTest::keysStopAtBothEndsAndSendNothingThere()
{
    Console console;
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

void MasterFaderTest::dragFollowsEverywherePausesThePollAndSendsOnce()
{
    Console console;
    console.DragTo(console.Main(), 20);
    QCOMPARE(console.Wrong("7.9", 20), QString());
    QVERIFY(!console.Find<QTimer>("tmrPoll")->isActive());
    QCOMPARE(console.Calls(), Calls{});
    console.Drop(console.Main());
    QVERIFY(console.Find<QTimer>("tmrPoll")->isActive());
    QCOMPARE(console.Calls(), Calls{"SetVol 79"});

    console.ClickAt(console.Main(), 20);
    QCOMPARE(console.Calls(), Calls{"SetVol 79"});
}

void MasterFaderTest::anyMouseButtonPausesThePoll()
{
    Console console;
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

void MasterFaderTest::grooveAndWheelAreOneChangeEach()
{
    Console console;
    console.ClickAt(console.Main(), 90);
    QCOMPARE(console.Wrong("6.0", 39), QString());
    QCOMPARE(console.Calls(), Calls{"SetVol 60"});
    QVERIFY(console.Wheel(console.Main(), 120));
    QCOMPARE(console.Calls(), (Calls{"SetVol 60", "SetVol 61"}));
    QVERIFY(console.Find<QTimer>("tmrPoll")->isActive());
}

void MasterFaderTest::dragOnTheDialogMovesTheMainSliderAndSendsOnce()
{
    Console console;
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

void MasterFaderTest::keysOnTheDialogSendOnce()
{
    Console console;
    console.OpenDialog();
    QVERIFY(console.OfDialog()->hasFocus());
    console.Press(Qt::Key_Right);
    console.Repeat(Qt::Key_Right);
    QCOMPARE(console.Calls(), Calls{});
    console.Release(Qt::Key_Right);
    QCOMPARE(console.Wrong("7.2", 27), QString());
    QCOMPARE(console.Calls(), Calls{"SetVol 72"});
}

void MasterFaderTest::mainSliderInTheHandCountsWhileTheDialogsHasTheFocus()
{
    Console console;
    console.OpenDialog();
    console.DragTo(console.Main(), 9);
    console.Drop(console.Main());
    QCOMPARE(console.Wrong("9.0", 9), QString());
    QCOMPARE(console.Calls(), Calls{"SetVol 90"});
}

void MasterFaderTest::sliderSetByCodeCountsForTheActiveOneAlone()
{
    Console console;
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

void MasterFaderTest::levelReadFromTheUnitIsNotSentBack()
{
    Console console;
    console.unit.panel.level = 33;
    console.Tick("tmrPoll");
    QCOMPARE(console.Wrong("3.3", 66), QString());
    QCOMPARE(console.Calls(), (Calls{"GetFormat", "GetMute", "GetVol"}));
}

void MasterFaderTest::levelBeyondTheScaleIsShownAsItIsAndCanBeTypedOver()
{
    Console console;
    console.unit.panel.level = 150;
    console.Tick("tmrPoll");
    QCOMPARE(console.Wrong("15.0", 0), QString());
    console.Forget();
    console.Type("lblVol(3)", "9.9");
    QCOMPARE(console.Wrong("9.9", 0), QString());
    QCOMPARE(console.Calls(), Calls{"SetVol 99"});

    console.unit.panel.level = -7;
    console.Tick("tmrPoll");
    QCOMPARE(console.Wrong("-0.7", 99), QString());
    console.Find<QLineEdit>("lblVol(3)")->setFocus();
    console.Main()->setFocus();
    QCOMPARE(console.settings.FaderLevel, Word(-7));
}

void MasterFaderTest::keyOnALevelBeyondTheScaleComesBackIntoIt()
{
    Console console;
    console.unit.panel.level = 150;
    console.Tick("tmrPoll");
    console.Forget();
    console.Main()->setFocus();
    console.Key(Qt::Key_Up);
    QCOMPARE(console.Wrong("9.9", 0), QString());
    QCOMPARE(console.Calls(), Calls{"SetVol 99"});
}

void MasterFaderTest::pollingThatAStreamStoppedStaysStopped()
{
    Console console(OnLine, Tab::OpticalSetup);
    console.Click("cmdStart");
    auto *tmrPoll = console.Find<QTimer>("tmrPoll");
    QVERIFY(!tmrPoll->isActive());
    console.Main()->setFocus();
    console.Key(Qt::Key_Down);
    QVERIFY(!tmrPoll->isActive());
    console.Click("cmdStart");
    QVERIFY(tmrPoll->isActive());
}

void MasterFaderTest::releaseThatLandsElsewhereResumesThePoll()
{
    Console console;
    console.Main()->setFocus();
    console.Press(Qt::Key_Down);
    console.Key(Qt::Key_Tab);
    QVERIFY(!console.Main()->hasFocus());
    QVERIFY(console.Find<QTimer>("tmrPoll")->isActive());
    QCOMPARE(console.Calls(), Calls{"SetVol 69"});
    console.Release(Qt::Key_Down);
    QCOMPARE(console.Calls(), Calls{"SetVol 69"});
}

void MasterFaderTest::fieldBeingTypedInIsNotRewrittenByAPoll()
{
    Console console;
    console.TypeOnly("lblVol(3)", "6.");
    console.unit.panel.level = 33;
    console.Tick("tmrPoll");
    QCOMPARE(console.Text("lblVol(3)"), "6.");
    QCOMPARE(console.Text("lblVol(0)"), "3.3");
    console.Forget();
    console.Key(Qt::Key_Return);
    QCOMPARE(console.Wrong("6.0", 39), QString());
    QCOMPARE(console.Calls(), Calls{"SetVol 60"});
}

void MasterFaderTest::setTo7AsksAndSendsOnYesAlone()
{
    Console console(OnLine, Tab::Eq);
    console.Type("lblVol(1)", "5");
    console.Forget();
    console.AnswerNextBox(Set7Title, QMessageBox::No, Set7Question);
    console.Click("cmdSet7(1)");
    QCOMPARE(console.Wrong("5.0", 49), QString());
    QCOMPARE(console.Calls(), Calls{});
    console.AnswerNextBox(Set7Title, QMessageBox::Yes, Set7Question);
    console.Click("cmdSet7(1)");
    QCOMPARE(console.Wrong("7.0", 29), QString());
    QCOMPARE(console.Calls(), Calls{"SetVol 70"});
}

void MasterFaderTest::tabQuestionSetsAndSendsNominal()
{
    Console console;
    console.Type("lblVol(3)", "5");
    console.Forget();
    console.AnswerNextBox("Fader=7.0?", QMessageBox::No, "Do you want to set fader = 7.0?");
    console.GoTo(Tab::Eq);
    QCOMPARE(console.Wrong("5.0", 49), QString());
    QCOMPARE(console.Calls(), Calls{});
    console.AnswerNextBox("Fader=7.0?", QMessageBox::Yes, "Do you want to set fader = 7.0?");
    console.GoTo(Tab::OutputTrim);
    QCOMPARE(console.Wrong("7.0", 29), QString());
    QCOMPARE(console.Calls().front(), "SetVol 70");
    QCOMPARE(console.Count("SetVol 70"), 1);
}

void MasterFaderTest::adjustOpensTheDialogWithItsSliderInFocus()
{
    Console console;
    console.OpenDialog();
    QVERIFY(console.Dialog()->isVisible());
    QVERIFY(!console.Dialog()->isModal());
    QCOMPARE(console.Dialog()->windowTitle(), "Fader:");
    QVERIFY(console.OfDialog()->hasFocus());
}

void MasterFaderTest::adjustTakesWhatIsTypedInTheDialogFirst()
{
    Console console;
    console.OpenDialog();
    console.TypeOnly("lblVol", "5");
    console.window->activateWindow();
    QTRY_COMPARE(QApplication::activeWindow(), console.window.get());
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

void MasterFaderTest::uploadTakesWhatIsTypedInTheDialogFirst()
{
    Console console;
    console.OpenDialog();
    console.TypeOnly("lblVol", "5");
    console.window->activateWindow();
    console.Click("cmdUp(0)");
    QCOMPARE(console.Wrong("5.0", 49), QString());
    QCOMPARE(console.Calls(), (Calls{"SetVol 50", "SetSystem", "SetAudio"}));
}

void MasterFaderTest::setTo7TakesWhatIsTypedFirst()
{
    Console console(OnLine, Tab::Eq);
    console.TypeOnly("lblVol(1)", "11");
    console.AnswerNextBox(RangeTitle, QMessageBox::Ok, FaderError);
    console.Find<QPushButton>("cmdSet7(1)")->click();
    QVERIFY(console.AllBoxesSeen());
    QCOMPARE(console.Calls(), Calls{});
    console.TypeOnly("lblVol(1)", "5");
    console.AnswerNextBox(Set7Title, QMessageBox::Yes, Set7Question);
    console.Find<QPushButton>("cmdSet7(1)")->click();
    QCOMPARE(console.Wrong("7.0", 29), QString());
    QCOMPARE(console.Calls(), (Calls{"SetVol 50", "SetVol 70"}));
}

void MasterFaderTest::dialogHasItsWidthAndItsSliderFollowsItsHeight()
{
    Console console;
    console.OpenDialog();
    for (const int height : {300, 480}) {
        console.Dialog()->resize(200, height);
        QTRY_COMPARE(console.Dialog()->size(), QSize(72, height));
        QTRY_COMPARE(console.OfDialog()->height(), height - 80);
        QVERIFY(console.Dialog()->rect().contains(console.OfDialog()->parentWidget()->geometry()));
    }
}

void MasterFaderTest::dialogIsClosedByNeitherEnterNorEscape()
{
    Console console;
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

void MasterFaderTest::closingTheDialogTakesWhatIsTyped()
{
    Console console;
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

void MasterFaderTest::closingTheDialogOnABadValueTellsItOnceAndDropsIt()
{
    Console console;
    console.OpenDialog();
    console.TypeOnly("lblVol", "11");
    console.AnswerNextBox(RangeTitle, QMessageBox::Ok, FaderError);
    console.Dialog()->close();
    QVERIFY(console.AllBoxesSeen());
    QVERIFY(!console.Dialog()->isVisible());
    QCOMPARE(console.Wrong("7.0", 29), QString());
    QCOMPARE(console.Calls(), Calls{});
}

void MasterFaderTest::nothingIsSentWhileTheProgramItselfSetsControls()
{
    Console console;
    const FlagGuard updating(console.settings.Updating);
    console.Main()->setValue(50);
    QCOMPARE(console.Wrong("7.0", 29), QString());
    console.DragTo(console.Main(), 10);
    console.Drop(console.Main());
    console.Key(Qt::Key_Down);
    QCOMPARE(console.Wrong("7.0", 29), QString());
    QCOMPARE(console.Calls(), Calls{});
}

void MasterFaderTest::cableLostDuringADragIsOneMessageAndTheLevelIsKept()
{
    Console console;
    console.DragTo(console.Main(), 39);
    console.unit.panel.plugged = false;
    console.AnswerNextBox("Connection Error", QMessageBox::Ok);
    console.Drop(console.Main());
    QVERIFY(console.AllBoxesSeen());
    QCOMPARE(console.Count("SetVol 60"), 6);
    QCOMPARE(console.Wrong("6.0", 39), QString());
    QCOMPARE(console.settings.FaderLevel, Word(60));
    QVERIFY(!console.Main()->isEnabled());
    QVERIFY(!console.OfDialog()->isEnabled());
    console.Tick("tmrPoll");
    QVERIFY(console.AllBoxesSeen());
}

QTEST_MAIN(MasterFaderTest)
#include "masterfader_test.moc"
