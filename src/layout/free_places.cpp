#include "free_places.h"

#include "crossings.h"
#include "placement.h"

#include <algorithm>
#include <utility>

namespace lineara::layout {

namespace {

/// One row, and where it is to be parted.
class CrowdedRow
{
public:
    CrowdedRow(const Chart& chart, const Arrangement& arrangement, std::uint32_t row)
        : chart_(chart), arrangement_(arrangement), blocks_(arrangement.rows[row])
    {
        for (const BlockIndex block : blocks_)
            width_ += chart.width(block);
    }

    /// Marks the blocks that are to have a free place at their left, so that no more than `most` persons stand together
    /// without one; more where the row has room for fewer free places.
    bool part(double most, std::vector<double>& free) const
    {
        constexpr double usedShare = 0.9;
        const double spare = usedShare * (arrangement_.rightBound - arrangement_.leftBound - width_);
        if (spare < 1)
            return false;
        most = std::max(most, width_ / spare);
        bool isParted = false;
        std::size_t first = 0;
        double room = 0;
        double together = 0;
        for (std::size_t next = 0; next < blocks_.size(); ++next) {
            room += gapBefore(next);
            if (room >= freePlace) {
                first = next;
                room = together = 0;
            }
            together += chart_.width(blocks_[next]);
            if (together <= most || next == first)
                continue;
            // What follows is looked at anew: a part of it stands behind the parting already.
            first = next = bestParting(first, next, most);
            free[blocks_[next]] = 1;
            isParted = true;
            room = 0;
            together = chart_.width(blocks_[next]);
        }
        return isParted;
    }

private:
    /// A little less than a place, for what computing has left out.
    static constexpr double freePlace = 0.999;

    double gapBefore(std::size_t index) const
    {
        if (index == 0)
            return 0;
        const BlockIndex before = blocks_[index - 1];
        return arrangement_.left[blocks_[index]] - arrangement_.left[before] - chart_.width(before);
    }

    bool partsSiblings(std::size_t index) const
    {
        const auto one = chart_.parentBlocks[blocks_[index - 1]];
        const auto other = chart_.parentBlocks[blocks_[index]];
        return std::ranges::find_first_of(one, other) != one.end();
    }

    /// Before which block a crowd is best parted: near its end, between families, where there is some room already.
    std::size_t bestParting(std::size_t first, std::size_t last, double most) const
    {
        constexpr double earliest = 0.75;
        std::size_t best = last;
        std::pair least{partsSiblings(last), -gapBefore(last)};
        double together = 0;
        for (std::size_t index = first + 1; index < last; ++index) {
            together += chart_.width(blocks_[index - 1]);
            const std::pair cost{partsSiblings(index), -gapBefore(index)};
            if (together >= earliest * most && cost < least) {
                least = cost;
                best = index;
            }
        }
        return best;
    }

    const Chart& chart_;
    const Arrangement& arrangement_;
    std::span<const BlockIndex> blocks_;
    double width_ = 0;
};

/// The arrangement with partings as far as nobody has to stand together with more than `most` others; false if there
/// was nothing to be parted.
bool partCrowds(const Chart& chart, Arrangement& arrangement, double most)
{
    bool isParted = false;
    std::vector<double> free(chart.blocks(), 0);
    std::vector<Wish> wishes;
    for (std::uint32_t row = 0; row < chart.rows; ++row) {
        if (!CrowdedRow(chart, arrangement, row).part(most, free))
            continue;
        isParted = true;
        wishes.clear();
        for (const BlockIndex block : arrangement.rows[row])
            wishes.push_back({arrangement.left[block], 1});
        settleRow(chart, arrangement, row, wishes, free);
    }
    return isParted;
}

} // namespace

void leaveFreePlaces(const Chart& chart, Arrangement& arrangement)
{
    constexpr double tolerated = 1.02;
    const auto crossings = static_cast<double>(countCrossings(chart, arrangement));
    for (const double most : {40, 80, 160}) {
        Arrangement parted = arrangement;
        if (!partCrowds(chart, parted, most))
            return;
        if (static_cast<double>(countCrossings(chart, parted)) > tolerated * crossings + 1)
            continue;
        arrangement = std::move(parted);
        return;
    }
}

} // namespace lineara::layout
