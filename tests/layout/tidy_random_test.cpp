#include "family_sketch.h"

#include "layout/tidy.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <map>
#include <set>

namespace lineara::layout {
namespace {

using namespace sketch;

constexpr std::int32_t narrowMargin = 40;
#ifdef LINEARA_SANITIZED
constexpr int rounds = 200;
constexpr int manyFamilies = 400;
#else
constexpr int rounds = 3000;
constexpr int manyFamilies = 4'000;
#endif

using DrawnRow = std::vector<PersonIndex>;

/// The rows as drawn, everybody from left to right.
std::map<Generation, DrawnRow> rowsFromLeft(const Sketch& sketch, const std::vector<std::int32_t>& x)
{
    std::map<Generation, DrawnRow> rows;
    for (PersonIndex person = 0; person < sketch.persons(); ++person)
        rows[std::max(sketch.generations()[person], 0)].push_back(person);
    for (auto& [generation, row] : rows)
        std::ranges::sort(row, {}, [&](PersonIndex person) { return x[person]; });
    return rows;
}

void expectRoomForEverybody(const Sketch& sketch, const std::vector<std::int32_t>& x)
{
    ASSERT_EQ(x.size(), sketch.persons());
    EXPECT_EQ(*std::ranges::min_element(x), narrowMargin);
    for (const auto& [generation, row] : rowsFromLeft(sketch, x))
        for (std::size_t next = 1; next < row.size(); ++next)
            ASSERT_GE(x[row[next]] - x[row[next - 1]], pitch) << "row " << generation;
}

TEST(TidyOfRandomFamilies, NobodyOverlapsAndTheLeftmostStandsAtTheMargin)
{
    Random random(1);
    for (int round = 0; round < rounds; ++round) {
        SCOPED_TRACE(round);
        const Sketch sketch = randomTangle(random, pick(random, 1, 40));
        const auto x = order(sketch, narrowMargin);
        expectRoomForEverybody(sketch, x);
        ASSERT_EQ(order(sketch, narrowMargin), x) << "two runs differ";
    }
}

TEST(TidyOfRandomFamilies, CouplesAmongDescendantsAreNeighbours)
{
    Random random(2);
    for (int round = 0; round < rounds; ++round) {
        SCOPED_TRACE(round);
        const Sketch sketch = randomDescendants(random, static_cast<Generation>(pick(random, 1, 5)), 4);
        const auto x = order(sketch, narrowMargin);
        expectRoomForEverybody(sketch, x);
        for (PersonIndex person = 0; person < sketch.persons(); ++person)
            for (const PersonIndex partner : sketch.partners[person])
                ASSERT_EQ(std::abs(x[person] - x[partner]), pitch);
    }
}

TEST(TidyOfRandomFamilies, NobodyStandsBetweenSiblingsButTheirPartners)
{
    Random random(3);
    for (int round = 0; round < rounds; ++round) {
        SCOPED_TRACE(round);
        const Sketch sketch = randomDescendants(random, static_cast<Generation>(pick(random, 2, 5)), 4);
        for (const auto& [generation, row] : rowsFromLeft(sketch, order(sketch, narrowMargin))) {
            std::vector<PersonIndex> mothers;
            for (const PersonIndex person : row) {
                const PersonIndex heir = sketch.parents[person].empty() && !sketch.partners[person].empty()
                                             ? sketch.partners[person].front()
                                             : person;
                if (!sketch.parents[heir].empty())
                    mothers.push_back(sketch.parents[heir].front());
            }
            mothers.erase(std::unique(mothers.begin(), mothers.end()), mothers.end());
            ASSERT_EQ(std::set(mothers.begin(), mothers.end()).size(), mothers.size());
        }
    }
}

TEST(TidyOfRandomFamilies, LinesOfDescendantsDoNotCross)
{
    Random random(4);
    for (int round = 0; round < rounds; ++round) {
        SCOPED_TRACE(round);
        const Sketch sketch = randomDescendants(random, static_cast<Generation>(pick(random, 2, 5)), 4);
        const auto x = order(sketch, narrowMargin);
        for (const auto& [generation, row] : rowsFromLeft(sketch, x)) {
            std::int32_t last = 0;
            for (const PersonIndex person : row) {
                if (sketch.parents[person].empty())
                    continue;
                const std::int32_t parents = x[sketch.parents[person][0]] + x[sketch.parents[person][1]];
                ASSERT_GE(parents, last);
                last = parents;
            }
        }
    }
}

TEST(TidyOfRandomFamilies, UnconnectedFamiliesAreNotInterleaved)
{
    Random random(5);
    for (int round = 0; round < rounds; ++round) {
        SCOPED_TRACE(round);
        const Sketch one = randomDescendants(random, 4, 3);
        const Sketch both = together(one, randomDescendants(random, 4, 3));
        const auto x = order(both, narrowMargin);
        expectRoomForEverybody(both, x);
        for (const auto& [generation, row] : rowsFromLeft(both, x)) {
            int changes = 0;
            for (std::size_t next = 1; next < row.size(); ++next)
                changes += (row[next - 1] < one.persons()) != (row[next] < one.persons());
            ASSERT_LE(changes, 1) << "row " << generation;
        }
    }
}

class DegenerateFamily : public testing::Test
{
protected:
    static void expectOrdered(const Sketch& sketch) { expectRoomForEverybody(sketch, order(sketch, narrowMargin)); }
};

TEST_F(DegenerateFamily, LineOfTwoHundredThousandStandsStraight)
{
    constexpr Generation length = 200'000;
    Sketch sketch;
    PersonIndex youngest = sketch.person(length);
    for (Generation row = length - 1; row > 0; --row) {
        const PersonIndex child = sketch.person(row);
        sketch.bear(child, {youngest});
        youngest = child;
    }
    EXPECT_EQ(order(sketch, narrowMargin), std::vector<std::int32_t>(length, narrowMargin));
}

TEST_F(DegenerateFamily, ParentStandsAboveTheMiddleOfFiveThousandChildren)
{
    Sketch sketch;
    const PersonIndex parent = sketch.person(2);
    for (int child = 0; child < 5'000; ++child)
        sketch.bear(sketch.person(1), {parent});
    const auto x = order(sketch, narrowMargin);
    EXPECT_EQ(x[parent], narrowMargin + 4'999 * pitch / 2);
    EXPECT_EQ(*std::ranges::max_element(x), narrowMargin + 4'999 * pitch);
}

TEST_F(DegenerateFamily, FiveThousandPartnersFindRoom)
{
    Sketch sketch;
    const PersonIndex person = sketch.person(1);
    for (int partner = 0; partner < 5'000; ++partner)
        sketch.marry(person, sketch.person(1));
    expectOrdered(sketch);
}

TEST_F(DegenerateFamily, ChainOfPartnersStandsInItsOrder)
{
    Sketch sketch;
    for (PersonIndex person = 0; person < 100'000; ++person) {
        sketch.person(1);
        if (person > 0)
            sketch.marry(person - 1, person);
    }
    auto x = order(sketch, narrowMargin);
    for (std::size_t person = 1; person < x.size(); ++person)
        ASSERT_EQ(std::abs(x[person] - x[person - 1]), pitch);
}

TEST_F(DegenerateFamily, LatticeOfCousinMarriagesFindsRoom)
{
    constexpr Generation generations = 60;
    Sketch sketch;
    for (Generation row = generations; row > 0; --row) {
        const PersonIndex one = sketch.person(row);
        const PersonIndex other = sketch.person(row);
        sketch.marry(one, other);
        if (row < generations) {
            sketch.bear(one, {one - 2, one - 1});
            sketch.bear(other, {one - 2, one - 1});
        }
    }
    const auto x = order(sketch, narrowMargin);
    EXPECT_EQ(*std::ranges::max_element(x), narrowMargin + pitch);
}

// Drawn row by row, the lines from the ancestor of all would have pieces without number.
TEST_F(DegenerateFamily, ParentOfEveryGenerationOfALongLineFindsRoom)
{
    constexpr Generation length = 20'000;
    Sketch sketch;
    const PersonIndex ancestor = sketch.person(length + 1);
    PersonIndex last = ancestor;
    for (Generation row = length; row > 0; --row) {
        const PersonIndex child = sketch.person(row);
        sketch.bear(child, {ancestor, last});
        last = child;
    }
    expectOrdered(sketch);
}

TEST_F(DegenerateFamily, RowsFarApartFindRoom)
{
    Sketch sketch;
    const PersonIndex parent = sketch.person(2'000'000'000);
    sketch.bear(sketch.person(1), {parent});
    expectOrdered(sketch);
}

TEST_F(DegenerateFamily, ManyThousandPersonsFindRoom)
{
    Random random(6);
    expectOrdered(largeFamily(random, 25, manyFamilies));
}

} // namespace
} // namespace lineara::layout
