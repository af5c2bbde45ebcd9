#include "support/ui/consoleundertest.h"

#include <QLabel>
#include <QPushButton>
#include <QTabBar>
#include <QTabWidget>

using namespace kelvo;

class TabsTest : public QObject {
    Q_OBJECT

  private slots:
    void theTabsStandInTheirOrderWithTheirAccessKeys();
    void theVisibleTabAloneIsEnabledOnLine();
    void offLineEveryPanelStaysDisabledAndSaysWhatToDo();
    void theLevelTabsAskForFaderSeven_data();
    void theLevelTabsAskForFaderSeven();
    void noLeavesTheFaderAlone();
    void yesSetsAndSendsSevenBeforeTheTabsOwnCalls();
    void offLineTheQuestionSendsNothing();
    void enteringObeEnablesItOnLineOnly();
    void enteringTheTheatreTabShowsTheTypedDateAgain();
    void leavingOutputTrimSwitchesOffWhatItLeftRunning();
    void leavingTheEqualiserSwitchesOffItsNoise();
    void leavingObeSwitchesOffItsNoise();
    void leavingTheOpticalTabStopsTheStream();
    void leavingAQuietTabSendsNothing();
    void aBadValueKeepsTheUserOnTheTab_data();
    void aBadValueKeepsTheUserOnTheTab();
    void theWheelOverTheHeadingsLeavesWhatIsTypedAlone();
    void aLostLinkOnEnteringObeLeavesThePanelDisabled();
};

namespace {

QTabWidget *Strip(const ConsoleUnderTest &console)
{
    return console.Find<QTabWidget>("SSTAB1");
}

} // namespace

void TabsTest::theTabsStandInTheirOrderWithTheirAccessKeys()
{
    ConsoleUnderTest console;
    const QStringList captions{"Format &Selection", "&Output Trim",         "&E.Q", "O&BE", "O&ptical Setup",
                               "Op&tions",          "Theater &Information", "&Help"};
    QCOMPARE(Strip(console)->count(), 8);
    for (int tab = 0; tab < 8; ++tab) {
        QCOMPARE(Strip(console)->tabText(tab), captions[tab]);
        QCOMPARE(Strip(console)->widget(tab)->objectName(), Member("frmtabs", tab));
    }
}

void TabsTest::theVisibleTabAloneIsEnabledOnLine()
{
    ConsoleUnderTest console;
    for (int shown = 7; shown >= 0; --shown) {
        console.GoTo(Tab(shown));
        for (int tab = 0; tab < TabCount; ++tab)
            QCOMPARE(Strip(console)->widget(tab)->isEnabled(), tab == shown);
    }
}

void TabsTest::offLineEveryPanelStaysDisabledAndSaysWhatToDo()
{
    ConsoleUnderTest console(OffLine);
    for (int shown = 7; shown >= 0; --shown) {
        console.GoTo(Tab(shown));
        QCOMPARE(Strip(console)->currentIndex(), shown);
        for (int tab = 0; tab < TabCount; ++tab)
            QVERIFY(!Strip(console)->widget(tab)->isEnabled());
        auto *hint = console.Find<QLabel>(Member("lblHint", shown));
        QVERIFY(hint->isVisible());
        QCOMPARE(hint->text(), "Off line. Press Connect or F1.");
    }
    QCOMPARE(console.Calls(), Calls());
}

void TabsTest::theLevelTabsAskForFaderSeven_data()
{
    QTest::addColumn<int>("tab");
    QTest::addColumn<bool>("asks");
    for (int tab = 1; tab < TabCount; ++tab)
        QTest::addRow("tab %d", tab) << tab << (tab >= 1 && tab <= 3);
}

void TabsTest::theLevelTabsAskForFaderSeven()
{
    QFETCH(int, tab);
    QFETCH(bool, asks);
    ConsoleUnderTest console(OnLine, Tab::FormatSelection,
                             [](ConsoleUnderTest &test) { test.unit.panel.level = 71; });
    if (asks)
        console.AnswerNextBox("Fader=7.0?", QMessageBox::No, "Do you want to set fader = 7.0?",
                              [&console] { QCOMPARE(console.OpenBox()->icon(), QMessageBox::Question); });
    console.GoTo(Tab(tab));
    QVERIFY(console.AllBoxesSeen());
    QCOMPARE(Strip(console)->currentIndex(), tab);
}

void TabsTest::noLeavesTheFaderAlone()
{
    ConsoleUnderTest console(OnLine, Tab::FormatSelection,
                             [](ConsoleUnderTest &test) { test.unit.panel.level = 50; });
    console.AnswerNextBox("Fader=7.0?", QMessageBox::No);
    console.GoTo(Tab::Eq);
    QCOMPARE(console.Calls(), Calls());
    QCOMPARE(console.Find<QLineEdit>("lblVol(1)")->text(), "5.0");
    QVERIFY(console.Find<QWidget>("frmtabs(2)")->isEnabled());
}

void TabsTest::yesSetsAndSendsSevenBeforeTheTabsOwnCalls()
{
    ConsoleUnderTest console(OnLine, Tab::FormatSelection,
                             [](ConsoleUnderTest &test) { test.unit.panel.level = 50; });
    console.AnswerNextBox("Fader=7.0?", QMessageBox::Yes);
    console.GoTo(Tab::Obe);
    QCOMPARE(console.Calls(), (Calls{"SetVol 70", "EnableOBE"}));
    for (const char *field : {"lblVol(0)", "lblVol(1)", "lblVol(2)", "lblVol(3)"})
        QCOMPARE(console.Find<QLineEdit>(field)->text(), "7.0");
    QCOMPARE(console.Find<QSlider>("sclVol")->value(), 29);
}

void TabsTest::offLineTheQuestionSendsNothing()
{
    ConsoleUnderTest console(OnLine, Tab::FormatSelection,
                             [](ConsoleUnderTest &test) { test.unit.panel.level = 50; });
    console.unit.panel.plugged = false;
    console.AnswerNextBox("Connection Error", QMessageBox::Ok);
    console.Tick("tmrPoll");
    console.Forget();
    console.AnswerNextBox("Fader=7.0?", QMessageBox::Yes);
    console.GoTo(Tab::OutputTrim);
    QCOMPARE(console.Calls(), Calls());
    QCOMPARE(console.Find<QLineEdit>("lblVol(0)")->text(), "7.0");
    QVERIFY(!console.Find<QWidget>("frmtabs(1)")->isEnabled());
}

void TabsTest::enteringObeEnablesItOnLineOnly()
{
    for (const auto &[start, calls] : {std::pair(OnLine, Calls{"EnableOBE"}), std::pair(OffLine, Calls())}) {
        ConsoleUnderTest console(start);
        console.GoTo(Tab::Obe);
        QCOMPARE(Strip(console)->currentIndex(), 3);
        console.GoTo(Tab::Options);
        QCOMPARE(console.Calls(), calls);
    }
}

void TabsTest::enteringTheTheatreTabShowsTheTypedDateAgain()
{
    ConsoleUnderTest console;
    console.room.TheaterInfo[9] = "Autumn 1998";
    console.Key(Qt::Key_F2);
    QVERIFY(console.Find<QLineEdit>("txtTheaterInfo(9)")->text() != "Autumn 1998");
    console.GoTo(Tab::TheaterInformation);
    QCOMPARE(console.Find<QLineEdit>("txtTheaterInfo(9)")->text(), "Autumn 1998");
}

void TabsTest::leavingOutputTrimSwitchesOffWhatItLeftRunning()
{
    ConsoleUnderTest console(OnLine, Tab::OutputTrim);
    console.Click("cmdPN(1)");
    console.Click("cmdPhase(4)");
    console.Forget();
    console.GoTo(Tab::FormatSelection);
    QCOMPARE(console.Calls(), (Calls{"SetPink 1 0", "SetPhase 4 0"}));
    QCOMPARE(console.Find<QPushButton>("cmdPN(1)")->text(), "Off");
    QCOMPARE(console.Find<QPushButton>("cmdPhase(4)")->text(), "In Phase");
}

void TabsTest::leavingTheEqualiserSwitchesOffItsNoise()
{
    ConsoleUnderTest console(OnLine, Tab::Eq);
    console.Click("cmdPink");
    console.Forget();
    console.GoTo(Tab::FormatSelection);
    QCOMPARE(console.Calls(), Calls{"SetPink 0 0"});
    QCOMPARE(console.Find<QPushButton>("cmdPink")->text(), "Pink Noise Off");
}

void TabsTest::leavingObeSwitchesOffItsNoise()
{
    ConsoleUnderTest console(OnLine, Tab::Obe);
    console.Click("cmdPNC");
    console.Click("cmdPNS");
    console.Forget();
    console.GoTo(Tab::Help);
    QCOMPARE(console.Calls(), (Calls{"SetPink 2 0", "SetPink 5 0"}));
    QCOMPARE(console.Find<QPushButton>("cmdPNC")->text(), "Off");
    QCOMPARE(console.Find<QPushButton>("cmdPNS")->text(), "Off");
}

void TabsTest::leavingTheOpticalTabStopsTheStream()
{
    ConsoleUnderTest console(OnLine, Tab::OpticalSetup);
    console.Click("cmdStart");
    QCOMPARE(console.Find<QPushButton>("cmdStart")->text(), "Stop");
    console.Forget();
    console.GoTo(Tab::FormatSelection);
    QCOMPARE(console.Calls(), (Calls{"SetProjector 0", "StopStream", "SetProjector 0", "SelectFormat 4"}));
    QCOMPARE(console.Find<QPushButton>("cmdStart")->text(), "Start");
}

void TabsTest::leavingAQuietTabSendsNothing()
{
    ConsoleUnderTest console;
    for (const Tab tab : {Tab::OutputTrim, Tab::Eq, Tab::OpticalSetup, Tab::Options, Tab::TheaterInformation,
                          Tab::Help, Tab::FormatSelection})
        console.GoTo(tab);
    QCOMPARE(console.Calls(), Calls());
}

void TabsTest::aBadValueKeepsTheUserOnTheTab_data()
{
    QTest::addColumn<QString>("way");
    QTest::newRow("a click on another tab") << "click";
    QTest::newRow("Ctrl+Tab") << "ctrl tab";
    QTest::newRow("an access key") << "access key";
    QTest::newRow("a tool for the disabled") << "tool";
}

void TabsTest::aBadValueKeepsTheUserOnTheTab()
{
    QFETCH(QString, way);
    ConsoleUnderTest console(OnLine, Tab::OutputTrim);
    console.TypeOnly("lblPNG(0)", "9");
    console.AnswerNextBox("Range Check Error", QMessageBox::Ok,
                          "Error, Please enter a number between -6 and 6!");
    if (way == "click")
        console.GoTo(Tab::Help);
    else if (way == "ctrl tab")
        console.Key(Qt::Key_Tab, Qt::ControlModifier);
    else if (way == "access key")
        console.Key(Qt::Key_H, Qt::AltModifier);
    else
        Strip(console)->setCurrentIndex(7);
    QVERIFY(console.AllBoxesSeen());
    QCOMPARE(Strip(console)->currentIndex(), 1);
    auto *field = console.Find<QLineEdit>("lblPNG(0)");
    QCOMPARE(console.Focus(), field);
    QCOMPARE(field->selectedText(), "9");
    QCOMPARE(console.Calls(), Calls());
    console.Type("lblPNG(0)", "0");
}

void TabsTest::theWheelOverTheHeadingsLeavesWhatIsTypedAlone()
{
    ConsoleUnderTest console(OnLine, Tab::OutputTrim);
    for (const char *text : {"9", "3"}) {
        console.TypeOnly("lblPNG(0)", text);
        console.Forget();
        console.Wheel(Strip(console)->tabBar(), -120);
        QCOMPARE(Strip(console)->currentIndex(), 1);
        QCOMPARE(console.Find<QLineEdit>("lblPNG(0)")->text(), text);
    }
}

void TabsTest::aLostLinkOnEnteringObeLeavesThePanelDisabled()
{
    ConsoleUnderTest console;
    console.unit.panel.plugged = false;
    console.AnswerNextBox("Connection Error", QMessageBox::Ok);
    console.GoTo(Tab::Obe);
    QCOMPARE(Strip(console)->currentIndex(), 3);
    QVERIFY(!console.Find<QWidget>("frmtabs(3)")->isEnabled());
    QCOMPARE(console.Find<QLabel>("lblStat")->text(), "Off Line");
}

QTEST_MAIN(TabsTest)
#include "tabs_test.moc"
