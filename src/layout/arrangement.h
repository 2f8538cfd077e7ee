#pragma once

#include "chart.h"

#include <limits>
#include <vector>

namespace lineara::layout {

/// Where the blocks of a chart stand: their order in each row, which are mirrored, and the place of their left edge.
struct Arrangement
{
    Lists<BlockIndex> rows;
    std::vector<double> left;
    std::vector<bool> mirrored;
    /// How far the rows may reach to either side when they settle.
    double leftBound = -std::numeric_limits<double>::infinity();
    double rightBound = std::numeric_limits<double>::infinity();

    double placeOf(const Chart& chart, const Anchor& anchor) const
    {
        return left[anchor.block] + within(chart, anchor);
    }

    double middleOf(const Chart& chart, BlockIndex block) const { return left[block] + chart.middle(block); }

    /// The distance of an anchor from the left edge of its block.
    double within(const Chart& chart, const Anchor& anchor) const
    {
        return mirrored[anchor.block] ? 2 * chart.middle(anchor.block) - anchor.offset : anchor.offset;
    }
};

/// What springs want of a block, as weighted means. Nothing without a spring, when `weight` is 0.
struct Pull
{
    double weight = 0;
    /// Sum over the springs of where their other ends stand.
    double ends = 0;
    /// Sum over the springs of where they want the left edge of the block.
    double lefts = 0;

    void add(const Chart& chart, const Arrangement& arrangement, BlockIndex block, std::span<const Spring> springs,
             double factor = 1);

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

    StraightLine(const Chart& chart, const Arrangement& arrangement, const ChildLine& line);

    double placeIn(std::uint32_t row) const
    {
        return from + (to - from) * static_cast<double>(row - top) / static_cast<double>(bottom - top);
    }
};

} // namespace lineara::layout
