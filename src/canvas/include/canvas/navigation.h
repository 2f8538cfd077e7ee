#pragma once

#include "canvas/view_transform.h"

#include <QPoint>

#include <optional>

class QEvent;
class QGestureEvent;
class QKeyEvent;
class QMouseEvent;
class QNativeGestureEvent;
class QWheelEvent;

namespace lineara {

/// How wheel, touch pad, keys and the middle button move a view over the canvas: the wheel scrolls (with Shift
/// sideways), Ctrl and wheel or a pinch zoom at the pointer, the middle button or the left one with Space held drags
/// the canvas.
class Navigation
{
public:
    explicit Navigation(ViewTransform& view) : view_(view) {}

    /// Each takes an event of the viewport and says whether it was one of the above; the view has then moved.
    bool wheel(const QWheelEvent& event);
    bool nativeGesture(const QNativeGestureEvent& event);
    bool gesture(QGestureEvent& event);
    bool press(const QMouseEvent& event);
    bool move(const QMouseEvent& event);
    bool release(const QMouseEvent& event);
    bool key(const QKeyEvent& event);

    /// Ends a drag of the canvas and forgets the Space key: what is released elsewhere is not heard of.
    void letGo();

    /// Whether a drag of the canvas could begin, or is under way.
    bool isReadyToPan() const { return spaceHeld_; }
    bool isPanning() const { return grabbed_.has_value(); }

    /// Zooms while the point at `anchor` stays in place. Steps end at the least zoom, which Fit may go below.
    void zoomBy(double factor, QPointF anchor);

private:
    void scrollBy(QPointF pixels);

    ViewTransform& view_;
    std::optional<QPointF> grabbed_; // where the pointer was at the last event of a drag of the canvas
    bool spaceHeld_ = false;
};

} // namespace lineara
