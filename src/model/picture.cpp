#include "model/picture.h"

#include <QBuffer>
#include <QImageIOHandler>
#include <QImageReader>

#include <algorithm>
#include <cstdint>

namespace lineara {

namespace {

constexpr int greatestSide = 1024;
/// What may be held in memory at once, at four bytes a pixel.
constexpr std::int64_t mostPixelsAtOnce = 32'000'000;
/// What may be walked through for a smaller picture; beyond it even a sound file takes seconds.
constexpr std::int64_t mostPixelsWalked = 256'000'000;

std::int64_t pixelCount(QSize size)
{
    return std::int64_t{size.width()} * size.height();
}

/// Formats that are programs rather than pictures are left alone: drawing them has no bound in time.
bool isRaster(const QByteArray& format)
{
    return !format.isEmpty() && !format.startsWith("svg") && format != "pdf";
}

bool isAffordable(const QImageReader& reader, QSize size)
{
    const bool scalesWhileReading = reader.supportsOption(QImageIOHandler::ScaledSize);
    return pixelCount(size) <= (scalesWhileReading ? mostPixelsWalked : mostPixelsAtOnce);
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
    reader.setAutoTransform(true);
    Picture picture;
    if (!isRaster(reader.format()))
        return picture;
    const QSize declared = reader.size();
    if (declared.isEmpty())
        return picture;
    if (isAffordable(reader, declared)) {
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
