#include "ui/optical/azimuthpicture.h"

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

} // namespace

void DrawAzimuthConvert(Word &value)
{
    constexpr int Furthest = 127;
    const int reading = value >= 128 ? value - 256 : value;
    const int clamped = std::clamp(reading, -Furthest, Furthest);
    value = Word(2 * std::lrint(clamped / 2.0)); // a half goes to the even neighbour
}

AzimuthPicture::AzimuthPicture() : image_(Side, Side, QImage::Format_RGB32)
{
    Clear();
}

void AzimuthPicture::Clear()
{
    image_.fill(White);
}

void AzimuthPicture::DrawAzimuth(const AzimuthHistory &history, Word current, Word next)
{
    DrawCrossHair();
    for (int pair = 0; pair < AzimuthPairs; ++pair) {
        const Position newest = PositionOf(history.Row(current, pair));
        const Position oldest = PositionOf(history.Row(next, pair));
        if (!StandsInAnotherLine(history, oldest, next))
            DrawPoint(oldest, White);
        DrawPoint(newest, Blue);
    }
}

AzimuthPicture::Position AzimuthPicture::PositionOf(const std::array<Byte, 2> &pair)
{
    Word across = pair[0];
    Word up = pair[1];
    DrawAzimuthConvert(across);
    DrawAzimuthConvert(up);
    return {Centre + across, Centre - up};
}

bool AzimuthPicture::StandsInAnotherLine(const AzimuthHistory &history, Position position, int exceptLine)
{
    for (int line = 0; line < AzimuthLines; ++line) {
        if (line == exceptLine)
            continue;
        for (int pair = 0; pair < AzimuthPairs; ++pair) {
            if (PositionOf(history.Row(line, pair)) == position)
                return true;
        }
    }
    return false;
}

void AzimuthPicture::DrawCrossHair()
{
    auto *middle = reinterpret_cast<QRgb *>(image_.scanLine(Centre));
    for (int unit = 0; unit < Side; ++unit) {
        if (unit % DashPeriod >= DashOn)
            continue;
        middle[unit] = Black;
        reinterpret_cast<QRgb *>(image_.scanLine(unit))[Centre] = Black;
    }
}

void AzimuthPicture::DrawPoint(Position position, QRgb colour)
{
    const int left = std::max(position.x - PointWidth / 2, 0);
    const int right = std::min(position.x + PointWidth / 2, Side);
    const int top = std::max(position.y - PointWidth / 2, 0);
    const int bottom = std::min(position.y + PointWidth / 2, Side);
    for (int y = top; y < bottom; ++y) {
        auto *row = reinterpret_cast<QRgb *>(image_.scanLine(y));
        std::fill(row + left, row + std::max(left, right), colour);
    }
}

} // namespace kelvo
