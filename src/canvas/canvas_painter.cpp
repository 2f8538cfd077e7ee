#include "canvas/canvas_painter.h"

#include "canvas/family_scene.h"
#include "canvas/picture_part.h"
#include "coarse_nodes.h"
#include "elements/colours.h"
#include "elements/link_painter.h"
#include "link_raster.h"

#include <QPainter>

#include <algorithm>
#include <array>
#include <iterator>
#include <optional>

namespace lineara {

namespace {

/// What is drawn in one go: everything, or where some persons are highlighted one of the two halves.
enum class Half : std::uint8_t
{
    Both,
    Dimmed,
    StandingOut
};

/// What is in view, told apart once for both halves of a picture.
struct Halves
{
    std::vector<const LinkLayer*> links;
    std::vector<const LeafView*> nodes;

    static std::array<Halves, 2> of(const FamilyScene& scene, const QRectF& area)
    {
        std::array<Halves, 2> halves;
        scene.visitLinks(
            area, [&](const LinkLayer& link) { halves[FamilyScene::standsOut(link) ? 1 : 0].links.push_back(&link); });
        scene.visitNodes(
            area, [&](const LeafView& node) { halves[FamilyScene::standsOut(node) ? 1 : 0].nodes.push_back(&node); });
        return halves;
    }
};

} // namespace

struct CanvasPainter::Picture
{
    QPainter& painter;
    const FamilyScene& scene;
    QRectF area;
    Detail detail{};
    Motion motion{};
    NodePainter::Medium medium{};
    const PicturePart* shown = nullptr; ///< nullptr for everybody
    Half which = Half::Both;
    const Halves* half = nullptr; ///< of a part

    template<class Visit>
    void visitLinks(Visit&& visit) const
    {
        if (!half) {
            scene.visitLinks(area, [&](const LinkLayer& link) {
                if (!shown || shown->holds(link.source(), link.target()))
                    visit(link);
            });
            return;
        }
        for (const LinkLayer* const link : half->links)
            visit(*link);
    }

    template<class Visit>
    void visitNodes(Visit&& visit) const
    {
        if (!half) {
            scene.visitNodes(area, [&](const LeafView& node) {
                if (!shown || shown->holds(node.person()))
                    visit(node);
            });
            return;
        }
        for (const LeafView* const node : half->nodes)
            visit(*node);
    }

    /// Pixels for the whole view cost more than a few links, so there are none without any.
    template<class Add>
    void rasterLinks(Add&& add) const
    {
        std::optional<LinkRaster> links;
        visitLinks([&](const LinkLayer& link) {
            if (!links)
                links.emplace(painter, ground());
            add(*links, link);
        });
        if (links)
            links->paint();
    }

    /// Links drawn in a second go must leave what lies below them to be seen.
    LinkRaster::Ground ground() const
    {
        return which == Half::StandingOut ? LinkRaster::Ground::Clear : LinkRaster::Ground::White;
    }

    std::vector<std::uint32_t> paintLinksWell() const
    {
        std::vector<std::uint32_t> drawn;
        const CanvasPoint corner = toCanvas(area.bottomLeft());
        LinkPainter links(painter, detail, {corner.x, corner.y, area.width(), area.height()});
        if (medium == NodePainter::Medium::Document)
            links.leaveOutSelection();
        visitLinks([&](const LinkLayer& link) {
            links.paint(link);
            drawn.push_back(link.index());
        });
        return drawn;
    }

    std::vector<std::uint32_t> paintLinksRoughly() const
    {
        std::vector<std::uint32_t> drawn;
        rasterLinks([&](LinkRaster& links, const LinkLayer& link) {
            links.addInShape(link);
            drawn.push_back(link.index());
        });
        return drawn;
    }

    void paintLinksCoarsely() const
    {
        rasterLinks([](LinkRaster& links, const LinkLayer& link) { links.addAsLine(link); });
    }

    std::vector<std::uint32_t> paintLinks() const
    {
        if (detail == Detail::Coarse) {
            paintLinksCoarsely();
            return {};
        }
        painter.setRenderHint(QPainter::Antialiasing, detail == Detail::Full);
        return motion == Motion::Moving ? paintLinksRoughly() : paintLinksWell();
    }

    void paintNodesCoarsely() const
    {
        CoarseNodes nodes(painter);
        visitNodes([&](const LeafView& node) { nodes.add(node); });
        nodes.paint();
    }
};

std::vector<std::uint32_t> CanvasPainter::paint(QPainter& painter, const FamilyScene& scene, const QRectF& area,
                                                Detail detail, Motion motion)
{
    Picture picture{painter, scene, area, detail, motion, medium_, part_};
    if (medium_ != NodePainter::Medium::Screen || !scene.isHighlighting())
        return paintHalf(picture);
    const std::array<Halves, 2> halves = Halves::of(scene, area);
    picture.which = Half::Dimmed;
    picture.half = &halves[0];
    const std::vector<std::uint32_t> dimmed = paintHalf(picture);
    painter.fillRect(area, colours::dimmingVeil());
    picture.which = Half::StandingOut;
    picture.half = &halves[1];
    const std::vector<std::uint32_t> standingOut = paintHalf(picture);
    std::vector<std::uint32_t> drawn;
    drawn.reserve(dimmed.size() + standingOut.size());
    std::ranges::merge(dimmed, standingOut, std::back_inserter(drawn));
    return drawn;
}

std::vector<std::uint32_t> CanvasPainter::paintHalf(const Picture& picture)
{
    std::vector<std::uint32_t> drawn = picture.paintLinks();
    const PersonLayerView& layer = picture.scene.personLayer();
    // What a gesture shows is about no half of the family.
    const bool withMarks = medium_ == NodePainter::Medium::Screen && picture.which != Half::Dimmed;
    if (withMarks) {
        if (layer.connection())
            paintRubberBand(picture.painter, *layer.connection());
        paintMarksBelow(picture.painter, layer.marks());
    }
    paintNodes(picture);
    if (withMarks)
        paintMarksAbove(picture.painter, layer.marks());
    return drawn;
}

void CanvasPainter::paintNodes(const Picture& picture)
{
    if (picture.detail == Detail::Coarse) {
        picture.paintNodesCoarsely();
        return;
    }
    nodes_.beginPicture(picture.painter, picture.motion);
    picture.visitNodes([&](const LeafView& node) { nodes_.paint(picture.painter, node, picture.detail); });
}

} // namespace lineara
