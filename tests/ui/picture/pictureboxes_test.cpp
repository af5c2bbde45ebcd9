#include "ui/picture/grapharea.h"

#include <QPainter>
#include <QScreen>
#include <QtTest>

#include <set>

using namespace kelvo;

namespace {

constexpr QRgb White = qRgb(255, 255, 255);
constexpr QRgb Blue = qRgb(0, 0, 255);
constexpr QRgb Black = qRgb(0, 0, 0);
constexpr QRgb DarkRed = qRgb(160, 0, 0);

/// What the box shows on a screen of the given scale, in the screen's own pixels.
QImage Shown(QWidget &box, double scale)
{
    QImage image((QSizeF(box.size()) * scale).toSize(), QImage::Format_RGB32);
    image.setDevicePixelRatio(scale);
    image.fill(Qt::magenta);
    box.render(&image);
    image.setDevicePixelRatio(1);
    return image;
}

/// What the screen really shows of a box that is a window of its own.
QImage OnScreen(QWidget &box)
{
    return box.screen()->grabWindow(box.winId()).toImage().convertToFormat(QImage::Format_RGB32);
}

bool OnlyHas(const QImage &image, QRect area, QRgb colour)
{
    for (int y = area.top(); y <= area.bottom(); ++y)
        for (int x = area.left(); x <= area.right(); ++x)
            if (image.pixel(x, y) != colour)
                return false;
    return true;
}

int Count(const QImage &image, QRect area, QRgb colour)
{
    int count = 0;
    for (int y = area.top(); y <= area.bottom(); ++y)
        for (int x = area.left(); x <= area.right(); ++x)
            count += image.pixel(x, y) == colour;
    return count;
}

/// Counts the paintings of a box.
class Paintings : public QObject {
  public:
    explicit Paintings(QWidget &box) { box.installEventFilter(this); }
    int count = 0;

  protected:
    bool eventFilter(QObject *, QEvent *event) override
    {
        count += event->type() == QEvent::Paint;
        return false;
    }
};

} // namespace

class PictureBoxesTest : public QObject {
    Q_OBJECT

  private slots:
    void gainStandsOnWholePixelsAtItsOwnSize_data() { Scales(); }
    void gainStandsOnWholePixelsAtItsOwnSize()
    {
        QFETCH(int, scale);
        OptGraph graph;
        graph.resize(GraphWidth, GraphHeight); // one pixel of the window a unit
        graph.Draw(DrawGain({80, 200}));
        const QImage image = Shown(graph, scale);
        const auto area = [scale](int left, int top, int right, int bottom) {
            return QRect(left * scale, top * scale, (right - left) * scale, (bottom - top) * scale);
        };
        QVERIFY(OnlyHas(image, area(89, 80, 109, 255), Blue));
        QVERIFY(OnlyHas(image, area(217, 200, 237, 255), Blue));
        QVERIFY(OnlyHas(image, area(25, 0, 26, 255), Black));
        QVERIFY(OnlyHas(image, area(25, 255, 300, 256), Black));
        QVERIFY(OnlyHas(image, area(26, 0, 300, 80), White));
        QVERIFY(OnlyHas(image, area(89, 81, 109, 254), Blue));
        QVERIFY(OnlyHas(image, area(109, 81, 217, 255), White));
        QVERIFY(OnlyHas(image, area(300, 0, 310, 285), White));
        // The reference line is broken; every dash is whole pixels of one thickness.
        const QRect reference = area(237, 80, 300, 81);
        const int dashes = Count(image, reference, Black);
        QCOMPARE(dashes + Count(image, reference, White), reference.width() * reference.height());
        QVERIFY(dashes > reference.width() * reference.height() / 2);
        QVERIFY(dashes < reference.width() * reference.height());
    }

    void gainLabelsAreDrawnInBlackAtTheirPlaces()
    {
        OptGraph graph;
        graph.resize(2 * GraphWidth, 2 * GraphHeight);
        graph.Draw(DrawGain({255, 255}));
        const QImage image = Shown(graph, 1);
        for (const QPoint place : {QPoint(2, 76), QPoint(89, 263), QPoint(217, 263)}) {
            const QRect box(2 * place, QSize(46, 40));
            QVERIFY(Count(image, box & image.rect(), White) > 600);
            QVERIFY(Count(image, box & image.rect(), White) < 46 * 40 - 40);
        }
        QVERIFY(OnlyHas(image, QRect(2 * 120, 2 * 258, 2 * 90, 2 * 27), White));
    }

    void slitLossBarsAndMarksStandOnWholePixels_data() { Scales(); }
    void slitLossBarsAndMarksStandOnWholePixels()
    {
        QFETCH(int, scale);
        SlitReadings slit = NoSlitReadings();
        slit[0].fill(100);
        slit[1].fill(90);
        slit[1][10] = 150;
        OptGraph graph;
        graph.resize(GraphWidth, GraphHeight);
        graph.Draw(DrawSlit(slit));
        const QImage image = Shown(graph, scale);
        for (int band = 0; band < 11; ++band) {
            QVERIFY(
                OnlyHas(image, QRect((33 + 11 * band) * scale, 100 * scale, 6 * scale, 155 * scale), Blue));
            QCOMPARE(image.pixel((32 + 11 * band) * scale, 200 * scale), White);
            QCOMPARE(image.pixel((39 + 11 * band) * scale, 200 * scale), White);
        }
        QVERIFY(OnlyHas(image, QRect(281 * scale, 150 * scale, 6 * scale, 105 * scale), Blue));
        QVERIFY(OnlyHas(image, QRect(162 * scale, 0, scale, 255 * scale), Black));
        QVERIFY(Count(image, QRect(281 * scale, 140 * scale, 6 * scale, 10 * scale), DarkRed) > 0);
        QCOMPARE(Count(image, QRect(0, 0, 281 * scale, 285 * scale), DarkRed), 0);
    }

    void noEdgeIsBlurredAtAnySizeAndScale_data()
    {
        QTest::addColumn<QSize>("size");
        QTest::addColumn<double>("scale");
        QTest::newRow("smallest") << QSize(305, 280) << 1.0;
        QTest::newRow("odd size") << QSize(437, 401) << 1.0;
        QTest::newRow("one and a quarter") << QSize(437, 401) << 1.25;
        QTest::newRow("one and a half") << QSize(435, 400) << 1.5;
        QTest::newRow("double") << QSize(333, 301) << 2.0;
        QTest::newRow("very large") << QSize(1200, 1103) << 2.0;
    }
    void noEdgeIsBlurredAtAnySizeAndScale()
    {
        QFETCH(QSize, size);
        QFETCH(double, scale);
        GraphPicture picture = DrawGain({80, 33});
        picture.texts.clear(); // only texts may be smoothed
        OptGraph graph;
        graph.resize(size);
        graph.Draw(picture);
        const QImage image = Shown(graph, scale);
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                QVERIFY((std::set<QRgb>{White, Blue, Black}.count(image.pixel(x, y)) == 1));
        const int top = int(std::lrint(33.0 * image.height() / GraphHeight));
        const int middle = int(std::lrint(227.0 * image.width() / GraphWidth));
        QCOMPARE(image.pixel(middle, top), Blue);
        QVERIFY(image.pixel(middle, top - 1) != Blue);
    }

    void theGraphIsWhiteWhateverTheTheme()
    {
        OptGraph graph;
        QPalette dark;
        dark.setColor(QPalette::Window, Qt::black);
        graph.setPalette(dark);
        graph.resize(100, 100);
        QVERIFY(OnlyHas(Shown(graph, 1), QRect(0, 0, 100, 100), White));
        graph.setEnabled(false);
        QVERIFY(OnlyHas(Shown(graph, 1), QRect(0, 0, 100, 100), White));
    }

    void clearingTheGraphLeavesWhiteGround()
    {
        OptGraph graph;
        graph.resize(GraphWidth, GraphHeight);
        graph.Draw(DrawGain({0, 0}));
        graph.Clear();
        QVERIFY(OnlyHas(Shown(graph, 1), QRect(0, 0, GraphWidth, GraphHeight), White));
    }

    void theFontNameIsThatOfTheLastRoutine()
    {
        OptGraph graph;
        QCOMPARE(graph.property("fontName").toString(), "MS Sans Serif");
        graph.Draw(DrawSlit(NoSlitReadings()));
        QCOMPARE(graph.property("fontName").toString(), "Small Fonts");
        graph.SetFontName(GraphFont);
        QCOMPARE(graph.property("fontName").toString(), "MS Sans Serif");
        graph.Draw(DrawGain({0, 0}));
        QCOMPARE(graph.property("fontName").toString(), "MS Sans Serif");
    }

    void theAzimuthBoxShowsThePictureUnitByUnit_data() { Scales(); }
    void theAzimuthBoxShowsThePictureUnitByUnit()
    {
        QFETCH(int, scale);
        OptAzi box;
        box.resize(256, 256);
        AzimuthHistory history;
        AzimuthSurface expected;
        std::array<Byte, AzimuthBytes> frame{};
        for (int reading = 0; reading < 25; ++reading) {
            for (std::size_t byte = 0; byte < frame.size(); ++byte)
                frame[byte] = Byte(37 * reading + 11 * int(byte));
            history.Store(frame);
            const int next = history.NextLine();
            box.Draw(DrawAzimuth(history, Word(history.line), Word(next)));
            expected.Draw(DrawAzimuth(history, Word(history.line), Word(next)));
            history.line = next;
        }
        const QImage image = Shown(box, scale);
        for (int y = 0; y < 256 * scale; ++y)
            for (int x = 0; x < 256 * scale; ++x)
                QCOMPARE(image.pixel(x, y), expected.Image().pixel(x / scale, y / scale));
    }

    void aThousandReadingsArePaintedOncePerDisplayFrameWithTheNewest()
    {
        OptGraph graph;
        graph.resize(GraphWidth, GraphHeight);
        graph.show();
        QVERIFY(QTest::qWaitForWindowExposed(&graph));
        QCoreApplication::processEvents();
        Paintings paintings(graph);
        for (int reading = 0; reading < 1000; ++reading)
            graph.Draw(DrawGain({Byte(reading), 128}));
        QTRY_COMPARE(paintings.count, 1);
        const QImage image = Shown(graph, 1);
        const int newest = 999 % 256;
        QCOMPARE(image.pixel(99, newest), Blue);
        QCOMPARE(image.pixel(99, newest - 1), White);
    }

    void paintingOnlyWhatHasChangedLeavesTheWholePictureOnTheScreen()
    {
        OptGraph graph;
        graph.resize(437, 401);
        OptAzi azimuth;
        azimuth.resize(333, 333);
        for (QWidget *box : {static_cast<QWidget *>(&graph), static_cast<QWidget *>(&azimuth)}) {
            box->show();
            QVERIFY(QTest::qWaitForWindowExposed(box));
        }
        AzimuthHistory history;
        SlitReadings slit = NoSlitReadings();
        std::array<Byte, AzimuthBytes> frame{};
        for (int reading = 0; reading < 60; ++reading) {
            for (std::size_t byte = 0; byte < frame.size(); ++byte)
                frame[byte] = Byte(91 * reading + 23 * int(byte) * reading);
            history.Store(frame);
            const int next = history.NextLine();
            azimuth.Draw(DrawAzimuth(history, Word(history.line), Word(next)));
            history.line = next;
            std::copy_n(frame.begin(), SlitLossBytes, slit[std::size_t(reading % 2)].begin());
            graph.Draw(reading / 7 % 2 == 0 ? DrawGain({frame[0], frame[1]}) : DrawSlit(slit));
            if (reading == 40)
                graph.Clear();
            graph.PaintChanged();
            azimuth.PaintChanged();
            QCOMPARE(OnScreen(graph), Shown(graph, 1));
            QCOMPARE(OnScreen(azimuth), Shown(azimuth, 1));
        }
    }

    void theGraphKeepsItsProportionsAndTheAzimuthPictureIsTheLargestSquareInItsPlace_data()
    {
        QTest::addColumn<QSize>("size");
        QTest::addColumn<int>("side"); // of the azimuth picture within the frame of one pixel
        QTest::newRow("small laptop") << QSize(450, 380) << 378;
        QTest::newRow("least") << QSize(445, 282) << 280;
        QTest::newRow("large screen") << QSize(1500, 850) << 848;
        QTest::newRow("wide and low") << QSize(1500, 300) << 298;
        QTest::newRow("tall") << QSize(500, 900) << 498;
    }
    void theGraphKeepsItsProportionsAndTheAzimuthPictureIsTheLargestSquareInItsPlace()
    {
        QFETCH(QSize, size);
        QFETCH(int, side);
        GraphArea area;
        area.resize(size);
        area.show();
        QVERIFY(QTest::qWaitForWindowExposed(&area));
        const QWidget &graph = area.Graph();
        const QWidget &azimuth = area.Azimuth();
        QVERIFY(!azimuth.isVisible());
        for (const bool shown : {false, true, false}) {
            area.ShowAzimuth(shown);
            QCOMPARE(azimuth.isVisible(), shown);
            QCOMPARE(graph.isVisible(), !shown);
            QCoreApplication::processEvents();
            QCOMPARE(OnScreen(area), Shown(area, 1)); // no frame of the other box is left
            if (shown) {
                QCOMPARE(azimuth.size(), QSize(side, side));
                QVERIFY(area.rect().contains(azimuth.geometry()));
                continue;
            }
            QVERIFY(area.rect().contains(graph.geometry()));
            QVERIFY(graph.width() >= 300 && graph.height() >= 280);
            QVERIFY(std::abs(graph.width() * 285 - graph.height() * 310) <= 2 * 310);
        }
    }

  private:
    static void Scales()
    {
        QTest::addColumn<int>("scale");
        QTest::newRow("scale 1") << 1;
        QTest::newRow("scale 2") << 2;
    }
};

QTEST_MAIN(PictureBoxesTest)
#include "pictureboxes_test.moc"
