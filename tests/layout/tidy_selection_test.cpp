// Tidying up some persons between all others.

#include "family_sketch.h"

#include "layout/tidy.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <map>
#include <vector>

namespace lineara::layout {
namespace {

using namespace sketch;

using Places = std::vector<std::int32_t>;

#ifdef LINEARA_SANITIZED
constexpr int selections = 10;
#else
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
