#include "descent_order.h"

namespace lineara::layout {

namespace {

/// Meets every block of a chart once.
class Walk
{
public:
    explicit Walk(const Chart& chart) : chart_(chart), met_(chart.blocks(), false) {}

    std::vector<BlockIndex> blocksAsMet()
    {
        std::size_t next = 0;
        for (BlockIndex block = 0; block < chart_.blocks(); ++block) {
            descend(founderOf(block));
            for (; next < order_.size(); ++next)
                for (const BlockIndex inLaws : chart_.parentBlocks[order_[next]])
                    descend(founderOf(inLaws));
        }
        return order_;
    }

private:
    /// Climbs from a block not met yet to an ancestor whose own parents have all been met; a met block stays itself.
    BlockIndex founderOf(BlockIndex block) const
    {
        while (!met_[block]) {
            const BlockIndex parent = parentNotMet(block);
            if (parent == block)
                break;
            block = parent;
        }
        return block;
    }

    /// Only upwards on the chart, so that a climb ends even where partners of two generations share a row.
    BlockIndex parentNotMet(BlockIndex block) const
    {
        for (const BlockIndex parent : chart_.parentBlocks[block])
            if (!met_[parent] && chart_.rowOf[parent] < chart_.rowOf[block])
                return parent;
        return block;
    }

    void descend(BlockIndex founder)
    {
        std::vector<BlockIndex> pending{founder};
        while (!pending.empty()) {
            const BlockIndex block = pending.back();
            pending.pop_back();
            if (met_[block])
                continue;
            met_[block] = true;
            order_.push_back(block);
            const auto children = chart_.childBlocks[block];
            pending.insert(pending.end(), children.rbegin(), children.rend());
        }
    }

    const Chart& chart_;
    std::vector<bool> met_;
    std::vector<BlockIndex> order_;
};

struct RowEntry
{
    std::uint32_t owner = 0;
    BlockIndex block = 0;
};

} // namespace

Arrangement descentOrder(const Chart& chart)
{
    Arrangement arrangement;
    arrangement.left.resize(chart.blocks());
    arrangement.mirrored.resize(chart.blocks());
    std::vector<RowEntry> entries;
    std::vector<double> ends(chart.rows, 0);
    for (const BlockIndex block : Walk(chart).blocksAsMet()) {
        const std::uint32_t row = chart.rowOf[block];
        arrangement.left[block] = ends[row];
        ends[row] += chart.width(block);
        entries.push_back({row, block});
    }
    arrangement.rows = sortIntoLists(chart.rows, entries, &RowEntry::block);
    return arrangement;
}

} // namespace lineara::layout
