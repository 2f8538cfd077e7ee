#include "family_walk.h"

#include <algorithm>
#include <functional>
#include <iterator>
#include <limits>
#include <ranges>
#include <tuple>

namespace lineara::layout {

namespace {

struct Neighbour
{
    BlockIndex owner = 0;
    BlockIndex block = 0;
};

struct TreeLine
{
    std::uint32_t owner = 0;
    std::uint32_t number = 0;
};

Lists<BlockIndex> neighboursOf(const Chart& chart)
{
    std::vector<Neighbour> neighbours;
    const auto join = [&](BlockIndex parent, BlockIndex child) {
        if (parent == child)
            return;
        neighbours.push_back({parent, child});
        neighbours.push_back({child, parent});
    };
    for (const ChildLine& line : chart.lines) {
        join(line.firstParent.block, line.child.block);
        if (line.secondParent.block != line.firstParent.block)
            join(line.secondParent.block, line.child.block);
    }
    // Partners in different rows hold a family together, too.
    for (BlockIndex block = 0; block < chart.blocks(); ++block)
        for (const Spring& spring : chart.springsUp[block])
            join(spring.other.block, block);
    return sortIntoLists(chart.blocks(), neighbours, &Neighbour::block);
}

/// Counts the tree's lines within a branch that lead from one row to the next.
class LineCounts
{
public:
    LineCounts(const Chart& chart, const FamilyTree& tree) : numbers_(chart.blocks(), 0), sizes_(chart.blocks(), 1)
    {
        for (const BlockIndex block : tree.asMet | std::views::reverse)
            if (tree.metThrough[block] != noBlock)
                sizes_[tree.metThrough[block]] += sizes_[block];
        std::vector<std::uint32_t> next(chart.blocks(), 0);
        std::vector<BlockIndex> inBranchOrder(chart.blocks());
        std::uint32_t nextOfAll = 0;
        for (const BlockIndex block : tree.asMet) {
            const BlockIndex through = tree.metThrough[block];
            std::uint32_t& number = through == noBlock ? nextOfAll : next[through];
            numbers_[block] = number;
            number += sizes_[block];
            next[block] = numbers_[block] + 1;
            inBranchOrder[numbers_[block]] = block;
        }
        listLines(chart, tree, inBranchOrder);
    }

    /// Lines of the branch that begins with `block` and lead on down from `row`, without the one it hangs by.
    std::int64_t within(BlockIndex block, std::int64_t row) const
    {
        if (row < 0 || row >= static_cast<std::int64_t>(lines_.lists()))
            return 0;
        const auto lines = lines_[static_cast<std::size_t>(row)];
        return std::ranges::lower_bound(lines, numbers_[block] + sizes_[block]) -
               std::ranges::upper_bound(lines, numbers_[block]);
    }

private:
    void listLines(const Chart& chart, const FamilyTree& tree, const std::vector<BlockIndex>& inBranchOrder)
    {
        constexpr std::uint32_t longest = 64;
        std::vector<TreeLine> lines;
        for (const BlockIndex block : inBranchOrder) {
            const BlockIndex through = tree.metThrough[block];
            if (through == noBlock)
                continue;
            const auto [top, bottom] = std::minmax(chart.rowOf[block], chart.rowOf[through]);
            for (std::uint32_t row = top; row < std::min(bottom, top + longest); ++row)
                lines.push_back({row, numbers_[block]});
        }
        lines_ = sortIntoLists(chart.rows, lines, &TreeLine::number);
    }

    std::vector<std::uint32_t> numbers_;
    std::vector<std::uint32_t> sizes_;
    Lists<std::uint32_t> lines_;
};

/// Where somebody stands among the brothers and sisters who are children of a block.
struct BirthRank
{
    BlockIndex parents = 0;
    std::int64_t older = 0;
    std::int64_t younger = 0;
};

struct OwnedRank
{
    BlockIndex owner = 0;
    BirthRank rank;
};

Lists<BirthRank> ranksOf(const Chart& chart)
{
    std::vector<OwnedRank> ranks;
    for (std::size_t sibship = 0; sibship < chart.sibships.lists(); ++sibship) {
        const auto siblings = chart.sibships[sibship];
        std::vector<std::int32_t> years;
        for (const Sibling& sibling : siblings)
            if (sibling.bornIn != unknownBirthYear)
                years.push_back(sibling.bornIn);
        std::ranges::sort(years);
        for (const auto& [place, bornIn] : siblings) {
            if (bornIn == unknownBirthYear)
                continue;
            const auto [from, to] = std::ranges::equal_range(years, bornIn);
            for (const Spring& spring : chart.springsUp[place.block])
                if (spring.own == place.offset)
                    ranks.push_back({place.block, {spring.other.block, from - years.begin(), years.end() - to}});
        }
    }
    return sortIntoLists(chart.blocks(), ranks, &OwnedRank::rank);
}

enum class Side : std::uint8_t
{
    Either,
    Left,
    Right
};

struct Branch
{
    BlockIndex block = 0;
    bool leadsUp = false;
    std::int64_t linesAbove = 0;
    std::int64_t linesBelow = 0;
    /// Above 0 if brothers and sisters stand in their order more often with the branch to the right, below 0 to the
    /// left.
    std::int64_t leansRight = 0;
};

/// The branches on one side of a block, the outermost first.
using Branches = std::vector<Branch>;

/// How many lines cross if a branch is put in at a place: its line to the block passes those further in, and the lines
/// of those further out pass it.
std::int64_t crossingsAt(const Branches& side, const Branch& branch, std::size_t place)
{
    std::int64_t crossings = 0;
    constexpr std::size_t mostCounted = 64;
    for (std::size_t index = 0; index < std::min(side.size(), mostCounted); ++index) {
        const Branch& outer = index < place ? side[index] : branch;
        const Branch& inner = index < place ? branch : side[index];
        crossings += outer.leadsUp ? inner.linesAbove : inner.linesBelow;
    }
    return crossings;
}

class Walk
{
public:
    Walk(const Chart& chart, const FamilyTree& tree)
        : chart_(chart), tree_(tree), counts_(chart, tree), ranks_(ranksOf(chart))
    {}

    std::vector<BlockIndex> fromLeft()
    {
        std::vector<BlockIndex> blocks;
        for (const BlockIndex block : tree_.asMet | std::views::reverse)
            if (tree_.metThrough[block] == noBlock)
                pending_.push_back({block, Side::Either, false});
        while (!pending_.empty()) {
            const Step step = pending_.back();
            pending_.pop_back();
            if (step.branchesDone)
                blocks.push_back(step.block);
            else
                spread(step);
        }
        return blocks;
    }

private:
    struct Step
    {
        BlockIndex block = 0;
        /// Where it stands, seen from the block it was met through.
        Side side = Side::Either;
        bool branchesDone = false;
    };

    void spread(const Step& step)
    {
        left_.clear();
        right_.clear();
        free_.clear();
        sortBranches(step.block);
        for (const Branch& branch : inTheWay_)
            putIn(step, branch);
        changeSides(step);
        shareOutTheFree();
        for (const Branch& branch : right_)
            pending_.push_back({branch.block, Side::Right, false});
        pending_.push_back({step.block, step.side, true});
        for (const Branch& branch : left_ | std::views::reverse)
            pending_.push_back({branch.block, Side::Left, false});
    }

    void sortBranches(BlockIndex block)
    {
        const std::int64_t row = chart_.rowOf[block];
        inTheWay_.clear();
        for (const BlockIndex other : tree_.branches[block]) {
            const Branch branch{other, chart_.rowOf[other] < row, counts_.within(other, row - 1),
                                counts_.within(other, row), leanOf(block, other)};
            const bool isFree = !branch.leadsUp && branch.linesAbove == 0 && branch.linesBelow == 0;
            (isFree ? free_ : inTheWay_).push_back(branch);
        }
        // The others find their places around those with most lines.
        std::ranges::stable_sort(inTheWay_, std::greater{},
                                 [](const Branch& branch) { return branch.linesAbove + branch.linesBelow; });
    }

    void putIn(const Step& step, const Branch& branch)
    {
        constexpr std::size_t mostPlaces = 32;
        Branches* best = &left_;
        std::size_t bestPlace = 0;
        std::int64_t fewest = std::numeric_limits<std::int64_t>::max();
        std::int64_t bestLeans = std::numeric_limits<std::int64_t>::max();
        for (Branches* const side : {&left_, &right_}) {
            const bool isBetween = step.side == (side == &right_ ? Side::Left : Side::Right);
            const std::int64_t inTheWay = isBetween ? crossingOrigin(step, branch) : 0;
            for (std::size_t place = 0; place <= std::min(side->size(), mostPlaces); ++place) {
                const std::int64_t crossings = crossingsAt(*side, branch, place) + inTheWay;
                const std::int64_t leans = side == &left_ ? branch.leansRight : -branch.leansRight;
                if (std::tuple(crossings, leans, side->size()) >= std::tuple(fewest, bestLeans, best->size()))
                    continue;
                bestLeans = leans;
                fewest = crossings;
                best = side;
                bestPlace = place;
            }
        }
        best->insert(best->begin() + static_cast<std::ptrdiff_t>(bestPlace), branch);
    }

    /// All branches stand on the other side where more brothers and sisters stand in their order then.
    void changeSides(const Step& step)
    {
        std::int64_t wrong = 0;
        std::int64_t crossingsLeft = 0;
        std::int64_t crossingsRight = 0;
        for (const Branch& branch : left_) {
            wrong += branch.leansRight;
            crossingsLeft += step.side == Side::Either ? 0 : crossingOrigin(step, branch);
        }
        for (const Branch& branch : right_) {
            wrong -= branch.leansRight;
            crossingsRight += step.side == Side::Either ? 0 : crossingOrigin(step, branch);
        }
        const std::int64_t added = (crossingsRight - crossingsLeft) * (step.side == Side::Left ? 1 : -1);
        if (wrong > 0 && added >= 0)
            left_.swap(right_);
    }

    std::int64_t leanOf(BlockIndex block, BlockIndex branch) const
    {
        const bool leadsUp = chart_.rowOf[branch] < chart_.rowOf[block];
        std::int64_t lean = 0;
        for (const auto& [parents, older, younger] : ranks_[leadsUp ? block : branch])
            if (parents == (leadsUp ? branch : block))
                lean += leadsUp ? younger - older : older - younger;
        return lean;
    }

    std::int64_t crossingOrigin(const Step& step, const Branch& branch) const
    {
        const bool originAbove = chart_.rowOf[tree_.metThrough[step.block]] < chart_.rowOf[step.block];
        return originAbove ? branch.linesAbove : branch.linesBelow;
    }

    /// Branches that are in nobody's way stand innermost, brothers and sisters by age.
    void shareOutTheFree()
    {
        std::ranges::stable_sort(free_, {}, [&](const Branch& branch) { return chart_.bornIn[branch.block]; });
        const std::size_t each = (free_.size() + left_.size() + right_.size()) / 2;
        const auto toTheLeft = static_cast<std::ptrdiff_t>(std::min(free_.size(), each - std::min(each, left_.size())));
        left_.insert(left_.end(), free_.begin(), free_.begin() + toTheLeft);
        right_.insert(right_.end(), free_.rbegin(), free_.rend() - toTheLeft);
    }

    const Chart& chart_;
    const FamilyTree& tree_;
    LineCounts counts_;
    Lists<BirthRank> ranks_;
    std::vector<Step> pending_;
    Branches inTheWay_;
    Branches free_;
    Branches left_;
    Branches right_;
};

} // namespace

FamilyTree spanFrom(const Chart& chart, BlockIndex root)
{
    const Lists<BlockIndex> neighbours = neighboursOf(chart);
    FamilyTree tree;
    tree.metThrough.assign(chart.blocks(), noBlock);
    std::vector<bool> met(chart.blocks(), false);
    const auto meet = [&](BlockIndex block, BlockIndex through) {
        if (met[block])
            return;
        met[block] = true;
        tree.metThrough[block] = through;
        tree.asMet.push_back(block);
    };
    std::size_t next = 0;
    const auto reachFrom = [&](BlockIndex first) {
        meet(first, noBlock);
        for (; next < tree.asMet.size(); ++next) {
            const BlockIndex block = tree.asMet[next];
            for (const BlockIndex other : neighbours[block])
                meet(other, block);
        }
    };
    reachFrom(root);
    // Links that only one side knows leave blocks unreached.
    for (BlockIndex block = 0; block < chart.blocks(); ++block)
        reachFrom(block);
    std::vector<Neighbour> branches;
    for (const BlockIndex block : tree.asMet)
        if (tree.metThrough[block] != noBlock)
            branches.push_back({tree.metThrough[block], block});
    tree.branches = sortIntoLists(chart.blocks(), branches, &Neighbour::block);
    return tree;
}

Arrangement walkOrder(const Chart& chart, const FamilyTree& tree)
{
    Arrangement arrangement;
    arrangement.left.resize(chart.blocks());
    arrangement.mirroredFrom.resize(chart.blocks());
    std::vector<double> ends(chart.rows, 0);
    std::vector<Neighbour> entries;
    for (const BlockIndex block : Walk(chart, tree).fromLeft()) {
        const std::uint32_t row = chart.rowOf[block];
        arrangement.left[block] = ends[row];
        ends[row] += chart.width(block);
        entries.push_back({row, block});
    }
    arrangement.rows = sortIntoLists(chart.rows, entries, &Neighbour::block);
    return arrangement;
}

} // namespace lineara::layout
