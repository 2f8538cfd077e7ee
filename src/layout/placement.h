#pragma once

#include "arrangement.h"
#include "hearing.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace lineara::layout {

/// The weight of a wish to stay, for a block without a spring: it gives way to everybody.
inline constexpr double weightOfTheUntied = 0.01;

/// A block's wish when its row settles.
struct Wish
{
    double left = 0;
    /// Above 0.
    double weight = 1;
};

/// Settles rows. Keeps its memory from one to the next: where rows settle by the thousands, fetching it would show.
class Settling
{
public:
    explicit Settling(const Chart& chart) : chart_(chart) {}

    /// Moves the blocks of one row, keeping their order, to where the weighted sum of the squared distances from the
    /// wished left edges is least among all places without overlap. One wish per block of the row. Returns how far the
    /// block moved that moved farthest. Takes linear time. `free` says for every block of the chart how much is to stay
    /// free between it and its left neighbour; empty stands for nothing.
    double settle(Arrangement& arrangement, std::uint32_t row, std::span<const Wish> wishes,
                  std::span<const double> free = {});

private:
    /// Blocks pushed against each other, from `first` up to where the next cluster starts.
    struct Cluster
    {
        std::size_t first = 0;
        double place = 0;
        double weight = 0;
    };

    void collectClusters(std::span<const BlockIndex> blocks, std::span<const Wish> wishes,
                         std::span<const double> free);

    const Chart& chart_;
    std::vector<Cluster> clusters_;
};

/// Settles one row.
inline double settleRow(const Chart& chart, Arrangement& arrangement, std::uint32_t row, std::span<const Wish> wishes,
                        std::span<const double> free = {})
{
    return Settling(chart).settle(arrangement, row, wishes, free);
}

/// Lets the springs pull the rows into place without changing their order.
class Placement
{
public:
    explicit Placement(const Chart& chart) : chart_(chart), settling_(chart) {}

    /// From now on springs longer than `length` pull no harder than one of that length: long lines, of which each is
    /// in somebody's way, no longer bring all others out of place.
    void easeBeyond(double length) { eased_ = length; }

    /// Pulls one row to where its springs are in balance. `stride` 1 stops there, a greater one (below 2) goes beyond
    /// by that factor, which reaches the balance of all rows sooner. Returns the farthest move of a block.
    double pullRow(Arrangement& arrangement, std::uint32_t row, double stride = 1);

    /// Pulls every row in turn, downwards and back upwards, `rounds` times, or until nothing moves any more or `heard`
    /// says so.
    void pull(Arrangement& arrangement, int rounds, const Heard& heard = {});

private:
    void addPulls(Pull& pull, const Arrangement& arrangement, BlockIndex block, std::span<const Spring> springs) const;

    const Chart& chart_;
    Settling settling_;
    double eased_ = 0;
    std::vector<Wish> wishes_;
};

} // namespace lineara::layout
