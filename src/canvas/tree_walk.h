#pragma once

#include "elements/geometry.h"

#include <cstdint>

namespace lineara {

class LeafView;
class PersonLayerView;

/// The ways that the arrow keys go through a family.
enum class WalkDirection : std::uint8_t
{
    ToParent,
    ToChild,
    Left,
    Right
};

/// The node that is reached from another: the first parent, the child that stands nearest, or the nearest on that side
/// of those in the row and of the partners. Nodes of equal places are passed in the order of the layer. Nullptr if
/// there is none. Time is linear in the nodes shown.
LeafView* nodeBeside(const PersonLayerView& layer, const LeafView& from, WalkDirection direction);

/// The node whose centre is nearest to the point, or nullptr on an empty layer.
LeafView* nodeNearest(const PersonLayerView& layer, CanvasPoint point);

} // namespace lineara
