#include "drawn_lines.h"

#include "crossings.h"
#include "family_sketch.h"
#include "family_walk.h"
#include "whole_chart.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>

namespace lineara::layout {
namespace {

using namespace sketch;

/// A random family about where its walk puts it, all its lines lifted. No two blocks are equally far from anything, so
/// that no lines merely touch, which rounding decides.
struct LiftedLines
{
    explicit LiftedLines(Random& random)
    {
        const Sketch sketch = randomTangle(random, pick(random, 2, 30));
        rows = sketch.generations();
        for (Generation& row : rows)
            row = std::max(row, 0);
        graph = sketch.graph();
        chart = wholeChart(graph, rows);
        arrangement = walkOrder(chart, spanFrom(chart, 0));
        for (double& left : arrangement.left)
            left += 0.0001 * pick(random, 0, 9'999);
        lines.resize(chart.lines.size());
        std::iota(lines.begin(), lines.end(), 0U);
    }

    std::vector<Generation> rows;
    FamilyGraph graph;
    Chart chart;
    Arrangement arrangement;
    std::vector<std::uint32_t> lines;
};

TEST(DrawnLines, BringAllCrossingsWhenAllAreLowered)
{
    Random random(51);
    for (int round = 0; round < 500; ++round) {
        const LiftedLines family(random);
        DrawnLines drawn(family.chart);
        ASSERT_EQ(static_cast<std::uint64_t>(drawn.lower(family.arrangement, family.lines)),
                  countCrossings(family.chart, family.arrangement))
            << "round " << round;
    }
}

TEST(DrawnLines, AreLoweredOnlyUntilTheyBringMoreCrossingsThanAllowed)
{
    Random random(52);
    int given = 0;
    for (int round = 0; round < 500; ++round) {
        const LiftedLines family(random);
        const std::int64_t all = DrawnLines(family.chart).lower(family.arrangement, family.lines);
        const std::int64_t most = pick(random, 0, 6);
        DrawnLines drawn(family.chart);
        const std::int64_t brought = drawn.lower(family.arrangement, family.lines, most);
        ASSERT_EQ(brought > most, all > most) << "round " << round;
        if (all <= most) {
            ASSERT_EQ(brought, all) << "round " << round;
        }
        given += brought < all ? 1 : 0;
    }
    EXPECT_GT(given, 0);
}

} // namespace
} // namespace lineara::layout
