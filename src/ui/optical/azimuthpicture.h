#pragma once

#include "ui/optical/opticalreadings.h"

#include <QImage>

namespace kelvo {

/// Turns a reading (0 to 255, a two's-complement byte) into an even signed offset from the centre,
/// -128 to 128.
void DrawAzimuthConvert(Word &value);

/// The azimuth surface in its own units, 0 to 255 each way with the centre at (128, 128): one pixel a unit.
/// Every reading is drawn on it in its turn, so it holds what all of them left, however seldom the
/// screen is painted.
class AzimuthPicture {
  public:
    static constexpr int Side = 256;

    AzimuthPicture();

    void Clear();
    /// Draws the frame in history line `current` and wipes the oldest positions, those of line `next`.
    void DrawAzimuth(const AzimuthHistory &history, Word current, Word next);
    const QImage &Image() const { return image_; }

  private:
    struct Position {
        int x, y;

        bool operator==(const Position &) const = default;
    };

    static Position PositionOf(const std::array<Byte, 2> &pair);
    static bool StandsInAnotherLine(const AzimuthHistory &history, Position position, int exceptLine);
    void DrawCrossHair();
    void DrawPoint(Position position, QRgb colour);

    QImage image_;
};

} // namespace kelvo
