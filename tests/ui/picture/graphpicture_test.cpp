#include "ui/picture/graphpicture.h"

#include <QtTest>

#include <algorithm>

using namespace kelvo;

namespace {

bool Has(const std::vector<GraphLine> &lines, const GraphLine &line)
{
    return std::find(lines.begin(), lines.end(), line) != lines.end();
}

bool Has(const std::vector<GraphBox> &boxes, const GraphBox &box)
{
    return std::find(boxes.begin(), boxes.end(), box) != boxes.end();
}

std::vector<GraphBox> Marks(const GraphPicture &graph)
{
    std::vector<GraphBox> marks;
    std::copy_if(graph.boxes.begin(), graph.boxes.end(), std::back_inserter(marks),
                 [](const GraphBox &box) { return box.ink == Ink::DarkRed; });
    return marks;
}

/// Where a text stands; the second of two equal texts with `nth` 1.
QPoint PlaceOf(const GraphPicture &graph, const char *text, int nth = 0)
{
    for (const GraphText &label : graph.texts) {
        if (qstrcmp(label.text, text) == 0 && nth-- == 0)
            return {label.x, label.y};
    }
    return {-1, -1};
}

/// Both sides with every band at `reading`.
SlitReadings Level(Byte reading)
{
    SlitReadings slit{};
    for (auto &side : slit)
        side.fill(reading);
    return slit;
}

} // namespace

class GraphPictureTest : public QObject {
    Q_OBJECT

  private slots:
    void gainHasItsAxisItsBaseLineAndADashedReferenceLine()
    {
        const GraphPicture graph = DrawGain({10, 20});
        QCOMPARE(graph.lines.size(), std::size_t(3));
        QVERIFY(Has(graph.lines, {25, 0, 25, 255, Stroke::Solid}));
        QVERIFY(Has(graph.lines, {25, 255, 300, 255, Stroke::Solid}));
        QVERIFY(Has(graph.lines, {25, 80, 300, 80, Stroke::Dashed}));
    }

    void gainBarsRunFromTheBaseLineUpToTheirReading()
    {
        const GraphPicture graph = DrawGain({80, 3});
        QCOMPARE(graph.boxes.size(), std::size_t(2));
        QVERIFY(Has(graph.boxes, {89, 80, 109, 255, Ink::Blue}));
        QVERIFY(Has(graph.boxes, {217, 3, 237, 255, Ink::Blue}));
    }

    void aGainReadingOf255IsABarOfNoHeight()
    {
        const GraphPicture graph = DrawGain({255, 255});
        QVERIFY(Has(graph.boxes, {89, 255, 109, 255, Ink::Blue}));
    }

    void gainLabelsStandBesideTheReferenceAndUnderTheBars()
    {
        const GraphPicture graph = DrawGain({1, 2});
        QCOMPARE(QString(graph.fontName), "MS Sans Serif");
        QCOMPARE(PlaceOf(graph, "Ref."), QPoint(2, 76)); // 80 - 8.25 / 2 = 75.875
        QCOMPARE(PlaceOf(graph, "  Left"), QPoint(89, 263));
        QCOMPARE(PlaceOf(graph, " Right"), QPoint(217, 263));
    }

    void slitLossHasItsFrameAReferenceLineAndADividerBetweenTheSides()
    {
        const GraphPicture graph = DrawSlit(Level(100));
        QCOMPARE(graph.lines.size(), std::size_t(4));
        QVERIFY(Has(graph.lines, {25, 0, 25, 255, Stroke::Solid}));
        QVERIFY(Has(graph.lines, {25, 255, 300, 255, Stroke::Solid}));
        QVERIFY(Has(graph.lines, {25, 64, 300, 64, Stroke::Solid}));
        QVERIFY(Has(graph.lines, {162, 0, 162, 255, Stroke::Solid}));
    }

    void slitLossBarsStandElevenUnitsApartOnEachSide()
    {
        SlitReadings slit = Level(100);
        slit[0][10] = 90;
        slit[1][3] = 110;
        slit[1][3] = 105;
        const GraphPicture graph = DrawSlit(slit);
        QCOMPARE(graph.boxes.size(), std::size_t(22));
        QVERIFY(Has(graph.boxes, {33, 100, 39, 255, Ink::Blue}));
        QVERIFY(Has(graph.boxes, {143, 90, 149, 255, Ink::Blue}));
        QVERIFY(Has(graph.boxes, {171, 100, 177, 255, Ink::Blue}));
        QVERIFY(Has(graph.boxes, {204, 105, 210, 255, Ink::Blue}));
        QVERIFY(Has(graph.boxes, {281, 100, 287, 255, Ink::Blue}));
    }

    void bandLabelsStandUnderBandsTwoToNineOfEachSide()
    {
        const GraphPicture graph = DrawSlit(Level(100));
        QCOMPARE(QString(graph.fontName), "Small Fonts");
        const std::array labels{"1.6", "2.0", "2.5", "3.1", "4.0", "5.0", "6.3", "8.0"};
        for (int side = 0; side < 2; ++side) {
            for (int label = 0; label < 8; ++label) {
                const int bar = (side == 0 ? 33 : 171) + 11 * (label + 2);
                const QPoint place = PlaceOf(graph, labels[std::size_t(label)], side);
                QVERIFY(place.x() <= bar && place.x() > bar - 6);
                QVERIFY(place.y() > 255);
            }
        }
    }

    void theTwelveDecibelRangeIsNamedAtTheLeftEdge()
    {
        const GraphPicture graph = DrawSlit(Level(100));
        for (const char *text : {"12 dB", "Range", "Ref."}) {
            const QPoint place = PlaceOf(graph, text);
            QVERIFY(place.x() >= 0 && place.x() < 25);
            QVERIFY(place.y() > 64 - 18 - 13 && place.y() < 64 + 6);
        }
        QVERIFY(PlaceOf(graph, "Band (kHz)").y() > 255);
    }

    void aBandIsMarkedWhenItLeavesTheRangeAroundTheFirstBand_data()
    {
        QTest::addColumn<int>("reference");
        QTest::addColumn<int>("reading");
        QTest::addColumn<bool>("marked");
        QTest::newRow("at the reference") << 100 << 100 << false;
        QTest::newRow("eighteen above it in level") << 100 << 82 << false;
        QTest::newRow("nineteen above it in level") << 100 << 81 << true;
        QTest::newRow("six below it in level") << 100 << 106 << false;
        QTest::newRow("seven below it in level") << 100 << 107 << true;
        QTest::newRow("no signal in one band") << 100 << 255 << true;
        QTest::newRow("the highest level") << 100 << 0 << true;
        QTest::newRow("reference near the top") << 5 << 0 << false;
    }
    void aBandIsMarkedWhenItLeavesTheRangeAroundTheFirstBand()
    {
        QFETCH(int, reference);
        QFETCH(int, reading);
        QFETCH(bool, marked);
        SlitReadings slit = Level(Byte(reference));
        slit[1][4] = Byte(reading);
        const auto marks = Marks(DrawSlit(slit));
        QCOMPARE(marks.size(), std::size_t(marked ? 1 : 0));
        if (!marked)
            return;
        QCOMPARE(marks[0].left, 171 + 44);
        QCOMPARE(marks[0].right, 171 + 44 + 6);
        QVERIFY(marks[0].top >= 0 && marks[0].bottom - marks[0].top <= 4);
        if (reading >= 5)
            QVERIFY(marks[0].bottom <= reading);
    }

    void aSideWithoutAnySignalIsNotJudged()
    {
        SlitReadings slit = Level(255);
        QCOMPARE(Marks(DrawSlit(slit)).size(), std::size_t(0));
        slit[0][7] = 60; // now the first side has a signal, 195 above its reference
        const auto marks = Marks(DrawSlit(slit));
        QCOMPARE(marks.size(), std::size_t(1));
        QCOMPARE(marks[0].left, 33 + 77);
    }

    void everyByteGivesAPictureInsideTheSurface()
    {
        for (int reading = 0; reading <= 255; ++reading) {
            SlitReadings slit = Level(Byte(reading));
            slit[0][0] = slit[1][0] = Byte(255 - reading);
            for (const GraphPicture &graph : {DrawGain({Byte(reading), Byte(255 - reading)}), DrawSlit(slit)})
                for (const GraphBox &box : graph.boxes) {
                    QVERIFY(box.left >= 0 && box.right <= GraphWidth && box.top >= 0);
                    QVERIFY(box.top <= box.bottom && box.bottom <= 255);
                }
        }
    }

    void aTextIsPrintedWhereItIsAsked()
    {
        GraphPicture graph;
        PrintOnGraph(graph, 140, 275, "Band (kHz)");
        QCOMPARE(PlaceOf(graph, "Band (kHz)"), QPoint(140, 275));
    }
};

QTEST_APPLESS_MAIN(GraphPictureTest)
#include "graphpicture_test.moc"
