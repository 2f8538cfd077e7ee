#pragma once

#include "elements/node_painter.h"

#include <QRectF>

#include <cstddef>
#include <vector>

class QPainter;

namespace lineara {

class FamilyPicture;
class LinkLayer;

/// An area of a family's picture, drawn bit by bit, so that a window stays alive meanwhile. Good until anything in the
/// family or on its canvas changes: after that it must not be drawn on.
class PictureDrawing
{
public:
    /// `area` is counted from the picture's top left corner. The picture must outlive the drawing.
    PictureDrawing(const FamilyPicture& picture, const QRectF& area);

    /// Links and nodes that may meet the area.
    std::size_t shapes() const { return links_.size() + nodes_.size(); }
    std::size_t painted() const { return painted_; }

    /// Draws the next shapes, the lowest first, with the picture's top left corner at the painter's origin and one unit
    /// for each point. Draws no ground. True while something is left.
    bool paintNext(QPainter& painter, std::size_t shapes);

private:
    void paintLinks(QPainter& painter, std::size_t end);
    void paintNodes(QPainter& painter, std::size_t end);

    const FamilyPicture& picture_;
    std::vector<LinkLayer*> links_;
    std::vector<const LeafView*> nodes_;
    NodePainter nodePainter_;
    std::size_t painted_ = 0;
};

} // namespace lineara
