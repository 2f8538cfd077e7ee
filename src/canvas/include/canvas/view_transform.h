#pragma once

#include "elements/geometry.h"

#include <QPointF>
#include <QSizeF>
#include <QTransform>

namespace lineara {

/// Which part of the canvas a viewport shows, and how large.
///
/// The place is kept as a distance from the canvas's left and bottom edges in whole pixels of the view, so that a
/// canvas that grows at its top or right moves nothing on the screen, and lines stay crisp. A family smaller than the
/// view may be shown anywhere in it, so these distances can be negative; otherwise the view stays within the canvas.
class ViewTransform
{
public:
    static constexpr double smallestZoom = 0.02;
    static constexpr double largestZoom = 8.0;

    /// Pixels of the view per point of the canvas.
    double zoom() const { return zoom_; }
    QSizeF viewport() const { return viewport_; }
    /// Size in points: never smaller than what the view shows.
    QSizeF canvas() const { return content_.expandedTo(viewport_ / zoom_); }

    /// Distance in pixels from the canvas's left edge to the view's, and from its bottom edge to the view's.
    double left() const { return left_; }
    double bottom() const { return bottom_; }

    /// How far left() and bottom() can be scrolled.
    struct Range
    {
        double from = 0;
        double to = 0;
    };
    Range leftRange() const;
    Range bottomRange() const;

    void setViewport(QSizeF pixels);

    /// `canvas` is the least size of the canvas in points, `nodes` how far the nodes reach right and up in it.
    /// Moves nothing on the screen.
    void setContent(QSizeF canvas, QSizeF nodes);

    void setPlace(double left, double bottom);

    /// Keeps what is shown where it is on the screen when everything on the canvas moves that many points to the right
    /// and up. The view may leave the canvas by this, and stays there until it is scrolled or zoomed.
    void follow(double right, double up);

    /// Changes the size of a point on the screen, while the point of the canvas that is shown at `anchor` (view pixels)
    /// stays there. `zoom` is limited so that every pixel of the canvas has coordinates within 32 bits.
    void zoomAt(double zoom, QPointF anchor);

    /// Scrolls as little as possible until `frame` is in view; one that is larger than the view is centred.
    void reveal(const Frame& frame);

    /// Shows `frame` in the middle of the view at that zoom.
    void centre(const Frame& frame, double zoom);

    /// The zoom at which `frame` just fits into the view.
    double zoomToFit(const Frame& frame) const;

    QPointF toView(CanvasPoint point) const;
    CanvasPoint toCanvas(QPointF pixel) const;

    /// What the view shows, beyond the canvas's edges where it reaches there.
    Frame visible() const;

    /// Maps picture coordinates (y = 0 at the canvas bottom, up negative) to pixels of the view.
    QTransform pictureToView() const { return {zoom_, 0, 0, zoom_, -left_, viewport_.height() + bottom_}; }

private:
    QSizeF content_{0, 0};
    QSizeF nodes_{0, 0};
    QSizeF viewport_{1, 1};
    double zoom_ = 1;
    double left_ = 0;
    double bottom_ = 0;
    bool following_ = false; // since it was placed last
};

} // namespace lineara
