#include "canvas/placement.h"
#include "elements/random_source.h"
#include "scripted_random.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace lineara {
namespace {

TEST(Placement, RowsStackUpwardsFromTheBottomMargin)
{
    EXPECT_EQ(rowConstant(0), -9);
    EXPECT_EQ(rowConstant(1), -230);
    EXPECT_EQ(rowConstant(2), -451);
}

TEST(Placement, PersonsWithoutAGenerationOrBelowTheFirstRowStandInRowZero)
{
    EXPECT_EQ(rowConstant(std::nullopt), -9);
    EXPECT_EQ(rowConstant(-1), -9);
    EXPECT_EQ(rowConstant(std::numeric_limits<std::int32_t>::min()), -9);
}

TEST(Placement, AbsurdGenerationsSaturateInsteadOfWrapping)
{
    EXPECT_EQ(rowConstant(9'717'098), -(221 * 9'717'098 + 9));
    EXPECT_EQ(rowConstant(9'717'200), -std::numeric_limits<std::int32_t>::max());
    EXPECT_EQ(rowConstant(std::numeric_limits<std::int32_t>::max()), -std::numeric_limits<std::int32_t>::max());
}

TEST(Placement, NewPersonStandsInTheLeftHalfOfTheVisibleArea)
{
    const Frame visible{100, 40, 801, 600};
    ScriptedRandom random{0, 399};
    EXPECT_EQ(newPersonX(visible, random), 500);
    EXPECT_EQ(newPersonX(visible, random), 101);
    EXPECT_EQ(random.bounds(), (std::vector<std::uint32_t>{400, 400}));
}

TEST(Placement, NewPersonNeverLeavesTheLeftHalf)
{
    SeededRandom random(7);
    for (int round = 0; round < 1000; ++round) {
        const std::int32_t x = newPersonX(Frame{100, 40, 801, 600}, random);
        EXPECT_GE(x, 101);
        EXPECT_LE(x, 500);
    }
}

TEST(Placement, VisibleAreaOfOnePointLeavesNoChoice)
{
    ScriptedRandom random{0};
    EXPECT_EQ(newPersonX(Frame{30, 0, 1, 10}, random), 30);
    EXPECT_EQ(random.bounds(), (std::vector<std::uint32_t>{0}));
}

TEST(Placement, NewPersonIsLiftedAboveTheVisibleBottom)
{
    EXPECT_EQ(newPersonConstant(Frame{100, 40, 801, 600}), -290);
}

TEST(Placement, NewPersonWithoutAViewStandsAtZeroAndIsLiftedAboveTheCanvasBottom)
{
    ScriptedRandom random{};
    EXPECT_EQ(newPersonX(std::nullopt, random), 0);
    EXPECT_EQ(newPersonConstant(std::nullopt), -250);
}

TEST(Placement, FirstFrameHasRoomForTheWidestRowAndTheHighest)
{
    EXPECT_EQ(firstFrame(900, 10, 3), QSize(1824, 936));
    EXPECT_EQ(firstFrame(900, 0, 0), QSize(900, 273));
    EXPECT_EQ(firstFrame(304 + 152, 1, 1), QSize(456, 494));
}

TEST(Placement, FirstFrameOfAnAbsurdFamilySaturates)
{
    const int largest = std::numeric_limits<std::int32_t>::max();
    EXPECT_EQ(firstFrame(900, largest, largest), QSize(largest, largest));
}

TEST(Placement, TrimsOnlyWhatStandsBeyondTheMargin)
{
    EXPECT_EQ(trimDistance(300), 47);
    EXPECT_EQ(trimDistance(253.9), 0);
    EXPECT_EQ(trimDistance(253), 0);
    EXPECT_EQ(trimDistance(200), 0);
    EXPECT_EQ(trimDistance(0), 0);
}

TEST(Placement, LeftEdgeIsPutRightByWholePoints)
{
    EXPECT_EQ(leftEdgeDistance(-20), -20);
    EXPECT_EQ(leftEdgeDistance(-12.5), -12);
    EXPECT_EQ(leftEdgeDistance(-0.5), 0);
    EXPECT_EQ(leftEdgeDistance(0), 0);
    EXPECT_EQ(leftEdgeDistance(40), 0);
}

TEST(Placement, TruncationIsTowardsZeroAndNeverLeaves32Bits)
{
    EXPECT_EQ(truncated(37.9), 37);
    EXPECT_EQ(truncated(-12.5), -12);
    EXPECT_EQ(truncated(std::nan("")), 0);
    EXPECT_EQ(truncated(1e300), std::numeric_limits<std::int32_t>::max());
    EXPECT_EQ(truncated(-1e300), std::numeric_limits<std::int32_t>::min());
}

} // namespace
} // namespace lineara
