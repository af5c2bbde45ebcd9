#include "support/ui/consoleundertest.h"

#include <QComboBox>
#include <QLabel>
#include <QSignalSpy>

using namespace kelvo;

namespace {

constexpr QColor Amber(255, 191, 0);
constexpr QColor Dot(196, 106, 0);

/// Where in the control the dot's own colour is seen; null = nowhere.
QRect DotIn(QWidget *control)
{
    const QImage picture = control->grab().toImage();
    QRect dot;
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x)
            if (picture.pixelColor(x, y) == Dot)
                dot |= QRect(x, y, 1, 1);
    return dot;
}

/// The names of the sliders and lists that bear the mark, each of which says so to a screen reader too.
QStringList Marked(const ConsoleUnderTest &console)
{
    QStringList names;
    for (const QWidget *control : console.window->findChildren<QWidget *>())
        if (control->accessibleDescription() == "not in the unit")
            names += control->objectName();
    return names;
}

double Luminance(const QColor &colour)
{
    const auto linear = [](double part) {
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
           0.0722 * linear(colour.blueF());
}

double Contrast(const QColor &one, const QColor &other)
{
    const auto [dark, light] = std::minmax({Luminance(one), Luminance(other)});
    return (light + 0.05) / (dark + 0.05);
}

} // namespace

class UnsentTest : public QObject {
    Q_OBJECT

  private slots:
    void theLineStandsOnAmberWhileTheUnitLacksSomething()
    {
        ConsoleUnderTest console(OnLine, Tab::OutputTrim);
        auto *lblSent = console.Find<QLabel>("lblSent");
        const QColor ground = lblSent->grab().toImage().pixelColor(1, 1);
        console.Type("lblPNG(0)", "1");
        QCOMPARE(lblSent->grab().toImage().pixelColor(1, 1), Amber);
        QVERIFY(Contrast(lblSent->palette().color(QPalette::WindowText), Amber) >= 7);
        console.Key(Qt::Key_F2);
        QCOMPARE(lblSent->text(), "All sent");
        QCOMPARE(lblSent->grab().toImage().pixelColor(1, 1), ground);
    }

    void offLineTheLineNamesNoKeyAndNoMute()
    {
        ConsoleUnderTest console(OnLine, Tab::OutputTrim);
        auto *lblSent = console.Find<QLabel>("lblSent");
        console.Type("lblPNG(0)", "1");
        console.unit.panel.plugged = false;
        console.AnswerNextBox("Connection Error", QMessageBox::Ok);
        console.Key(Qt::Key_F4); // the unit does not take it
        QCOMPARE(console.room.MuteState, True);
        QCOMPARE(lblSent->text(), "1 change not in the unit");
        QCOMPARE(lblSent->grab().toImage().pixelColor(1, 1), Amber);
    }

    void aLinkLostInAReadingIsToldThereToo()
    {
        ConsoleUnderTest console(OnLine, Tab::OutputTrim);
        console.Type("lblPNG(0)", "1");
        console.GoTo(Tab::OpticalSetup);
        console.Click("cmdStart");
        console.unit.panel.plugged = false;
        console.AnswerNextBox("Connection Error", QMessageBox::Ok);
        QTRY_VERIFY(console.AllBoxesSeen());
        QVERIFY(!console.Find<QLabel>("lblSent")->text().contains("F2"));
    }

    void aClickOnTheLineIsTold()
    {
        ConsoleUnderTest console;
        auto *column = console.window->findChild<MasterColumn *>();
        QSignalSpy clicked(column, &MasterColumn::SentClicked);
        auto *lblSent = console.Find<QLabel>("lblSent");
        QCOMPARE(lblSent->cursor().shape(), Qt::PointingHandCursor);
        QVERIFY(!lblSent->accessibleDescription().isEmpty());
        QTest::mouseClick(lblSent, Qt::RightButton);
        QCOMPARE(clicked.count(), 0);
        console.Click("lblSent");
        QCOMPARE(clicked.count(), 1);
    }

    void whatTheUnitLacksIsMarkedUntilItIsSent()
    {
        ConsoleUnderTest console(OnLine, Tab::OutputTrim);
        QCOMPARE(Marked(console), QStringList());
        console.Type("lblPNG(1)", "3");
        console.GoTo(Tab::Options);
        console.ChooseItem("cboSurroundDelay", "50 mS");
        console.GoTo(Tab::Obe);
        console.Type("lblOBE", "3");
        console.GoTo(Tab::Eq);
        console.Type("lblBass", "-2");
        QStringList marked = Marked(console);
        marked.sort();
        QCOMPARE(marked, (QStringList{"cboSurroundDelay", "sclBass", "sclOBE", "sclPNG(1)"}));
        QVERIFY(!DotIn(console.Find<QWidget>("sclBass")).isNull());
        console.Key(Qt::Key_F2);
        QCOMPARE(Marked(console), QStringList());
        QVERIFY(DotIn(console.Find<QWidget>("sclBass")).isNull());
    }

    void theMarkFollowsTheChannel()
    {
        ConsoleUnderTest console(OnLine, Tab::Eq);
        console.Type("lblBass", "-2");
        console.Type("lblBand(3)", "3");
        console.Click("cmdEQChan(2)");
        QCOMPARE(Marked(console), QStringList());
        console.Click("cmdEQChan(0)");
        QStringList marked = Marked(console);
        marked.sort();
        QCOMPARE(marked, (QStringList{"sclA(3)", "sclBass"}));
    }

    void aFaderThatTheUnitDidNotTakeIsMarkedInBothPlaces()
    {
        ConsoleUnderTest console;
        console.unit.panel.plugged = false;
        console.AnswerNextBox("Connection Error", QMessageBox::Ok);
        console.Type("lblVol(3)", "6");
        QCOMPARE(Marked(console), (QStringList{"sclVol", "sclVol"}));
        console.unit.panel.plugged = true;
        console.Click("cmdConnect");
        QCOMPARE(Marked(console), QStringList());
    }

    void theMarkNeverStandsOnTheThumb_data()
    {
        QTest::addColumn<int>("position");
        for (int position = 0; position <= 24; ++position)
            QTest::addRow("position %d", position) << position;
    }

    void theMarkNeverStandsOnTheThumb()
    {
        QFETCH(int, position);
        ConsoleUnderTest console(OnLine, Tab::OutputTrim);
        auto *slider = console.Find<LevelSlider>("sclPNG(0)");
        console.unit.audio.ChannelTrim[Left] = Byte(position == 12 ? 11 : 12);
        console.Trigger("mnuRef");
        slider->setValue(position);
        const QRect dot = DotIn(slider);
        QVERIFY(!dot.isNull());
        // The thumb is at most as high as it is wide.
        QVERIFY(!dot.intersects(QRect(0, slider->CentreOf(position) - 6, slider->width(), 13)));
    }

    void theMarkCanBeSeen()
    {
        ConsoleUnderTest console(OnLine, Tab::Options);
        console.ChooseItem("cboSurroundDelay", "50 mS");
        auto *list = console.Find<QComboBox>("cboSurroundDelay");
        const QRect dot = DotIn(list);
        QVERIFY(!dot.isNull());
        QVERIFY(dot.left() > list->width() - 20); // above the arrow, never over the text
        const QImage picture = list->grab().toImage();
        QVERIFY(Contrast(Dot, picture.pixelColor(dot.left() - 3, dot.center().y())) >= 3);
    }
};

QTEST_MAIN(UnsentTest)
#include "unsent_test.moc"
