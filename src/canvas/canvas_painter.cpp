#include "canvas/canvas_painter.h"

#include "canvas/family_scene.h"
#include "coarse_nodes.h"
#include "elements/link_painter.h"
#include "link_raster.h"

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

std::vector<std::uint32_t> paintLinksRoughly(QPainter& painter, const FamilyScene& scene, const QRectF& area)
{
    std::vector<std::uint32_t> drawn;
    LinkRaster links(painter);
    scene.visitLinks(area, [&](const LinkLayer& link) {
        links.addInShape(link);
        drawn.push_back(link.index());
    });
    links.paint();
    return drawn;
}

void paintCoarsely(QPainter& painter, const FamilyScene& scene, const QRectF& area)
{
    LinkRaster links(painter);
    scene.visitLinks(area, [&](const LinkLayer& link) { links.addAsLine(link); });
    links.paint();
    CoarseNodes nodes(painter);
    scene.visitNodes(area, [&](const LeafView& node) { nodes.add(node); });
    nodes.paint();
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
        drawn = motion == Motion::Moving ? paintLinksRoughly(painter, scene, area)
                                         : paintLinks(painter, scene, area, detail);
        nodes_.beginPicture(painter, motion);
        scene.visitNodes(area, [&](const LeafView& node) { nodes_.paint(painter, node, detail); });
    }
    if (const auto& band = scene.personLayer().connection())
        paintRubberBand(painter, *band);
    return drawn;
}

} // namespace lineara
