#include "branch_moves.h"

#include "crossings.h"
#include "family_sketch.h"
#include "whole_chart.h"

#include <gtest/gtest.h>

#include <utility>

namespace lineara::layout {
namespace {

using namespace sketch;

/// Three parents with one child each in a row; the children of the last two have changed places.
struct CrossedPair
{
    Sketch sketch;
    FamilyGraph graph;
    Chart chart;
    Arrangement arrangement;

    CrossedPair()
    {
        for (int parent = 0; parent < 3; ++parent)
            sketch.person(2);
        for (PersonIndex parent = 0; parent < 3; ++parent)
            sketch.bear(sketch.person(1), {parent});
        graph = sketch.graph();
        chart = wholeChart(graph, sketch.generations());
        arrangement = walkOrder(chart, spanFrom(chart, 0));
        arrangement.rows = sortIntoLists(2, standing(), &Standing::block);
        for (std::uint32_t row = 0; row < 2; ++row)
            for (std::size_t place = 0; place < 3; ++place)
                arrangement.left[arrangement.rows[row][place]] = static_cast<double>(place);
    }

    std::uint64_t crossingsAfter(const BranchMoves::Scope& scope)
    {
        const FamilyTree tree = spanFrom(chart, 0);
        BranchMoves(chart, tree, 0).goOver(arrangement, scope);
        return countCrossings(chart, arrangement);
    }

private:
    struct Standing
    {
        std::uint32_t owner = 0;
        BlockIndex block = 0;
    };

    std::vector<Standing> standing() const
    {
        std::vector<Standing> standing;
        for (const PersonIndex person : {0U, 1U, 2U, 3U, 5U, 4U})
            for (BlockIndex block = 0; block < chart.blocks(); ++block)
                if (chart.members[block].front() == person)
                    standing.push_back({chart.rowOf[block], block});
        return standing;
    }
};

TEST(BranchMoves, ABlockMovesWhereThatSavesACrossing)
{
    CrossedPair pair;
    ASSERT_EQ(countCrossings(pair.chart, pair.arrangement), 1U);
    EXPECT_EQ(pair.crossingsAfter({1, 1}), 0U);
}

TEST(BranchMoves, OnlyEveryNthBlockLeadsWhereAllWouldTakeTooLong)
{
    CrossedPair pair;
    EXPECT_EQ(pair.crossingsAfter({1, pair.chart.blocks()}), 1U);
}

} // namespace
} // namespace lineara::layout
