#pragma once

#include "elements/detail.h"
#include "elements/geometry.h"

#include <QBrush>
#include <QPen>

class QPainter;

namespace lineara {

class LinkLayer;
struct RubberBand;

/// Draws link shapes with a painter that stands in picture coordinates. Made for one round of painting: it takes the
/// painter's scale when constructed, and leaves the painter's antialiasing, pen and brush as they were at its end.
class LinkPainter
{
public:
    /// `visible` is what is seen of the canvas: shapes far wider than that are drawn without antialiasing.
    LinkPainter(QPainter& painter, Detail detail, const Frame& visible);
    ~LinkPainter();
    LinkPainter(const LinkPainter&) = delete;
    LinkPainter& operator=(const LinkPainter&) = delete;

    /// From now on a selected link looks like any other.
    void leaveOutSelection() { showsSelection_ = false; }

    /// The detail is Full or Plain; Coarse links are drawn like Plain ones.
    void paint(const LinkLayer& link);

private:
    struct Look
    {
        QPen outline;
        QBrush fill;
    };

    void setAntialiasing(bool wanted);

    QPainter& painter_;
    Look partner_;
    Look offspring_;
    QPen selected_;
    double greatestSmoothWidth_;
    bool isAntialiased_;
    bool isSmooth_;
    bool showsSelection_ = true;
};

/// The dashed line from a handle to the pointer.
void paintRubberBand(QPainter& painter, const RubberBand& band);

} // namespace lineara
