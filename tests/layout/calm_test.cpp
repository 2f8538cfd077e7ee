#include "family_sketch.h"

#include "layout/row_solver.h"
#include "layout/tidy.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <map>
#include <optional>
#include <vector>

namespace lineara::layout {
namespace {

using namespace sketch;

using Places = std::vector<std::int32_t>;

constexpr std::int32_t besides = 21;
#ifdef LINEARA_SANITIZED
constexpr int additions = 20;
constexpr int selections = 10;
#else
constexpr int additions = 200;
constexpr int selections = 100;
#endif

std::map<Generation, std::vector<PersonIndex>> rowsFromTheLeft(const Sketch& sketch, const Places& x)
{
    std::map<Generation, std::vector<PersonIndex>> rows;
    for (PersonIndex person = 0; person < sketch.persons(); ++person)
        rows[sketch.generations()[person]].push_back(person);
    for (auto& [generation, row] : rows)
        std::ranges::sort(row, {}, [&](PersonIndex person) { return x[person]; });
    return rows;
}

/// Brings the rows to their gaps as the canvas does, the last person being the newcomer.
Places spaced(const Sketch& sketch, Places x)
{
    for (const auto& [generation, row] : rowsFromTheLeft(sketch, x)) {
        std::vector<RowNode> nodes;
        for (const PersonIndex person : row)
            nodes.push_back({x[person], pitch - rowGap, person + 1 != sketch.persons()});
        const auto solved = solveRow(nodes);
        for (std::size_t at = 0; at < row.size(); ++at)
            x[row[at]] = static_cast<std::int32_t>(solved[at]);
    }
    return x;
}

std::optional<Places> tidiedAgain(const Sketch& sketch, const Places& present)
{
    const FamilyGraph graph = sketch.graph();
    TidyTask task{graph, sketch.generations()};
    task.present = present;
    return tidy(task);
}

/// One more person: a child, a partner or a parent of somebody.
Sketch withNewcomer(Random& random, Sketch sketch, PersonIndex& relative)
{
    relative = pick(random, 0, static_cast<std::uint32_t>(sketch.persons()) - 1);
    const Generation generation = sketch.generations()[relative];
    const std::uint32_t kind = pick(random, 0, 2);
    if (kind == 0 && generation > 1)
        sketch.bear(sketch.person(generation - 1), {relative});
    else if (kind == 1 && sketch.parents[relative].size() < 2)
        sketch.bear(relative, {sketch.person(generation + 1)});
    else
        sketch.marry(relative, sketch.person(generation));
    return sketch;
}

std::size_t inAnotherPlace(const Places& before, const Places& after)
{
    std::size_t moved = 0;
    for (std::size_t person = 0; person < before.size(); ++person)
        moved += before[person] != after[person] ? 1U : 0U;
    return moved;
}

TEST(CalmArrangement, AdditionsMoveFewOthers)
{
    Random random(31);
    const Sketch family = largeFamily(random, 12, 100);
    const Places x = order(family);
    std::vector<std::size_t> moved;
    for (int addition = 0; addition < additions; ++addition) {
        PersonIndex relative = 0;
        const Sketch grown = withNewcomer(random, family, relative);
        Places places = x;
        places.push_back(x[relative] + besides);
        moved.push_back(inAnotherPlace(x, spaced(grown, places)));
    }
    std::ranges::nth_element(moved, moved.begin() + additions / 2);
    // Rows are full, and half of one is the least that a newcomer in its middle can push aside.
    EXPECT_LE(moved[additions / 2], 50U);
}

TEST(CalmArrangement, TidyingAgainKeepsTheOrder)
{
    Random random(32);
    const Sketch family = largeFamily(random, 10, 40);
    const Places x = order(family);
    for (int addition = 0; addition < 10; ++addition) {
        PersonIndex relative = 0;
        const Sketch grown = withNewcomer(random, family, relative);
        Places places = x;
        places.push_back(x[relative] + besides);
        places = spaced(grown, places);
        const auto again = tidiedAgain(grown, places);
        ASSERT_TRUE(again.has_value());
        const auto before = rowsFromTheLeft(grown, places);
        const auto after = rowsFromTheLeft(grown, *again);
        std::size_t kept = 0;
        for (const auto& [generation, row] : before)
            for (std::size_t at = 0; at < row.size(); ++at)
                kept += row[at] == after.at(generation)[at] ? 1U : 0U;
        EXPECT_GE(static_cast<double>(kept), 0.95 * static_cast<double>(grown.persons()));
    }
}

TEST(CalmArrangement, StopsWhenNotToGoOn)
{
    Random random(33);
    const Sketch family = largeFamily(random, 10, 40);
    const FamilyGraph graph = family.graph();
    EXPECT_FALSE(tidy({graph, family.generations()}, [](double) { return false; }).has_value());
}

TEST(TidySelection, NobodyElseMovesWhereThereIsRoom)
{
    Random random(34);
    for (int round = 0; round < selections; ++round) {
        SCOPED_TRACE(round);
        const Sketch family = largeFamily(random, 6, 20);
        const FamilyGraph graph = family.graph();
        const Places x = order(family);
        std::vector<PersonIndex> selected;
        for (PersonIndex person = 0; person < family.persons(); ++person)
            if (pick(random, 0, 3) == 0)
                selected.push_back(person);
        TidyTask task{graph, family.generations()};
        task.present = x;
        task.margin = margin;
        const auto places = tidySelection(task, selected);
        ASSERT_TRUE(places.has_value());
        for (PersonIndex person = 0; person < family.persons(); ++person)
            if (std::ranges::count(selected, person) == 0) {
                ASSERT_EQ((*places)[person], x[person]);
            }
        for (const auto& [generation, row] : rowsFromTheLeft(family, *places))
            for (std::size_t at = 1; at < row.size(); ++at)
                ASSERT_GE((*places)[row[at]] - (*places)[row[at - 1]], pitch);
    }
}

TEST(TidySelection, OthersMoveApartInTheirOrderWhereThereIsNone)
{
    Sketch sketch;
    for (int person = 0; person < 4; ++person)
        sketch.person(1);
    sketch.marry(1, 3);
    const FamilyGraph graph = sketch.graph();
    // The couple stood on either side of somebody, without room for the two of them anywhere.
    const Places x{margin, margin + pitch, margin + 2 * pitch, margin + 3 * pitch};
    TidyTask task{graph, sketch.generations()};
    task.present = x;
    task.margin = margin;
    const std::vector<PersonIndex> selected{1, 3};
    const auto places = tidySelection(task, selected);
    ASSERT_TRUE(places.has_value());
    EXPECT_EQ(std::abs((*places)[1] - (*places)[3]), pitch);
    EXPECT_LE((*places)[0] + pitch, (*places)[2]);
    for (const auto& [generation, row] : rowsFromTheLeft(sketch, *places))
        for (std::size_t at = 1; at < row.size(); ++at)
            EXPECT_GE((*places)[row[at]] - (*places)[row[at - 1]], pitch);
}

} // namespace
} // namespace lineara::layout
