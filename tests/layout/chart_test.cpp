#include "crossings.h"
#include "family_sketch.h"
#include "family_walk.h"
#include "whole_chart.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace lineara::layout {
namespace {

using namespace sketch;

/// Every pair of pieces of line, compared one by one.
std::uint64_t crossingsPairByPair(const Chart& chart, const Arrangement& arrangement)
{
    std::uint64_t crossings = 0;
    for (std::uint32_t row = 0; row + 1 < chart.rows; ++row) {
        std::vector<StraightLine> lines;
        for (const ChildLine& line : chart.lines)
            if (const StraightLine drawn(chart, arrangement, line); drawn.top <= row && row < drawn.bottom)
                lines.push_back(drawn);
        for (const StraightLine& one : lines)
            for (const StraightLine& other : lines)
                crossings += one.placeIn(row) < other.placeIn(row) && one.placeIn(row + 1) > other.placeIn(row + 1);
    }
    return crossings;
}

TEST(CountCrossings, TwoCrossedChildrenCrossOnce)
{
    Sketch sketch;
    for (const Generation row : {2, 2, 1, 1})
        sketch.person(row);
    sketch.bear(2, {0});
    sketch.bear(3, {1});
    const FamilyGraph graph = sketch.graph();
    const Chart chart = wholeChart(graph, sketch.generations());
    Arrangement arrangement = walkOrder(chart, spanFrom(chart, 0));
    EXPECT_EQ(countCrossings(chart, arrangement), 0U);
    std::swap(arrangement.left[2], arrangement.left[3]);
    EXPECT_EQ(countCrossings(chart, arrangement), 1U);
}

void expectTheSameAsPairByPair(const Sketch& sketch)
{
    std::vector<Generation> rows = sketch.generations();
    for (Generation& row : rows)
        row = std::max(row, 0);
    const FamilyGraph graph = sketch.graph();
    const Chart chart = wholeChart(graph, rows);
    const Arrangement arrangement = walkOrder(chart, spanFrom(chart, 0));
    EXPECT_EQ(countCrossings(chart, arrangement), crossingsPairByPair(chart, arrangement));
}

TEST(CountCrossings, SameAsComparingEveryPair)
{
    Random random(8);
    for (int round = 0; round < 500; ++round) {
        SCOPED_TRACE(round);
        expectTheSameAsPairByPair(randomTangle(random, pick(random, 2, 30)));
    }
}

// Rows of a few hundred lines are counted in another way than those of more.
TEST(CountCrossings, SameAsComparingEveryPairInCrowdedRows)
{
    Random random(9);
    for (const std::uint32_t personsInRow : {300U, 500U, 700U, 1'500U}) {
        SCOPED_TRACE(personsInRow);
        expectTheSameAsPairByPair(largeFamily(random, 4, personsInRow));
    }
}

// A chart must not hold a piece of line per row and line where that would be without bound.
TEST(Chart, HoldsNoMoreThanEightPiecesPerLine)
{
    Sketch sketch;
    const PersonIndex ancestor = sketch.person(1'001);
    for (Generation row = 1'000; row > 0; --row) {
        const PersonIndex child = sketch.person(row);
        sketch.bear(child, {ancestor, child - 1});
        sketch.bear(sketch.person(row), {ancestor});
    }
    const FamilyGraph graph = sketch.graph();
    const Chart chart = wholeChart(graph, sketch.generations());
    EXPECT_EQ(chart.lines.size(), 2'000U);
    EXPECT_LE(chart.linesBelow.items(), 8 * chart.lines.size());
    EXPECT_GE(chart.linesBelow.items(), 1'000U);
}

// Together with the bound on pieces this keeps the work in proportion to the family.
TEST(Chart, LargeFamiliesArePassedOverLessOften)
{
    const auto passesOver = [](std::uint32_t personsInRow) {
        Random random(11);
        const Sketch sketch = largeFamily(random, 10, personsInRow);
        const FamilyGraph graph = sketch.graph();
        const Chart chart = wholeChart(graph, sketch.generations());
        EXPECT_LE(chart.springsUp.items(), 2 * sketch.persons());
        return passes(chart, 40, 10);
    };
    EXPECT_EQ(passesOver(10), 40);
    EXPECT_EQ(passesOver(1'200), 20);
    EXPECT_EQ(passesOver(6'000), 10);
}

} // namespace
} // namespace lineara::layout
