#include "link_drag.h"

#include "canvas/tree_view.h"

namespace lineara {

void LinkDrag::connectionDrag(const connectionDragNotification& drag, QPointF pointer)
{
    const CanvasPoint start = drag.fromView ? drag.fromView->frame().centre() : CanvasPoint{};
    canvas_.personLayer().drawConnection(drag.type, start, canvas_.toCanvas(pointer));
    enter(nodeUnder(pointer), drag);
    canvas_.redraw();
}

/// Asks the rules once for each node entered: they may have to walk the whole family.
void LinkDrag::enter(LeafView* node, const connectionDragNotification& drag)
{
    if (node == entered_)
        return;
    entered_ = node;
    if (!node || !drag.fromView || node == &drag.fromView->node()) {
        canvas_.personLayer().markLinkTarget(std::nullopt);
        return;
    }
    const bool isPossible = canvas_.pool().canLink(drag.type, drag.fromView->person(), node->person());
    canvas_.personLayer().markLinkTarget(LinkTarget{node, drag.type, isPossible});
}

void LinkDrag::connectionEnd(const connectionEndNotification& end, QPointF pointer)
{
    LeafView* const target = nodeUnder(pointer);
    if (target && end.fromView)
        canvas_.connect(end.fromView->person(), target->person(), end.type);
    clear();
}

void LinkDrag::clear()
{
    entered_ = nullptr;
    canvas_.personLayer().markLinkTarget(std::nullopt);
    canvas_.personLayer().clearConnection();
    canvas_.redraw();
}

void LinkDrag::forget(const LeafView& node)
{
    if (entered_ == &node)
        entered_ = nullptr;
}

/// What lies beyond the viewport is covered by something else.
LeafView* LinkDrag::nodeUnder(QPointF pointer) const
{
    const QRectF view(canvas_.viewport()->rect());
    return view.contains(pointer) ? canvas_.hitNode(canvas_.toCanvas(pointer)).node : nullptr;
}

} // namespace lineara
