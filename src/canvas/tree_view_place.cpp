// Which part of the family is in view: kept over closing and opening, and led to persons.

#include "canvas/family_picture.h"
#include "canvas/tree_view.h"

#include <algorithm>
#include <utility>

namespace lineara {

namespace {

constexpr double readableZoom = 0.5;
constexpr double revealMargin = 24; // pixels, also so that a scroll bar that comes up covers nobody
constexpr double startMargin = 60;  // below the youngest, whose ancestors are what there is to see

Frame withMargin(const Frame& nodes, double margin = FamilyPicture::margin)
{
    return {nodes.x - margin, nodes.y - margin, nodes.width + 2 * margin, nodes.height + 2 * margin};
}

double squaredDistance(CanvasPoint a, CanvasPoint b)
{
    return (a.x - b.x) * (a.x - b.x) + (a.y - b.y) * (a.y - b.y);
}

} // namespace

std::optional<SeenPart> TreeView::seenPart() const
{
    const auto& nodes = scene_.personLayer().nodes();
    if (nodes.empty())
        return std::nullopt;
    const CanvasPoint middle = view_.visible().centre();
    const auto distance = [middle](const LeafView* node) { return squaredDistance(node->frame().centre(), middle); };
    const LeafView& nearest = **std::ranges::min_element(nodes, {}, distance);
    const CanvasPoint place = nearest.frame().centre();
    return SeenPart{nearest.person().recordId(), middle.x - place.x, middle.y - place.y, view_.zoom()};
}

void TreeView::showAgain(const SeenPart& part)
{
    layOutContent();
    if (showPart(part))
        viewMoved();
}

void TreeView::startAt(const SeenPart& part)
{
    startPart_ = part;
    showStartPlace();
    viewMoved();
}

void TreeView::showStartPlace()
{
    const auto nodes = scene_.bounds();
    if (!nodes || (startPart_ && showPart(*startPart_)))
        return;
    const Frame all = withMargin(*nodes);
    const double zoom = std::min(1.0, view_.zoomToFit(all));
    if (zoom >= readableZoom) {
        view_.centre(all, zoom);
        view_.setPlace(view_.left(), 0);
        view_.reveal(all);
        return;
    }
    const auto youngest = pool().maxGenerationOf();
    const Person* const person = youngest ? pool().context().person(*youngest) : nullptr;
    const LeafView& node =
        person && scene_.shows(*person) ? *person->leafView() : *scene_.personLayer().nodes().front();
    view_.centre(node.frame(), 1);
    view_.setPlace(view_.left(), node.frame().y - startMargin);
}

bool TreeView::showPart(const SeenPart& part)
{
    const Person* const person = pool().context().person(part.person);
    if (!person || !scene_.shows(*person))
        return false;
    const CanvasPoint place = person->leafView()->frame().centre();
    view_.centre(Frame{place.x + part.right, place.y + part.up, 0, 0}, part.zoom);
    return true;
}

void TreeView::reveal(const Person& person)
{
    if (!scene_.shows(person))
        return;
    if (steady_.hold() != PointerHold::None) {
        awaitedReveal_ = person.recordId();
        return;
    }
    layOutContent();
    const Frame frame = frameAtRest(*person.leafView());
    if (!toPicture(view_.visible()).contains(toPicture(frame)))
        view_.reveal(withMargin(frame, revealMargin / view_.zoom()));
    viewMoved();
}

void TreeView::fit()
{
    const auto nodes = scene_.bounds();
    if (!nodes)
        return;
    const Frame all = withMargin(*nodes);
    view_.centre(all, std::min(1.0, view_.zoomToFit(all)));
    viewMoved();
}

} // namespace lineara
