#pragma once

#include "rtf/document.h"

#include <QImage>

namespace kelvo {

/// Decodes the pictures of a guide one after the other, within a bound on the pixels of them all.
class PictureDecoder {
  public:
    /// Null for one that is damaged, too large or of a kind that this system cannot show.
    QImage Decode(const rtf::Picture &picture);
    static bool Knows(rtf::PictureKind kind);

  private:
    qint64 left_ = 40'000'000; ///< pixels, for the pictures that come
};

/// How large a picture is shown, in pixels of the page: as the file wants it, but no larger than a page that
/// can be read without going to and fro.
QSize ShownSize(const rtf::Picture &picture, QSize pixels);

} // namespace kelvo
