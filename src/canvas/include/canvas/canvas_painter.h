#pragma once

#include "elements/detail.h"
#include "elements/node_painter.h"

#include <QRectF>

#include <cstdint>
#include <vector>

class QPainter;

namespace lineara {

class FamilyScene;

/// Draws what a family shows in an area: links, above them the nodes, above all the rubber band. Screen, files and
/// printers all draw through it.
class CanvasPainter
{
public:
    explicit CanvasPainter(NodePainter::Medium medium = NodePainter::Medium::Screen) : nodes_(medium) {}

    /// `painter` stands in picture coordinates and `area` is given in them. Smooth edges of links are most of what a
    /// picture costs: while it moves on at once they are left out. Returns the indices of the links drawn by their
    /// paths, ascending.
    std::vector<std::uint32_t> paint(QPainter& painter, const FamilyScene& scene, const QRectF& area, Detail detail,
                                     Motion motion = Motion::Still);

private:
    NodePainter nodes_;
};

} // namespace lineara
