#include "ui/picture/pictureboxes.h"

#include <QPaintEvent>
#include <QPainter>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <utility>

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
    /// Bars that are not live are hatched in the ground's colour.
    DeviceCanvas(QPainter &painter, QRect area, bool live) : painter_(painter), live_(live)
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
        const QRect bar(X(box.left), Y(box.top), X(box.right) - X(box.left), Y(box.bottom) - Y(box.top));
        painter_.fillRect(bar, ColourOf(box.ink));
        if (!live_)
            painter_.fillRect(bar, QBrush(Qt::white, Qt::BDiagPattern));
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
    bool live_;
    QRectF area_;
    int lineWidth_ = 1;
};

/// The part, in units, where a bar has become another one.
QRect Difference(const GraphBox &before, const GraphBox &after)
{
    const QRect old(QPoint(before.left, before.top), QPoint(before.right, before.bottom));
    const QRect young(QPoint(after.left, after.top), QPoint(after.right, after.bottom));
    if (before == after)
        return {};
    const bool onlyTaller = before.left == after.left && before.right == after.right &&
                            before.bottom == after.bottom && before.ink == after.ink;
    if (!onlyTaller)
        return old | young;
    const auto [high, low] = std::minmax(before.top, after.top);
    return {QPoint(after.left, high), QPoint(after.right, low)};
}

/// The part, in units, where two pictures differ.
QRect Difference(const GraphPicture &before, const GraphPicture &after)
{
    if (before.lines != after.lines || before.texts != after.texts ||
        before.boxes.size() != after.boxes.size())
        return {0, 0, GraphWidth, GraphHeight};
    QRect part;
    for (std::size_t box = 0; box < after.boxes.size(); ++box)
        part |= Difference(before.boxes[box], after.boxes[box]);
    return part;
}

} // namespace

PictureBox::PictureBox()
{
    setAttribute(Qt::WA_OpaquePaintEvent);
    frame_.setSingleShot(true);
    frame_.setInterval(DisplayFrame);
    connect(&frame_, &QTimer::timeout, this, &PictureBox::PaintChanged);
}

void PictureBox::ShowLive(bool live)
{
    if (std::exchange(live_, live) != live)
        Changed(rect());
}

void PictureBox::PaintChanged()
{
    repaint(std::exchange(changed_, {}));
}

void PictureBox::Changed(const QRect &part)
{
    changed_ |= part;
    if (!changed_.isEmpty() && !frame_.isActive())
        frame_.start();
}

void OptGraph::Draw(GraphPicture picture)
{
    if (picture.fontName)
        SetFontName(picture.fontName);
    Changed(ToWindow(Difference(picture_, picture)));
    picture_ = std::move(picture);
}

QRect OptGraph::ToWindow(const QRect &units) const
{
    if (units.isNull())
        return {};
    // A pixel more all round holds whatever the rounding to pixels of the screen has moved.
    const QTransform scale =
        QTransform::fromScale(double(width()) / GraphWidth, double(height()) / GraphHeight);
    return scale.mapRect(QRectF(units)).toAlignedRect().adjusted(-1, -1, 1, 1) & rect();
}

void OptGraph::paintEvent(QPaintEvent *event)
{
    constexpr double SmallFontUnits = 7; // "Range" ends before the axis
    constexpr double FontUnits = GraphFontSize * 4 / 3;
    QPainter painter(this);
    painter.fillRect(event->rect(), Qt::white);
    DeviceCanvas canvas(painter, rect(), Live());
    for (const GraphLine &line : picture_.lines)
        canvas.Draw(line);
    for (const GraphBox &box : picture_.boxes)
        canvas.Draw(box);
    if (picture_.fontName == SlitFont)
        canvas.SetFont(font(), SmallFontUnits, QFont::Condensed);
    else
        canvas.SetFont(font(), FontUnits, QFont::AnyStretch);
    for (const GraphText &text : picture_.texts)
        canvas.Draw(text);
}

void OptAzi::Draw(const std::vector<AzimuthBox> &boxes)
{
    const QRect changed = surface_.Draw(boxes);
    if (changed.isEmpty())
        return;
    const double scale = 1 / devicePixelRatioF();
    Changed(QTransform::fromScale(scale, scale).mapRect(QRectF(changed)).toAlignedRect() & rect());
}

void OptAzi::Clear()
{
    surface_.Clear();
    Changed(rect());
}

void OptAzi::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    const QTransform device = painter.deviceTransform();
    const QRect area = device.mapRect(QRectF(rect())).toRect();
    surface_.SetScaledSide(area.width());
    painter.setTransform(device.inverted(), true);
    constexpr double Dimmed = 0.35;
    if (!Live()) {
        painter.fillRect(area, Qt::white);
        painter.setOpacity(Dimmed);
    }
    painter.drawImage(area.topLeft(), surface_.Scaled());
}

} // namespace kelvo
