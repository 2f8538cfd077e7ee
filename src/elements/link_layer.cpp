#include "elements/link_layer.h"

#include "elements/colours.h"
#include "elements/leaf_view.h"
#include "elements/link_outline.h"
#include "model/person.h"
#include "model/pool.h"

#include <span>

namespace lineara {

// There are two links a person in a usual family.
static_assert(sizeof(LinkLayer) <= 88);

namespace {

CanvasPoint nodeCentre(const Person* person)
{
    return person && person->leafView() ? person->leafView()->frame().centre() : CanvasPoint{};
}

/// Follows the points of an outline, each through the one conversion from canvas to picture.
class PathBuilder
{
public:
    explicit PathBuilder(std::span<const CanvasPoint> points) : points_(points)
    {
        path_.reserve(static_cast<int>(points.size()));
        path_.setFillRule(Qt::WindingFill);
    }

    PathBuilder& move()
    {
        path_.moveTo(next());
        return *this;
    }
    PathBuilder& line()
    {
        path_.lineTo(next());
        return *this;
    }
    PathBuilder& curve()
    {
        const QPointF control1 = next();
        const QPointF control2 = next();
        path_.cubicTo(control1, control2, next());
        return *this;
    }
    QPainterPath path() const { return path_; }

private:
    QPointF next() { return toPicture(points_[used_++]); }

    std::span<const CanvasPoint> points_;
    std::size_t used_ = 0;
    QPainterPath path_;
};

QPainterPath partnerPath(CanvasPoint start, CanvasPoint end)
{
    const auto outline = partnerOutline(start, end);
    return PathBuilder(outline).move().curve().curve().line().curve().curve().line().path();
}

QPainterPath offspringPath(CanvasPoint start, CanvasPoint end)
{
    const auto outline = offspringOutline(start, end);
    return PathBuilder(outline).move().curve().line().curve().path();
}

} // namespace

LinkLayer::LinkLayer(Person* source, Person* target, QString linkType)
    : source_(source), target_(target), linkType_(std::move(linkType)), isPartner_(linkType_ == partnerLink)
{}

void LinkLayer::layoutSublayers()
{
    const CanvasPoint start = nodeCentre(source_);
    const CanvasPoint end = nodeCentre(target_);
    if (start == startPoint_ && end == endPoint_)
        return;
    path_.reset();
    startPoint_ = start;
    endPoint_ = end;
}

const QPainterPath& LinkLayer::path() const
{
    if (!path_) {
        path_ = std::make_unique<QPainterPath>(isPartner_ ? partnerPath(startPoint_, endPoint_)
                                                          : offspringPath(startPoint_, endPoint_));
    }
    return *path_;
}

Frame LinkLayer::bounds() const
{
    return isPartner_ ? partnerBounds(startPoint_, endPoint_) : offspringBounds(startPoint_, endPoint_);
}

bool LinkLayer::contains(CanvasPoint point) const
{
    // The box spares most shapes their path; what lies on its edge is for the path to decide.
    const Frame box = bounds();
    const bool isNear =
        point.x >= box.x && point.x <= box.x + box.width && point.y >= box.y && point.y <= box.y + box.height;
    return isNear && path().contains(toPicture(point));
}

QColor LinkLayer::fillColor() const
{
    return colours::linkFill(linkType_);
}

QColor LinkLayer::strokeColor() const
{
    return isSelected_ ? colours::selectedStroke() : colours::linkStroke(linkType_);
}

} // namespace lineara
