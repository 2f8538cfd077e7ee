#include "canvas/canvas_painter.h"

#include "canvas/family_scene.h"
#include "coarse_batches.h"
#include "elements/link_painter.h"

#include <QPainter>

namespace lineara {

namespace {

std::vector<std::uint32_t> paintLinks(QPainter& painter, const FamilyScene& scene, const QRectF& area, Detail detail)
{
    std::vector<std::uint32_t> drawn;
    const CanvasPoint corner = toCanvas(area.bottomLeft());
    LinkPainter links(painter, detail, {corner.x, corner.y, area.width(), area.height()});
    scene.visitLinks(area, [&](const LinkLayer& link) {
        links.paint(link);
        drawn.push_back(link.index());
    });
    return drawn;
}

void paintCoarsely(QPainter& painter, const FamilyScene& scene, const QRectF& area)
{
    CoarseBatches batches(painter);
    scene.visitLinks(area, [&](const LinkLayer& link) { batches.add(link); });
    scene.visitNodes(area, [&](const LeafView& node) { batches.add(node); });
    batches.paint();
}

} // namespace

std::vector<std::uint32_t> CanvasPainter::paint(QPainter& painter, const FamilyScene& scene, const QRectF& area,
                                                Detail detail, Motion motion)
{
    std::vector<std::uint32_t> drawn;
    if (detail == Detail::Coarse) {
        paintCoarsely(painter, scene, area);
    } else {
        painter.setRenderHint(QPainter::Antialiasing, detail == Detail::Full);
        drawn = paintLinks(painter, scene, area, motion == Motion::Moving ? Detail::Plain : detail);
        scene.visitNodes(area, [&](const LeafView& node) { nodes_.paint(painter, node, detail); });
    }
    if (const auto& band = scene.personLayer().connection())
        paintRubberBand(painter, *band);
    return drawn;
}

} // namespace lineara
