#include "layout/row_solver.h"

#include <algorithm>
#include <functional>
#include <numeric>

namespace lineara::layout {

namespace {

/// What the nodes so far cost at least, seen as a function of where the last of them may stand at most: convex, falling
/// and then flat. It is known by its bends, the places where it falls less steeply from there on.
class LeastCost
{
public:
    explicit LeastCost(std::size_t nodes) { bends_.reserve(nodes); }

    /// Takes in the next node, which likes to be at `level` and minds every point away from it by `weight`. Returns the
    /// rightmost place that is best for it and all before it.
    std::int64_t add(std::int64_t level, std::int64_t weight)
    {
        bends_.push_back({level, 2 * weight});
        std::ranges::push_heap(bends_, {}, &Bend::level);
        return flatten(weight);
    }

private:
    struct Bend
    {
        std::int64_t level;
        std::int64_t steeper;
    };

    /// The last node need not stand as far right as it may: where the function rises, by `rise` beyond the last bend,
    /// it becomes flat. Returns where that begins.
    std::int64_t flatten(std::int64_t rise)
    {
        while (bends_.front().steeper < rise) {
            rise -= bends_.front().steeper;
            std::ranges::pop_heap(bends_, {}, &Bend::level);
            bends_.pop_back();
        }
        bends_.front().steeper -= rise;
        return bends_.front().level;
    }

    std::vector<Bend> bends_; ///< a heap, the rightmost first
};

/// Where each node would be if the row were packed from 0 on. A place less this is the node's level: the gaps are kept
/// if and only if levels never fall from left to right, and nodes shoulder to shoulder are on the same level.
std::vector<std::int64_t> packedPlaces(std::span<const RowNode> row)
{
    std::vector<std::int64_t> places(row.size());
    std::transform_exclusive_scan(row.begin(), row.end(), places.begin(), std::int64_t{0}, std::plus{},
                                  [](const RowNode& node) { return std::int64_t{node.width} + rowGap; });
    return places;
}

} // namespace

std::vector<std::size_t> rowOrder(std::span<const std::int32_t> lefts)
{
    std::vector<std::size_t> order(lefts.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::ranges::stable_sort(order, {}, [lefts](std::size_t node) { return lefts[node]; });
    return order;
}

std::vector<std::int64_t> solveRow(std::span<const RowNode> row)
{
    // Who stood counts for so little more that it decides only between equal totals, even if everybody stood: whether a
    // part of the row should move by a point depends on a difference of sums of weights, so the larger share of each
    // weight decides first, and the smaller shares never add up to it.
    const auto newcomer = static_cast<std::int64_t>(row.size()) + 1;
    const std::vector<std::int64_t> packed = packedPlaces(row);
    std::vector<std::int64_t> solved(row.size());
    LeastCost cost(row.size());
    for (std::size_t node = 0; node < row.size(); ++node)
        solved[node] = cost.add(row[node].left - packed[node], newcomer + (row[node].stood ? 1 : 0));
    for (std::size_t node = row.size(); node-- > 1;)
        solved[node - 1] = std::min(solved[node - 1], solved[node]);
    std::ranges::transform(solved, packed, solved.begin(), std::plus{});
    return solved;
}

} // namespace lineara::layout
