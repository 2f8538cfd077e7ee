#include "family_sketch.h"
#include "family_walk.h"
#include "placement.h"
#include "whole_chart.h"

#include <gmock/gmock.h>

namespace lineara::layout {
namespace {

using namespace sketch;
using testing::DoubleNear;
using testing::Pointwise;

constexpr double tolerance = 1e-9;

/// One row of unlinked persons.
struct SingleRow
{
    explicit SingleRow(std::uint32_t persons)
    {
        for (std::uint32_t person = 0; person < persons; ++person)
            sketch.person(1);
        const FamilyGraph graph = sketch.graph();
        chart = wholeChart(graph, sketch.generations());
        arrangement = walkOrder(chart, spanFrom(chart, 0));
    }

    Sketch sketch;
    Chart chart;
    Arrangement arrangement;
};

TEST(SettleRow, WishesThatFitAreMet)
{
    SingleRow row(3);
    settleRow(row.chart, row.arrangement, 0, std::vector<Wish>{{-2, 1}, {0, 1}, {1, 1}});
    EXPECT_THAT(row.arrangement.left, Pointwise(DoubleNear(tolerance), {-2.0, 0.0, 1.0}));
}

TEST(SettleRow, RivalsForOnePlaceShareItByTheirWeights)
{
    SingleRow row(2);
    settleRow(row.chart, row.arrangement, 0, std::vector<Wish>{{4, 1}, {4, 3}});
    EXPECT_THAT(row.arrangement.left, Pointwise(DoubleNear(tolerance), {3.25, 4.25}));
}

TEST(SettleRow, WhatIsToStayFreeStaysFree)
{
    SingleRow row(3);
    const std::vector<double> free{5, 0, 1};
    settleRow(row.chart, row.arrangement, 0, std::vector<Wish>{{0, 1}, {1, 1}, {2, 2}}, free);
    EXPECT_THAT(row.arrangement.left, Pointwise(DoubleNear(tolerance), {-0.5, 0.5, 2.5}));
}

TEST(SettleRow, ReportsTheFarthestMove)
{
    SingleRow row(2);
    EXPECT_NEAR(settleRow(row.chart, row.arrangement, 0, std::vector<Wish>{{-1, 1}, {6, 1}}), 5, tolerance);
}

double cost(const std::vector<double>& left, const std::vector<Wish>& wishes)
{
    double sum = 0;
    for (std::size_t block = 0; block < left.size(); ++block)
        sum += wishes[block].weight * (left[block] - wishes[block].left) * (left[block] - wishes[block].left);
    return sum;
}

// The cost is convex and so are the places without overlap: where no small step of a run of neighbours helps, nothing
// does.
TEST(SettleRow, NoRunOfNeighboursCouldStandBetter)
{
    constexpr double step = 1e-3;
    Random random(9);
    for (int round = 0; round < 300; ++round) {
        SingleRow row(pick(random, 1, 8));
        std::vector<Wish> wishes;
        for (std::size_t block = 0; block < row.chart.blocks(); ++block)
            wishes.push_back({pick(random, 0, 40) / 8.0, pick(random, 1, 5) / 2.0});
        settleRow(row.chart, row.arrangement, 0, wishes);
        const std::vector<double>& settled = row.arrangement.left;
        for (std::size_t from = 0; from < settled.size(); ++from)
            for (std::size_t to = from; to < settled.size(); ++to)
                for (const double move : {-step, step}) {
                    std::vector<double> moved = settled;
                    for (std::size_t block = from; block <= to; ++block)
                        moved[block] += move;
                    bool fits = true;
                    for (std::size_t block = 1; block < moved.size(); ++block) {
                        ASSERT_GE(settled[block] - settled[block - 1], 1 - tolerance);
                        fits = fits && moved[block] - moved[block - 1] >= 1 - tolerance;
                    }
                    ASSERT_TRUE(!fits || cost(moved, wishes) >= cost(settled, wishes) - tolerance);
                }
    }
}

} // namespace
} // namespace lineara::layout
