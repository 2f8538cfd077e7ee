#pragma once

#include "elements/geometry.h"

#include <cstddef>
#include <optional>
#include <span>
#include <vector>

namespace lineara {

class LeafView;

/// The smallest frame around many nodes. Kept by blocks of nodes, so that asking again after a few have moved costs
/// little however many there are.
class NodeBounds
{
public:
    /// The node at this place among all has been added there or has another frame.
    void moved(std::size_t at);
    /// The same for all of them, and to be called when nodes were taken out.
    void allMoved() { blocks_.clear(); }

    /// No value without nodes.
    std::optional<Frame> of(std::span<LeafView* const> nodes);

private:
    struct Edges
    {
        double left, bottom, right, top;
    };

    static Edges around(const Edges& one, const Edges& other);
    static Edges around(std::span<LeafView* const> nodes);

    std::vector<std::optional<Edges>> blocks_; // no value where somebody has moved
};

} // namespace lineara
