#include "ui/picture/azimuthpicture.h"

#include <QtTest>

#include <map>
#include <random>
#include <set>

using namespace kelvo;

namespace {

constexpr QRgb White = qRgb(255, 255, 255);
constexpr QRgb Blue = qRgb(0, 0, 255);
constexpr QRgb Black = qRgb(0, 0, 0);

using Frame = std::array<Byte, AzimuthBytes>;

Frame FrameOf(Byte first, Byte second)
{
    Frame frame;
    for (std::size_t pair = 0; pair < AzimuthPairs; ++pair) {
        frame[2 * pair] = first;
        frame[2 * pair + 1] = second;
    }
    return frame;
}

/// A stream into a picture, as the tab feeds it.
struct Stream {
    AzimuthHistory history;
    AzimuthSurface picture;

    void Read(const Frame &frame)
    {
        history.Store(frame);
        const int next = history.NextLine();
        picture.Draw(DrawAzimuth(history, Word(history.line), Word(next)));
        history.line = next;
    }
    QRgb At(int x, int y) const { return picture.Image().pixel(x, y); }
};

int Blacks(const QImage &image, const QRect &part)
{
    int blacks = 0;
    for (int y = part.top(); y <= part.bottom(); ++y)
        for (int x = part.left(); x <= part.right(); ++x)
            blacks += image.pixel(x, y) == Black;
    return blacks;
}

/// The same picture drawn the slow way, without any of the console's code: positions by exact halves, a
/// plain map from unit to colour, the whole rule for every reading.
class SlowPicture {
  public:
    void Read(const Frame &frame)
    {
        for (int pair = 0; pair < 14; ++pair)
            table_[line_][pair] = {frame[std::size_t(2 * pair)], frame[std::size_t(2 * pair + 1)]};
        const int next = (line_ + 1) % 10;
        for (int unit = 0; unit < 256; ++unit) {
            if (unit % 10 < 6) {
                colours_[{128, unit}] = Black;
                colours_[{unit, 128}] = Black;
            }
        }
        std::set<std::pair<int, int>> kept;
        for (int line = 0; line < 10; ++line)
            for (int pair = 0; line != next && pair < 14; ++pair)
                for (const auto &unit : UnitsOf(PlaceOf(line, pair)))
                    kept.insert(unit);
        for (int pair = 0; pair < 14; ++pair) {
            for (const auto &unit : UnitsOf(PlaceOf(next, pair)))
                if (!kept.contains(unit))
                    colours_[unit] = White;
            for (const auto &unit : UnitsOf(PlaceOf(line_, pair)))
                colours_[unit] = Blue;
        }
        line_ = next;
    }

    QRgb At(int x, int y) const
    {
        const auto found = colours_.find({x, y});
        return found == colours_.end() ? White : found->second;
    }

  private:
    static int Offset(int reading)
    {
        int value = reading >= 128 ? reading - 256 : reading;
        value = value < -127 ? -127 : value;
        if (value % 2 == 0)
            return value;
        return (value + 1) % 4 == 0 ? value + 1 : value - 1; // of its even neighbours, the multiple of 4
    }
    std::pair<int, int> PlaceOf(int line, int pair) const
    {
        return {128 + Offset(table_[line][pair].first), 128 - Offset(table_[line][pair].second)};
    }
    static std::vector<std::pair<int, int>> UnitsOf(std::pair<int, int> place)
    {
        std::vector<std::pair<int, int>> units;
        for (int x = place.first - 2; x < place.first + 2; ++x)
            for (int y = place.second - 2; y < place.second + 2; ++y)
                units.emplace_back(x, y);
        return units;
    }

    std::pair<int, int> table_[10][14]{};
    std::map<std::pair<int, int>, QRgb> colours_;
    int line_ = 0;
};

} // namespace

class AzimuthPictureTest : public QObject {
    Q_OBJECT

  private slots:
    void aReadingBecomesAnEvenOffsetFromTheCentre_data()
    {
        QTest::addColumn<int>("reading");
        QTest::addColumn<int>("offset");
        const std::pair<int, int> known[] = {{0, 0},      {1, 0},      {2, 2},     {3, 4},     {5, 4},
                                             {6, 6},      {7, 8},      {126, 126}, {127, 128}, {128, -128},
                                             {129, -128}, {130, -126}, {200, -56}, {253, -4},  {254, -2},
                                             {255, 0},    {251, -4}};
        for (const auto &[reading, offset] : known)
            QTest::addRow("%d becomes %d", reading, offset) << reading << offset;
    }
    void aReadingBecomesAnEvenOffsetFromTheCentre()
    {
        QFETCH(int, reading);
        QFETCH(int, offset);
        Word value = Word(reading);
        DrawAzimuthConvert(value);
        QCOMPARE(int(value), offset);
    }

    void everyReadingGoesToItsNearestEvenNumberAndOddOnesToAMultipleOfFour()
    {
        for (int reading = 0; reading < 256; ++reading) {
            const int signedReading = std::max(reading < 128 ? reading : reading - 256, -127);
            Word value = Word(reading);
            DrawAzimuthConvert(value);
            QVERIFY(std::abs(value - signedReading) <= 1);
            QCOMPARE(value % (signedReading % 2 == 0 ? 2 : 4), 0);
        }
    }

    void aPointIsFourUnitsWideRightOfTheCentreForAPositiveFirstValueAndAboveItForAPositiveSecond()
    {
        Stream stream;
        stream.Read(FrameOf(20, 50));
        for (int x = 146; x < 150; ++x)
            for (int y = 76; y < 80; ++y)
                QCOMPARE(stream.At(x, y), Blue);
        QCOMPARE(stream.At(145, 76), White);
        QCOMPARE(stream.At(150, 76), White);
        QCOMPARE(stream.At(146, 75), White);
        QCOMPARE(stream.At(146, 80), White);
    }

    void aBrokenCrossHairRunsThroughTheCentre()
    {
        Stream stream;
        stream.Read(FrameOf(100, 100));
        int across = 0;
        int down = 0;
        for (int unit = 0; unit < 256; ++unit) {
            across += stream.At(unit, 128) == Black;
            down += stream.At(128, unit) == Black;
        }
        QVERIFY(across > 100 && across < 200);
        QVERIFY(down > 100 && down < 200);
        QCOMPARE(stream.At(0, 128), Black);
        QCOMPARE(stream.At(128, 0), Black);
    }

    void aPositionStaysForTenReadingsAndIsThenWiped()
    {
        Stream stream;
        stream.Read(FrameOf(60, 60));
        for (int reading = 1; reading < 9; ++reading) {
            stream.Read(FrameOf(Byte(10 * reading), 0));
            QCOMPARE(stream.At(188, 68), Blue);
        }
        stream.Read(FrameOf(100, 0)); // the tenth reading: line 0 comes next
        QCOMPARE(stream.At(188, 68), White);
    }

    void aPositionThatANewerReadingUsesStaysVisible()
    {
        Stream stream;
        stream.Read(FrameOf(60, 60));
        for (int reading = 1; reading < 9; ++reading)
            stream.Read(reading == 5 ? FrameOf(60, 60) : FrameOf(0, 60));
        stream.Read(FrameOf(0, 60));
        QCOMPARE(stream.At(188, 68), Blue);
        for (int reading = 0; reading < 5; ++reading)
            stream.Read(FrameOf(0, 60));
        QCOMPARE(stream.At(188, 68), White);
    }

    void aPairThatAnotherPairOfANewerReadingUsesStaysVisible()
    {
        Stream stream;
        Frame first = FrameOf(40, 40);
        first[0] = 80;
        first[1] = 80;
        Frame other = FrameOf(40, 40);
        other[26] = 80;
        other[27] = 80;
        stream.Read(first);
        for (int reading = 1; reading < 10; ++reading)
            stream.Read(other);
        QCOMPARE(stream.At(208, 48), Blue);
    }

    void ofAPointThatOverlapsOneOfAnotherLineOnlyTheRestIsWiped()
    {
        AzimuthHistory history;
        history.Store(FrameOf(20, 50)); // x 146 to 149, y 76 to 79
        for (history.line = 1; history.line < 9; ++history.line)
            history.Store(FrameOf(22, 52)); // x 148 to 151, y 74 to 77
        history.Store(FrameOf(100, 100));
        std::set<std::pair<int, int>> wiped;
        for (const AzimuthBox &box : DrawAzimuth(history, 9, 0))
            for (int x = box.units.left(); box.colour == White && x <= box.units.right(); ++x)
                for (int y = box.units.top(); y <= box.units.bottom(); ++y)
                    wiped.emplace(x, y);
        std::set<std::pair<int, int>> expected;
        for (const int x : {146, 147, 148, 149})
            for (const int y : {76, 77, 78, 79})
                if (x < 148 || y > 77)
                    expected.emplace(x, y);
        QCOMPARE(wiped, expected);
    }

    void wipingLeavesAnOverlappingPointOfAnotherLineWhole()
    {
        Stream stream;
        stream.Read(FrameOf(20, 50));
        stream.Read(FrameOf(22, 52));
        for (int reading = 2; reading < 10; ++reading)
            stream.Read(FrameOf(100, 100));
        for (int x = 145; x < 153; ++x)
            for (int y = 73; y < 81; ++y)
                QCOMPARE(stream.At(x, y), x >= 148 && x < 152 && y >= 74 && y < 78 ? Blue : White);
        stream.Read(FrameOf(100, 100)); // line 1 goes as well
        QCOMPARE(stream.At(148, 76), White);
        QCOMPARE(stream.At(151, 74), White);
    }

    void theTenthReadingFillsLineNineAndWipesLineZero()
    {
        AzimuthHistory history;
        for (int reading = 0; reading < 9; ++reading)
            history.line = history.NextLine();
        QCOMPARE(history.line, 9);
        QCOMPARE(history.NextLine(), 0);
    }

    void pointsAtTheEdgesAreCutOffAndNothingElse()
    {
        Stream stream;
        stream.Read(FrameOf(127, 127)); // 128 right and 128 up: x 256, y 0
        QCOMPARE(stream.At(255, 0), Blue);
        QCOMPARE(stream.At(254, 1), Blue);
        QCOMPARE(stream.At(253, 0), White);
        stream.Read(FrameOf(128, 128)); // x 0, y 256
        QCOMPARE(stream.At(0, 255), Blue);
        QCOMPARE(stream.At(1, 254), Blue);
        QCOMPARE(stream.At(2, 255), White);
    }

    void thePictureIsWhatDrawingEveryReadingInItsTurnLeaves_data()
    {
        QTest::addColumn<int>("spread");
        QTest::newRow("points crowd over the cross-hair") << 6;
        QTest::newRow("points meet now and then") << 20;
        QTest::newRow("points over half the picture") << 60;
        QTest::newRow("any byte") << 128;
    }
    void thePictureIsWhatDrawingEveryReadingInItsTurnLeaves()
    {
        QFETCH(int, spread);
        std::mt19937 random(20240607);
        std::uniform_int_distribution<int> byte(-spread, spread - 1);
        Stream stream;
        SlowPicture slow;
        for (int reading = 0; reading < 137; ++reading) {
            Frame frame;
            for (Byte &value : frame)
                value = Byte(byte(random));
            stream.Read(frame);
            slow.Read(frame);
        }
        std::set<QRgb> seen;
        for (int y = 0; y < 256; ++y)
            for (int x = 0; x < 256; ++x) {
                QVERIFY2(stream.At(x, y) == slow.At(x, y), qPrintable(QString("%1, %2").arg(x).arg(y)));
                seen.insert(slow.At(x, y));
            }
        QCOMPARE(seen, (std::set<QRgb>{White, Blue, Black}));
    }

    void theScaledPictureIsTheSameWhetherDrawnStepByStepOrAtOnce_data()
    {
        QTest::addColumn<int>("side");
        for (const int side : {130, 163, 164, 255, 256, 301, 512, 777})
            QTest::addRow("%d pixels", side) << side;
    }
    void theScaledPictureIsTheSameWhetherDrawnStepByStepOrAtOnce()
    {
        QFETCH(int, side);
        std::mt19937 random(7);
        std::uniform_int_distribution<int> byte(-40, 39);
        Stream steps;
        Stream atOnce;
        steps.picture.SetScaledSide(side);
        for (int reading = 0; reading < 60; ++reading) {
            Frame frame;
            for (Byte &value : frame)
                value = Byte(byte(random));
            steps.Read(frame);
            atOnce.Read(frame);
        }
        atOnce.picture.SetScaledSide(side);
        QCOMPARE(steps.picture.Scaled(), atOnce.picture.Scaled());
        QCOMPARE(steps.picture.Scaled().size(), QSize(side, side));
    }

    void theCrossHairIsSeenAtEverySize()
    {
        for (int side = 130; side < 700; ++side) {
            Stream stream;
            stream.Read(FrameOf(100, 100));
            stream.picture.SetScaledSide(side);
            const QImage &scaled = stream.picture.Scaled();
            int across = 0;
            int down = 0;
            for (int pixel = 0; pixel < side; ++pixel) {
                across = std::max(across, Blacks(scaled, QRect(0, pixel, side, 1)));
                down = std::max(down, Blacks(scaled, QRect(pixel, 0, 1, side)));
            }
            QVERIFY(across > side / 2 && down > side / 2);
        }
    }

    void clearingLeavesWhiteGround()
    {
        Stream stream;
        stream.Read(FrameOf(10, 20));
        stream.picture.Clear();
        for (int unit = 0; unit < 256; ++unit)
            QCOMPARE(stream.At(unit, 128), White);
    }
};

QTEST_APPLESS_MAIN(AzimuthPictureTest)
#include "azimuthpicture_test.moc"
