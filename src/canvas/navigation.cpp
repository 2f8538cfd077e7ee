#include "canvas/navigation.h"

#include <QApplication>
#include <QGestureEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QNativeGestureEvent>
#include <QWheelEvent>
#include <QWidget>

#include <algorithm>
#include <cmath>

namespace lineara {

namespace {

constexpr double notch = 120; // what one click of a wheel reports
constexpr double zoomPerNotch = 1.2;
constexpr double pixelsPerLine = 20;

/// Pixels that a turn of the wheel stands for. Only touch pads, which report phases, know pixels of their own.
QPointF pixelsOf(const QWheelEvent& event)
{
    if (event.phase() != Qt::NoScrollPhase && !event.pixelDelta().isNull())
        return event.pixelDelta();
    return QPointF(event.angleDelta()) * (QApplication::wheelScrollLines() * pixelsPerLine / notch);
}

} // namespace

void Navigation::scrollBy(QPointF pixels)
{
    view_.setPlace(view_.left() + pixels.x(), view_.bottom() - pixels.y());
}

void Navigation::zoomBy(double factor, QPointF anchor)
{
    const double lowest = std::min(ViewTransform::smallestZoom, view_.zoom());
    view_.zoomAt(std::max(view_.zoom() * factor, lowest), anchor);
}

bool Navigation::wheel(const QWheelEvent& event)
{
    if (event.modifiers() & Qt::ControlModifier) {
        zoomBy(std::pow(zoomPerNotch, event.angleDelta().y() / notch), event.position());
        return true;
    }
    const QPointF pixels = pixelsOf(event);
    const bool sideways = (event.modifiers() & Qt::ShiftModifier) && pixels.x() == 0;
    scrollBy(sideways ? QPointF(-pixels.y(), 0) : -pixels);
    return true;
}

bool Navigation::nativeGesture(const QNativeGestureEvent& event)
{
    if (event.gestureType() != Qt::ZoomNativeGesture)
        return false;
    zoomBy(1 + event.value(), event.position());
    return true;
}

bool Navigation::gesture(QGestureEvent& event)
{
    const auto* const pinch = static_cast<const QPinchGesture*>(event.gesture(Qt::PinchGesture));
    if (!pinch || !(pinch->changeFlags() & QPinchGesture::ScaleFactorChanged))
        return pinch;
    zoomBy(pinch->scaleFactor(), event.widget()->mapFromGlobal(pinch->centerPoint()));
    return true;
}

bool Navigation::press(const QMouseEvent& event)
{
    const bool starts = event.button() == Qt::MiddleButton || (spaceHeld_ && event.button() == Qt::LeftButton);
    if (starts)
        grabbed_ = event.position();
    return starts;
}

bool Navigation::move(const QMouseEvent& event)
{
    if (!grabbed_)
        return false;
    scrollBy(*grabbed_ - event.position());
    grabbed_ = event.position();
    return true;
}

bool Navigation::release(const QMouseEvent& event)
{
    const bool ends = grabbed_ && !(event.buttons() & (Qt::LeftButton | Qt::MiddleButton));
    if (ends)
        grabbed_.reset();
    return ends;
}

void Navigation::letGo()
{
    grabbed_.reset();
    spaceHeld_ = false;
}

bool Navigation::key(const QKeyEvent& event)
{
    if (event.key() != Qt::Key_Space || event.isAutoRepeat())
        return event.key() == Qt::Key_Space;
    spaceHeld_ = event.type() == QEvent::KeyPress;
    return true;
}

} // namespace lineara
