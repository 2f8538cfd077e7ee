#include "canvas/family_scene.h"

#include "canvas/placement.h"
#include "elements/leaf_view.h"
#include "model/object_context.h"
#include "model/person.h"
#include "model/pool.h"

#include <algorithm>
#include <utility>

namespace lineara {

void FamilyScene::addAllInRows()
{
    for (Person* const person : pool().persons()) {
        standInRow(*person->leafView());
        personLayer_.addNode(*person->leafView());
    }
    allMoved();
}

void FamilyScene::addNode(LeafView& node)
{
    personLayer_.addNode(node);
    boxesStale_ = true;
    nodeMoved(node);
}

void FamilyScene::removePerson(Person& person)
{
    if (person.leafView()) {
        person.leafView()->setHighlighted(false);
        personLayer_.removeNode(*person.leafView());
    }
    branchLayer_.removeLayersOf(person);
    linksRenumbered();
    bounds_.allMoved();
}

LinkLayer& FamilyScene::addLink(const LinkRecord& record, const QString& type)
{
    boxesStale_ = true;
    return branchLayer_.addLink(record, type);
}

void FamilyScene::removeLink(LinkLayer& link)
{
    branchLayer_.removeLayer(link);
    linksRenumbered();
}

void FamilyScene::syncLinks(const std::function<bool(const Person&)>& isHidden)
{
    if (branchLayer_.syncWithRecords(isHidden))
        linksRenumbered();
}

bool FamilyScene::shows(const Person& person) const
{
    return person.leafView() && personLayer_.contains(*person.leafView());
}

void FamilyScene::setHighlight(std::span<const RecordId> persons)
{
    clearHighlight();
    for (const RecordId id : persons) {
        if (Person* const person = pool().context().person(id); person && shows(*person))
            person->leafView()->setHighlighted(true);
    }
    isHighlighting_ = true;
}

void FamilyScene::clearHighlight()
{
    if (!std::exchange(isHighlighting_, false))
        return;
    for (LeafView* const node : personLayer_.nodes())
        node->setHighlighted(false);
}

bool FamilyScene::standsOut(const LeafView& node)
{
    return node.isHighlighted() || node.infoView().isFocused();
}

bool FamilyScene::standsOut(const LinkLayer& link)
{
    const auto isHighlighted = [](const Person* person) {
        return person && person->leafView() && person->leafView()->isHighlighted();
    };
    return link.isSelected() || (isHighlighted(link.source()) && isHighlighted(link.target()));
}

void FamilyScene::nodeMoved(const LeafView& node)
{
    for (LinkLayer* const link : node.person().linkLayers()) {
        link->layoutSublayers();
        if (!boxesStale_)
            linkBoxes_.set(link->index(), toPicture(link->bounds()));
    }
    if (!boxesStale_)
        nodeBoxes_.set(node.index(), toPicture(node.frame()));
    bounds_.moved(node.index());
}

void FamilyScene::allMoved()
{
    linksStale_ = true;
    boxesStale_ = true;
    bounds_.allMoved();
}

std::optional<Frame> FamilyScene::bounds() const
{
    return bounds_.of(personLayer_.nodes());
}

std::size_t FamilyScene::countNodes(const QRectF& area) const
{
    std::size_t count = 0;
    visitNodes(area, [&](const LeafView&) { ++count; });
    return count;
}

CanvasHit FamilyScene::hitNode(CanvasPoint point) const
{
    CanvasHit found;
    visitNodes(QRectF(toPicture(point), QSizeF(0, 0)), [&](LeafView& node) {
        if (node.frame().contains(point))
            found.node = &node;
    });
    if (found.node)
        found.part = found.node->partAt(point);
    return found;
}

CanvasHit FamilyScene::hit(CanvasPoint point) const
{
    CanvasHit found = hitNode(point);
    if (found.node)
        return found;
    visitLinks(QRectF(toPicture(point), QSizeF(0, 0)), [&](LinkLayer& link) {
        if (link.contains(point))
            found.link = &link;
    });
    return found;
}

void FamilyScene::keepPathsOf(std::vector<std::uint32_t> drawn)
{
    auto next = drawn.begin();
    for (const std::uint32_t index : linksWithPaths_) {
        next = std::lower_bound(next, drawn.end(), index);
        if (next == drawn.end() || *next != index)
            branchLayer_.layers()[index]->dropPath();
    }
    linksWithPaths_ = std::move(drawn);
}

void FamilyScene::refreshBoxes() const
{
    if (!boxesStale_)
        return;
    layOutLinks();
    nodeBoxes_.clear();
    nodeBoxes_.reserve(personLayer_.nodes().size());
    for (const LeafView* const node : personLayer_.nodes())
        nodeBoxes_.append(toPicture(node->frame()));
    linkBoxes_.clear();
    linkBoxes_.reserve(branchLayer_.layers().size());
    for (const auto& link : branchLayer_.layers())
        linkBoxes_.append(toPicture(link->bounds()));
    boxesStale_ = false;
}

void FamilyScene::layOutLinks() const
{
    if (!std::exchange(linksStale_, false))
        return;
    for (const auto& link : branchLayer_.layers())
        link->layoutSublayers();
}

void FamilyScene::linksRenumbered()
{
    for (const auto& link : branchLayer_.layers())
        link->dropPath();
    linksWithPaths_.clear();
    boxesStale_ = true;
}

} // namespace lineara
