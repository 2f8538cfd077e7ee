#include "picture_file.h"

#include "messages.h"

#include "canvas/family_picture.h"
#include "canvas/family_scene.h"
#include "elements/leaf_nursery.h"
#include "model/object_context.h"

#include <QFileInfo>
#include <QImage>
#include <QPainter>
#include <QSaveFile>
#include <QSvgGenerator>

#include <algorithm>
#include <cmath>

namespace lineara::tool {

namespace {

constexpr double mostPixelsPerSide = 20'000;
constexpr int pixelsPerInch = 96; // what other programs take a pixel for
constexpr double mostPixels = 64'000'000;

bool hasSuffix(const QString& path, QStringView suffix)
{
    return QFileInfo(path).suffix().compare(suffix, Qt::CaseInsensitive) == 0;
}

bool writePng(const FamilyPicture& picture, QIODevice& device)
{
    const QSize size = pictureSize(picture.size());
    const double scale = std::min(size.width() / picture.size().width(), size.height() / picture.size().height());
    if (scale < 0.999)
        tell(u"the family is too large for a picture at full size; it is drawn at %1 %"_qs.arg(scale * 100, 0, 'f', 1));
    QImage image(size, QImage::Format_RGB32);
    if (image.isNull())
        return false;
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(scale, scale);
    picture.paint(painter);
    painter.end();
    return image.save(&device, "PNG");
}

bool writeSvg(const FamilyPicture& picture, QIODevice& device)
{
    const QSize size(static_cast<int>(std::ceil(picture.size().width())),
                     static_cast<int>(std::ceil(picture.size().height())));
    QSvgGenerator generator;
    generator.setOutputDevice(&device);
    generator.setTitle(u"Family tree"_qs);
    generator.setDescription(u"Drawn by Lineara"_qs);
    generator.setResolution(pixelsPerInch);
    generator.setSize(size);
    generator.setViewBox(QRect(QPoint(), size));
    QPainter painter;
    if (!painter.begin(&generator))
        return false;
    picture.paint(painter);
    return painter.end();
}

} // namespace

bool isFamilyFileName(const QString& path)
{
    return hasSuffix(path, u"lineara");
}

bool isPictureFileName(const QString& path)
{
    return hasSuffix(path, u"png") || hasSuffix(path, u"svg");
}

QSize pictureSize(QSizeF points)
{
    const double longest = std::max(points.width(), points.height());
    const double area = points.width() * points.height();
    const double scale = std::min({1.0, mostPixelsPerSide / longest, std::sqrt(mostPixels / area)});
    const auto pixels = [scale](double length) { return std::max(1, static_cast<int>(std::floor(length * scale))); };
    return scale < 1 ? QSize(pixels(points.width()), pixels(points.height()))
                     : QSize(static_cast<int>(std::ceil(points.width())), static_cast<int>(std::ceil(points.height())));
}

Outcome<Done> savePicture(Pool& pool, const QString& path)
{
    const LeafNursery nodes(pool.context());
    FamilyScene scene(pool);
    scene.addAllInRows();
    const FamilyPicture picture(scene);

    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        return Failure{u"“%1” can't be saved: %2."_qs.arg(path, file.errorString())};
    const bool isDrawn = hasSuffix(path, u"png") ? writePng(picture, file) : writeSvg(picture, file);
    if (!isDrawn && file.error() == QFileDevice::NoError)
        return Failure{u"“%1” can't be saved: the picture could not be drawn."_qs.arg(path)};
    if (!file.commit())
        return Failure{u"“%1” can't be saved: %2."_qs.arg(path, file.errorString())};
    return Done{};
}

} // namespace lineara::tool
