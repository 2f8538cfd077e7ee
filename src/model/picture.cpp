#include "model/picture.h"

#include "jpeg_layout.h"

#include <QBuffer>
#include <QImageIOHandler>
#include <QImageReader>

#include <algorithm>
#include <cstdint>

namespace lineara {

namespace {

constexpr int greatestSide = 1024;
constexpr int mostMegabytes = 256;
/// What may be walked through for a smaller picture; beyond it even a sound file takes seconds.
constexpr std::int64_t mostPixels = 256'000'000;
/// A sound progressive file has about ten; each is one more walk over the picture, and costs the file next to nothing.
constexpr std::int64_t mostScans = 100;

/// Formats that are programs rather than pictures are left alone: drawing them has no bound in time.
bool isRaster(const QByteArray& format)
{
    return !format.isEmpty() && !format.startsWith("svg") && format != "pdf";
}

std::int64_t bytesPerPixel(const QImageReader& reader)
{
    const QImage::Format format = reader.imageFormat();
    // Rounded up: pictures of one bit a pixel cost more to turn into something paintable than to hold.
    return format == QImage::Format_Invalid ? 4 : (QImage::toPixelFormat(format).bitsPerPixel() + 7) / 8;
}

/// Whether decoding stays within the bounds of memory and time. Only JPEG shrinks reliably while it is read; other
/// formats that say so do it for some kinds of picture and not for others.
bool isAffordable(const QImageReader& reader, QSize size, const QByteArray& bytes)
{
    const std::int64_t pixels = std::int64_t{size.width()} * size.height();
    const std::int64_t mostBytes = std::int64_t{mostMegabytes} << 20;
    if (reader.format() != "jpeg")
        return pixels * bytesPerPixel(reader) <= mostBytes;
    const JpegLayout layout = JpegLayout::of(bytes);
    const std::int64_t held = layout.holdsWholeImage ? pixels * layout.components * 2 : 0;
    return pixels <= mostPixels && held <= mostBytes && layout.scans <= mostScans;
}

QSize fitted(QSize size)
{
    if (std::max(size.width(), size.height()) <= greatestSide)
        return size;
    return size.scaled(greatestSide, greatestSide, Qt::KeepAspectRatio).expandedTo({1, 1});
}

QSize upright(const QImageReader& reader, QSize size)
{
    return reader.transformation().testFlag(QImageIOHandler::TransformationRotate90) ? size.transposed() : size;
}

/// The form that painting needs no conversion for.
QImage paintable(QImage image)
{
    return std::move(image).convertToFormat(image.hasAlphaChannel() ? QImage::Format_ARGB32_Premultiplied
                                                                    : QImage::Format_RGB32);
}

} // namespace

Picture Picture::decode(const QByteArray& bytes)
{
    QBuffer buffer;
    buffer.setData(bytes);
    buffer.open(QIODevice::ReadOnly);
    QImageReader reader(&buffer);
    QImageReader::setAllocationLimit(mostMegabytes);
    reader.setAutoTransform(true);
    Picture picture;
    if (!isRaster(reader.format()))
        return picture;
    const QSize declared = reader.size();
    if (declared.isEmpty())
        return picture;
    if (isAffordable(reader, declared, bytes)) {
        reader.setScaledSize(fitted(declared));
        picture.pixels_ = reader.read();
        if (picture.pixels_.isNull())
            return picture;
        picture.pixels_ = paintable(std::move(picture.pixels_));
    }
    picture.size_ = upright(reader, declared);
    return picture;
}

} // namespace lineara
