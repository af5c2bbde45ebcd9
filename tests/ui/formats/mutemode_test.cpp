#include "support/ui/consoleundertest.h"

#include <QGroupBox>
#include <QPushButton>

using namespace kelvo;

namespace {

constexpr std::array<const char *, 5> MuteNames{"cmdMute", "cmdMute2", "cmdMute3", "cmdMute4", "cmdMute5"};

QColor FaceOf(QPushButton *button)
{
    return button->grab().toImage().pixelColor(5, 5);
}

/// What is wrong with the five mute buttons; "" = nothing.
QString WrongMute(const ConsoleUnderTest &console, bool muted)
{
    for (const char *name : MuteNames) {
        auto *button = console.Find<QPushButton>(name);
        const bool red = FaceOf(button) == QColor(255, 0, 0);
        if (button->text() != (muted ? "Un-Mute" : "Mute") || button->font().bold() != muted ||
            (button->isEnabled() && red != muted))
            return name;
    }
    return {};
}

/// The mode buttons that are grey and bold.
QList<int> CurrentModes(const ConsoleUnderTest &console)
{
    QList<int> current;
    for (int i = 0; i < FormatCount; ++i) {
        auto *button = console.Find<QPushButton>(Member("cmdMode", i));
        if (FaceOf(button) == QColor(128, 128, 128) && button->font().bold())
            current << i;
    }
    return current;
}

} // namespace

class MuteModeTest : public QObject {
    Q_OBJECT

  private slots:
    void eachMuteButtonTogglesAllFive_data();
    void eachMuteButtonTogglesAllFive();
    void anyWordButZeroIsMuted();
    void muteDoesNotMarkTheSettingsChanged();
    void muteThatTheUnitDidNotTakeStaysShownOffLine();
    void modeButtonsStandInTheirFrameWithTheirCaptions();
    void modeIsSentOnceAndShown();
    void formatBeyondTheButtonsHighlightsNone();
    void buttonsKeepTheirSizeWhenTheirStateChanges();
};

void MuteModeTest::eachMuteButtonTogglesAllFive_data()
{
    QTest::addColumn<QString>("button");
    QTest::addColumn<int>("tab");
    QTest::newRow("E.Q") << "cmdMute" << int(Tab::Eq);
    QTest::newRow("Output Trim") << "cmdMute2" << int(Tab::OutputTrim);
    QTest::newRow("OBE") << "cmdMute3" << int(Tab::Obe);
    QTest::newRow("Format Selection") << "cmdMute5" << int(Tab::FormatSelection);
}

void MuteModeTest::eachMuteButtonTogglesAllFive()
{
    QFETCH(QString, button);
    QFETCH(int, tab);
    ConsoleUnderTest console(OnLine, Tab(tab));
    QCOMPARE(WrongMute(console, false), QString());
    console.Click(button);
    QCOMPARE(WrongMute(console, true), QString());
    QCOMPARE(console.room.MuteState, True);
    console.Click(button);
    QCOMPARE(WrongMute(console, false), QString());
    QCOMPARE(console.Calls(), (Calls{"SetMute -1", "SetMute 0"}));
}

void MuteModeTest::anyWordButZeroIsMuted()
{
    ConsoleUnderTest console;
    console.unit.panel.mute = 1;
    console.Tick("tmrPoll");
    QCOMPARE(WrongMute(console, true), QString());
    console.Forget();
    console.Click("cmdMute5");
    QCOMPARE(console.Calls(), Calls{"SetMute 0"});
}

void MuteModeTest::muteDoesNotMarkTheSettingsChanged()
{
    ConsoleUnderTest console;
    console.Click("cmdMute5");
    console.Click("cmdMode(1)");
    QVERIFY(!console.file.SettingsChanged);
}

void MuteModeTest::muteThatTheUnitDidNotTakeStaysShownOffLine()
{
    ConsoleUnderTest console;
    console.unit.panel.plugged = false;
    console.AnswerNextBox("Connection Error", QMessageBox::Ok);
    console.Click("cmdMute5");
    QVERIFY(console.AllBoxesSeen());
    QCOMPARE(console.room.MuteState, True);
    QCOMPARE(WrongMute(console, true), QString());
}

void MuteModeTest::modeButtonsStandInTheirFrameWithTheirCaptions()
{
    ConsoleUnderTest console(OffLine);
    QCOMPARE(console.Find<QGroupBox>("Frame1(3)")->title(), "Mode:");
    const std::array<const char *, 6> captions{"Mono",           "A-TYPE",        "SR-TYPE",
                                               "EXTERNAL 6-TRK", "Kelvo Digital", "NONSYNC"};
    for (int i = 0; i < FormatCount; ++i)
        QCOMPARE(console.Find<QPushButton>(Member("cmdMode", i))->text(), captions[std::size_t(i)]);
}

void MuteModeTest::modeIsSentOnceAndShown()
{
    ConsoleUnderTest console;
    QCOMPARE(CurrentModes(console), QList<int>{4});
    console.Click("cmdMode(2)");
    QCOMPARE(CurrentModes(console), QList<int>{2});
    console.Click("cmdMode(2)");
    QCOMPARE(console.Calls(), Calls{"SelectFormat 2"});
    QCOMPARE(console.unit.panel.format, Word(2));
}

void MuteModeTest::formatBeyondTheButtonsHighlightsNone()
{
    ConsoleUnderTest console;
    console.unit.panel.format = 9;
    console.Tick("tmrPoll");
    QCOMPARE(CurrentModes(console), QList<int>{});
    console.Click("cmdMode(0)");
    QCOMPARE(CurrentModes(console), QList<int>{0});
}

void MuteModeTest::buttonsKeepTheirSizeWhenTheirStateChanges()
{
    ConsoleUnderTest console;
    auto *cmdMute5 = console.Find<QPushButton>("cmdMute5");
    auto *cmdMode = console.Find<QPushButton>("cmdMode(1)");
    const QRect mute = cmdMute5->geometry();
    const QRect mode = cmdMode->geometry();
    console.Click("cmdMute5");
    console.Click("cmdMode(1)");
    QCoreApplication::processEvents();
    QCOMPARE(cmdMute5->geometry(), mute);
    QCOMPARE(cmdMode->geometry(), mode);
}

QTEST_MAIN(MuteModeTest)
#include "mutemode_test.moc"
