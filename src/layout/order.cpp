#include "order.h"

#include "bounds.h"
#include "cost.h"
#include "crossings.h"
#include "family_walk.h"
#include "placement.h"
#include "search.h"
#include "sibling_order.h"
#include "straightening.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <memory>
#include <utility>

namespace lineara::layout {

namespace {

/// Starts a family is walked from: many for a small one, where chance decides most and each costs least.
std::size_t startsFor(const Chart& chart)
{
    return std::min(chart.blocks(), std::clamp<std::size_t>(5'000 / (chart.blocks() + 1), 1, 12));
}

/// Of how many starts the whole search is made.
std::size_t triesFor(const Chart& chart)
{
    return std::clamp<std::size_t>(3'000 / (chart.blocks() + 1), 1, 12);
}

/// What siblings in their order may cost: less than a search leaves to chance.
std::uint64_t affordableFor(const Chart& chart, const Arrangement& arrangement)
{
    constexpr double share = 0.03;
    return static_cast<std::uint64_t>(std::ceil(share * static_cast<double>(countCrossings(chart, arrangement))));
}

/// A chart walked from some blocks far apart in it; the best comes first. Fewer after a stop.
std::vector<std::unique_ptr<Search>> searchesOf(const Chart& chart, const Heard& heard)
{
    const std::size_t starts = startsFor(chart);
    Hearing hearing(heard);
    std::vector<std::pair<double, std::unique_ptr<Search>>> rated;
    const auto add = [&](BlockIndex root, double costOfDisorder) {
        auto search = std::make_unique<Search>(chart, spanFrom(chart, root), costOfDisorder);
        const double cost = costOf(chart, search->best());
        rated.emplace_back(cost, std::move(search));
    };
    for (std::size_t start = 0; start < starts; ++start) {
        hearing.nextPart(1.0 / static_cast<double>(starts));
        if (!hearing.goesOn(0))
            break;
        const auto root = static_cast<BlockIndex>(chart.blocks() * start / starts);
        add(root, chart.costOfDisorder);
        // Left to itself for once, the search may find more, and siblings are sorted afterwards in any case.
        if (triesFor(chart) > 1 && chart.siblingPairs.items() > 0)
            add(root, 0);
    }
    std::ranges::stable_sort(rated, {}, [](const auto& search) { return search.first; });
    rated.resize(std::min(rated.size(), triesFor(chart)));
    std::vector<std::unique_ptr<Search>> best;
    best.reserve(rated.size());
    for (auto& [cost, search] : rated)
        best.push_back(std::move(search));
    return best;
}

/// Brings siblings into their order, for as many crossings as given, and straightens the rows.
Arrangement finished(const Chart& chart, const FamilyTree& tree, Arrangement arrangement, std::uint64_t affordable,
                     const Heard& heard)
{
    Hearing hearing(heard);
    hearing.nextPart(0.5);
    sortSiblings(chart, tree, arrangement, affordable, hearing.ofPart());
    hearing.nextPart(0.5);
    straighten(chart, arrangement, hearing.ofPart());
    return arrangement;
}

/// What the search has found without a crossing, with shorter lines if moving branches makes them so. Large families
/// have lines enough that are long in any case.
Arrangement planeOf(const Chart& chart, Search& search, const Heard& heard)
{
    Hearing hearing(heard);
    hearing.nextPart(0.2);
    Arrangement plane = finished(chart, search.tree(), search.best(), 0, hearing.ofPart());
    if (triesFor(chart) == 1)
        return plane;
    hearing.nextPart(0.6);
    search.moveBranches(hearing.ofPart());
    if (!search.isPlane())
        return plane;
    hearing.nextPart(0.2);
    Arrangement moved = finished(chart, search.tree(), search.best(), 0, hearing.ofPart());
    const bool isBetter = costOf(chart, moved) < costOf(chart, plane) &&
                          stepsBackOf(chart, moved) <= stepsBackOf(chart, plane) && countCrossings(chart, moved) == 0;
    return isBetter ? moved : plane;
}

/// What the search finds when it goes on, finished.
Arrangement untangled(const Chart& chart, Search& search, const Heard& heard)
{
    Hearing hearing(heard);
    hearing.nextPart(0.06);
    search.sweep(passes(chart, 6, 2), 0, hearing.ofPart());
    hearing.nextPart(0.06);
    search.sweep(passes(chart, 8, 3), 0.2, hearing.ofPart());
    search.returnToBest();
    hearing.nextPart(0.06);
    search.sift(2, hearing.ofPart());
    search.returnToBest();
    hearing.nextPart(0.42);
    search.moveBranches(hearing.ofPart());
    hearing.nextPart(0.4);
    return finished(chart, search.tree(), search.best(), affordableFor(chart, search.best()), hearing.ofPart());
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
        arrangement.mirroredFrom.push_back(0);
        arrangement.mirror(chart, block, places[members.front()] > places[members.back()]);
        entries.push_back({chart.rowOf[block], block});
    }
    arrangement.rows = sortIntoLists(chart.rows, entries, &Entry::block);
    for (std::uint32_t row = 0; row < chart.rows; ++row)
        std::ranges::stable_sort(arrangement.rows[row], {}, [&](BlockIndex block) { return middles[block]; });
    centre(chart, arrangement);
    return arrangement;
}

bool isSameOrder(const Chart& chart, const Arrangement& one, const Arrangement& other)
{
    for (std::uint32_t row = 0; row < chart.rows; ++row)
        if (!std::ranges::equal(one.rows[row], other.rows[row]))
            return false;
    for (BlockIndex block = 0; block < chart.blocks(); ++block)
        if (one.isMirrored(block) != other.isMirrored(block))
            return false;
    return true;
}

std::optional<Arrangement> keptOrder(const Chart& chart, Arrangement arrangement, std::int32_t pitch,
                                     const Heard& heard)
{
    constexpr int mostRounds = 30;
    keepWithin(chart, arrangement, usualWidth(chart));
    toWholePoints(chart, arrangement, pitch);
    const FamilyTree tree = spanFrom(chart, 0);
    Hearing hearing(heard);
    for (int round = 0; round < mostRounds; ++round) {
        Arrangement next = arrangement;
        hearing.nextPart(0.5 / mostRounds);
        const bool isSorted = !sortSiblings(chart, tree, next, 0, hearing.ofPart());
        hearing.nextPart(0.5 / mostRounds);
        straighten(chart, next, hearing.ofPart());
        if (!hearing.goesOn(1))
            return std::nullopt;
        toWholePoints(chart, next, pitch);
        if (isSorted && !isWorthMoving(chart, arrangement, next))
            break;
        arrangement = std::move(next);
    }
    return arrangement;
}

std::optional<Arrangement> orderFamilies(const Chart& chart, const Heard& heard)
{
    Hearing hearing(heard);
    hearing.nextPart(0.1);
    const auto searches = searchesOf(chart, hearing.ofPart());
    const double share = 0.8 / static_cast<double>(std::max<std::size_t>(searches.size(), 1));
    Arrangement best;
    double least = std::numeric_limits<double>::infinity();
    for (const auto& search : searches) {
        // Where nothing is left to be untangled the other starts could only do as well.
        const bool isPlane = search->isPlane();
        hearing.nextPart(share);
        Arrangement found =
            isPlane ? planeOf(chart, *search, hearing.ofPart()) : untangled(chart, *search, hearing.ofPart());
        if (hearing.isStopped())
            return std::nullopt;
        const double cost = costOf(chart, found);
        if (isPlane || cost < least) {
            best = std::move(found);
            least = cost;
        }
        if (isPlane)
            break;
    }
    if (hearing.isStopped())
        return std::nullopt;
    hearing.nextPart(0.1);
    narrow(chart, best, hearing.ofPart());
    if (!hearing.goesOn(1))
        return std::nullopt;
    return best;
}

} // namespace lineara::layout
