#pragma once

#include "elements/leaf_view.h"
#include "model/object_context.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <vector>

namespace lineara {

/// The nodes of a row by their left edges.
inline std::vector<const LeafView*> rowFromTheLeft(const Pool& pool, const std::vector<RecordId>& row)
{
    std::vector<const LeafView*> nodes;
    for (const RecordId id : row)
        nodes.push_back(pool.context().person(id)->leafView());
    std::ranges::stable_sort(nodes, {}, [](const LeafView* node) { return node->frame().x; });
    return nodes;
}

inline std::int32_t smallestX(const Pool& pool)
{
    std::int32_t smallest = std::numeric_limits<std::int32_t>::max();
    for (const Person* const person : pool.persons())
        smallest = std::min(smallest, person->x().value_or(0));
    return smallest;
}

/// Whether neighbours of all rows above row 0 stand at least 10 points apart, nobody stands left of the canvas, and
/// every node stands where its person's x says.
inline testing::AssertionResult isAtRest(const Pool& pool)
{
    for (std::size_t row = 1; row < pool.generations().size(); ++row) {
        const auto nodes = rowFromTheLeft(pool, pool.generations()[row]);
        for (std::size_t at = 1; at < nodes.size(); ++at) {
            const double gap = nodes[at]->frame().x - nodes[at - 1]->frame().x - nodes[at - 1]->width();
            if (gap < 10)
                return testing::AssertionFailure() << "a gap of " << gap << " in row " << row;
        }
    }
    for (const Person* const person : pool.persons()) {
        if (person->x() != person->leafView()->xConstraint()->constant)
            return testing::AssertionFailure() << "a node stands beside its place";
    }
    if (!pool.persons().empty() && smallestX(pool) < 0)
        return testing::AssertionFailure() << "somebody stands at " << smallestX(pool);
    return testing::AssertionSuccess();
}

} // namespace lineara
