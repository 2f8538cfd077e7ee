#include "family_sketch.h"

#include "layout/row_solver.h"
#include "layout/tidy.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>

namespace lineara::layout {
namespace {

using namespace sketch;

using Edges = std::vector<std::int32_t>;

#ifdef LINEARA_SANITIZED
constexpr int tidiedTwice = 30;
constexpr int additions = 3;
#else
constexpr int tidiedTwice = 200;
constexpr int additions = 10;
#endif

Edges tidiedFrom(const Sketch& sketch, const Edges& years, const Edges& present)
{
    const FamilyGraph graph = sketch.graph();
    TidyTask task{graph, sketch.generations()};
    task.birthYears = years;
    task.present = present;
    task.pitch = pitch;
    task.margin = margin;
    return tidy(task).value();
}

Edges someYears(Random& random, std::size_t persons)
{
    Edges years;
    while (years.size() < persons)
        years.push_back(pick(random, 0, 2) == 0 ? unknownBirthYear : static_cast<std::int32_t>(pick(random, 1, 60)));
    return years;
}

Sketch anyFamily(Random& random)
{
    switch (pick(random, 0, 3)) {
    case 0:
        return randomTangle(random, pick(random, 2, 60));
    case 1:
        return largeFamily(random, pick(random, 3, 8), 2 * pick(random, 4, 30));
    case 2:
        return together(randomDescendants(random, 4, 4),
                        together(randomDescendants(random, 3, 4), randomTangle(random, 20)));
    default:
        return randomDescendants(random, 5, 4);
    }
}

/// One more person, placed beside a relative and given room as in the window.
Edges withOneMore(Random& random, Sketch& sketch, const Edges& x)
{
    const PersonIndex relative = pick(random, 0, static_cast<std::uint32_t>(sketch.persons()) - 1);
    const Generation generation = sketch.generations()[relative];
    const std::uint32_t kind = pick(random, 0, 2);
    if (kind == 0 && generation > 1)
        sketch.bear(sketch.person(generation - 1), {relative});
    else if (kind == 1 && sketch.parents[relative].size() < 2)
        sketch.bear(relative, {sketch.person(generation + 1)});
    else
        sketch.marry(relative, sketch.person(generation));
    Edges edges = x;
    edges.push_back(x[relative] + 21);
    std::map<Generation, std::vector<PersonIndex>> rows;
    for (PersonIndex person = 0; person < sketch.persons(); ++person)
        rows[std::max(sketch.generations()[person], 0)].push_back(person);
    for (auto& [generationOfRow, row] : rows) {
        std::ranges::sort(row, {}, [&](PersonIndex person) { return edges[person]; });
        std::vector<RowNode> nodes;
        for (const PersonIndex person : row)
            nodes.push_back({edges[person], pitch - rowGap, person + 1 != sketch.persons()});
        const auto solved = solveRow(nodes);
        for (std::size_t at = 0; at < row.size(); ++at)
            edges[row[at]] = static_cast<std::int32_t>(solved[at]);
    }
    return edges;
}

TEST(TidyAgain, NobodyMovesInATidyFamily)
{
    Random random(71);
    for (int round = 0; round < tidiedTwice; ++round) {
        SCOPED_TRACE(round);
        const Sketch sketch = anyFamily(random);
        const Edges years = pick(random, 0, 2) == 0 ? Edges{} : someYears(random, sketch.persons());
        const Edges x = tidiedFrom(sketch, years, {});
        ASSERT_EQ(tidiedFrom(sketch, years, x), x);
    }
}

TEST(TidyAgain, NobodyMovesTheSecondTimeAfterAnAddition)
{
    Random random(72);
    for (int round = 0; round < tidiedTwice; ++round) {
        SCOPED_TRACE(round);
        Sketch sketch = anyFamily(random);
        Edges years = someYears(random, sketch.persons());
        const Edges x = tidiedFrom(sketch, years, {});
        years.push_back(pick(random, 0, 1) == 0 ? unknownBirthYear : 30);
        const Edges grown = withOneMore(random, sketch, x);
        const Edges again = tidiedFrom(sketch, years, grown);
        ASSERT_EQ(tidiedFrom(sketch, years, again), again);
    }
}

TEST(TidyAgain, NobodyMovesTheSecondTimeAfterAMess)
{
    Random random(75);
    for (int round = 0; round < 10 * tidiedTwice; ++round) {
        SCOPED_TRACE(round);
        const Sketch sketch = randomTangle(random, pick(random, 3, 30));
        const Edges years = someYears(random, sketch.persons());
        Edges mess;
        while (mess.size() < sketch.persons())
            mess.push_back(margin + static_cast<std::int32_t>(pick(random, 0, 90 * 30)));
        const Edges once = tidiedFrom(sketch, years, mess);
        ASSERT_EQ(tidiedFrom(sketch, years, once), once);
    }
}

TEST(TidyAgain, WhoWasDraggedFarAwayComesBack)
{
    Random random(73);
    const Sketch sketch = randomDescendants(random, 5, 4);
    const Edges x = tidiedFrom(sketch, {}, {});
    Edges dragged = x;
    const auto rightmost = std::ranges::max_element(dragged);
    *rightmost += 50 * pitch;
    const Edges back = tidiedFrom(sketch, {}, dragged);
    EXPECT_EQ(back, x);
}

TEST(TidyAgain, AnAdditionLeavesNineteenOfTwentyNextToWhomTheyStood)
{
    Random random(74);
    const Sketch family = largeFamily(random, 12, 60);
    const Edges years = someYears(random, family.persons());
    const Edges x = tidiedFrom(family, years, {});
    for (int addition = 0; addition < additions; ++addition) {
        SCOPED_TRACE(addition);
        Sketch sketch = family;
        Edges yearsNow = years;
        yearsNow.push_back(unknownBirthYear);
        const Edges grown = withOneMore(random, sketch, x);
        const Edges again = tidiedFrom(sketch, yearsNow, grown);
        const auto leftNeighbours = [&](const Edges& edges) {
            std::map<std::pair<Generation, std::int32_t>, PersonIndex> row;
            for (PersonIndex person = 0; person + 1 < sketch.persons(); ++person)
                row[{sketch.generations()[person], edges[person]}] = person;
            std::vector<PersonIndex> left(sketch.persons(), ~PersonIndex{0});
            for (auto at = row.begin(); at != row.end(); ++at)
                if (at != row.begin() && std::prev(at)->first.first == at->first.first)
                    left[at->second] = std::prev(at)->second;
            return left;
        };
        const auto before = leftNeighbours(x);
        const auto after = leftNeighbours(again);
        std::size_t kept = 0;
        for (PersonIndex person = 0; person + 1 < sketch.persons(); ++person)
            kept += before[person] == after[person] ? 1U : 0U;
        EXPECT_GE(static_cast<double>(kept), 0.95 * static_cast<double>(family.persons()));
    }
}

} // namespace
} // namespace lineara::layout
