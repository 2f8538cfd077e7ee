#include "crossings.h"
#include "family_sketch.h"
#include "free_places.h"
#include "order.h"
#include "whole_chart.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace lineara::layout {
namespace {

using namespace sketch;

constexpr double aPlace = 0.999;

/// A family of one piece, ordered, without any place left free on purpose.
struct OrderedFamily
{
    explicit OrderedFamily(const Sketch& sketch) : graph(sketch.graph()), generations(sketch.generations())
    {
        chart = wholeChart(graph, generations);
        arrangement = orderFamilies(chart, {}).value();
    }

    FamilyGraph graph;
    std::vector<Generation> generations;
    Chart chart;
    Arrangement arrangement;
};

/// How many stand in the longest part of a row that has no free place.
double largestCrowd(const Chart& chart, const Arrangement& arrangement, std::uint32_t row)
{
    double largest = 0;
    double together = 0;
    double end = arrangement.left[arrangement.rows[row].front()];
    for (const BlockIndex block : arrangement.rows[row]) {
        together = arrangement.left[block] - end >= aPlace ? 0 : together;
        together += chart.width(block);
        largest = std::max(largest, together);
        end = arrangement.left[block] + chart.width(block);
    }
    return largest;
}

double widthOf(const Chart& chart, const Arrangement& arrangement)
{
    double leftmost = 0;
    double rightmost = 0;
    for (BlockIndex block = 0; block < chart.blocks(); ++block) {
        leftmost = std::min(leftmost, arrangement.left[block]);
        rightmost = std::max(rightmost, arrangement.left[block] + chart.width(block));
    }
    return rightmost - leftmost;
}

/// A parent of many, of whom one has many children, too.
Sketch crowdedFamily(int children, int grandchildren)
{
    Sketch sketch;
    const PersonIndex parent = sketch.person(3);
    for (int child = 0; child < children; ++child)
        sketch.bear(sketch.person(2), {parent});
    for (int child = 0; child < grandchildren; ++child)
        sketch.bear(sketch.person(1), {1});
    return sketch;
}

TEST(FreePlaces, AreLeftWhereManyStandTogether)
{
    OrderedFamily family(crowdedFamily(150, 300));
    ASSERT_EQ(largestCrowd(family.chart, family.arrangement, 1), 150);
    leaveFreePlaces(family.chart, family.arrangement);
    EXPECT_LE(largestCrowd(family.chart, family.arrangement, 1), 40);
}

TEST(FreePlaces, KeepTheOrderAndTheWidth)
{
    OrderedFamily family(crowdedFamily(280, 300));
    const double width = widthOf(family.chart, family.arrangement);
    const auto order = family.arrangement.rows;
    leaveFreePlaces(family.chart, family.arrangement);
    EXPECT_EQ(widthOf(family.chart, family.arrangement), width);
    for (std::uint32_t row = 0; row < family.chart.rows; ++row)
        EXPECT_TRUE(std::ranges::equal(order[row], family.arrangement.rows[row]));
}

TEST(FreePlaces, AreFewInARowThatHasRoomForFew)
{
    OrderedFamily family(crowdedFamily(297, 300));
    leaveFreePlaces(family.chart, family.arrangement);
    EXPECT_LT(largestCrowd(family.chart, family.arrangement, 1), 297);
    EXPECT_GT(largestCrowd(family.chart, family.arrangement, 1), 40);
}

TEST(FreePlaces, CostHardlyAnyCrossings)
{
    Random random(41);
    for (int round = 0; round < 6; ++round) {
        SCOPED_TRACE(round);
        Sketch sketch = largeFamily(random, 6, 60);
        for (int child = 0; child < 60; ++child)
            sketch.bear(sketch.person(1), {pick(random, 0, 299)});
        OrderedFamily family(sketch);
        const auto before = static_cast<double>(countCrossings(family.chart, family.arrangement));
        leaveFreePlaces(family.chart, family.arrangement);
        EXPECT_LE(static_cast<double>(countCrossings(family.chart, family.arrangement)), 1.02 * before + 1);
    }
}

} // namespace
} // namespace lineara::layout
