#include "node_drag.h"

#include "canvas/placement.h"
#include "canvas/tree_view.h"
#include "model/person.h"

#include <QCoreApplication>

#include <utility>

namespace lineara {

void NodeDrag::press(LeafView& node)
{
    node_ = &node;
    step_.reset();
    heightBefore_.reset();
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
    if (hasLatestStep())
        canvas_.pool().context().journal().rollBack();
    goBackToHeight(node);
    canvas_.nodeMoved(node);
}

/// Who has a generation by now belongs in its row, wherever the pull began.
void NodeDrag::goBackToHeight(LeafView& node) const
{
    if (!heightBefore_)
        return;
    const auto generation = node.person().generation();
    node.setYConstant(generation ? rowConstant(generation) : *heightBefore_);
}

void NodeDrag::drop()
{
    node_ = nullptr;
    LeafView::stopDragging();
}

void NodeDrag::makeRoom()
{
    if (node_ && hasOpenStep())
        canvas_.reconstrainCollisionsForPerson(node_->person());
}

void NodeDrag::ensureStep()
{
    if (!hasOpenStep())
        step_ = canvas_.pool().context().journal().begin(QCoreApplication::translate("TreeView", "Move Person"));
}

void NodeDrag::pulledFrom(double height)
{
    if (!heightBefore_)
        heightBefore_ = height;
}

bool NodeDrag::hasLatestStep() const
{
    return step_ && *step_ == canvas_.pool().context().journal().latestStep();
}

/// Where all that was moved has been moved back, late work of an earlier step may have opened that again.
bool NodeDrag::hasOpenStep() const
{
    return hasLatestStep() && canvas_.pool().context().journal().undoStep() == step_;
}

} // namespace lineara
