#include "layout/first_order.h"

#include "chart.h"
#include "components.h"
#include "order.h"
#include "packing.h"
#include "placement.h"

#include <algorithm>
#include <functional>
#include <numeric>

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

} // namespace

std::vector<std::int32_t> firstOrder(const engine::FamilyGraph& family, const std::vector<Generation>& generations,
                                     std::int32_t pitch, std::int32_t margin)
{
    const std::vector<Generation> rows = rowsOf(generations);
    const Lists<PersonIndex> families = connectedFamilies(family);
    ChartBuilder builder(family, rows);
    Packing packing(rows, pitch);
    std::vector<bool> placed(family.persons(), false);
    for (const std::size_t number : largestFirst(families)) {
        const Chart chart = builder.build(families[number]);
        Arrangement arrangement = orderFamilies(chart);
        Placement(chart).pull(arrangement, passes(chart, 40, 10));
        packing.addFamily(chart, arrangement);
        for (const PersonIndex person : families[number])
            placed[person] = true;
    }
    for (PersonIndex person = 0; person < family.persons(); ++person)
        if (!placed[person])
            packing.addAlone(person);
    return packing.leftEdges(margin);
}

} // namespace lineara::layout
