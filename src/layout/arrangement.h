#pragma once

#include "chart.h"

#include <cmath>
#include <limits>
#include <span>
#include <vector>

namespace lineara::layout {

/// Where the blocks of a chart stand: their order in each row, which are mirrored, and the place of their left edge.
struct Arrangement
{
    Lists<BlockIndex> rows;
    std::vector<double> left;
    /// For a mirrored block the offset of what stands leftmost then, twice that of its middle; 0 for all others, as for
    /// those who stand alone in a block.
    std::vector<float> mirroredFrom;
    /// How far the rows may reach to either side when they settle.
    double leftBound = -std::numeric_limits<double>::infinity();
    double rightBound = std::numeric_limits<double>::infinity();

    bool isMirrored(BlockIndex block) const { return mirroredFrom[block] > 0; }
    void mirror(const Chart& chart, BlockIndex block, bool isToBeMirrored)
    {
        mirroredFrom[block] = isToBeMirrored ? static_cast<float>(2 * chart.middle(block)) : 0;
    }

    double placeOf(const Anchor& anchor) const { return left[anchor.block] + within(anchor); }

    double middleOf(const Chart& chart, BlockIndex block) const { return left[block] + chart.middle(block); }

    /// The distance of an anchor from the left edge of its block. Without a branch, as every second couple is mirrored.
    double within(const Anchor& anchor) const { return std::abs(anchor.offset - mirroredFrom[anchor.block]); }
};

/// What springs want of a block, as weighted means. Nothing without a spring, when `weight` is 0.
struct Pull
{
    double weight = 0;
    /// Sum over the springs of where their other ends stand.
    double ends = 0;
    /// Sum over the springs of where they want the left edge of the block.
    double lefts = 0;

    void add(const Arrangement& arrangement, BlockIndex block, std::span<const Spring> springs, double factor = 1)
    {
        for (const Spring& spring : springs)
            add(arrangement.placeOf(spring.other), arrangement.within({block, spring.own}), factor * spring.weight);
    }

    /// One spring, from `place` to where the block has its end, `within` places from its left edge.
    void add(double place, double within, double share)
    {
        weight += share;
        ends += share * place;
        lefts += share * (place - within);
    }

    double end() const { return ends / weight; }
    double left() const { return lefts / weight; }
};

/// A child line as drawn: straight from the middle of the parents, in the lower one's row, to the child.
struct StraightLine
{
    double from = 0;
    double to = 0;
    std::uint32_t top = 0;
    std::uint32_t bottom = 0;

    StraightLine(const Chart& chart, const Arrangement& arrangement, const ChildLine& line)
        : from((arrangement.placeOf(line.firstParent) + arrangement.placeOf(line.secondParent)) / 2),
          to(arrangement.placeOf(line.child)), top(chart.topOf(line)), bottom(chart.bottomOf(line))
    {}

    double placeIn(std::uint32_t row) const
    {
        return from + (to - from) * static_cast<double>(row - top) / static_cast<double>(bottom - top);
    }
};

} // namespace lineara::layout
