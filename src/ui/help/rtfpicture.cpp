#include "ui/help/rtfpicture.h"

#include <QBuffer>
#include <QImageReader>

namespace kelvo {

namespace {

constexpr int TwipsPerPixel = 15;
constexpr int PerCent = 100;
constexpr QSize Largest(600, 800);

/// The name of the toolkit's reader; "" = none.
QByteArray FormatOf(rtf::PictureKind kind)
{
    switch (kind) {
    case rtf::PictureKind::Png:
        return "png";
    case rtf::PictureKind::Jpeg:
        return "jpeg";
    case rtf::PictureKind::Other:
        break;
    }
    return {};
}

/// As the file wants it; where it says nothing, as many as there are.
int Wanted(int twips, int scale, int pixels)
{
    const int unscaled = twips > 0 ? twips / TwipsPerPixel : pixels;
    return std::max(1, int(qint64(unscaled) * scale / PerCent));
}

} // namespace

bool PictureDecoder::Knows(rtf::PictureKind kind)
{
    return QImageReader::supportedImageFormats().contains(FormatOf(kind));
}

QImage PictureDecoder::Decode(const rtf::Picture &picture)
{
    QByteArray bytes = QByteArray::fromRawData(picture.bytes.data(), qsizetype(picture.bytes.size()));
    QBuffer buffer(&bytes);
    QImageReader reader(&buffer, FormatOf(picture.kind));
    const QSize size = reader.size();
    if (!size.isValid())
        return {};
    // Asked before a pixel is read: a few bytes can stand for a picture of any size.
    const qint64 pixels = qint64(size.width()) * size.height();
    if (pixels > left_)
        return {};
    left_ -= pixels;
    return reader.read();
}

QSize ShownSize(const rtf::Picture &picture, QSize pixels)
{
    const QSize wanted(Wanted(picture.width, picture.scaleX, pixels.width()),
                       Wanted(picture.height, picture.scaleY, pixels.height()));
    const bool fits = wanted.width() <= Largest.width() && wanted.height() <= Largest.height();
    return fits ? wanted : wanted.scaled(Largest, Qt::KeepAspectRatio).expandedTo({1, 1});
}

} // namespace kelvo
