#pragma once

#include <QPointF>
#include <QRectF>

namespace lineara {

/// A point of the canvas in points (the unit), y upwards from the canvas's bottom edge.
struct CanvasPoint
{
    double x = 0;
    double y = 0;
    friend bool operator==(const CanvasPoint&, const CanvasPoint&) = default; // exact, unlike QPointF's
};

/// A rectangle of the canvas; (x, y) is its bottom left corner, y upwards.
struct Frame
{
    double x = 0;
    double y = 0;
    double width = 0;
    double height = 0;
    CanvasPoint centre() const { return {x + width * 0.5, y + height * 0.5}; }
    /// Left and bottom edge belong to the rectangle, right and top edge do not.
    bool contains(CanvasPoint point) const
    {
        return point.x >= x && point.x < x + width && point.y >= y && point.y < y + height;
    }
    bool isEmpty() const { return !(width > 0 && height > 0); }
    friend bool operator==(const Frame&, const Frame&) = default;
};

/// The canvas speaks of height above its bottom edge; the picture has y = 0 at that edge and grows downwards, so that
/// up is negative and a growing canvas moves nothing. These two are the only places where one becomes the other.
inline QPointF toPicture(CanvasPoint point)
{
    return {point.x, -point.y};
}
inline CanvasPoint toCanvas(QPointF point)
{
    return {point.x(), -point.y()};
}

inline QRectF toPicture(const Frame& frame)
{
    return {frame.x, -(frame.y + frame.height), frame.width, frame.height};
}

} // namespace lineara
