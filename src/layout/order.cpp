#include "order.h"

#include "branch_moves.h"
#include "crossings.h"
#include "family_walk.h"
#include "placement.h"
#include "sibling_order.h"
#include "sifting.h"
#include "straightening.h"
#include "sweep.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <memory>
#include <utility>

namespace lineara::layout {

namespace {

/// Starts a family is walked from: many for a small one, where chance decides most and each costs least.
std::size_t startsFor(const Chart& chart)
{
    return std::min(chart.blocks(), std::clamp<std::size_t>(10'000 / (chart.blocks() + 1), 2, 12));
}

/// How often all branches are tried, or which part of them once.
struct Effort
{
    std::size_t rounds = 1;
    std::size_t everyNth = 1;
};

/// As often as comparisons of lines can be afforded, a certain number per block.
Effort effortFor(const Chart& chart)
{
    constexpr double affordable = 2'000;
    constexpr double affordableInOne = 6'000;
    constexpr double most = 12;
    double comparisons = 1;
    for (std::uint32_t row = 0; row < chart.rows; ++row)
        comparisons += std::pow(static_cast<double>(chart.linesBelow[row].size()), 2);
    const double perBlock = comparisons / static_cast<double>(chart.blocks());
    return {static_cast<std::size_t>(std::clamp(affordable / perBlock, 1.0, most)),
            static_cast<std::size_t>(std::max(std::ceil(perBlock / affordableInOne), 1.0))};
}

/// Orders a chart step by step and remembers the best order met on the way.
class Search
{
public:
    Search(const Chart& chart, FamilyTree tree, double costOfDisorder)
        : chart_(chart), tree_(std::move(tree)), costOfDisorder_(costOfDisorder), placement_(chart), sweep_(chart),
          sifting_(chart), now_(walkOrder(chart_, tree_))
    {
        setBounds(chart_, now_);
        centreRows();
        placement_.pull(now_, 6);
        for (int time = 0; time < 3; ++time) {
            for (std::uint32_t row = 0; row < chart_.rows; ++row)
                sweep_.turnRow(now_, row);
            placement_.pull(now_, 3);
        }
        best_ = now_;
        least_ = costOf(chart_, best_, costOfDisorder_);
    }

    bool isPlane() const { return countCrossings(chart_, best_) == 0; }
    const Arrangement& best() const { return best_; }
    void returnToBest() { now_ = best_; }
    const FamilyTree& tree() const { return tree_; }

    /// Sorts all rows `times` times down and up, at the given share of the other side.
    void sweep(int times, double share)
    {
        for (int time = 0; time < times; ++time) {
            sweep_.down(now_, share);
            sweep_.up(now_, share);
            compare();
        }
    }

    /// Moves single blocks, over all rows `times` times or until none moves.
    void sift(int times)
    {
        for (bool moved = true; moved && times > 0; --times) {
            moved = siftRows();
            placement_.pull(now_, 2);
            compare();
        }
    }

    /// Moves branches while there is time for it. Where it does not suffice for all rounds, the large branches are left
    /// out, which cost most and save least.
    bool moveBranches(const Effort& effort, const Heard& heard)
    {
        BranchMoves moves(chart_, tree_, costOfDisorder_);
        constexpr std::array<std::size_t, 8> sizes{400, 1, 100, 1, 30, 1, 10, 1};
        constexpr std::size_t usualSize = 40;
        const std::size_t skipped = sizes.size() - std::min(effort.rounds, sizes.size());
        for (std::size_t round = 0; round < effort.rounds; ++round) {
            const std::size_t turn = skipped + round;
            const std::size_t size = turn < sizes.size() ? sizes[turn] : turn % 2 == 0 ? usualSize : 1;
            moves.goOver(now_, {size, effort.everyNth}, turn % 2 == 0);
            compare();
            if (heard && !heard(static_cast<double>(round + 1) / static_cast<double>(effort.rounds)))
                return false;
        }
        return true;
    }

private:
    void centreRows()
    {
        for (std::uint32_t row = 0; row < chart_.rows; ++row) {
            const BlockIndex last = now_.rows[row].back();
            const double width = now_.left[last] + chart_.width(last);
            for (const BlockIndex block : now_.rows[row])
                now_.left[block] -= width / 2;
        }
    }

    bool siftRows()
    {
        bool moved = false;
        for (std::uint32_t row = 0; row < chart_.rows; ++row)
            moved |= siftRow(row);
        for (std::uint32_t row = chart_.rows; row-- > 0;)
            moved |= siftRow(row);
        return moved;
    }

    bool siftRow(std::uint32_t row)
    {
        sweep_.turnRow(now_, row);
        const bool moved = sifting_.siftRow(now_, row);
        if (moved)
            placement_.pullRow(now_, row);
        return moved;
    }

    void compare()
    {
        const double cost = costOf(chart_, now_, costOfDisorder_);
        if (cost < least_) {
            least_ = cost;
            best_ = now_;
        }
    }

    const Chart& chart_;
    FamilyTree tree_;
    double costOfDisorder_;
    Placement placement_;
    Sweep sweep_;
    Sifting sifting_;
    Arrangement now_;
    Arrangement best_;
    double least_ = 0;
};

/// Of how many starts the whole search is made.
std::size_t triesFor(const Chart& chart)
{
    return std::clamp<std::size_t>(3'000 / (chart.blocks() + 1), 1, 12);
}

/// Lets the springs have their way as far as that does not cost crossings: everywhere at once if that can be, and then
/// where it can.
void straighten(const Chart& chart, Arrangement& arrangement)
{
    constexpr double easedBeyond = 2;
    Arrangement pulled = arrangement;
    Placement placement(chart);
    placement.easeBeyond(easedBeyond);
    placement.pull(pulled, 40);
    if (costOf(chart, pulled) <= costOf(chart, arrangement) &&
        countCrossings(chart, pulled) <= countCrossings(chart, arrangement))
        arrangement = std::move(pulled);
    Straightening straightening(chart, easedBeyond);
    bool moved = true;
    for (int times = passes(chart, 20, 1); moved && times > 0; --times)
        moved = straightening.goOver(arrangement);
}

/// What siblings in their order may cost: less than a search leaves to chance.
std::uint64_t affordableFor(const Chart& chart, const Arrangement& arrangement)
{
    constexpr double share = 0.03;
    return static_cast<std::uint64_t>(std::ceil(share * static_cast<double>(countCrossings(chart, arrangement))));
}

/// A chart walked from some blocks far apart in it; the best comes first.
std::vector<std::unique_ptr<Search>> searchesOf(const Chart& chart)
{
    const std::size_t starts = startsFor(chart);
    std::vector<std::unique_ptr<Search>> searches;
    for (std::size_t start = 0; start < starts; ++start) {
        const auto root = static_cast<BlockIndex>(chart.blocks() * start / starts);
        searches.push_back(std::make_unique<Search>(chart, spanFrom(chart, root), chart.costOfDisorder));
        // Left to itself for once, the search may find more, and siblings are sorted afterwards in any case.
        if (triesFor(chart) > 1 && chart.siblingPairs.items() > 0)
            searches.push_back(std::make_unique<Search>(chart, spanFrom(chart, root), 0));
    }
    std::ranges::stable_sort(searches, {}, [&](const auto& search) { return costOf(chart, search->best()); });
    searches.resize(std::min(searches.size(), triesFor(chart)));
    return searches;
}

/// Brings everybody to where they would stand in the picture, the family about place 0, so that the same comes out when
/// it is read from there.
void toWholePoints(const Chart& chart, Arrangement& arrangement, std::int32_t pitch)
{
    const auto points = static_cast<double>(pitch);
    const double origin = std::ranges::min(arrangement.left);
    double end = 0;
    for (std::uint32_t row = 0; row < chart.rows; ++row) {
        double free = 0;
        for (const BlockIndex block : arrangement.rows[row]) {
            const double left = std::max(free, std::round((arrangement.left[block] - origin) * points));
            arrangement.left[block] = left;
            free = left + chart.width(block) * points;
        }
        end = std::max(end, free);
    }
    for (double& left : arrangement.left)
        left = (left - std::round(end / 2)) / points;
}

/// Whether somebody moves far, or all is better by a percent. Who tidies up twice is to find all as it was; springs
/// never come to rest altogether.
bool isWorthMoving(const Chart& chart, const Arrangement& present, const Arrangement& next)
{
    constexpr double far = 3;
    constexpr double worthwhile = 0.99;
    const double cost = costOf(chart, present);
    const double costOfNext = costOf(chart, next);
    double farthest = 0;
    for (BlockIndex block = 0; block < chart.blocks(); ++block)
        farthest = std::max(farthest, std::abs(next.left[block] - present.left[block]));
    return costOfNext < worthwhile * cost || (costOfNext < cost && farthest > far);
}

} // namespace

double costOf(const Chart& chart, const Arrangement& arrangement)
{
    return costOf(chart, arrangement, chart.costOfDisorder);
}

double costOf(const Chart& chart, const Arrangement& arrangement, double costOfDisorder)
{
    constexpr double costOfLength = 0.07;
    double length = 0;
    for (const ChildLine& line : chart.lines) {
        const StraightLine drawn(chart, arrangement, line);
        length += std::abs(drawn.from - drawn.to);
    }
    return static_cast<double>(countCrossings(chart, arrangement)) + costOfLength * length +
           costOfDisorder * static_cast<double>(disorderOf(chart, arrangement));
}

void setBounds(const Chart& chart, Arrangement& arrangement)
{
    std::vector<double> widths(chart.rows, 0);
    for (BlockIndex block = 0; block < chart.blocks(); ++block)
        widths[chart.rowOf[block]] += chart.width(block);
    const double widest = *std::ranges::max_element(widths);
    constexpr double slack = 40'000;
    const double width = widest + std::min(1 + slack / (widest * widest), 2 + widest / 2);
    arrangement.leftBound = -width / 2;
    arrangement.rightBound = width / 2;
}

Arrangement orderAt(const Chart& chart, std::span<const double> places)
{
    struct Entry
    {
        std::uint32_t owner = 0;
        BlockIndex block = 0;
    };
    std::vector<Entry> entries;
    std::vector<double> middles;
    Arrangement arrangement;
    for (BlockIndex block = 0; block < chart.blocks(); ++block) {
        const auto members = chart.members[block];
        double middle = 0;
        for (const engine::PersonIndex member : members)
            middle += places[member] / chart.width(block);
        middles.push_back(middle);
        arrangement.left.push_back(middle - chart.middle(block));
        arrangement.mirrored.push_back(places[members.front()] > places[members.back()]);
        entries.push_back({chart.rowOf[block], block});
    }
    arrangement.rows = sortIntoLists(chart.rows, entries, &Entry::block);
    for (std::uint32_t row = 0; row < chart.rows; ++row)
        std::ranges::stable_sort(arrangement.rows[row], {}, [&](BlockIndex block) { return middles[block]; });
    const double first = std::ranges::min(arrangement.left);
    double last = first;
    for (BlockIndex block = 0; block < chart.blocks(); ++block)
        last = std::max(last, arrangement.left[block] + chart.width(block));
    for (double& left : arrangement.left)
        left -= (first + last) / 2;
    return arrangement;
}

bool isSameOrder(const Chart& chart, const Arrangement& one, const Arrangement& other)
{
    for (std::uint32_t row = 0; row < chart.rows; ++row)
        if (!std::ranges::equal(one.rows[row], other.rows[row]))
            return false;
    for (BlockIndex block = 0; block < chart.blocks(); ++block)
        if (chart.members[block].size() > 1 && one.mirrored[block] != other.mirrored[block])
            return false;
    return true;
}

Arrangement keptOrder(const Chart& chart, Arrangement arrangement, std::int32_t pitch)
{
    constexpr int mostRounds = 30;
    setBounds(chart, arrangement);
    for (std::uint32_t row = 0; row < chart.rows; ++row) {
        std::vector<Wish> wishes;
        for (const BlockIndex block : arrangement.rows[row])
            wishes.push_back({arrangement.left[block], 1});
        settleRow(chart, arrangement, row, wishes);
    }
    toWholePoints(chart, arrangement, pitch);
    const FamilyTree tree = spanFrom(chart, 0);
    for (int round = 0; round < mostRounds; ++round) {
        Arrangement next = arrangement;
        const bool isSorted = !sortSiblings(chart, tree, next, 0);
        straighten(chart, next);
        toWholePoints(chart, next, pitch);
        if (isSorted && !isWorthMoving(chart, arrangement, next))
            break;
        arrangement = std::move(next);
    }
    return arrangement;
}

std::optional<Arrangement> orderFamilies(const Chart& chart, const Heard& heard)
{
    const auto searches = searchesOf(chart);
    std::optional<Arrangement> best;
    double least = std::numeric_limits<double>::infinity();
    double done = 0;
    const auto heardOfAll = [&](double share) {
        return !heard || heard((done + share) / static_cast<double>(searches.size()));
    };
    for (const auto& search : searches) {
        if (!heardOfAll(0))
            return std::nullopt;
        if (search->isPlane()) {
            // Nothing is left to be untangled; the other starts could only do as well.
            best = search->best();
            sortSiblings(chart, search->tree(), *best, 0);
            straighten(chart, *best);
            return best;
        }
        search->sweep(passes(chart, 6, 2), 0);
        search->sweep(passes(chart, 8, 3), 0.2);
        search->returnToBest();
        search->sift(2);
        search->returnToBest();
        if (!search->moveBranches(effortFor(chart), heardOfAll))
            return std::nullopt;
        Arrangement found = search->best();
        sortSiblings(chart, search->tree(), found, affordableFor(chart, found));
        straighten(chart, found);
        const double cost = costOf(chart, found);
        if (cost < least) {
            best = std::move(found);
            least = cost;
        }
        done += 1;
    }
    return best;
}

} // namespace lineara::layout
