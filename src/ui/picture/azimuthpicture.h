#pragma once

#include "ui/picture/opticalreadings.h"

#include <QImage>
#include <QRect>

#include <vector>

namespace kelvo {

/// The azimuth surface has its own units, 0 to 255 each way with the centre at (128, 128).
inline constexpr int AzimuthSide = 256;

/// Turns a reading (0 to 255, a two's-complement byte) into an even signed offset from the centre,
/// -128 to 128.
void DrawAzimuthConvert(Word &value);

/// A box of one colour, in units of the surface.
struct AzimuthBox {
    QRect units;
    QRgb colour;
};

/// What one reading draws over what is there, in this order: the broken cross-hair, then for each pair the
/// point of line `next` in white, where no point of another line covers it, and that of line `current` in
/// blue.
std::vector<AzimuthBox> DrawAzimuth(const AzimuthHistory &history, Word current, Word next);

/// The surface as all readings drawn in their turn have left it, one pixel a unit, and the same in the size
/// that the screen wants, where every unit is a box of whole pixels.
class AzimuthSurface {
  public:
    AzimuthSurface();

    void Clear();
    /// Draws over what is there; answers the part of the scaled picture that has changed.
    QRect Draw(const std::vector<AzimuthBox> &boxes);
    void SetScaledSide(int pixels);

    const QImage &Image() const { return image_; }
    const QImage &Scaled() const { return scaled_; }

  private:
    int Scale(int unit) const;
    QRect Scale(const QRect &units) const;

    QImage image_;
    QImage scaled_;
};

} // namespace kelvo
