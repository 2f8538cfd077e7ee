#pragma once

#include "elements/detail.h"
#include "elements/node_painter.h"

#include <QRectF>

#include <cstdint>
#include <vector>

class QPainter;

namespace lineara {

class FamilyScene;

enum class Motion : std::uint8_t
{
    Still,
    Moving
};

/// Draws what a family shows in an area: links, above them the nodes, above all the rubber band. Screen, files and
/// printers all draw through it.
class CanvasPainter
{
public:
    explicit CanvasPainter(NodePainter::Medium medium = NodePainter::Medium::Screen) : nodes_(medium) {}

    /// `painter` stands in picture coordinates and `area` is given in them. Links in a picture that moves on at once
    /// need no smooth edges, which are most of what a picture costs. Returns the indices of the links drawn by their
    /// paths, ascending.
    std::vector<std::uint32_t> paint(QPainter& painter, const FamilyScene& scene, const QRectF& area, Detail detail,
                                     Motion motion = Motion::Still);

private:
    NodePainter nodes_;
};

} // namespace lineara
