#include "support/testclock.h"
#include "ui/main/frmmain.h"
#include "unit/simulatedunit.h"

#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QTemporaryDir>
#include <QtTest>

#include <functional>
#include <random>

using namespace kelvo;

namespace {

constexpr QRgb White = qRgb(255, 255, 255);
constexpr QRgb Blue = qRgb(0, 0, 255);

bool IsBlank(const QImage &image)
{
    QImage blank(image.size(), image.format());
    blank.fill(White);
    return image == blank;
}

/// A unit whose readings are those that the test puts in.
struct ScriptedUnit : SimulatedUnit {
    GainReading gain{};
    std::array<Byte, SlitLossBytes> slit{};
    Word side = 0;
    std::array<Byte, AzimuthBytes> azimuth{};
    Status answer = Success;
    int reads = 0;
    std::function<void()> duringRead = [] {}; ///< what else happens while the unit answers

  protected:
    Status Perform(const Call &call) override
    {
        switch (call.operation) {
        case Operation::GetOptGain:
            return Give(gain, call.bytesOut);
        case Operation::GetSingleSlitloss:
            call.wordsOut[0] = side;
            return Give(slit, call.bytesOut);
        case Operation::GetOptAzimuth:
            return Give(azimuth, call.bytesOut);
        default:
            return SimulatedUnit::Perform(call);
        }
    }

  private:
    template <class Reading>
    Status Give(const Reading &reading, std::span<Byte> target)
    {
        ++reads;
        duringRead();
        std::copy(reading.begin(), reading.end(), target.begin());
        return answer;
    }
};

/// The real main window over a scripted unit, on its optical tab.
struct ScriptedConsole {
    QTemporaryDir folder;
    ScriptedUnit unit;
    Trace pauses;
    TestClock clock{pauses};
    RoomSettings room;
    Preferences options;
    FileState file;
    FrmMain window{room,
                   options,
                   file,
                   unit,
                   clock,
                   {.programDirectory = folder.path(),
                    .helpFile = folder.filePath("Zentra-HELP.rtf"),
                    .missingLibrary = {},
                    .serialIniMissing = [] { return false; },
                    .report = [](const QString &) {}}};

    ScriptedConsole()
    {
        window.resize(1200, 800);
        window.Form_Load();
        window.show();
        window.findChild<QTabWidget *>("SSTAB1")->setCurrentIndex(int(Tab::OpticalSetup));
    }
    void Start(int measurement)
    {
        window.findChild<QRadioButton *>(QString("optOptical(%1)").arg(measurement))->click();
        window.findChild<QPushButton *>("cmdStart")->click();
    }
    void Stop() { window.findChild<QPushButton *>("cmdStart")->click(); }
    void Read()
    {
        auto *timer = window.findChild<QTimer *>("tmrOptical");
        QVERIFY(timer->isActive());
        QMetaObject::invokeMethod(timer, "timeout", Qt::DirectConnection, QGenericArgument());
    }
    void ReadAzimuth(Byte across, Byte up)
    {
        for (std::size_t pair = 0; pair < AzimuthPairs; ++pair) {
            unit.azimuth[2 * pair] = across;
            unit.azimuth[2 * pair + 1] = up;
        }
        Read();
    }
    QString Lock() const { return window.findChild<QLabel *>("lblLock")->text(); }
    QImage Picture(const char *box) const { return window.findChild<QWidget *>(box)->grab().toImage(); }
    QRgb GraphAt(double x, double y) const
    {
        const QImage image = Picture("OptGraph");
        return image.pixel(int(x * image.width() / GraphWidth), int(y * image.height() / GraphHeight));
    }
    /// The middle of a point of the azimuth picture.
    QRgb AzimuthAt(double x, double y) const
    {
        const QImage image = Picture("optAzi");
        return image.pixel(int((x + 0.5) * image.width() / 256), int((y + 0.5) * image.height() / 256));
    }
};

} // namespace

class OpticalInputTest : public QObject {
    Q_OBJECT

  private slots:
    void everyByteOfAGainReadingStandsAtItsHeight()
    {
        ScriptedConsole console;
        console.Start(0);
        for (int reading = 0; reading <= 255; ++reading) {
            console.unit.gain = {Byte(reading), Byte(255 - reading)};
            console.Read();
            if (reading < 250)
                QCOMPARE(console.GraphAt(99, reading + 2), Blue);
            if (reading > 2)
                QCOMPARE(console.GraphAt(99, reading - 2),
                         reading - 2 == 80 ? console.GraphAt(99, 80) : White);
        }
    }

    void anySideFlagButNoughtIsTheSecondSide_data()
    {
        QTest::addColumn<int>("flag");
        QTest::addColumn<bool>("second");
        QTest::newRow("0") << 0 << false;
        QTest::newRow("1") << 1 << true;
        QTest::newRow("-1") << -1 << true;
        QTest::newRow("32767") << 32767 << true;
        QTest::newRow("-32768") << -32768 << true;
        QTest::newRow("256") << 256 << true;
    }
    void anySideFlagButNoughtIsTheSecondSide()
    {
        QFETCH(int, flag);
        QFETCH(bool, second);
        ScriptedConsole console;
        console.Start(1);
        console.unit.side = Word(flag);
        console.unit.slit.fill(120);
        console.Read();
        QCOMPARE(console.GraphAt(36, 200), second ? White : Blue);
        QCOMPARE(console.GraphAt(174, 200), second ? Blue : White);
    }

    void aSideKeepsItsReadingWhileTheOtherIsRead()
    {
        ScriptedConsole console;
        console.Start(1);
        console.unit.slit.fill(120);
        console.Read();
        console.unit.side = 1;
        console.unit.slit.fill(60);
        console.Read();
        QCOMPARE(console.GraphAt(36, 200), Blue);
        QCOMPARE(console.GraphAt(36, 100), White);
        QCOMPARE(console.GraphAt(174, 100), Blue);
    }

    void anotherProjectorBeginsWithNoReadingOfTheOneBefore()
    {
        ScriptedConsole console;
        console.Start(1);
        console.unit.slit.fill(120);
        console.Read();
        console.window.findChild<QPushButton *>("cmdPro(1)")->click();
        console.unit.side = 1;
        console.Read();
        QCOMPARE(console.GraphAt(36, 200), White);
        QCOMPARE(console.GraphAt(174, 200), Blue);
    }

    void anyBytesAreTakenByEveryMeasurement()
    {
        std::mt19937 random(99);
        std::uniform_int_distribution<int> byte(0, 255);
        const auto any = [&] { return Byte(byte(random)); };
        ScriptedConsole console;
        for (const int measurement : {0, 1, 2}) {
            console.Start(measurement);
            for (int reading = 0; reading < 400; ++reading) {
                std::generate(console.unit.gain.begin(), console.unit.gain.end(), any);
                std::generate(console.unit.slit.begin(), console.unit.slit.end(), any);
                std::generate(console.unit.azimuth.begin(), console.unit.azimuth.end(), any);
                console.unit.side = Word(byte(random) - 128);
                console.Read();
                if (reading % 40 == 0)
                    QVERIFY(!IsBlank(console.Picture(measurement == 2 ? "optAzi" : "OptGraph")));
            }
            QCOMPARE(console.Lock(), "Stream Lock");
            console.Stop();
        }
    }

    void aStreamThatStartsLateAndPausesGoesOn()
    {
        ScriptedConsole console;
        console.unit.answer = StreamNotLocked;
        console.Start(0);
        console.unit.gain = {50, 50};
        for (int reading = 0; reading < 500; ++reading)
            console.Read();
        QCOMPARE(console.Lock(), "No Stream");
        QCOMPARE(console.GraphAt(99, 200), White); // what came with the error is not drawn
        console.unit.answer = Success;
        console.Read();
        QCOMPARE(console.Lock(), "Stream Lock");
        QCOMPARE(console.GraphAt(99, 200), Blue);
        console.unit.answer = StreamNotLocked;
        console.unit.gain = {250, 250};
        console.Read();
        QCOMPARE(console.Lock(), "No Stream");
        QCOMPARE(console.GraphAt(99, 200), Blue); // the last good picture stays
    }

    void aTickInsideAReadReadsNothing_data()
    {
        QTest::addColumn<int>("measurement");
        QTest::newRow("gain") << 0;
        QTest::newRow("slit loss") << 1;
        QTest::newRow("azimuth") << 2;
    }
    void aTickInsideAReadReadsNothing()
    {
        QFETCH(int, measurement);
        ScriptedConsole console;
        console.Start(measurement);
        console.unit.reads = 0;
        int inside = 0;
        console.unit.duringRead = [&] {
            if (++inside == 1)
                console.Read();
        };
        console.Read();
        QCOMPARE(console.unit.reads, 1);
        console.Read();
        QCOMPARE(console.unit.reads, 2);
    }

    void anAzimuthReadingStandsRightAndUpFromTheCentre()
    {
        ScriptedConsole console;
        console.Start(2);
        console.ReadAzimuth(40, 80);
        console.ReadAzimuth(200, 200); // -56 both ways
        QCOMPARE(console.AzimuthAt(168, 48), Blue);
        QCOMPARE(console.AzimuthAt(72, 184), Blue);
        QCOMPARE(console.AzimuthAt(168, 60), White);
    }

    void theTenthReadingWipesTheFirst()
    {
        ScriptedConsole console;
        console.Start(2);
        console.ReadAzimuth(40, 80);
        for (int reading = 2; reading <= 9; ++reading) {
            console.ReadAzimuth(100, 100);
            QCOMPARE(console.AzimuthAt(168, 48), Blue);
        }
        console.ReadAzimuth(100, 100);
        QCOMPARE(console.AzimuthAt(168, 48), White);
    }

    void startForgetsTheAzimuthHistory()
    {
        const auto crossHairPixels = [](const ScriptedConsole &console, int from, int to) {
            int black = 0;
            for (int x = from; x < to; ++x)
                black += console.AzimuthAt(x, 128) == qRgb(0, 0, 0);
            return black;
        };
        ScriptedConsole console;
        console.Start(2);
        for (int reading = 0; reading < 9; ++reading)
            console.ReadAzimuth(44, 0); // on the cross-hair, x 170 to 173
        console.Stop();
        console.Start(2);
        for (int reading = 0; reading < 9; ++reading)
            console.ReadAzimuth(100, 100);
        // The ninth reading wipes the never filled line 9 in the centre, and nothing of the stream before.
        QCOMPARE(crossHairPixels(console, 126, 130), 0);
        QVERIFY(crossHairPixels(console, 170, 174) > 0);
    }

    void stopLeavesBothPicturesBlank()
    {
        ScriptedConsole console;
        console.Start(2);
        console.ReadAzimuth(40, 80);
        console.Stop();
        for (const char *box : {"OptGraph", "optAzi"})
            QVERIFY(IsBlank(console.Picture(box)));
    }
};

QTEST_MAIN(OpticalInputTest)
#include "opticalinput_test.moc"
