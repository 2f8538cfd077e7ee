#include "coarse_nodes.h"

#include "elements/colours.h"
#include "elements/leaf_view.h"

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

CoarseNodes::CoarseNodes(QPainter& painter) : painter_(painter), toPixels_(painter.worldTransform()) {}

void CoarseNodes::add(const LeafView& node)
{
    addUnlessRepeated(images_, pixels(toPicture(node.imageFrame())));
    addUnlessRepeated(panels_, pixels(toPicture(node.infoFrame())));
}

void CoarseNodes::paint()
{
    painter_.save();
    painter_.resetTransform();
    painter_.setRenderHint(QPainter::Antialiasing, false);
    painter_.setPen(Qt::NoPen);
    painter_.setBrush(colours::leafFill());
    painter_.drawRects(images_.data(), static_cast<int>(images_.size()));
    painter_.setBrush(colours::panelBackground());
    painter_.drawRects(panels_.data(), static_cast<int>(panels_.size()));
    painter_.restore();
}

QRect CoarseNodes::pixels(const QRectF& picture) const
{
    const QRectF area = toPixels_.mapRect(picture);
    const int left = pixel(area.left());
    const int top = pixel(area.top());
    return {left, top, std::max(1, pixel(area.right()) - left), std::max(1, pixel(area.bottom()) - top)};
}

} // namespace lineara
