#include "sibling_order.h"

#include "crossings.h"
#include "family_sketch.h"
#include "family_walk.h"
#include "layout/tidy.h"
#include "order.h"
#include "whole_chart.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>

namespace lineara::layout {
namespace {

using namespace sketch;

using Years = std::vector<std::int32_t>;

#ifdef LINEARA_SANITIZED
constexpr int familiesWithYears = 100;
#else
constexpr int familiesWithYears = 1000;
#endif

std::vector<std::int32_t> tidiedByYear(const Sketch& sketch, const Years& years)
{
    const FamilyGraph graph = sketch.graph();
    TidyTask task{graph, sketch.generations()};
    task.birthYears = years;
    task.pitch = pitch;
    task.margin = margin;
    return tidy(task).value();
}

/// Some know no year.
Years randomYears(Random& random, const Sketch& sketch)
{
    Years years;
    for (PersonIndex person = 0; person < sketch.persons(); ++person)
        years.push_back(pick(random, 0, 4) == 0 ? unknownBirthYear
                                                : static_cast<std::int32_t>(1900 + pick(random, 0, 30)));
    return years;
}

/// Neighbours among the children of one couple in one row of whom the right one is older.
int wronglyOrdered(const Sketch& sketch, const Years& years, const std::vector<std::int32_t>& x)
{
    std::map<std::pair<std::vector<PersonIndex>, Generation>, std::vector<PersonIndex>> sibships;
    for (PersonIndex person = 0; person < sketch.persons(); ++person)
        if (!sketch.parents[person].empty() && years[person] != unknownBirthYear)
            sibships[{sketch.parents[person], sketch.generations()[person]}].push_back(person);
    int wrong = 0;
    for (auto& [couple, siblings] : sibships) {
        std::ranges::sort(siblings, {}, [&](PersonIndex sibling) { return x[sibling]; });
        for (std::size_t next = 1; next < siblings.size(); ++next)
            wrong += years[siblings[next]] < years[siblings[next - 1]] ? 1 : 0;
    }
    return wrong;
}

TEST(SiblingOrder, CountsWhereAnElderOneFollowsAYoungerOne)
{
    Random random(64);
    for (int round = 0; round < 100; ++round) {
        SCOPED_TRACE(round);
        const Sketch sketch = randomDescendants(random, 4, 5);
        const Years years = randomYears(random, sketch);
        // By nobody's years.
        const auto x = tidiedByYear(sketch, Years(sketch.persons(), unknownBirthYear));
        const std::vector<double> places(x.begin(), x.end());
        const FamilyGraph graph = sketch.graph();
        const Chart chart = wholeChart(graph, sketch.generations(), years);
        EXPECT_EQ(stepsBackOf(chart, orderAt(chart, places)), wronglyOrdered(sketch, years, x));
    }
}

TEST(SiblingOrder, ChildrenOfOneCoupleStandByTheirYears)
{
    Sketch sketch;
    const PersonIndex father = sketch.person(2);
    const PersonIndex mother = sketch.person(2);
    sketch.marry(father, mother);
    for (int child = 0; child < 4; ++child)
        sketch.bear(sketch.person(1), {father, mother});
    const auto x = tidiedByYear(sketch, {1950, 1950, 1982, 1980, 1984, 1979});
    EXPECT_LT(x[5], x[3]);
    EXPECT_LT(x[3], x[2]);
    EXPECT_LT(x[2], x[4]);
}

TEST(SiblingOrder, ChildrenBringTheirOwnFamiliesAlong)
{
    Sketch sketch;
    const PersonIndex parent = sketch.person(3);
    for (int child = 0; child < 3; ++child) {
        const PersonIndex heir = sketch.person(2);
        const PersonIndex spouse = sketch.person(2);
        sketch.bear(heir, {parent});
        sketch.marry(heir, spouse);
        sketch.bear(sketch.person(1), {heir, spouse});
    }
    constexpr auto unknown = unknownBirthYear;
    const auto x =
        tidiedByYear(sketch, {unknown, 1930, unknown, unknown, 1920, unknown, unknown, 1910, unknown, unknown});
    EXPECT_LT(x[7], x[4]);
    EXPECT_LT(x[4], x[1]);
    EXPECT_LT(x[9], x[6]);
    EXPECT_LT(x[6], x[3]);
}

TEST(SiblingOrder, WhoseYearIsNotKnownKeepsItsPlaceAmongTheOthers)
{
    Sketch sketch;
    const PersonIndex parent = sketch.person(2);
    for (int child = 0; child < 3; ++child)
        sketch.bear(sketch.person(1), {parent});
    const FamilyGraph graph = sketch.graph();
    const Years years{unknownBirthYear, 1982, unknownBirthYear, 1980};
    const Chart chart = wholeChart(graph, sketch.generations(), years);
    const FamilyTree tree = spanFrom(chart, 0);
    Arrangement arrangement = walkOrder(chart, tree);
    arrangement.left = {1, 0, 1, 2};
    std::ranges::copy(std::vector<BlockIndex>{1, 2, 3}, arrangement.rows[1].begin());
    EXPECT_TRUE(sortSiblings(chart, tree, arrangement, 0));
    EXPECT_EQ(arrangement.left, (std::vector<double>{1, 2, 1, 0}));
}

TEST(SiblingOrder, AllSibshipsOfDescendantsAreInOrder)
{
    Random random(61);
    for (int round = 0; round < familiesWithYears; ++round) {
        SCOPED_TRACE(round);
        const Sketch sketch = randomDescendants(random, static_cast<Generation>(pick(random, 2, 5)), 5);
        const Years years = randomYears(random, sketch);
        ASSERT_EQ(wronglyOrdered(sketch, years, tidiedByYear(sketch, years)), 0);
    }
}

TEST(SiblingOrder, AllSibshipsAreInOrderInFamiliesBesideEachOther)
{
    Random random(62);
    for (int round = 0; round < familiesWithYears / 4; ++round) {
        SCOPED_TRACE(round);
        const Sketch sketch = together(randomDescendants(random, 4, 4),
                                       together(randomDescendants(random, 3, 4), randomDescendants(random, 3, 4)));
        const Years years = randomYears(random, sketch);
        ASSERT_EQ(wronglyOrdered(sketch, years, tidiedByYear(sketch, years)), 0);
    }
}

TEST(SiblingOrder, NeverAddsMoreCrossingsThanAllowed)
{
    Random random(63);
    int moved = 0;
    for (int round = 0; round < familiesWithYears; ++round) {
        SCOPED_TRACE(round);
        const Sketch sketch = pick(random, 0, 1) == 0 ? largeFamily(random, 5, 2 * pick(random, 3, 12))
                                                      : randomTangle(random, pick(random, 5, 60));
        const Years years = randomYears(random, sketch);
        const FamilyGraph graph = sketch.graph();
        const Chart chart = wholeChart(graph, sketch.generations(), years);
        const FamilyTree tree = spanFrom(chart, 0);
        Arrangement arrangement = walkOrder(chart, tree);
        const std::uint64_t before = countCrossings(chart, arrangement);
        const std::uint64_t allowed = pick(random, 0, 4);
        moved += sortSiblings(chart, tree, arrangement, allowed) ? 1 : 0;
        ASSERT_LE(countCrossings(chart, arrangement), before + allowed);
        for (std::uint32_t row = 0; row < chart.rows; ++row)
            for (std::size_t at = 1; at < arrangement.rows[row].size(); ++at) {
                const BlockIndex left = arrangement.rows[row][at - 1];
                ASSERT_GE(arrangement.left[arrangement.rows[row][at]] - arrangement.left[left],
                          chart.width(left) - 1e-9);
            }
    }
    EXPECT_GT(moved, familiesWithYears / 10);
}

} // namespace
} // namespace lineara::layout
