#pragma once

#include "canvas/view_transform.h"

#include <QPointF>

#include <cstdint>

namespace lineara {

/// What a pointer button that is down has got hold of.
enum class PointerHold : std::uint8_t
{
    None,
    Canvas,
    Node ///< a node is being dragged
};

/// What everybody is shifted for.
enum class ShiftCause : std::uint8_t
{
    Layout,
    Drag,  ///< a node was dragged beyond the canvas's left edge
    Replay ///< undo, redo, or a gesture that is taken back
};

/// Keeps persons where they are on the screen when all of them are moved on the canvas. While a button is down nothing
/// scrolls beneath the pointer; what was due by then is made up for at the release.
class SteadyView
{
public:
    explicit SteadyView(ViewTransform& view) : view_(view) {}

    PointerHold hold() const { return hold_; }
    void setHold(PointerHold hold);

    /// To be called when everybody has been shifted to the right by that many points. Where somebody is being dragged
    /// beyond the canvas's edge the view stays, and all others give way; it stays as well when that is taken back
    /// during the same drag.
    void followShift(double points, ShiftCause cause);

    /// To be called before everybody is moved up by that many points. False if the view can't follow now.
    bool followRows(double points);

private:
    double yieldedOf(double points, ShiftCause cause);

    ViewTransform& view_;
    PointerHold hold_ = PointerHold::None;
    QPointF owed_;       // points to the right and up
    double yielded_ = 0; // points to the right by which others have given way to what is dragged
};

} // namespace lineara
