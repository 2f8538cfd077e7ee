#include "sweep.h"

#include <algorithm>
#include <cmath>

namespace lineara::layout {

void Sweep::down(Arrangement& arrangement, double share)
{
    for (std::uint32_t row = 0; row < chart_.rows; ++row)
        sortRow(arrangement, row, Side::Above, share);
}

void Sweep::up(Arrangement& arrangement, double share)
{
    for (std::uint32_t row = chart_.rows; row-- > 0;)
        sortRow(arrangement, row, Side::Below, share);
}

void Sweep::sortRow(Arrangement& arrangement, std::uint32_t row, Side side, double share)
{
    const auto blocks = arrangement.rows[row];
    turnRow(arrangement, row);
    entries_.clear();
    for (const BlockIndex block : blocks)
        entries_.push_back(entryOf(arrangement, block, side, share));
    // Stable, so that brothers and sisters, who hang from one point, keep the order their own families gave them.
    std::ranges::stable_sort(entries_, {}, &Entry::key);
    wishes_.clear();
    for (std::size_t index = 0; index < entries_.size(); ++index) {
        blocks[index] = entries_[index].block;
        wishes_.push_back(entries_[index].wish);
    }
    settling_.settle(arrangement, row, wishes_);
}

Sweep::Entry Sweep::entryOf(const Arrangement& arrangement, BlockIndex block, Side side, double share) const
{
    const auto up = chart_.springsUp[block];
    const auto down = chart_.springsDown[block];
    const auto near = side == Side::Above ? up : down;
    const auto far = side == Side::Above ? down : up;
    Pull pull;
    pull.add(arrangement, block, near);
    if (near.empty())
        pull.add(arrangement, block, far);
    else if (share > 0)
        pull.add(arrangement, block, far, share);
    if (pull.weight > 0)
        return {block, pull.end(), {pull.left(), pull.weight}};
    const double left = arrangement.left[block];
    return {block, left + chart_.middle(block), {left, weightOfTheUntied}};
}

void Sweep::turnRow(Arrangement& arrangement, std::uint32_t row) const
{
    for (const BlockIndex block : arrangement.rows[row])
        turn(arrangement, block);
}

void Sweep::turn(Arrangement& arrangement, BlockIndex block) const
{
    constexpr double noticeable = 1e-6;
    if (chart_.members[block].size() < 2)
        return;
    const double lean =
        leanOf(arrangement, block, chart_.springsUp[block]) + leanOf(arrangement, block, chart_.springsDown[block]);
    if (std::abs(lean) > noticeable)
        arrangement.mirror(chart_, block, lean < 0);
}

// Above 0 if members further right in the unmirrored block have relatives further right.
double Sweep::leanOf(const Arrangement& arrangement, BlockIndex block, std::span<const Spring> springs) const
{
    if (springs.empty())
        return 0;
    Pull pull;
    pull.add(arrangement, block, springs);
    double lean = 0;
    for (const Spring& spring : springs)
        lean += spring.weight * (arrangement.placeOf(spring.other) - pull.end()) * (spring.own - chart_.middle(block));
    return lean;
}

} // namespace lineara::layout
