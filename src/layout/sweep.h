#pragma once

#include "arrangement.h"
#include "placement.h"

#include <span>
#include <vector>

namespace lineara::layout {

/// Sorts whole rows, one after the other, by where the relatives of each block stand.
class Sweep
{
public:
    explicit Sweep(const Chart& chart) : chart_(chart), settling_(chart) {}

    /// Sorts every row from the second oldest on by the rows above it.
    ///
    /// `share` is how much the rows on the other side count beside them. 0 suits families that are nearly trees; much
    /// intermarried ones end with fewer crossings at a small share.
    void down(Arrangement& arrangement, double share);

    /// The same upwards: every row is sorted by the rows below it.
    void up(Arrangement& arrangement, double share);

    /// Mirrors the blocks of a row whose members then stand nearer to their own relatives.
    void turnRow(Arrangement& arrangement, std::uint32_t row) const;

private:
    struct Entry
    {
        BlockIndex block = 0;
        double key = 0;
        Wish wish;
    };

    enum class Side
    {
        Above,
        Below
    };

    void sortRow(Arrangement& arrangement, std::uint32_t row, Side side, double share);
    Entry entryOf(const Arrangement& arrangement, BlockIndex block, Side side, double share) const;
    void turn(Arrangement& arrangement, BlockIndex block) const;
    double leanOf(const Arrangement& arrangement, BlockIndex block, std::span<const Spring> springs) const;

    const Chart& chart_;
    Settling settling_;
    std::vector<Entry> entries_;
    std::vector<Wish> wishes_;
};

} // namespace lineara::layout
