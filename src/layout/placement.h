#pragma once

#include "arrangement.h"
#include "hearing.h"

#include <span>

namespace lineara::layout {

/// The weight of a wish to stay, for a block without a spring: it gives way to everybody.
inline constexpr double weightOfTheUntied = 0.01;

/// A block's wish in `settleRow`.
struct Wish
{
    double left = 0;
    /// Above 0.
    double weight = 1;
};

/// Moves the blocks of one row, keeping their order, to where the weighted sum of the squared distances from the wished
/// left edges is least among all places without overlap. One wish per block of the row. Returns how far the block moved
/// that moved farthest. Takes linear time. `free` says for every block of the chart how much is to stay free between it
/// and its left neighbour; empty stands for nothing.
double settleRow(const Chart& chart, Arrangement& arrangement, std::uint32_t row, std::span<const Wish> wishes,
                 std::span<const double> free = {});

/// Lets the springs pull the rows into place without changing their order.
class Placement
{
public:
    explicit Placement(const Chart& chart) : chart_(chart) {}

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
    double eased_ = 0;
    std::vector<Wish> wishes_;
};

} // namespace lineara::layout
