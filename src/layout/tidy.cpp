#include "layout/tidy.h"

#include "chart.h"
#include "components.h"
#include "cost.h"
#include "free_places.h"
#include "order.h"
#include "packing.h"

#include <algorithm>
#include <functional>
#include <numeric>
#include <span>
#include <utility>

namespace lineara::layout {

using engine::Generation;
using engine::PersonIndex;

namespace {

/// The row in which each person is drawn: nobody stands below row 0.
std::vector<Generation> rowsOf(const std::vector<Generation>& generations)
{
    std::vector<Generation> rows = generations;
    for (Generation& row : rows)
        row = std::max(row, 0);
    return rows;
}

/// The largest family comes first, so that the smaller ones find room beside it.
std::vector<std::size_t> largestFirst(const Lists<PersonIndex>& families)
{
    std::vector<std::size_t> order(families.lists());
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::ranges::stable_sort(order, std::greater{}, [&](std::size_t family) { return families[family].size(); });
    return order;
}

/// Where everybody stands now, in places.
std::vector<double> placesOf(const TidyTask& task)
{
    std::vector<double> places;
    for (const std::int32_t left : task.present)
        places.push_back(static_cast<double>(left) / task.pitch);
    return places;
}

/// The other way round. Who stands alone in a block has no other way.
Arrangement mirrored(const Chart& chart, Arrangement order)
{
    for (std::uint32_t row = 0; row < chart.rows; ++row)
        std::ranges::reverse(order.rows[row]);
    for (BlockIndex block = 0; block < chart.blocks(); ++block)
        order.mirror(chart, block, !order.isMirrored(block));
    return order;
}

/// The order that there is stays unless the one that was found is clearly better: who tidies up again after an edit
/// wants to find everybody again. Only the order counts, not how far apart all stand, so that who is tidy already
/// comes out as before to the point. Returns whether it stays, and nothing if `heard` says not to go on.
std::optional<bool> keepOrder(const Chart& chart, std::span<const double> places, std::int32_t pitch,
                              Arrangement& found, const Heard& heard)
{
    constexpr double clearly = 1.2;
    if (places.empty())
        return false;
    const auto isFound = [&](const Arrangement& order) {
        return isSameOrder(chart, order, found) || isSameOrder(chart, mirrored(chart, order), found);
    };
    const Arrangement present = orderAt(chart, places);
    if (isFound(present))
        return false;
    std::optional<Arrangement> kept = keptOrder(chart, present, pitch, heard);
    if (!kept)
        return std::nullopt;
    if (isFound(*kept) || costOf(chart, *kept) > clearly * costOf(chart, found) + 1)
        return false;
    found = std::move(*kept);
    return true;
}

} // namespace

std::optional<std::vector<std::int32_t>> tidy(const TidyTask& task, const TidyProgress& progress)
{
    const std::vector<Generation> rows = rowsOf(task.generations);
    const Lists<PersonIndex> families = connectedFamilies(task.family);
    ChartBuilder builder(task.family, rows, task.birthYears);
    const std::vector<double> places = placesOf(task);
    Packing packing(rows, task.pitch);
    std::vector<bool> placed(task.family.persons(), false);
    double done = 0;
    for (const std::size_t number : largestFirst(families)) {
        const auto persons = static_cast<double>(families[number].size());
        const Chart chart = builder.build(families[number]);
        const Heard heard = [&](double share) {
            return !progress || progress((done + share * persons) / static_cast<double>(families.items()));
        };
        Hearing hearing(heard);
        hearing.nextPart(places.empty() ? 0.95 : 0.6);
        std::optional<Arrangement> arrangement = orderFamilies(chart, hearing.ofPart());
        if (!arrangement)
            return std::nullopt;
        hearing.nextPart(places.empty() ? 0 : 0.35);
        const std::optional<bool> isKept = keepOrder(chart, places, task.pitch, *arrangement, hearing.ofPart());
        if (!isKept)
            return std::nullopt;
        // An order that is kept has them where its user left them.
        if (!*isKept)
            leaveFreePlaces(chart, *arrangement);
        packing.addFamily(chart, *arrangement, *isKept || chart.siblingPairs.items() > 0);
        for (const PersonIndex person : families[number])
            placed[person] = true;
        done += persons;
    }
    if (progress && !progress(1))
        return std::nullopt;
    for (PersonIndex person = 0; person < task.family.persons(); ++person)
        if (!placed[person])
            packing.addAlone(person);
    return packing.leftEdges(task.margin);
}

} // namespace lineara::layout
