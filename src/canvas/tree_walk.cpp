#include "tree_walk.h"

#include "canvas/placement.h"
#include "elements/person_layer_view.h"
#include "model/person.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace lineara {

namespace {

LeafView* shownNode(const PersonLayerView& layer, const Person& person)
{
    LeafView* const node = person.leafView();
    return node && layer.contains(*node) ? node : nullptr;
}

LeafView* firstParent(const PersonLayerView& layer, const LeafView& from)
{
    for (const Person* const parent : from.person().parents()) {
        if (LeafView* const node = shownNode(layer, *parent))
            return node;
    }
    return nullptr;
}

LeafView* nearestChild(const PersonLayerView& layer, const LeafView& from)
{
    const double middle = from.frame().centre().x;
    const auto distance = [&](const LeafView* node) { return std::abs(node->frame().centre().x - middle); };
    LeafView* nearest = nullptr;
    for (const Person* const child : from.person().children()) {
        LeafView* const node = shownNode(layer, *child);
        if (node && (!nearest || distance(node) < distance(nearest)))
            nearest = node;
    }
    return nearest;
}

/// Orders nodes from the left to the right, without any two alike.
std::pair<double, std::uint32_t> place(const LeafView& node)
{
    return {node.xConstraint()->constant, node.index()};
}

LeafView* nearestOfRow(const PersonLayerView& layer, const LeafView& from, WalkDirection direction)
{
    const bool isLeftwards = direction == WalkDirection::Left;
    const auto isBefore = [&](const LeafView& a, const LeafView& b) {
        return isLeftwards ? place(b) < place(a) : place(a) < place(b);
    };
    const std::int32_t row = rowConstant(from.person().generation());
    LeafView* nearest = nullptr;
    for (LeafView* const node : layer.nodes()) {
        const bool isCandidate =
            rowConstant(node->person().generation()) == row || from.person().partners().contains(&node->person());
        if (isCandidate && isBefore(from, *node) && (!nearest || isBefore(*node, *nearest)))
            nearest = node;
    }
    return nearest;
}

} // namespace

LeafView* nodeBeside(const PersonLayerView& layer, const LeafView& from, WalkDirection direction)
{
    switch (direction) {
    case WalkDirection::ToParent:
        return firstParent(layer, from);
    case WalkDirection::ToChild:
        return nearestChild(layer, from);
    case WalkDirection::Left:
    case WalkDirection::Right:
        return nearestOfRow(layer, from, direction);
    }
    return nullptr;
}

LeafView* nodeNearest(const PersonLayerView& layer, CanvasPoint point)
{
    const auto distance = [&](const LeafView* node) {
        const CanvasPoint centre = node->frame().centre();
        return std::hypot(centre.x - point.x, centre.y - point.y);
    };
    const auto nearest = std::ranges::min_element(layer.nodes(), {}, distance);
    return nearest != layer.nodes().end() ? *nearest : nullptr;
}

} // namespace lineara
