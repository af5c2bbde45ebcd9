#include "support/ui/faderconsole.h"

#include <QPushButton>

using namespace kelvo;

class MasterFaderTest : public QObject {
    Q_OBJECT

  private slots:
    void valueTypedInAnyFieldShowsEverywhereAndIsSentOnce_data();
    void valueTypedInAnyFieldShowsEverywhereAndIsSentOnce();
    void valueTheUnitHoldsAlreadyIsNotSent();
    void valueShownButNotInTheUnitIsSent();
    void noNumberAndEscapeAreZero();
    void badValueIsRefusedAndAnOverflowIsDropped();
    void fieldIsLeftWithNothingSelectedAfterEnter();
    void levelReadFromTheUnitIsNotSentBack();
    void levelBeyondTheScaleIsShownAsItIsAndCanBeTypedOver();
    void setTo7AsksAndSendsOnYesAlone();
    void tabQuestionSetsAndSendsNominal();
    void setTo7TakesWhatIsTypedFirst();
};

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
    FaderConsole console(OnLine, Tab(tab));
    if (field == "lblVol")
        console.OpenDialog();
    console.Type(field, "6,5");
    QCOMPARE(console.Wrong("6.5", 34), QString());
    QCOMPARE(console.Calls(), Calls{"SetVol 65"});
    QCOMPARE(console.unit.panel.level, Word(65));
    QVERIFY(!console.file.SettingsChanged);

    console.Type(field, "7");
    QCOMPARE(console.Wrong("7.0", 29), QString());
    QCOMPARE(console.Calls(), (Calls{"SetVol 65", "SetVol 70"}));
}

void MasterFaderTest::valueTheUnitHoldsAlreadyIsNotSent()
{
    FaderConsole console;
    console.Type("lblVol(3)", "7");
    QCOMPARE(console.Text("lblVol(3)"), "7.0");
    QCOMPARE(console.Calls(), Calls{});
}

void MasterFaderTest::valueShownButNotInTheUnitIsSent()
{
    FaderConsole console(OnLine, Tab::FormatSelection, [](auto &start) { start.unit.panel.level = 50; });
    console.Trigger("mnuNew");
    QCOMPARE(console.Text("lblVol(3)"), "7.0");
    QCOMPARE(console.Calls(), Calls{});
    console.Type("lblVol(3)", "7");
    QCOMPARE(console.Calls(), Calls{"SetVol 70"});
}

void MasterFaderTest::noNumberAndEscapeAreZero()
{
    for (const char *text : {"abc", "", "--3", "-"}) {
        FaderConsole console;
        console.Type("lblVol(3)", text);
        QCOMPARE(console.Wrong("0.0", 99), QString());
        QCOMPARE(console.Calls(), Calls{"SetVol 0"});
    }
    FaderConsole console;
    console.TypeOnly("lblVol(3)", "8");
    console.Key(Qt::Key_Escape);
    QCOMPARE(console.Wrong("0.0", 99), QString());
    QCOMPARE(console.Calls(), Calls{"SetVol 0"});
    QVERIFY(console.Find<QLineEdit>("lblVol(3)")->hasFocus());
}

void MasterFaderTest::badValueIsRefusedAndAnOverflowIsDropped()
{
    FaderConsole console;
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
    FaderConsole console;
    console.Type("lblVol(3)", "5");
    QVERIFY(!console.Find<QLineEdit>("lblVol(3)")->hasSelectedText());
    QVERIFY(console.Find<QLineEdit>("lblVol(3)")->hasFocus());
}

void MasterFaderTest::levelReadFromTheUnitIsNotSentBack()
{
    FaderConsole console;
    console.unit.panel.level = 33;
    console.Tick("tmrPoll");
    QCOMPARE(console.Wrong("3.3", 66), QString());
    QCOMPARE(console.Calls(), (Calls{"GetFormat", "GetMute", "GetVol"}));
}

void MasterFaderTest::levelBeyondTheScaleIsShownAsItIsAndCanBeTypedOver()
{
    FaderConsole console;
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
    QCOMPARE(console.room.FaderLevel, Word(-7));
}

void MasterFaderTest::setTo7AsksAndSendsOnYesAlone()
{
    FaderConsole console(OnLine, Tab::Eq);
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
    FaderConsole console;
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

void MasterFaderTest::setTo7TakesWhatIsTypedFirst()
{
    FaderConsole console(OnLine, Tab::Eq);
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

QTEST_MAIN(MasterFaderTest)
#include "masterfader_test.moc"
