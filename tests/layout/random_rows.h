#pragma once

#include "layout/row_solver.h"

#include <random>

namespace lineara::layout {

using Random = std::mt19937;

/// A row as a family's records give it: places and widths in the order of enumeration, with places that repeat.
struct RandomRow
{
    std::vector<std::int32_t> lefts;
    std::vector<std::int32_t> widths;
    std::vector<bool> stood;

    /// The same nodes from left to right.
    std::vector<RowNode> nodes() const;
};

struct RowMeasure
{
    std::size_t nodes = 0;
    std::int32_t spread = 0; ///< left edges lie within this many points, about a third of them left of 0
    std::int32_t widest = 0;
};

RandomRow randomRow(Random& random, const RowMeasure& measure);

/// A whole number from 0 to `highest`, the same on every platform.
std::int32_t upTo(Random& random, std::int32_t highest);

} // namespace lineara::layout
