#include "canvas/canvas_painter.h"

#include "canvas/family_scene.h"
#include "coarse_nodes.h"
#include "elements/link_painter.h"
#include "link_raster.h"

#include <QPainter>

namespace lineara {

namespace {

std::vector<std::uint32_t> paintLinksWell(QPainter& painter, const FamilyScene& scene, const QRectF& area,
                                          Detail detail)
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

void paintLinksCoarsely(QPainter& painter, const FamilyScene& scene, const QRectF& area)
{
    LinkRaster links(painter);
    scene.visitLinks(area, [&](const LinkLayer& link) { links.addAsLine(link); });
    links.paint();
}

std::vector<std::uint32_t> paintLinks(QPainter& painter, const FamilyScene& scene, const QRectF& area, Detail detail,
                                      Motion motion)
{
    if (detail == Detail::Coarse) {
        paintLinksCoarsely(painter, scene, area);
        return {};
    }
    painter.setRenderHint(QPainter::Antialiasing, detail == Detail::Full);
    return motion == Motion::Moving ? paintLinksRoughly(painter, scene, area)
                                    : paintLinksWell(painter, scene, area, detail);
}

void paintNodesCoarsely(QPainter& painter, const FamilyScene& scene, const QRectF& area)
{
    CoarseNodes nodes(painter);
    scene.visitNodes(area, [&](const LeafView& node) { nodes.add(node); });
    nodes.paint();
}

} // namespace

std::vector<std::uint32_t> CanvasPainter::paint(QPainter& painter, const FamilyScene& scene, const QRectF& area,
                                                Detail detail, Motion motion)
{
    std::vector<std::uint32_t> drawn = paintLinks(painter, scene, area, detail, motion);
    const PersonLayerView& layer = scene.personLayer();
    if (medium_ == NodePainter::Medium::Screen) {
        if (layer.connection())
            paintRubberBand(painter, *layer.connection());
        paintMarksBelow(painter, layer.marks());
    }
    paintNodes(painter, scene, area, detail, motion);
    if (medium_ == NodePainter::Medium::Screen)
        paintMarksAbove(painter, layer.marks());
    return drawn;
}

void CanvasPainter::paintNodes(QPainter& painter, const FamilyScene& scene, const QRectF& area, Detail detail,
                               Motion motion)
{
    if (detail == Detail::Coarse) {
        paintNodesCoarsely(painter, scene, area);
        return;
    }
    nodes_.beginPicture(painter, motion);
    scene.visitNodes(area, [&](const LeafView& node) { nodes_.paint(painter, node, detail); });
}

} // namespace lineara
