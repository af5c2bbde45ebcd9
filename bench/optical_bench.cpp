#include "console.h"
#include "measuring.h"
#include "ui/picture/opticalreadings.h"
#include "ui/picture/pictureboxes.h"
#include "unit/simulatedunit.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QMouseEvent>
#include <QPushButton>
#include <QRadioButton>
#include <QThread>
#include <QTimer>
#include <QWindow>

#ifdef KELVO_QCUSTOMPLOT
#include <qcustomplot.h>
#endif

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <fstream>
#include <functional>
#include <memory>
#include <string>
#include <vector>

/// What the optical tab costs: readings and clicks while a stream runs, a painted frame of each graph
/// beside one replot of the same picture by QCustomPlot, memory over a long azimuth stream.
namespace {

using namespace kelvo;

double ResidentMegabytes()
{
    std::ifstream status("/proc/self/status");
    std::string word;
    while (status >> word) {
        double kilobytes = 0;
        if (word == "VmRSS:" && status >> kilobytes)
            return kilobytes / 1024;
    }
    return 0;
}

/// A simulated unit that counts its readings.
struct CountedUnit : SimulatedUnit {
    int readings = 0;

  protected:
    Status Perform(const Call &call) override
    {
        using enum Operation;
        if (call.operation == GetOptGain || call.operation == GetSingleSlitloss ||
            call.operation == GetOptAzimuth)
            ++readings;
        return SimulatedUnit::Perform(call);
    }
};

/// The optical tab in front; nothing runs yet.
struct OpticalConsole : Console<CountedUnit> {
    OpticalConsole() : Console(Tab::OpticalSetup, QSize(1100, 800)) {}

    QRadioButton *Measurement(int index) { return Find<QRadioButton>(QString("optOptical(%1)").arg(index)); }
    void StartOrStop() { Find<QPushButton>("cmdStart")->click(); }
};

void RunFor(int milliseconds)
{
    QEventLoop loop;
    QTimer::singleShot(milliseconds, &loop, &QEventLoop::quit);
    loop.exec();
}

/// Clicks a button from outside the interface thread and notes how long each click waits for its answer.
std::vector<double> ClickLatencies(QPushButton &button, int clicks)
{
    std::vector<double> latencies;
    QElapsedTimer sinceClick;
    auto clicked = QObject::connect(&button, &QPushButton::clicked, &button,
                                    [&] { latencies.push_back(double(sinceClick.nsecsElapsed()) * 1e-6); });
    QEventLoop loop;
    std::unique_ptr<QThread> hand(QThread::create([&] {
        for (int click = 0; click < clicks; ++click) {
            QThread::msleep(23);
            const QPointF middle = QRectF(button.rect()).center();
            sinceClick.start();
            for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease})
                QCoreApplication::postEvent(
                    &button, new QMouseEvent(type, middle, middle, Qt::LeftButton,
                                             type == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton,
                                             Qt::NoModifier));
        }
    }));
    QObject::connect(hand.get(), &QThread::finished, &loop, &QEventLoop::quit);
    hand->start();
    loop.exec();
    hand->wait();
    QObject::disconnect(clicked);
    return latencies;
}

void MeasureStreams()
{
    const int milliseconds = FullOrBrief(2000, 200);
    for (const int measurement : {0, 1, 2}) {
        OpticalConsole console;
        console.Measurement(measurement)->click();
        console.StartOrStop();
        RunFor(200);
        const int before = console.unit.readings;
        const double cpu = CpuMilliseconds();
        QElapsedTimer wall;
        wall.start();
        RunFor(milliseconds);
        const double seconds = double(wall.nsecsElapsed()) * 1e-9;
        if (console.unit.readings == before)
            qFatal("the stream brings no readings");
        const double share = (CpuMilliseconds() - cpu) / (seconds * 1000);
        const double rate = (console.unit.readings - before) / seconds;
        std::printf("%-10s %4.0f readings/s (goal >= 900), %4.1f %% of one core (goal <= 10)\n",
                    qPrintable(console.Measurement(measurement)->text()), rate, 100 * share);
        console.StartOrStop();
    }
}

void MeasureClicks()
{
    for (const int slow : {0, 10}) {
        OpticalConsole console;
        QPushButton button("Button", &console.window); // its click asks nothing of the unit
        console.StartOrStop();
        console.unit.panel.slow = std::chrono::milliseconds(slow);
        const auto latencies = ClickLatencies(button, FullOrBrief(60, 5));
        console.unit.panel.slow = {};
        std::printf("click      %4.1f ms at worst, library taking %d ms a read (goal <= 20)\n",
                    *std::max_element(latencies.begin(), latencies.end()), slow);
        console.StartOrStop();
    }
}

void ShowNow(QWidget &window)
{
    window.show();
    while (!window.windowHandle()->isExposed())
        QApplication::processEvents();
}

/// CPU of one frame, a new picture painted each time.
template <typename Frame>
double MillisecondsPerFrame(Frame frame)
{
    const int frames = FullOrBrief(300, 20);
    for (int warm = 0; warm < 20; ++warm)
        frame(warm);
    const double before = CpuMilliseconds();
    for (int number = 0; number < frames; ++number)
        frame(number);
    return (CpuMilliseconds() - before) / frames;
}

constexpr QSize GraphSize(620, 570);
constexpr QSize AzimuthSize(512, 512);

GainReading GainOf(int frame)
{
    return {Byte(80 + frame % 9), Byte(85 - frame % 7)};
}

SlitReadings SlitOf(int frame)
{
    SlitReadings slit{};
    for (std::size_t side = 0; side < slit.size(); ++side)
        for (std::size_t band = 0; band < slit[side].size(); ++band)
            slit[side][band] = Byte(64 + int(band) + (frame + int(side)) % 5);
    return slit;
}

std::array<Byte, AzimuthBytes> AzimuthOf(int frame)
{
    std::array<Byte, AzimuthBytes> bytes{};
    for (std::size_t pair = 0; pair < AzimuthPairs; ++pair) {
        const int along = int(pair) * 12 - 84 + frame % 7;
        bytes[2 * pair] = Byte(along);
        bytes[2 * pair + 1] = Byte(along + (frame * 5 + int(pair) * 3) % 9 - 4);
    }
    return bytes;
}

/// Our own graphs, each frame painted as on the tab: where it has changed.
struct OwnGraphs {
    OptGraph graph;
    OptAzi azimuth;
    AzimuthHistory history;

    OwnGraphs()
    {
        graph.resize(GraphSize);
        azimuth.resize(AzimuthSize);
        ShowNow(graph);
        ShowNow(azimuth);
    }
    void Read(int frame)
    {
        history.Store(AzimuthOf(frame));
        const int next = history.NextLine();
        azimuth.Draw(DrawAzimuth(history, Word(history.line), Word(next)));
        history.line = next;
    }
    double Gain()
    {
        return MillisecondsPerFrame([this](int frame) {
            graph.Draw(DrawGain(GainOf(frame)));
            graph.PaintChanged();
        });
    }
    double Slit()
    {
        return MillisecondsPerFrame([this](int frame) {
            graph.Draw(DrawSlit(SlitOf(frame)));
            graph.PaintChanged();
        });
    }
    double Azimuth()
    {
        return MillisecondsPerFrame([this](int frame) {
            Read(frame);
            azimuth.PaintChanged();
        });
    }
};

#ifdef KELVO_QCUSTOMPLOT

/// The same pictures by QCustomPlot: fixed axes without ticks, y downward.
struct PeerPlot {
    QCustomPlot plot;

    PeerPlot(QSize size, QCPRange across, QCPRange down)
    {
        plot.resize(size);
        plot.xAxis->setRange(across);
        plot.yAxis->setRange(down);
        plot.yAxis->setRangeReversed(true);
        for (QCPAxis *axis : {plot.xAxis, plot.yAxis}) {
            axis->setTicks(false);
            axis->setTickLabels(false);
            axis->grid()->setVisible(false);
            axis->setBasePen(Qt::NoPen);
        }
        plot.axisRect()->setAutoMargins(QCP::msNone);
        plot.axisRect()->setMargins({});
        ShowNow(plot);
    }
    void Line(const GraphLine &shape)
    {
        auto *line = new QCPItemLine(&plot);
        line->setPen(QPen(Qt::black, 1, shape.stroke == Stroke::Dashed ? Qt::DashLine : Qt::SolidLine));
        line->start->setCoords(shape.x1, shape.y1);
        line->end->setCoords(shape.x2, shape.y2);
    }
    void Text(const GraphText &shape)
    {
        auto *text = new QCPItemText(&plot);
        text->setText(shape.text);
        text->setPositionAlignment(Qt::AlignLeft | Qt::AlignTop);
        text->position->setCoords(shape.x, shape.y);
    }
    QCPBars *Bars(double width)
    {
        auto *bars = new QCPBars(plot.xAxis, plot.yAxis);
        bars->setWidth(width);
        bars->setBaseValue(255);
        bars->setPen(Qt::NoPen);
        bars->setBrush(QColor(0, 0, 255));
        return bars;
    }
    double Replots(const std::function<void(int)> &fill)
    {
        return MillisecondsPerFrame([&](int frame) {
            fill(frame);
            plot.replot(QCustomPlot::rpImmediateRefresh);
        });
    }
};

double PeerBars(const std::function<GraphPicture(int)> &draw, double barWidth)
{
    PeerPlot peer(GraphSize, {0, GraphWidth}, {0, GraphHeight});
    const GraphPicture fixed = draw(0);
    for (const GraphLine &line : fixed.lines)
        peer.Line(line);
    for (const GraphText &text : fixed.texts)
        peer.Text(text);
    QCPBars *bars = peer.Bars(barWidth);
    return peer.Replots([&](int frame) {
        QVector<double> keys;
        QVector<double> heights;
        for (const GraphBox &box : draw(frame).boxes) {
            keys.append((box.left + box.right) / 2.0);
            heights.append(box.top - 255);
        }
        bars->setData(keys, heights, true);
    });
}

double PeerAzimuth()
{
    PeerPlot peer(AzimuthSize, {0, AzimuthSide}, {0, AzimuthSide});
    peer.Line({128, 0, 128, 255, Stroke::Dashed});
    peer.Line({0, 128, 255, 128, Stroke::Dashed});
    QCPGraph *points = peer.plot.addGraph();
    points->setLineStyle(QCPGraph::lsNone);
    points->setScatterStyle(QCPScatterStyle(QCPScatterStyle::ssSquare, Qt::NoPen, QColor(0, 0, 255), 8));
    return peer.Replots([&](int frame) {
        QVector<double> across;
        QVector<double> up;
        for (int line = 0; line < AzimuthLines; ++line) {
            const auto bytes = AzimuthOf(frame - line);
            for (std::size_t byte = 0; byte < bytes.size(); byte += 2) {
                across.append(128 + std::int8_t(bytes[byte]));
                up.append(128 - std::int8_t(bytes[byte + 1]));
            }
        }
        points->setData(across, up);
    });
}

#endif

void Compare(const char *name, double own, double peer)
{
    std::printf("%-10s %.3f ms a painted frame, QCustomPlot %.3f ms: %.2f of it (goal <= 0.20)\n", name, own,
                peer, own / peer);
}

void MeasureFrames()
{
    OwnGraphs own;
#ifdef KELVO_QCUSTOMPLOT
    Compare("gain", own.Gain(), PeerBars([](int frame) { return DrawGain(GainOf(frame)); }, 20));
    Compare("slit loss", own.Slit(), PeerBars([](int frame) { return DrawSlit(SlitOf(frame)); }, 6));
    Compare("azimuth", own.Azimuth(), PeerAzimuth());
#else
    std::printf("gain %.3f, slit loss %.3f, azimuth %.3f ms a painted frame (no QCustomPlot here)\n",
                own.Gain(), own.Slit(), own.Azimuth());
#endif
}

/// As many readings as six minutes bring, painted as often as six minutes are.
void MeasureMemory()
{
    const int readings = FullOrBrief(360'000, 3600);
    constexpr int ReadingsPerFrame = 16;
    OwnGraphs own;
    own.Azimuth();
    const double before = ResidentMegabytes();
    for (int reading = 0; reading < readings; ++reading) {
        own.Read(reading);
        if (reading % ReadingsPerFrame == 0)
            own.azimuth.PaintChanged();
    }
    std::printf("memory     %+.1f MB after %d azimuth readings (goal: flat, below 1 MB)\n",
                ResidentMegabytes() - before, readings);
}

} // namespace

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    QApplication::setStyle("Fusion");
    MeasureStreams();
    MeasureClicks();
    MeasureFrames();
    MeasureMemory();
    return 0;
}
