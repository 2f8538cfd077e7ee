#include "layout/row_solver.h"

#include <gmock/gmock.h>

#include <limits>

namespace lineara::layout {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

RowNode standing(std::int32_t left, std::int32_t width = 142)
{
    return {left, width, true};
}

RowNode newcomer(std::int32_t left, std::int32_t width = 142)
{
    return {left, width, false};
}

std::vector<std::int64_t> solved(const std::vector<RowNode>& row)
{
    return solveRow(row);
}

std::vector<std::size_t> fromLeft(const std::vector<std::int32_t>& lefts)
{
    return rowOrder(lefts);
}

TEST(RowOrder, GoesByLeftEdges)
{
    EXPECT_THAT(fromLeft({300, 100, 200}), ElementsAre(1, 2, 0));
    EXPECT_THAT(fromLeft({-5, 0, -300}), ElementsAre(2, 0, 1));
}

TEST(RowOrder, OfEqualPlacesTheEarlierStandsLeft)
{
    EXPECT_THAT(fromLeft({7, 3, 7, 3, 7}), ElementsAre(1, 3, 0, 2, 4));
}

TEST(RowOrder, OfNobodyIsEmpty)
{
    EXPECT_THAT(fromLeft({}), IsEmpty());
}

TEST(RowSolver, EmptyRowAndSingleNodeNeedNothing)
{
    EXPECT_THAT(solved({}), IsEmpty());
    EXPECT_THAT(solved({standing(-12)}), ElementsAre(-12));
    EXPECT_THAT(solved({newcomer(37)}), ElementsAre(37));
}

TEST(RowSolver, NeighboursWithExactlyTheGapStay)
{
    EXPECT_THAT(solved({standing(0), standing(152), newcomer(304)}), ElementsAre(0, 152, 304));
}

TEST(RowSolver, OnePointTooFewIsMendedByOnePoint)
{
    EXPECT_THAT(solved({standing(0), standing(151)}), ElementsAre(0, 152));
}

TEST(RowSolver, RowIsNotBoundedOnTheLeft)
{
    EXPECT_THAT(solved({standing(0), standing(5), standing(6)}), ElementsAre(-147, 5, 157));
}

TEST(RowSolver, NewcomerLeftOfOneWhoStoodGoesLeft)
{
    EXPECT_THAT(solved({newcomer(379), standing(400)}), ElementsAre(248, 400));
}

TEST(RowSolver, NewcomerRightOfOneWhoStoodGoesRight)
{
    EXPECT_THAT(solved({standing(400), newcomer(421)}), ElementsAre(400, 552));
}

TEST(RowSolver, BetweenEqualsTheRightOneMoves)
{
    EXPECT_THAT(solved({standing(100), standing(150)}), ElementsAre(100, 252));
    EXPECT_THAT(solved({newcomer(100), newcomer(150)}), ElementsAre(100, 252));
}

TEST(RowSolver, LeastTotalGoesBeforeWhoStood)
{
    // Whoever of the two stays in place, the newcomer and the other one would have to move further than this.
    EXPECT_THAT(solved({standing(0), newcomer(76), standing(152)}), ElementsAre(-76, 76, 228));
}

TEST(RowSolver, OneNewcomerMoreOutweighsAllWhoStood)
{
    EXPECT_THAT(solved({standing(10), standing(162), newcomer(304), newcomer(456), newcomer(608)}),
                ElementsAre(0, 152, 304, 456, 608));
}

TEST(RowSolver, NewcomersOnBothSidesGiveWay)
{
    EXPECT_THAT(solved({newcomer(360), standing(400), standing(552), newcomer(600)}), ElementsAre(248, 400, 552, 704));
}

TEST(RowSolver, GivenOrderIsKeptEvenAgainstTheLeftEdges)
{
    EXPECT_THAT(solved({standing(200), newcomer(100)}), ElementsAre(200, 352));
}

TEST(RowSolver, OwnWidthsCount)
{
    EXPECT_THAT(solved({standing(0, 30), standing(20, 300), newcomer(25, 142)}), ElementsAre(-20, 20, 330));
    EXPECT_THAT(solved({standing(5, 0), newcomer(5, 0)}), ElementsAre(5, 15));
}

TEST(RowSolver, NumbersAtTheEndsOfTheRangeDoNotOverflow)
{
    constexpr auto least = std::numeric_limits<std::int32_t>::min();
    constexpr auto most = std::numeric_limits<std::int32_t>::max();
    constexpr std::int64_t step = std::int64_t{most} + rowGap;
    constexpr std::size_t nodes = 100'000;
    const std::vector<RowNode> atTheRightEnd(nodes, {most, most, true});
    const auto places = solveRow(atTheRightEnd);
    constexpr std::int64_t half = nodes / 2;
    EXPECT_EQ(places.front(), most - (half - 1) * step);
    EXPECT_EQ(places.back(), most + half * step);
    EXPECT_THAT(solved({standing(least, most), standing(least, most)}), ElementsAre(least, least + step));
}

} // namespace
} // namespace lineara::layout
