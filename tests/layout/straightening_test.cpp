#include "straightening.h"

#include "crossings.h"
#include "family_sketch.h"
#include "family_walk.h"
#include "order.h"
#include "whole_chart.h"

#include <gtest/gtest.h>

#include <cmath>

namespace lineara::layout {
namespace {

using namespace sketch;

struct Drawing
{
    FamilyGraph graph;
    Chart chart;
    Arrangement arrangement;

    explicit Drawing(const Sketch& sketch) : graph(sketch.graph())
    {
        chart = wholeChart(graph, sketch.generations());
        arrangement = walkOrder(chart, spanFrom(chart, 0));
    }

    BlockIndex blockOf(PersonIndex person) const
    {
        for (BlockIndex block = 0; block < chart.blocks(); ++block)
            for (const PersonIndex member : chart.members[block])
                if (member == person)
                    return block;
        return noBlock;
    }

    double& left(PersonIndex person) { return arrangement.left[blockOf(person)]; }

    /// Brings the persons, each alone in a block, to the given places of their rows, the highest row first.
    void stand(const std::vector<std::vector<double>>& places, const std::vector<std::vector<PersonIndex>>& persons)
    {
        Lists<BlockIndex> rows;
        for (std::size_t row = 0; row < persons.size(); ++row) {
            for (std::size_t at = 0; at < persons[row].size(); ++at) {
                rows.append(blockOf(persons[row][at]));
                left(persons[row][at]) = places[row][at];
            }
            rows.endList();
        }
        arrangement.rows = rows;
    }
};

bool overlap(const Drawing& drawing)
{
    constexpr double rounding = 1e-6;
    const Arrangement& arrangement = drawing.arrangement;
    for (std::uint32_t row = 0; row < drawing.chart.rows; ++row) {
        const auto blocks = arrangement.rows[row];
        for (std::size_t next = 1; next < blocks.size(); ++next)
            if (arrangement.left[blocks[next]] + rounding <
                arrangement.left[blocks[next - 1]] + drawing.chart.width(blocks[next - 1]))
                return true;
    }
    return false;
}

/// Pairs of lines of which each clearly lies left of the other somewhere. Whether lines touch is a matter of rounding.
std::uint64_t clearCrossings(const Drawing& drawing)
{
    constexpr double clear = 1e-4;
    std::uint64_t crossings = 0;
    for (std::uint32_t row = 0; row + 1 < drawing.chart.rows; ++row) {
        const auto lines = drawing.chart.linesBelow[row];
        for (std::size_t one = 0; one < lines.size(); ++one)
            for (std::size_t other = 0; other < one; ++other) {
                const StraightLine first(drawing.chart, drawing.arrangement, drawing.chart.lines[lines[one]]);
                const StraightLine second(drawing.chart, drawing.arrangement, drawing.chart.lines[lines[other]]);
                const double above = first.placeIn(row) - second.placeIn(row);
                const double below = first.placeIn(row + 1) - second.placeIn(row + 1);
                crossings += (above > clear && below < -clear) || (above < -clear && below > clear) ? 1 : 0;
            }
    }
    return crossings;
}

TEST(Straightening, ChildrenComeToStandBeneathTheMiddleOfTheirParents)
{
    Sketch sketch;
    const PersonIndex parent = sketch.person(2);
    const PersonIndex first = sketch.person(1);
    const PersonIndex second = sketch.person(1);
    sketch.bear(first, {parent});
    sketch.bear(second, {parent});
    Drawing drawing(sketch);
    drawing.left(parent) = 8;
    Straightening straightening(drawing.chart, 100);
    for (int pass = 0; pass < 50 && straightening.goOver(drawing.arrangement); ++pass)
        ;
    const double middle = (drawing.left(first) + drawing.left(second)) / 2;
    EXPECT_NEAR(middle, drawing.left(parent), 0.05);
    EXPECT_NEAR(std::abs(drawing.left(first) - drawing.left(second)), 1, 1e-9);
}

/// A parent is drawn across a long line by its own parent, which would cost two crossings for one.
TEST(Straightening, OnlyThePartStaysCrookedWhereAnotherLineIsInTheWay)
{
    Sketch sketch;
    const std::vector rows{std::vector{sketch.person(3), sketch.person(3)},
                           std::vector{sketch.person(2), sketch.person(2)},
                           std::vector{sketch.person(1), sketch.person(1), sketch.person(1), sketch.person(1)}};
    const PersonIndex farParent = rows[1][1];
    sketch.bear(rows[1][0], {rows[0][0]});
    sketch.bear(rows[2][0], {rows[0][1]});
    sketch.bear(rows[2][1], {rows[1][0]});
    sketch.bear(rows[2][2], {rows[1][0]});
    sketch.bear(rows[2][3], {farParent});
    Drawing drawing(sketch);
    drawing.stand({{-20, 0}, {6, 50}, {10, 11, 12, 47}}, rows);
    const std::uint64_t before = clearCrossings(drawing);
    EXPECT_TRUE(Straightening(drawing.chart, 100).goOver(drawing.arrangement));
    EXPECT_LE(clearCrossings(drawing), before);
    EXPECT_NEAR(drawing.left(farParent), 47, 0.05);
}

TEST(Straightening, NeverCostsACrossingNorPutsAnybodyUponAnother)
{
    Random random(11);
    int straightened = 0;
    for (int round = 0; round < 300; ++round) {
        Drawing drawing(randomTangle(random, pick(random, 2, 60)));
        const std::uint64_t before = countCrossings(drawing.chart, drawing.arrangement);
        Straightening straightening(drawing.chart, 2);
        straightened += straightening.goOver(drawing.arrangement) ? 1 : 0;
        ASSERT_LE(clearCrossings(drawing), before) << "family " << round;
        ASSERT_FALSE(overlap(drawing)) << "family " << round;
    }
    EXPECT_GT(straightened, 200);
}

} // namespace
} // namespace lineara::layout
