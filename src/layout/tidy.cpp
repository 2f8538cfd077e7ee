#include "layout/tidy.h"

#include "chart.h"
#include "components.h"
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

/// The order that there is stays unless the one that was found is clearly better: who tidies up again after an edit
/// wants to find everybody again.
void keepOrder(const Chart& chart, std::span<const double> places, Arrangement& found)
{
    constexpr double clearly = 1.2;
    if (places.empty())
        return;
    Arrangement present = arrangementAt(chart, places);
    if (costOf(chart, present) <= clearly * costOf(chart, found) + 1)
        found = std::move(present);
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
        const auto heard = [&](double share) {
            return !progress || progress((done + share * persons) / static_cast<double>(families.items()));
        };
        std::optional<Arrangement> arrangement = orderFamilies(chart, heard);
        if (!arrangement)
            return std::nullopt;
        keepOrder(chart, places, *arrangement);
        packing.addFamily(chart, *arrangement);
        for (const PersonIndex person : families[number])
            placed[person] = true;
        done += persons;
    }
    for (PersonIndex person = 0; person < task.family.persons(); ++person)
        if (!placed[person])
            packing.addAlone(person);
    return packing.leftEdges(task.margin);
}

} // namespace lineara::layout
