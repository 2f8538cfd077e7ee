#include "elements/leaf_image_view.h"

#include "elements/colours.h"
#include "elements/node_layout.h"
#include "elements/random_source.h"
#include "model/person.h"

#include <QTransform>

#include <cmath>
#include <numbers>

namespace lineara {

namespace {

constexpr int pictureWidthPriority = 999;
constexpr double pictureBorderWidth = 3.0;
constexpr QPointF leafPivot(36, 0);

double widthForHeight(QSize size, double height)
{
    // A damaged picture has size 0 x 0; nothing but numbers may reach the row.
    return size.height() > 0 ? height * size.width() / size.height() : 0.0;
}

} // namespace

LeafImageView::LeafImageView(Person& person, RandomSource& random) : person_(&person)
{
    for (std::uint8_t& step : rotationSteps_)
        step = static_cast<std::uint8_t>(random.below(angleCount));
    refreshImage();
}

void LeafImageView::refreshImage()
{
    const std::optional<Picture>& image = person_->image();
    if (!image) {
        drawDefaultImage();
        return;
    }
    showsPicture_ = true;
    width_ = widthForHeight(image->size(), node_layout::pictureHeight);
}

void LeafImageView::drawDefaultImage()
{
    showsPicture_ = false;
    width_ = node_layout::defaultPictureWidth;
}

ImageLayer LeafImageView::imageLayer() const
{
    if (!showsPicture_)
        return {};
    const std::optional<Picture>& image = person_->image();
    return {image ? &image->pixels() : nullptr,
            {0, 0, width_, node_layout::pictureHeight},
            pictureBorderWidth,
            colours::pictureBorder()};
}

PlacementConstraint LeafImageView::widthConstraint() const
{
    return {width_, pictureWidthPriority};
}

std::array<double, 2> LeafImageView::rotations() const
{
    return {firstRotation(rotationSteps_[0]), secondRotation(rotationSteps_[1])};
}

double LeafImageView::firstRotation(std::uint32_t step)
{
    return secondRotation(step) - std::numbers::pi / 8;
}

double LeafImageView::secondRotation(std::uint32_t step)
{
    return step / 100.0;
}

QPainterPath LeafImageView::leafOutline()
{
    QPainterPath path(QPointF(36, 3));
    path.cubicTo(36, 3, 38, 3, 33, 3);
    path.cubicTo(25, 3, 22, 11, 22, 16);
    path.cubicTo(22, 31, 36, 45, 36, 45);
    path.cubicTo(36, 45, 50, 31, 50, 16);
    path.cubicTo(50, 11, 44, 3, 39, 3);
    path.cubicTo(31, 3, 36, 3, 36, 3);
    path.setFillRule(Qt::WindingFill);
    return path;
}

QPainterPath LeafImageView::createRotatedLeaf(const QPainterPath& path, double angle)
{
    const double cosine = std::cos(angle);
    const double sine = std::sin(angle);
    const QTransform about = QTransform::fromTranslate(-leafPivot.x(), -leafPivot.y()) *
                             QTransform(cosine, sine, -sine, cosine, 0, 0) *
                             QTransform::fromTranslate(leafPivot.x(), leafPivot.y());
    return about.map(path);
}

} // namespace lineara
