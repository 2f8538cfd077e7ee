#include "picture_file.h"

#include "messages.h"

#include "canvas/family_scene.h"
#include "elements/leaf_nursery.h"
#include "model/object_context.h"
#include "paper/paper_picture.h"
#include "paper/picture_export.h"

#include <QFileInfo>

#include <algorithm>
#include <cmath>

namespace lineara::tool {

namespace {

constexpr double mostPixelsPerSide = 20'000;
constexpr double mostPixelsInAll = 64'000'000;

bool hasSuffix(const QString& path, QStringView suffix)
{
    return QFileInfo(path).suffix().compare(suffix, Qt::CaseInsensitive) == 0;
}

PictureWish wishFor(const PaperPicture& picture, const QString& path)
{
    PictureWish wish;
    if (hasSuffix(path, u"pdf"))
        return wish;
    wish.kind = hasSuffix(path, u"svg") ? PictureKind::Svg : PictureKind::Png;
    wish.pixels = pictureSize(picture.size());
    const double scale = wish.pixels.width() / picture.size().width();
    if (wish.kind == PictureKind::Png && scale < 0.999)
        tell(u"the family is too large for a picture at full size; it is drawn at %1 %"_qs.arg(scale * 100, 0, 'f', 1));
    return wish;
}

} // namespace

bool isFamilyFileName(const QString& path)
{
    return hasSuffix(path, u"lineara");
}

bool isPictureFileName(const QString& path)
{
    return hasSuffix(path, u"pdf") || hasSuffix(path, u"png") || hasSuffix(path, u"svg");
}

QSize pictureSize(QSizeF points)
{
    const double longest = std::max(points.width(), points.height());
    const double area = points.width() * points.height();
    const double scale = std::min({1.0, mostPixelsPerSide / longest, std::sqrt(mostPixelsInAll / area)});
    const auto pixels = [scale](double length) { return std::max(1, static_cast<int>(std::floor(length * scale))); };
    return scale < 1 ? QSize(pixels(points.width()), pixels(points.height()))
                     : QSize(static_cast<int>(std::ceil(points.width())), static_cast<int>(std::ceil(points.height())));
}

Outcome<Done> savePicture(Pool& pool, const QString& path)
{
    const LeafNursery nodes(pool.context());
    FamilyScene scene(pool);
    scene.addAllInRows();
    const PaperPicture picture(scene);
    const auto content = pictureBytes(picture, wishFor(picture, path));
    if (content.failed())
        return content.failure();
    return savePictureFile(path, content.value());
}

} // namespace lineara::tool
