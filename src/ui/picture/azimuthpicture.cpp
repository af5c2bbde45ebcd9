#include "ui/picture/azimuthpicture.h"

#include <QRegion>

#include <algorithm>
#include <cmath>

namespace kelvo {

namespace {

constexpr int Centre = 128;
constexpr int PointWidth = 4;
constexpr int DashOn = 6;
constexpr int DashPeriod = 10;

constexpr QRgb White = 0xffffffff;
constexpr QRgb Black = 0xff000000;
constexpr QRgb Blue = 0xff0000ff;

QPoint PositionOf(const AzimuthHistory::Pair &pair)
{
    Word across = pair[0];
    Word up = pair[1];
    DrawAzimuthConvert(across);
    DrawAzimuthConvert(up);
    return {Centre + across, Centre - up};
}

QRect PointOf(const AzimuthHistory::Pair &pair)
{
    const QRect point(PositionOf(pair) - QPoint(PointWidth / 2, PointWidth / 2),
                      QSize(PointWidth, PointWidth));
    return point & QRect(0, 0, AzimuthSide, AzimuthSide);
}

/// The points of a line, by pair.
using LinePoints = std::array<QRect, AzimuthPairs>;

std::array<LinePoints, AzimuthLines> PointsOf(const AzimuthHistory &history)
{
    std::array<LinePoints, AzimuthLines> points;
    for (int line = 0; line < AzimuthLines; ++line)
        std::ranges::transform(history.lines[line], points[line].begin(), PointOf);
    return points;
}

/// What the points do not cover of one that is not among them.
QRegion Uncovered(const QRect &point, std::span<const LinePoints> points)
{
    QRegion rest = point;
    for (const LinePoints &line : points) {
        for (const QRect &other : line) {
            if (!other.intersects(point))
                continue;
            if (other == point)
                return {};
            rest -= other;
        }
    }
    return rest;
}

void DrawCrossHair(std::vector<AzimuthBox> &boxes)
{
    for (int dash = 0; dash < AzimuthSide; dash += DashPeriod) {
        const int length = std::min(DashOn, AzimuthSide - dash);
        boxes.push_back({QRect(Centre, dash, 1, length), Black});
        boxes.push_back({QRect(dash, Centre, length, 1), Black});
    }
}

/// Fills a part of an image; false when it had the colour already.
bool Fill(QImage &image, const QRect &part, QRgb colour)
{
    bool changed = false;
    for (int y = part.top(); y <= part.bottom(); ++y) {
        auto *first = reinterpret_cast<QRgb *>(image.scanLine(y)) + part.left();
        auto *const end = first + part.width();
        if (std::all_of(first, end, [colour](QRgb pixel) { return pixel == colour; }))
            continue;
        std::fill(first, end, colour);
        changed = true;
    }
    return changed;
}

} // namespace

void DrawAzimuthConvert(Word &value)
{
    constexpr int Furthest = 127;
    const int reading = value >= 128 ? value - 256 : value;
    const int clamped = std::clamp(reading, -Furthest, Furthest);
    value = Word(2 * std::lrint(clamped / 2.0)); // a half goes to the even neighbour
}

std::vector<AzimuthBox> DrawAzimuth(const AzimuthHistory &history, Word current, Word next)
{
    std::vector<AzimuthBox> boxes;
    boxes.reserve(2 * (AzimuthSide / DashPeriod + 1) + 2 * AzimuthPairs);
    DrawCrossHair(boxes);
    auto points = PointsOf(history);
    const LinePoints newest = points[current];
    // The line that is wiped goes to the end: before it stand the ones that stay.
    std::swap(points[next], points.back());
    const std::span staying = std::span(points).first(AzimuthLines - 1);
    for (int pair = 0; pair < AzimuthPairs; ++pair) {
        for (const QRect &part : Uncovered(points.back()[pair], staying))
            boxes.push_back({part, White});
        boxes.push_back({newest[pair], Blue});
    }
    return boxes;
}

AzimuthSurface::AzimuthSurface() : image_(AzimuthSide, AzimuthSide, QImage::Format_RGB32)
{
    image_.fill(White);
}

void AzimuthSurface::Clear()
{
    image_.fill(White);
    scaled_.fill(White);
}

QRect AzimuthSurface::Draw(const std::vector<AzimuthBox> &boxes)
{
    QRect changed;
    for (const AzimuthBox &box : boxes) {
        if (!Fill(image_, box.units, box.colour))
            continue;
        const QRect scaled = Scale(box.units);
        Fill(scaled_, scaled, box.colour);
        changed |= scaled;
    }
    return changed;
}

void AzimuthSurface::SetScaledSide(int pixels)
{
    if (scaled_.width() == pixels)
        return;
    scaled_ = QImage(pixels, pixels, QImage::Format_RGB32);
    for (int y = 0; y < AzimuthSide; ++y) {
        const auto *row = reinterpret_cast<const QRgb *>(image_.constScanLine(y));
        for (int x = 0; x < AzimuthSide; ++x)
            Fill(scaled_, Scale(QRect(x, y, 1, 1)), row[x]);
    }
}

int AzimuthSurface::Scale(int unit) const
{
    // Rounded up: so the cross-hair, which is one unit wide, keeps a pixel at half the size still.
    return (unit * scaled_.width() + AzimuthSide - 1) / AzimuthSide;
}

QRect AzimuthSurface::Scale(const QRect &units) const
{
    const QPoint first(Scale(units.left()), Scale(units.top()));
    const QPoint end(Scale(units.left() + units.width()), Scale(units.top() + units.height()));
    return {first, end - QPoint(1, 1)};
}

} // namespace kelvo
