#include "canvas_gestures.h"

#include "canvas/tree_view.h"
#include "canvas_accessibility.h"
#include "platform/notification_center.h"

#include <cmath>
#include <utility>

namespace lineara {

namespace {

/// The handle that was hit, or nullptr.
ConnectorView* handleOf(const CanvasHit& found)
{
    if (found.node && found.part == NodePart::PartnerHandle)
        return &found.node->partnerHandle();
    if (found.node && found.part == NodePart::ChildHandle)
        return &found.node->childHandle();
    return nullptr;
}

} // namespace

CanvasGestures::CanvasGestures(TreeView& canvas)
    : canvas_(canvas), responder_(canvas.branchLayer()), node_(canvas), link_(canvas),
      autoscroll_([this](QPointF pixels) { canvas_.scrollBy(pixels); })
{
    auto& center = NotificationCenter::defaultCenter();
    drags_ = center.observe<connectionDragNotification>([this](const connectionDragNotification& drag) {
        if (drag.family == &pool())
            link_.connectionDrag(drag, pointer_.value_or(QPointF()));
    });
    ends_ = center.observe<connectionEndNotification>([this](const connectionEndNotification& end) {
        if (end.family == &pool())
            link_.connectionEnd(end, pointer_.value_or(QPointF()));
    });
}

CanvasGestures::~CanvasGestures()
{
    if (held_ == Held::Node)
        node_.drop();
}

void CanvasGestures::press(QPointF pixel)
{
    cancel();
    pointer_ = pixel;
    held_ = Held::Elsewhere;
    pressOn(canvas_.hit(canvas_.toCanvas(pixel)));
    canvas_.redraw();
}

void CanvasGestures::pressOn(const CanvasHit& found)
{
    if (!found.node || found.part)
        canvas_.setFocus(Qt::MouseFocusReason);
    if (!found.node) {
        canvas_.branchLayer().mouseDown(canvas_.toCanvas(*pointer_), *this);
    } else if (ConnectorView* const handle = handleOf(found)) {
        hover_.moveTo(handle);
        handle_ = handle;
        held_ = Held::Handle;
    } else {
        pressOn(*found.node, found.part);
    }
}

void CanvasGestures::pressOn(LeafView& node, std::optional<NodePart> part)
{
    if (part) {
        node_.press(node);
        held_ = Held::Node;
        // What is pending may shift the family, and with it the view beneath the pointer, or take the node away.
        canvas_.settle();
    }
    if (!part || held_ == Held::Node)
        node.mouseDown(dragPoint(), part);
}

void CanvasGestures::move(QPointF pixel, Qt::MouseButtons buttons)
{
    pointer_ = pixel;
    if (!(buttons & Qt::LeftButton))
        cancel(); // the release was lost
    if (buttons == Qt::NoButton)
        hover();
    else
        drag();
}

void CanvasGestures::drag()
{
    if (held_ != Held::Node && held_ != Held::Handle)
        return;
    isDragging_ = true;
    if (held_ == Held::Node)
        node_.drag(dragPoint(), *this);
    else
        handle_->mouseDragged(*this);
    canvas_.redraw();
}

void CanvasGestures::release(QPointF pixel)
{
    pointer_ = pixel;
    const Held held = held_;
    letGo();
    if (held == Held::Node)
        node_.release(*this);
    else if (held == Held::Handle)
        std::exchange(handle_, nullptr)->mouseUp(*this);
}

bool CanvasGestures::cancel()
{
    if (held_ == Held::Nothing)
        return false;
    const Held held = held_;
    letGo();
    if (held == Held::Node)
        node_.cancel();
    if (held == Held::Handle) {
        std::exchange(handle_, nullptr)->mouseExited();
        link_.clear();
    }
    return held == Held::Node || held == Held::Handle;
}

void CanvasGestures::letGo()
{
    held_ = Held::Nothing;
    isDragging_ = false;
    autoscroll_.stop();
    canvas_.redraw();
}

void CanvasGestures::hover()
{
    const bool isLooking = pointer_ && canvas_.isActiveWindow();
    const CanvasHit found = isLooking ? canvas_.hitNode(canvas_.toCanvas(*pointer_)) : CanvasHit{};
    if (hover_.moveTo(handleOf(found)))
        canvas_.redraw();
}

void CanvasGestures::leave()
{
    if (isHolding())
        return;
    pointer_.reset();
    hover();
}

void CanvasGestures::activationChanged()
{
    if (!isHolding())
        hover();
}

void CanvasGestures::scrolledByHand()
{
    if (isDragging_)
        drag();
    else if (!isHolding())
        hover();
}

void CanvasGestures::viewMoved()
{
    if (held_ == Held::Node)
        LeafView::setLastDragPoint(dragPoint());
    else
        scrolledByHand();
}

void CanvasGestures::forget(const LeafView& node)
{
    if (responder_.node() == &node)
        responder_.becomeNobody();
    hover_.forget(node);
    link_.forget(node);
    if (held_ == Held::Node && node_.node() == &node) {
        letGo();
        node_.drop();
    } else if (held_ == Held::Handle && &handle_->node() == &node) {
        letGo();
        handle_ = nullptr;
        link_.clear();
    }
}

void CanvasGestures::settle()
{
    node_.makeRoom();
}

void CanvasGestures::replayed()
{
    if (held_ != Held::Node)
        return;
    letGo();
    node_.drop();
}

/// Where the canvas is scaled, one pixel is not one point: without rounding, the fractions that a node drops at every
/// event would add up.
CanvasPoint CanvasGestures::dragPoint() const
{
    const CanvasPoint point = canvas_.toCanvas(*pointer_);
    if (canvas_.zoom() == 1)
        return point;
    return {std::round(point.x), std::round(point.y)};
}

const Pool& CanvasGestures::pool() const
{
    return canvas_.pool();
}

void CanvasGestures::makeFirstResponder(LeafView& node)
{
    canvas_.setFocus();
    focusOn(node);
}

void CanvasGestures::focusOn(LeafView& node)
{
    responder_.become(node);
    focusChanged();
}

void CanvasGestures::makeFirstResponder(BranchLayerView&)
{
    responder_.becomeBranchLayer();
    canvas_.setFocus();
    focusChanged();
}

void CanvasGestures::clearFirstResponder()
{
    responder_.becomeNobody();
    focusChanged();
}

void CanvasGestures::focusChanged()
{
    const LeafView* const focused = canvas_.hasFocus() ? responder_.node() : nullptr;
    if (focused && focused != canvas_.personLayer().marks().focused)
        announceFocus(canvas_, *focused);
    canvas_.personLayer().markFocused(focused);
    canvas_.redraw();
}

void CanvasGestures::resignFocus()
{
    if (responder_.isBranchLayer())
        responder_.becomeNobody();
}

void CanvasGestures::willMove(LeafView&)
{
    node_.ensureStep();
}

void CanvasGestures::wasPulled(LeafView& node, double before)
{
    node_.pulledFrom(before);
    canvas_.nodeMoved(node);
}

void CanvasGestures::setNeedsUpdateConstraints()
{
    canvas_.setNeedsUpdateConstraints();
}

void CanvasGestures::autoscroll()
{
    autoscroll_.follow(*pointer_, canvas_.viewport()->size());
}

} // namespace lineara
