#include "ui/optical/pictureboxes.h"

#include <QPainter>

#include <algorithm>
#include <chrono>
#include <cmath>

namespace kelvo {

namespace {

constexpr std::chrono::milliseconds DisplayFrame{16};

/// Dashes along a line, in the graph's units.
constexpr int DashOn = 8;
constexpr int DashPeriod = 12;

QColor ColourOf(Ink ink)
{
    switch (ink) {
    case Ink::Black:
        return {0, 0, 0};
    case Ink::Blue:
        return {0, 0, 255};
    case Ink::DarkRed:
        return {160, 0, 0};
    }
    return {};
}

/// Draws shapes given in the graph's units on whole pixels of the device.
class DeviceCanvas {
  public:
    DeviceCanvas(QPainter &painter, QRect area) : painter_(painter)
    {
        const QTransform device = painter.deviceTransform();
        area_ = device.mapRect(QRectF(area));
        painter.setTransform(device.inverted(), true);
        lineWidth_ = std::max(1, int(std::lrint(device.m11())));
    }

    void Draw(const GraphLine &line)
    {
        const bool across = line.y1 == line.y2;
        const int end = across ? line.x2 : line.y2;
        const int period = line.stroke == Stroke::Dashed ? DashPeriod : GraphWidth;
        const int on = line.stroke == Stroke::Dashed ? DashOn : GraphWidth;
        for (int at = across ? line.x1 : line.y1; at < end; at += period) {
            const int until = std::min(at + on, end);
            if (across)
                Fill(X(at), Y(line.y1), X(until) - X(at), lineWidth_, Ink::Black);
            else
                Fill(X(line.x1), Y(at), lineWidth_, Y(until) - Y(at), Ink::Black);
        }
    }

    void Draw(const GraphBox &box)
    {
        Fill(X(box.left), Y(box.top), X(box.right) - X(box.left), Y(box.bottom) - Y(box.top), box.ink);
    }

    void Draw(const GraphText &text)
    {
        painter_.drawText(QPointF(X(text.x), Y(text.y) + painter_.fontMetrics().ascent()),
                          QString::fromUtf8(text.text));
    }

    void SetFont(QFont font, double units, int stretch)
    {
        const double unit = std::min(area_.width() / GraphWidth, area_.height() / GraphHeight);
        font.setPixelSize(std::max(1, int(std::lrint(units * unit))));
        font.setStretch(stretch);
        painter_.setFont(font);
        painter_.setPen(Qt::black);
    }

  private:
    int X(int unit) const { return int(std::lrint(area_.left() + unit * area_.width() / GraphWidth)); }
    int Y(int unit) const { return int(std::lrint(area_.top() + unit * area_.height() / GraphHeight)); }
    void Fill(int x, int y, int width, int height, Ink ink)
    {
        painter_.fillRect(x, y, width, height, ColourOf(ink));
    }

    QPainter &painter_;
    QRectF area_;
    int lineWidth_ = 1;
};

} // namespace

PictureBox::PictureBox()
{
    setAttribute(Qt::WA_OpaquePaintEvent);
    frame_.setSingleShot(true);
    frame_.setInterval(DisplayFrame);
    connect(&frame_, &QTimer::timeout, this, [this] { update(); });
}

void PictureBox::Changed()
{
    if (!frame_.isActive())
        frame_.start();
}

OptGraph::OptGraph()
{
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

void OptGraph::Draw(GraphPicture picture)
{
    picture_ = std::move(picture);
    SetFontName(picture_.fontName);
    Changed();
}

void OptGraph::Clear()
{
    picture_ = {};
    Changed();
}

void OptGraph::paintEvent(QPaintEvent *)
{
    constexpr double SmallFontUnits = 9;
    constexpr double FontUnits = GraphFontSize * 4 / 3;
    QPainter painter(this);
    painter.fillRect(rect(), Qt::white);
    DeviceCanvas canvas(painter, rect());
    for (const GraphLine &line : picture_.lines)
        canvas.Draw(line);
    for (const GraphBox &box : picture_.boxes)
        canvas.Draw(box);
    if (picture_.fontName == SlitFont)
        canvas.SetFont(font(), SmallFontUnits, QFont::SemiCondensed);
    else
        canvas.SetFont(font(), FontUnits, QFont::AnyStretch);
    for (const GraphText &text : picture_.texts)
        canvas.Draw(text);
}

OptAzi::OptAzi() = default;

void OptAzi::DrawAzimuth(const AzimuthHistory &history, Word current, Word next)
{
    picture_.DrawAzimuth(history, current, next);
    Changed();
}

void OptAzi::Clear()
{
    picture_.Clear();
    Changed();
}

void OptAzi::paintEvent(QPaintEvent *)
{
    QPainter(this).drawImage(rect(), picture_.Image());
}

} // namespace kelvo
