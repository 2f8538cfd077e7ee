#include "node_drag.h"

#include "canvas/tree_view.h"

#include <utility>

namespace lineara {

void NodeDrag::press(LeafView& node)
{
    node_ = &node;
    step_.reset();
    heightBefore_ = node.yConstraint()->constant;
}

void NodeDrag::drag(CanvasPoint point, ElementHost& host)
{
    node_->mouseDragged(point, host);
}

void NodeDrag::release(ElementHost& host)
{
    // The spacing of the row, which follows, belongs to the movement.
    if (step_)
        ensureStep();
    std::exchange(node_, nullptr)->mouseUp(host);
}

void NodeDrag::cancel()
{
    LeafView& node = *std::exchange(node_, nullptr);
    LeafView::stopDragging();
    if (hasNewestStep())
        canvas_.pool().context().journal().rollBack();
    node.setYConstant(heightBefore_);
    canvas_.nodeMoved(node);
}

void NodeDrag::drop()
{
    node_ = nullptr;
    LeafView::stopDragging();
}

void NodeDrag::ensureStep()
{
    if (!hasNewestStep())
        step_ = canvas_.pool().context().journal().begin(TreeView::tr("Move Person"));
}

/// Somebody else may have begun a step since.
bool NodeDrag::hasNewestStep() const
{
    return step_ && *step_ == canvas_.pool().context().journal().latestStep();
}

} // namespace lineara
