// How a node takes the left button.

#include "elements/element_host.h"
#include "elements/leaf_view.h"
#include "elements/notifications.h"
#include "model/person.h"
#include "platform/notification_center.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace lineara {

namespace {

struct NodeDragging
{
    CanvasPoint lastPoint;
    bool isOn = false;
};

NodeDragging& dragging()
{
    static NodeDragging shared;
    return shared;
}

/// Towards zero.
std::int32_t cutToWholePoints(double place)
{
    using Limits = std::numeric_limits<std::int32_t>;
    return static_cast<std::int32_t>(std::clamp<double>(place, Limits::min(), Limits::max()));
}

} // namespace

void LeafView::mouseDown(CanvasPoint point, std::optional<NodePart> hit)
{
    dragging().lastPoint = point;
    if (hit)
        dragging().isOn = true;
}

void LeafView::mouseDragged(CanvasPoint point, ElementHost& host)
{
    if (!dragging().isOn)
        return;
    // Whatever the movement leads to may move the canvas beneath the pointer, which changes the point again.
    const CanvasPoint last = std::exchange(dragging().lastPoint, point);
    if (person_->linkLayers().empty())
        pull(point.y - last.y, host);
    moveSideways(point.x - last.x, host);
    host.autoscroll();
}

void LeafView::pull(double rise, ElementHost& host)
{
    if (!yConstraint_)
        return;
    constexpr double sign = isFlipped() ? 1.0 : -1.0;
    const double before = yConstraint_->constant;
    const double moved = before + rise * sign;
    const double kept = isFlipped() ? std::max(moved, 0.0) : std::min(moved, 0.0);
    if (kept == before)
        return;
    setYConstant(kept);
    host.wasPulled(*this, before);
}

void LeafView::moveSideways(double distance, ElementHost& host)
{
    const auto from = [this] { return person_->x().value_or(0); };
    const auto to = [&] { return cutToWholePoints(distance + from()); };
    if (to() == from())
        return;
    // Ahead of the change everything that is pending comes to its end, which may shift the whole family.
    host.willMove(*this);
    person_->setX(to());
    if (from() < 0)
        host.setNeedsUpdateConstraints();
}

void LeafView::mouseUp(ElementHost& host)
{
    if (!dragging().isOn)
        return;
    host.makeFirstResponder(*this);
    auto& center = NotificationCenter::defaultCenter();
    center.enqueue(PersonClickedNotification{&host.pool(), person_->recordId()});
    dragging().isOn = false;
    center.post(PersonDragEndedNotification{&host.pool(), person_->recordId()});
}

bool LeafView::isDragging()
{
    return dragging().isOn;
}

void LeafView::stopDragging()
{
    dragging().isOn = false;
}

void LeafView::setLastDragPoint(CanvasPoint point)
{
    dragging().lastPoint = point;
}

} // namespace lineara
