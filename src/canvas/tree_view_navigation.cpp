// How the view over the canvas moves: scroll bars, wheel, gestures and zoom.

#include "canvas/tree_view.h"
#include "canvas_accessibility.h"
#include "canvas_gestures.h"
#include "node_hint.h"

#include <QGestureEvent>
#include <QHelpEvent>
#include <QNativeGestureEvent>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QTimerEvent>
#include <QToolTip>
#include <QWheelEvent>

#include <algorithm>
#include <utility>

namespace lineara {

namespace {

constexpr double zoomStep = 1.25;
constexpr int scrollStep = 20;
constexpr int restMilliseconds = 150;

struct BarRange
{
    int from = 0;
    int to = 0;
};

/// A bar serves a canvas larger than the view; what fits needs none, wherever in the view it stands.
BarRange barRange(ViewTransform::Range range, double place)
{
    if (range.to == 0)
        return {static_cast<int>(place), static_cast<int>(place)};
    return {static_cast<int>(std::min(0.0, place)), static_cast<int>(std::max(range.to, place))};
}

void setBar(QScrollBar& bar, BarRange range, double value, int page)
{
    bar.setRange(range.from, range.to);
    bar.setPageStep(page);
    bar.setSingleStep(scrollStep);
    bar.setValue(static_cast<int>(value));
}

QRect pixelsOf(const ViewTransform& view, const Frame& frame)
{
    return view.pictureToView().mapRect(toPicture(frame)).toAlignedRect();
}

} // namespace

void TreeView::setUpViewport()
{
    setFrameShape(QFrame::NoFrame);
    // Which presses take the keyboard depends on what they hit.
    setFocusPolicy(Qt::TabFocus);
    viewport()->setMouseTracking(true);
    installCanvasAccessibility();
    // The canvas is white in every theme, and paints every pixel itself.
    viewport()->setAttribute(Qt::WA_OpaquePaintEvent);
    viewport()->setAutoFillBackground(false);
    viewport()->grabGesture(Qt::PinchGesture);
    view_.setViewport(viewport()->size());
}

Frame TreeView::documentVisibleRect() const
{
    const Frame view = view_.visible();
    const double left = std::max(view.x, 0.0);
    const double bottom = std::max(view.y, 0.0);
    return {left, bottom, view.x + view.width - left, view.y + view.height - bottom};
}

void TreeView::layOutContent()
{
    const Frame nodes = scene_.bounds().value_or(Frame{});
    const double top = std::max(nodes.y + nodes.height, highestGoal());
    const QSizeF reach(nodes.x + nodes.width, top);
    view_.setContent(QSizeF(firstFrame_).expandedTo(reach).expandedTo(heldCanvas_), reach);
    if (steady_.hold() != PointerHold::None)
        heldCanvas_ = view_.canvas();
    updateScrollBars();
}

void TreeView::scrollTo(double left, double bottom)
{
    view_.setPlace(left, bottom);
    viewMoved();
}

/// A family that fits into the view stays where it is.
void TreeView::scrollBy(QPointF pixels)
{
    const auto moved = [](double place, double distance, double end) {
        return std::clamp(place + distance, std::min(place, 0.0), std::max(place, end));
    };
    view_.setPlace(moved(view_.left(), pixels.x(), view_.leftRange().to),
                   moved(view_.bottom(), -pixels.y(), view_.bottomRange().to));
    movedByHand(true);
}

void TreeView::zoomTo(double zoom, QPointF anchor)
{
    view_.zoomAt(zoom, anchor);
    viewMoved();
}

void TreeView::zoomIn()
{
    zoomBy(zoomStep);
}

void TreeView::zoomOut()
{
    zoomBy(1 / zoomStep);
}

void TreeView::zoomBy(double factor)
{
    navigation_.zoomBy(factor, QRectF(viewport()->rect()).center());
    viewMoved();
}

void TreeView::actualSize()
{
    zoomTo(1, QRectF(viewport()->rect()).center());
}

void TreeView::viewMoved()
{
    showMovedView();
    gestures_->viewMoved();
}

void TreeView::showMovedView()
{
    updateScrollBars();
    redraw();
    if (std::exchange(shownZoom_, view_.zoom()) != view_.zoom())
        Q_EMIT zoomChanged(view_.zoom());
}

void TreeView::updateScrollBars()
{
    const QScopedValueRollback guard(updatingScrollBars_, true);
    const BarRange across = barRange(view_.leftRange(), view_.left());
    setBar(*horizontalScrollBar(), across, view_.left(), viewport()->width());
    // The bar counts downwards from the canvas's bottom edge, so that growth at the top changes nothing but its range.
    const BarRange upwards = barRange(view_.bottomRange(), view_.bottom());
    setBar(*verticalScrollBar(), {-upwards.to, -upwards.from}, -view_.bottom(), viewport()->height());
}

void TreeView::scrollContentsBy(int, int)
{
    if (updatingScrollBars_)
        return;
    view_.setPlace(horizontalScrollBar()->value(), -verticalScrollBar()->value());
    movedByHand(true);
}

void TreeView::resizeEvent(QResizeEvent*)
{
    view_.setViewport(viewport()->size());
    if (startPlaceOpen_)
        showStartPlace();
    viewMoved();
}

bool TreeView::viewportEvent(QEvent* event)
{
    switch (event->type()) {
    case QEvent::ToolTip:
        showToolTip(static_cast<const QHelpEvent&>(*event));
        return true;
    case QEvent::Gesture:
        return movedByHand(navigation_.gesture(static_cast<QGestureEvent&>(*event)));
    case QEvent::NativeGesture:
        return movedByHand(navigation_.nativeGesture(static_cast<const QNativeGestureEvent&>(*event)));
    case QEvent::Leave:
        gestures_->leave();
        return QAbstractScrollArea::viewportEvent(event);
    case QEvent::UngrabMouse:
        pointerLost();
        return QAbstractScrollArea::viewportEvent(event);
    default:
        return QAbstractScrollArea::viewportEvent(event);
    }
}

/// What is about to change again soon is drawn fast for now, and well once it rests.
void TreeView::drawInHaste()
{
    rest_.start(restMilliseconds, this);
}

bool TreeView::movedByHand(bool moved)
{
    if (moved) {
        drawInHaste();
        showMovedView();
        gestures_->scrolledByHand();
    }
    return moved;
}

void TreeView::timerEvent(QTimerEvent* event)
{
    if (event->timerId() == rest_.timerId())
        rest_.stop();
    else if (event->timerId() == followUp_.timerId())
        followUp_.stop();
    else
        return QAbstractScrollArea::timerEvent(event);
    redraw();
}

void TreeView::wheelEvent(QWheelEvent* event)
{
    event->setAccepted(movedByHand(navigation_.wheel(*event)));
}

void TreeView::updateCursor()
{
    if (navigation_.isPanning())
        viewport()->setCursor(Qt::ClosedHandCursor);
    else if (navigation_.isReadyToPan())
        viewport()->setCursor(Qt::OpenHandCursor);
    else
        viewport()->unsetCursor();
}

void TreeView::showToolTip(const QHelpEvent& event)
{
    const CanvasHit found = hitNode(toCanvas(QPointF(event.pos())));
    const std::optional<NodeHint> hint = found.node && found.part ? hintOf(*found.node, *found.part) : std::nullopt;
    if (hint)
        QToolTip::showText(event.globalPos(), hint->text, viewport(), pixelsOf(view_, hint->frame));
    else
        QToolTip::hideText();
}

} // namespace lineara
