#include "support/ui/consoleundertest.h"

#include <QLabel>

using namespace kelvo;

namespace {

/// The console on its optical tab with a reader whose stream locks.
struct Optical : ConsoleUnderTest {
    Optical() : ConsoleUnderTest(OnLine, Tab::OpticalSetup) {}

    QLabel &Lock() const { return *Find<QLabel>("lblLock"); }
    QRgb Ground() const { return Lock().grab().toImage().pixel(2, 2); }
    int Count(const QString &box, const std::function<bool(QRgb)> &counts) const
    {
        const QImage picture = Find<QWidget>(box)->grab().toImage();
        int count = 0;
        for (int y = 0; y < picture.height(); ++y)
            for (int x = 0; x < picture.width(); ++x)
                count += counts(picture.pixel(x, y));
        return count;
    }
    int BluePixels(const QString &box) const
    {
        return Count(box, [](QRgb pixel) { return pixel == qRgb(0, 0, 255); });
    }
    int NotWhitePixels(const QString &box) const
    {
        return Count(box, [](QRgb pixel) { return pixel != qRgb(255, 255, 255); });
    }
    void ReadUntilLocked()
    {
        for (int reading = 0; reading <= SimulatedUnit::ReadingsToLock; ++reading)
            Tick("tmrOptical");
        IsLocked();
    }
    void IsLocked() const
    {
        QCOMPARE(Lock().text(), "Stream Lock");
        QCOMPARE(Ground(), qRgb(0, 255, 0));
    }
    void IsNotLocked() const
    {
        QCOMPARE(Lock().text(), "No Stream");
        QCOMPARE(Ground(), qRgb(255, 0, 0));
    }
    void IsBlank() const
    {
        QVERIFY(Lock().isVisible());
        QCOMPARE(Lock().text(), QString());
        QCOMPARE(Ground(), window->palette().color(QPalette::Window).rgb());
    }
};

} // namespace

class StreamLockTest : public QObject {
    Q_OBJECT

  private slots:
    void aStreamThatIsNotLockedIsRedWithoutAMessageAndGreenAtTheNextGoodReading()
    {
        Optical console;
        console.Click("cmdStart");
        console.Tick("tmrOptical");
        console.IsNotLocked();
        console.ReadUntilLocked();
        console.unit.reader.locked = false;
        console.Tick("tmrOptical");
        console.IsNotLocked();
        console.unit.reader.locked = true;
        console.Tick("tmrOptical");
        console.IsLocked();
    }

    void lastReadingsAreHatchedOrDimmedUntilTheNext_data()
    {
        QTest::addColumn<QString>("measurement");
        QTest::addColumn<QString>("box");
        QTest::newRow("gain") << "optOptical(0)"
                              << "OptGraph";
        QTest::newRow("slit loss") << "optOptical(1)"
                                   << "OptGraph";
        QTest::newRow("azimuth") << "optOptical(2)"
                                 << "optAzi";
    }

    void lastReadingsAreHatchedOrDimmedUntilTheNext()
    {
        QFETCH(QString, measurement);
        QFETCH(QString, box);
        Optical console;
        console.Click(measurement);
        console.Click("cmdStart");
        console.ReadUntilLocked();
        const int live = console.BluePixels(box);
        QVERIFY(live > 0);
        console.unit.reader.locked = false;
        console.Tick("tmrOptical");
        console.IsNotLocked();
        QVERIFY(console.BluePixels(box) < live * 19 / 20);
        QVERIFY(console.NotWhitePixels(box) > live * 3 / 4); // they are still there
        console.unit.reader.locked = true;
        console.Tick("tmrOptical");
        QVERIFY(console.BluePixels(box) > live * 19 / 20);
    }

    void atStartNothingIsClaimedUntilTheFirstReading()
    {
        Optical console;
        console.Click("cmdStart");
        console.IsBlank();
        console.ReadUntilLocked();
        console.Click("cmdStart"); // stop
        QVERIFY(console.Lock().isHidden());
        console.Click("cmdStart");
        console.IsBlank();
    }

    void anotherReaderOrMeasurementIsNotTakenForLocked_data()
    {
        QTest::addColumn<QString>("button");
        QTest::newRow("another projector") << "cmdPro(1)";
        QTest::newRow("the same projector again") << "cmdPro(0)";
        QTest::newRow("another measurement") << "optOptical(2)";
    }
    void anotherReaderOrMeasurementIsNotTakenForLocked()
    {
        QFETCH(QString, button);
        Optical console;
        console.Click("cmdStart");
        console.ReadUntilLocked();
        console.Click(button);
        console.IsBlank();
        console.Tick("tmrOptical");
        console.IsNotLocked();
        console.Click(button == "optOptical(2)" ? "optOptical(0)" : button);
        console.IsBlank();
        console.ReadUntilLocked();
    }

    void aMuteDuringAStreamLeavesItAsItWas()
    {
        Optical console;
        console.Click("cmdStart");
        console.ReadUntilLocked();
        console.window->findChild<OpticalPanel *>()->cmdMute4_Click();
        console.IsLocked();
    }

    void nothingMovesWhenTheFirstReadingAnswers()
    {
        Optical console;
        const auto layOut = [] { QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest); };
        console.Click("cmdStart");
        layOut();
        const QRect blank = console.Lock().geometry();
        const QRect start = console.Find<QWidget>("cmdStart")->geometry();
        console.Tick("tmrOptical");
        console.IsNotLocked();
        layOut();
        QCOMPARE(console.Lock().geometry(), blank);
        QCOMPARE(console.Find<QWidget>("cmdStart")->geometry(), start);
        QVERIFY(blank.height() >= console.Lock().fontMetrics().height());
    }
};

QTEST_MAIN(StreamLockTest)
#include "streamlock_test.moc"
