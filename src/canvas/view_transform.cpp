#include "canvas/view_transform.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace lineara {

namespace {

constexpr double largestPixel = std::numeric_limits<int>::max() - 1;
constexpr double tiniestZoom = 1e-9;

/// Where a view may start along one edge; all lengths in pixels.
ViewTransform::Range range(double canvas, double nodes, double view)
{
    return {std::min(0.0, std::ceil(nodes) - view), std::max(0.0, std::ceil(canvas) - view)};
}

double within(ViewTransform::Range range, double place)
{
    return std::clamp(std::round(place), range.from, range.to);
}

/// Where to start showing a stretch so that it comes into view, given where the view starts now. Of a stretch as long
/// as the view, rounding may put the latest start before the earliest.
double revealedFrom(double now, double view, double from, double to)
{
    return to - from > view ? (from + to - view) * 0.5 : std::max(to - view, std::min(now, from));
}

} // namespace

ViewTransform::Range ViewTransform::leftRange() const
{
    return range(content_.width() * zoom_, nodes_.width() * zoom_, viewport_.width());
}

ViewTransform::Range ViewTransform::bottomRange() const
{
    return range(content_.height() * zoom_, nodes_.height() * zoom_, viewport_.height());
}

void ViewTransform::setViewport(QSizeF pixels)
{
    viewport_ = pixels.expandedTo({1, 1});
    if (!following_)
        setPlace(left_, bottom_);
}

void ViewTransform::setContent(QSizeF canvas, QSizeF nodes)
{
    content_ = canvas;
    nodes_ = nodes;
}

void ViewTransform::setPlace(double left, double bottom)
{
    left_ = within(leftRange(), left);
    bottom_ = within(bottomRange(), bottom);
    following_ = false;
}

void ViewTransform::follow(double right, double up)
{
    left_ += std::round(right * zoom_);
    bottom_ += std::round(up * zoom_);
    following_ = true;
}

void ViewTransform::zoomAt(double zoom, QPointF anchor)
{
    const CanvasPoint kept = toCanvas(anchor);
    const double edge = std::max({content_.width(), content_.height(), 1.0});
    zoom_ = std::clamp(zoom, tiniestZoom, std::min(largestZoom, largestPixel / edge));
    setPlace(kept.x * zoom_ - anchor.x(), kept.y * zoom_ - (viewport_.height() - anchor.y()));
}

void ViewTransform::reveal(const Frame& frame)
{
    setPlace(revealedFrom(left_, viewport_.width(), frame.x * zoom_, (frame.x + frame.width) * zoom_),
             revealedFrom(bottom_, viewport_.height(), frame.y * zoom_, (frame.y + frame.height) * zoom_));
}

void ViewTransform::centre(const Frame& frame, double zoom)
{
    zoomAt(zoom, {0, 0});
    const CanvasPoint middle = frame.centre();
    setPlace(middle.x * zoom_ - viewport_.width() * 0.5, middle.y * zoom_ - viewport_.height() * 0.5);
}

double ViewTransform::zoomToFit(const Frame& frame) const
{
    return std::min(viewport_.width() / std::max(frame.width, 1.0), viewport_.height() / std::max(frame.height, 1.0));
}

QPointF ViewTransform::toView(CanvasPoint point) const
{
    return {point.x * zoom_ - left_, viewport_.height() - (point.y * zoom_ - bottom_)};
}

CanvasPoint ViewTransform::toCanvas(QPointF pixel) const
{
    return {(pixel.x() + left_) / zoom_, (viewport_.height() - pixel.y() + bottom_) / zoom_};
}

Frame ViewTransform::visible() const
{
    return {left_ / zoom_, bottom_ / zoom_, viewport_.width() / zoom_, viewport_.height() / zoom_};
}

} // namespace lineara
