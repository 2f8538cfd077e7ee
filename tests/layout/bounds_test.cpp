#include "bounds.h"

#include "cost.h"
#include "crossings.h"
#include "family_sketch.h"
#include "order.h"
#include "straightening.h"
#include "whole_chart.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace lineara::layout {
namespace {

using namespace sketch;

constexpr double rounding = 1e-6;

struct Narrowed
{
    Chart chart;
    Arrangement before;
    Arrangement after;

    explicit Narrowed(const Sketch& sketch) : graph_(sketch.graph())
    {
        chart = wholeChart(graph_, sketch.generations());
        before = orderFamilies(chart, {}).value();
        // As wide as if nobody had narrowed it yet.
        setBounds(before, usualWidth(chart));
        straighten(chart, before);
        after = before;
        narrow(chart, after);
    }

    double drawnLength(const Arrangement& arrangement) const
    {
        return lengthOfLines(chart, arrangement) + static_cast<double>(chart.lines.size());
    }

private:
    FamilyGraph graph_;
};

/// A couple and its children.
Sketch household(int children)
{
    Sketch sketch;
    const PersonIndex father = sketch.person(1);
    const PersonIndex mother = sketch.person(1);
    sketch.marry(father, mother);
    for (int child = 0; child < children; ++child)
        sketch.bear(sketch.person(0), {father, mother});
    return sketch;
}

TEST(Narrowing, GainsMoreThanItCosts)
{
    Random random(81);
    int narrowed = 0;
    for (int round = 0; round < 100; ++round) {
        SCOPED_TRACE(round);
        const Narrowed family(round % 2 == 0 ? randomDescendants(random, 5, 4) : largeFamily(random, 6, 20));
        const double saved = 1 - widthOf(family.chart, family.after) / widthOf(family.chart, family.before);
        EXPECT_GE(saved, -rounding);
        EXPECT_LE(family.drawnLength(family.after), (1 + saved / 2) * family.drawnLength(family.before) + rounding);
        EXPECT_LE(countCrossings(family.chart, family.after), countCrossings(family.chart, family.before));
        EXPECT_TRUE(isSameOrder(family.chart, family.before, family.after));
        narrowed += saved > 0.05 ? 1 : 0;
    }
    EXPECT_GT(narrowed, 5);
}

TEST(Narrowing, LeavesNobodyOutsideTheBounds)
{
    Random random(82);
    for (int round = 0; round < 100; ++round) {
        SCOPED_TRACE(round);
        const Narrowed family(randomDescendants(random, 5, 4));
        const Arrangement& after = family.after;
        for (BlockIndex block = 0; block < family.chart.blocks(); ++block) {
            EXPECT_GE(after.left[block], after.leftBound - rounding);
            EXPECT_LE(after.left[block] + family.chart.width(block), after.rightBound + rounding);
        }
    }
}

TEST(Narrowing, LeavesAFamilyAloneThatIsNoWiderThanItsWidestRow)
{
    const Narrowed family(household(6));
    EXPECT_EQ(family.before.left, family.after.left);
    EXPECT_EQ(family.before.leftBound, family.after.leftBound);
}

TEST(Narrowing, BringsEveryRowWithinBoundsThatAreTooNarrow)
{
    Random random(83);
    Narrowed family(randomDescendants(random, 5, 4));
    keepWithin(family.chart, family.after, 0);
    EXPECT_TRUE(isSameOrder(family.chart, family.before, family.after));
    for (std::uint32_t row = 0; row < family.chart.rows; ++row) {
        double free = family.after.leftBound;
        for (const BlockIndex block : family.after.rows[row]) {
            EXPECT_GE(family.after.left[block], free - rounding);
            free = family.after.left[block] + family.chart.width(block);
        }
        EXPECT_LE(free, family.after.rightBound + rounding);
    }
}

} // namespace
} // namespace lineara::layout
