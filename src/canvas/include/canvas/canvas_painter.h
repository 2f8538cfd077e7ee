#pragma once

#include "elements/detail.h"
#include "elements/node_painter.h"

#include <QRectF>

#include <cstdint>
#include <vector>

class QPainter;

namespace lineara {

class FamilyScene;
struct PicturePart;

/// Draws what a family shows in an area: links, above them the rubber band, above all the nodes. Screen, files and
/// printers all draw through it; what only a gesture shows is left out of files and prints.
class CanvasPainter
{
public:
    /// Draws everybody, or `part`, which must outlive the painter.
    explicit CanvasPainter(NodePainter::Medium medium = NodePainter::Medium::Screen, const PicturePart* part = nullptr)
        : medium_(medium), part_(part), nodes_(medium)
    {}

    /// `painter` stands in picture coordinates and `area` is given in them. Smooth edges of links are most of what a
    /// picture costs: while it moves on at once they are left out. On a screen, what is not highlighted lies behind a
    /// veil. Returns the indices of the links drawn by their paths, ascending.
    std::vector<std::uint32_t> paint(QPainter& painter, const FamilyScene& scene, const QRectF& area, Detail detail,
                                     Motion motion = Motion::Still);

private:
    struct Picture;

    std::vector<std::uint32_t> paintHalf(const Picture& picture);
    void paintNodes(const Picture& picture);

    NodePainter::Medium medium_;
    const PicturePart* part_;
    NodePainter nodes_;
};

} // namespace lineara
