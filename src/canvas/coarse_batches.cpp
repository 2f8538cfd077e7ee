#include "coarse_batches.h"

#include "elements/colours.h"
#include "elements/leaf_view.h"
#include "elements/link_layer.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

namespace lineara {

namespace {

template<class Shape>
void addUnlessRepeated(std::vector<Shape>& shapes, const Shape& shape)
{
    if (shapes.empty() || shapes.back() != shape)
        shapes.push_back(shape);
}

/// Pixel of a coordinate, kept so close to the view that sums with it stay far within an int.
int pixel(double place)
{
    constexpr double far = 1e6;
    return static_cast<int>(std::floor(std::clamp(place, -far, far)));
}

} // namespace

CoarseBatches::CoarseBatches(QPainter& painter) : painter_(painter), toPixels_(painter.worldTransform()) {}

void CoarseBatches::add(const LinkLayer& link)
{
    const QPointF start = toPixels_.map(toPicture(link.startPoint()));
    const QPointF end = toPixels_.map(toPicture(link.endPoint()));
    const Colour colour = link.isSelected() ? Selected : link.isPartnerLink() ? Partner : Offspring;
    addUnlessRepeated(lines_[colour], QLine(pixel(start.x()), pixel(start.y()), pixel(end.x()), pixel(end.y())));
}

void CoarseBatches::add(const LeafView& node)
{
    addUnlessRepeated(images_, pixels(toPicture(node.imageFrame())));
    addUnlessRepeated(panels_, pixels(toPicture(node.infoFrame())));
}

void CoarseBatches::paint()
{
    const std::array<QColor, LinkColours> strokes{colours::partnerStroke(), colours::offspringStroke(),
                                                  colours::selectedStroke()};
    painter_.save();
    painter_.resetTransform();
    painter_.setRenderHint(QPainter::Antialiasing, false);
    for (std::size_t colour = 0; colour < LinkColours; ++colour) {
        painter_.setPen(QPen(strokes[colour], 0));
        painter_.drawLines(lines_[colour].data(), static_cast<int>(lines_[colour].size()));
    }
    painter_.setPen(Qt::NoPen);
    painter_.setBrush(colours::leafFill());
    painter_.drawRects(images_.data(), static_cast<int>(images_.size()));
    painter_.setBrush(colours::panelBackground());
    painter_.drawRects(panels_.data(), static_cast<int>(panels_.size()));
    painter_.restore();
}

QRect CoarseBatches::pixels(const QRectF& picture) const
{
    const QRectF area = toPixels_.mapRect(picture);
    const int left = pixel(area.left());
    const int top = pixel(area.top());
    return {left, top, std::max(1, pixel(area.right()) - left), std::max(1, pixel(area.bottom()) - top)};
}

} // namespace lineara
