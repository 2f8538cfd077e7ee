#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace lineara::layout {

/// Points that stay free between two neighbours of a row.
inline constexpr std::int32_t rowGap = 10;

/// A node of one row, in whole points.
struct RowNode
{
    std::int32_t left = 0;  ///< where its left edge is, and would like to stay; may be negative
    std::int32_t width = 0; ///< never negative
    bool stood = true;      ///< was in the row before; false for a newcomer
};

/// The nodes of a row from left to right, by their left edges; of equal ones the earlier stands left. What comes back
/// are positions in `lefts`, each of them once.
std::vector<std::size_t> rowOrder(std::span<const std::int32_t> lefts);

/// New left edges, one per node, such that neighbours are at least `rowGap` apart. The nodes are given as they stand
/// from left to right and keep that order, whatever their left edges say. The row is bounded on neither side.
///
/// Of all places in that order the ones come back that
///  1. move all nodes by the least distance in total;
///  2. among these, move the nodes that already stood in the row by the least distance in total, so newcomers give way;
///  3. among these, are furthest right: no other such places have any node further right.
///
/// There is exactly one such answer, and in it
///  - nothing moves unless some neighbours are too near each other, so solving what was solved changes nothing;
///  - of nodes that stand shoulder to shoulder, exactly `rowGap` apart, at least one stays where it was.
///
/// Exact for any input of up to a thousand million nodes: places are whole and wide enough for nodes at the ends of
/// the number range. Time n log n, memory linear in n. May be called from any thread.
std::vector<std::int64_t> solveRow(std::span<const RowNode> row);

} // namespace lineara::layout
