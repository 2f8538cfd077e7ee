#pragma once

#include <QImage>
#include <QPointF>
#include <QRgb>
#include <QSize>

#include <span>
#include <vector>

namespace lineara {

/// Lines one pixel wide and filled shapes, without smooth edges, in pixels of their own. For pictures with thousands of
/// small shapes, or with so little time that a painter's way of filling costs too much. Colours are premultiplied;
/// places are given in pixels, whose middles lie at halves.
class PlainRaster
{
public:
    /// Starts out in one colour, which is opaque or wholly transparent.
    PlainRaster(QSize size, QRgb ground);

    /// Colours the pixels from one point to the other, both included, as far as they lie within the image, as if they
    /// lay on the ground: thousands of lines on one another stay as light as a single one.
    void line(QPointF from, QPointF to, QRgb colour);

    /// Lays a colour over all pixels whose middles lie within the outline by the non-zero winding rule. The last point
    /// is joined to the first.
    void fill(std::span<const QPointF> outline, QRgb colour);

    const QImage& image() const { return image_; }

private:
    /// Where an edge of an outline crosses the middle of a row of pixels.
    struct Crossing
    {
        double x;
        int winding; ///< 1 downwards, -1 upwards
    };

    QRgb* row(int y) { return pixels_ + y * stride_; }
    QRgb onGround(QRgb colour) const;
    void addCrossings(QPointF from, QPointF to, int firstRow);
    void fillRow(int y, std::vector<Crossing>& crossings, QRgb colour);

    QRgb ground_;
    QImage image_;
    QRgb* pixels_;                                 // of the image
    qsizetype stride_;                             // pixels from one row to the next
    std::vector<std::vector<Crossing>> crossings_; // by row of the shape being filled; kept for their memory
};

} // namespace lineara
