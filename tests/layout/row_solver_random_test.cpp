#include "literal_row.h"
#include "random_rows.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <compare>
#include <limits>

namespace lineara::layout {
namespace {

#ifdef LINEARA_SANITIZED
constexpr int rowsTried = 300;
#else
constexpr int rowsTried = 5'000;
#endif

using Row = std::vector<RowNode>;
using Places = std::vector<std::int64_t>;

/// Says everything about a row, so that a failure can be repeated.
std::string told(const Row& row)
{
    std::string text;
    for (const RowNode& node : row)
        text += (node.stood ? " " : " *") + std::to_string(node.left) + "+" + std::to_string(node.width);
    return text;
}

void expectGaps(const Row& row, const Places& solved)
{
    ASSERT_EQ(solved.size(), row.size());
    for (std::size_t node = 1; node < row.size(); ++node)
        ASSERT_LE(solved[node - 1] + row[node - 1].width + rowGap, solved[node]) << "node " << node;
}

/// The nodes from `begin` to before `end` stand shoulder to shoulder, and nobody else with them.
struct Block
{
    std::size_t begin = 0;
    std::size_t end = 0;
};

std::vector<Block> blocks(const Row& row, const Places& solved)
{
    std::vector<Block> blocks;
    for (std::size_t node = 0; node < row.size(); ++node) {
        if (node == 0 || solved[node - 1] + row[node - 1].width + rowGap < solved[node])
            blocks.push_back({node, node});
        blocks.back().end = node + 1;
    }
    return blocks;
}

/// By how much the distances grow, of all and of those who stood, where some nodes move by a little.
struct Growth
{
    std::int64_t all = 0;
    std::int64_t stood = 0;

    auto operator<=>(const Growth&) const = default;
    void add(const RowNode& node, bool away)
    {
        all += away ? 1 : -1;
        stood += node.stood ? (away ? 1 : -1) : 0;
    }
};

/// Every way of moving without loss of a gap is made of beginnings of blocks that go left and ends of blocks that go
/// right. The costs are convex, so a solution is best if none of these makes it better, and furthest right if every one
/// to the right makes it worse.
void expectBestAndRightmost(const Row& row, const Places& solved)
{
    for (const Block& block : blocks(row, solved)) {
        Growth leftwards;
        for (std::size_t node = block.begin; node < block.end; ++node) {
            leftwards.add(row[node], solved[node] <= row[node].left);
            ASSERT_GE(leftwards, Growth{}) << "to the left from node " << block.begin << " to " << node;
        }
        Growth rightwards;
        for (std::size_t node = block.end; node-- > block.begin;) {
            rightwards.add(row[node], solved[node] >= row[node].left);
            ASSERT_GT(rightwards, Growth{}) << "to the right from node " << node << " to " << block.end - 1;
        }
    }
}

void expectOneOfEachBlockStays(const Row& row, const Places& solved)
{
    for (const Block& block : blocks(row, solved)) {
        bool stays = false;
        for (std::size_t node = block.begin; node < block.end; ++node)
            stays = stays || solved[node] == row[node].left;
        ASSERT_TRUE(stays) << "nodes from " << block.begin << " to " << block.end - 1;
    }
}

void expectAtRest(Row row, const Places& solved)
{
    for (std::size_t node = 0; node < row.size(); ++node) {
        ASSERT_GE(solved[node], std::numeric_limits<std::int32_t>::min());
        ASSERT_LE(solved[node], std::numeric_limits<std::int32_t>::max());
        row[node].left = static_cast<std::int32_t>(solved[node]);
    }
    ASSERT_EQ(solveRow(row), solved);
}

void expectKeptPromises(const Row& row)
{
    const Places solved = solveRow(row);
    expectGaps(row, solved);
    expectBestAndRightmost(row, solved);
    expectOneOfEachBlockStays(row, solved);
    expectAtRest(row, solved);
}

TEST(RandomRows, AreSolvedAsByTryingEverything)
{
    Random random(1);
    for (int round = 0; round < rowsTried; ++round) {
        const auto nodes = static_cast<std::size_t>(1 + upTo(random, 7));
        const Row row = randomRow(random, {nodes, 5 + upTo(random, 55), upTo(random, 9)}).nodes();
        ASSERT_EQ(solveRow(row), literallySolved(row)) << told(row);
    }
}

TEST(RandomRows, AreSolvedAsByTryingEverythingInOrdersAgainstTheirPlaces)
{
    Random random(2);
    for (int round = 0; round < rowsTried; ++round) {
        const auto nodes = static_cast<std::size_t>(1 + upTo(random, 7));
        Row row = randomRow(random, {nodes, 5 + upTo(random, 55), upTo(random, 9)}).nodes();
        std::swap(row.front(), row[nodes / 2]);
        ASSERT_EQ(solveRow(row), literallySolved(row)) << told(row);
    }
}

TEST(RandomRows, AreBestAndRightmostAndThenAtRest)
{
    Random random(3);
    for (int round = 0; round < rowsTried; ++round) {
        const auto nodes = static_cast<std::size_t>(1 + upTo(random, 79));
        const Row row = randomRow(random, {nodes, 100 + upTo(random, 9'000), 142}).nodes();
        SCOPED_TRACE(told(row));
        expectKeptPromises(row);
        if (HasFatalFailure())
            return;
    }
}

TEST(RandomRows, NobodyMovesWhereTheGapsAreKept)
{
    Random random(4);
    for (int round = 0; round < rowsTried; ++round) {
        Row row;
        Places places;
        std::int32_t left = upTo(random, 2'000) - 1'000;
        for (std::int32_t node = upTo(random, 60); node > 0; --node) {
            row.push_back({left, upTo(random, 142), upTo(random, 1) == 0});
            places.push_back(left);
            left += row.back().width + rowGap + std::max(0, upTo(random, 30) - 15);
        }
        ASSERT_EQ(solveRow(row), places) << told(row);
    }
}

TEST(LargeRows, AreBestAndRightmostAndThenAtRest)
{
    Random random(5);
    for (const std::size_t nodes : {20'000U, 100'000U}) {
        // Everybody in a heap, half of what they need, and mostly room enough.
        for (const std::int32_t pitch : {0, 40, 300}) {
            SCOPED_TRACE(std::to_string(nodes) + " nodes, a place each " + std::to_string(pitch) + " points");
            const auto spread = static_cast<std::int32_t>(nodes) * pitch + 1'000;
            expectKeptPromises(randomRow(random, {nodes, spread, 142}).nodes());
        }
    }
}

} // namespace
} // namespace lineara::layout
