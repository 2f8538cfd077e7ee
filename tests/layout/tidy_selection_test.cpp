// Tidying up some persons between all others.

#include "family_sketch.h"

#include "layout/row_solver.h"
#include "layout/tidy.h"
#include "literal_selection.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <map>
#include <numeric>
#include <vector>

namespace lineara::layout {
namespace {

using namespace sketch;

using LeftEdges = std::vector<std::int32_t>;

#ifdef LINEARA_SANITIZED
constexpr int selections = 10;
constexpr int sharedRows = 500;
#else
constexpr int selections = 100;
constexpr int sharedRows = 20'000;
#endif

std::map<Generation, std::vector<PersonIndex>> rowsFromTheLeft(const Sketch& sketch, const LeftEdges& x)
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
        const LeftEdges x = order(family);
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

std::vector<PersonIndex> withPartners(const Sketch& sketch, std::vector<PersonIndex> persons, PersonIndex without)
{
    const std::size_t descendants = persons.size();
    for (std::size_t at = 0; at < descendants; ++at)
        for (const PersonIndex partner : sketch.partners[persons[at]])
            if (partner != without && std::ranges::count(persons, partner) == 0)
                persons.push_back(partner);
    return persons;
}

TEST(TidySelection, NobodyMovesInAFamilyThatIsTidy)
{
    Random random(41);
    for (int round = 0; round < selections; ++round) {
        SCOPED_TRACE(round);
        const Sketch family = randomDescendants(random, 5, 4);
        const FamilyGraph graph = family.graph();
        const LeftEdges x = order(family);
        TidyTask task{graph, family.generations()};
        task.present = x;
        task.margin = margin;
        const PersonIndex person = pick(random, 0, static_cast<std::uint32_t>(family.persons() - 1));
        EXPECT_EQ(tidySelection(task, withPartners(family, lineOf(family.children, person), person)), x);
        EXPECT_EQ(tidySelection(task, lineOf(family.parents, person)), x);
    }
}

TEST(TidySelection, AChildStandsWhereBothItsParentsWantIt)
{
    Sketch sketch;
    const PersonIndex father = sketch.person(2);
    const PersonIndex mother = sketch.person(2);
    const PersonIndex elder = sketch.person(1);
    const PersonIndex younger = sketch.person(1);
    sketch.bear(younger, {mother, father});
    sketch.bear(elder, {father});
    const std::vector<std::int32_t> years{1800, 1800, 1833, 1900};
    const FamilyGraph graph = sketch.graph();
    TidyTask task{graph, sketch.generations()};
    task.birthYears = years;
    task.margin = margin;
    const LeftEdges x = tidy(task).value();
    task.present = x;
    EXPECT_EQ(tidySelection(task, std::vector<PersonIndex>{father, elder}), x);
}

TEST(TidySelection, ChildrenWhoWentAstrayComeBackBeneathTheirParents)
{
    Sketch sketch;
    const PersonIndex father = sketch.person(2);
    const PersonIndex mother = sketch.person(2);
    sketch.marry(father, mother);
    std::vector<PersonIndex> children;
    for (int child = 0; child < 4; ++child) {
        children.push_back(sketch.person(1));
        sketch.bear(children.back(), {father, mother});
    }
    const FamilyGraph graph = sketch.graph();
    const LeftEdges x{3'000, 3'000 + pitch, margin, 9'000, margin + pitch, 7'000};
    TidyTask task{graph, sketch.generations()};
    task.present = x;
    task.margin = margin;
    const std::vector<std::int32_t> years{1900, 1900, 1930, 1932, 1934, 1936};
    task.birthYears = years;
    const LeftEdges places = tidySelection(task, children).value();
    const std::int32_t first = 3'000 - pitch;
    EXPECT_EQ(places, (LeftEdges{3'000, 3'000 + pitch, first, first + pitch, first + 2 * pitch, first + 3 * pitch}));
}

TEST(TidySelection, OthersMoveApartInTheirOrderWhereThereIsNone)
{
    Sketch sketch;
    for (int person = 0; person < 4; ++person)
        sketch.person(1);
    sketch.marry(1, 3);
    const FamilyGraph graph = sketch.graph();
    // The couple stood on either side of somebody, without room for the two of them anywhere.
    const LeftEdges x{margin, margin + pitch, margin + 2 * pitch, margin + 3 * pitch};
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

/// Persons in one row, their nodes 100 wide and as near as these let them stand.
struct NarrowRow
{
    explicit NarrowRow(int persons) : widths(static_cast<std::size_t>(persons), 100)
    {
        for (int person = 0; person < persons; ++person) {
            sketch.person(1);
            x.push_back(margin + 110 * person);
        }
    }

    LeftEdges tidied(const std::vector<PersonIndex>& selected) const
    {
        const FamilyGraph graph = sketch.graph();
        TidyTask task{graph, sketch.generations()};
        task.present = x;
        task.widths = widths;
        task.margin = margin;
        return tidySelection(task, selected).value();
    }

    Sketch sketch;
    std::vector<std::int32_t> widths;
    LeftEdges x;
};

TEST(TidySelection, WhoStandsWellBetweenNarrowNodesStays)
{
    NarrowRow row(5);
    row.sketch.marry(1, 2);
    EXPECT_EQ(row.tidied({1, 2}), row.x);
    EXPECT_EQ(row.tidied({1}), row.x);
    EXPECT_EQ(row.tidied({3}), row.x);
    EXPECT_EQ(row.tidied({0, 1, 2, 3, 4}), row.x);
}

TEST(TidySelection, CouplesComeTogetherWhereTheirNodesJustFit)
{
    NarrowRow row(5);
    row.widths = {60, 142, 142, 142, 60};
    row.x = {253, 405, 767, 919, 1'071};
    row.sketch.marry(0, 4);
    const LeftEdges places = row.tidied({0, 4});
    EXPECT_TRUE(std::equal(row.x.begin() + 1, row.x.end() - 1, places.begin() + 1));
    EXPECT_LE(std::abs(places[0] - places[4]), pitch);
    EXPECT_GE(std::abs(places[0] - places[4]), 70);
}

TEST(TidySelection, WhoStandsBetweenTwoPartnersStays)
{
    NarrowRow row(3);
    row.widths = {60, 60, 60};
    row.x = {253, 323, 393};
    row.sketch.marry(0, 2);
    EXPECT_EQ(row.tidied({0, 1, 2}), row.x);
    EXPECT_EQ(row.tidied({0, 2}), row.x);
    row.sketch.marry(1, 2);
    EXPECT_EQ(row.tidied({0, 1, 2}), row.x);
}

TEST(TidySelection, ChildrenStandBeneathTheMiddleOfParentsWhoStandNearEachOther)
{
    Sketch sketch;
    const PersonIndex father = sketch.person(2);
    const PersonIndex mother = sketch.person(2);
    sketch.marry(father, mother);
    const PersonIndex elder = sketch.person(1);
    const PersonIndex younger = sketch.person(1);
    sketch.bear(elder, {father, mother});
    sketch.bear(younger, {father, mother});
    const FamilyGraph graph = sketch.graph();
    const std::vector<std::int32_t> years{1800, 1800, 1830, 1833};
    const std::vector<std::int32_t> widths(4, 92);
    const LeftEdges x{3'000, 3'102, 9'000, margin};
    TidyTask task{graph, sketch.generations()};
    task.birthYears = years;
    task.present = x;
    task.widths = widths;
    task.margin = margin;
    const std::int32_t first = 3'051 - pitch / 2;
    EXPECT_EQ(tidySelection(task, std::vector<PersonIndex>{elder, younger}),
              (LeftEdges{3'000, 3'102, first, first + pitch}));
}

TEST(TidySelection, OthersStayWhereMakingRoomIsNoneOfTheirBusiness)
{
    // A couple among wide nodes goes to the right of all, and the narrow ones far from it stay.
    NarrowRow row(8);
    row.x = {margin, margin + 110, margin + 220, margin + 372, margin + 524, margin + 676, margin + 372, margin + 524};
    std::fill(row.widths.begin() + 2, row.widths.end(), 142);
    row.sketch.marry(6, 7);
    const LeftEdges places = row.tidied({6, 7});
    EXPECT_TRUE(std::equal(row.x.begin(), row.x.begin() + 6, places.begin()));
    EXPECT_EQ(places[7], places[6] + pitch);
    EXPECT_EQ(places[6], row.x[5] + pitch);
}

TEST(TidySelection, TellsHowFarItIsAndStopsAtAnyMoment)
{
    Random random(37);
    const Sketch family = largeFamily(random, 4, 200);
    const FamilyGraph graph = family.graph();
    LeftEdges x = order(family);
    // Somebody of each row stands at the other end, so that nobody's wish is granted without a search for room.
    for (auto& [generation, row] : rowsFromTheLeft(family, x))
        std::swap(x[row.front()], x[row[row.size() - 2]]);
    std::vector<PersonIndex> selected;
    for (PersonIndex person = 0; person < family.persons(); person += 2)
        selected.push_back(person);
    TidyTask task{graph, family.generations()};
    task.present = x;
    task.margin = margin;
    std::vector<double> told;
    ASSERT_TRUE(tidySelection(task, selected, [&](double share) {
        told.push_back(share);
        return true;
    }));
    EXPECT_TRUE(std::ranges::is_sorted(told));
    EXPECT_EQ(told.back(), 1);
    EXPECT_GT(std::ranges::count_if(told, [](double share) { return share > 0.6 && share < 0.9; }), 5);
    for (std::size_t stop = 0; stop < told.size(); ++stop) {
        std::size_t calls = 0;
        EXPECT_FALSE(tidySelection(task, selected, [&](double) { return ++calls <= stop; })) << stop;
        EXPECT_EQ(calls, stop + 1);
        stop += told.size() / 40;
    }
}

/// One row of couples and singles who stand anywhere, some of whom are tidied up.
struct SharedRowTrial
{
    static constexpr std::int32_t narrowPitch = 15;

    explicit SharedRowTrial(Random& random)
    {
        const std::uint32_t persons = pick(random, 1, 8);
        before.resize(persons);
        std::vector<PersonIndex> fromTheLeft;
        for (std::uint32_t person = 0; person < persons; ++person) {
            fromTheLeft.push_back(sketch.person(1));
            widths.push_back(static_cast<std::int32_t>(pick(random, 0, narrowPitch - rowGap)));
        }
        std::ranges::shuffle(fromTheLeft, random);
        std::int32_t left = margin;
        for (const PersonIndex person : fromTheLeft) {
            before[person] = left;
            left += stepBehind(person) + static_cast<std::int32_t>(pick(random, 0, 2) == 0 ? pick(random, 1, 30) : 0);
        }
        for (PersonIndex person = 0; person < persons; ++person)
            if (pick(random, 0, 1) == 0)
                selected.push_back(person);
        for (std::size_t at = 1; at < selected.size(); at += 2)
            if (pick(random, 0, 1) == 0)
                sketch.marry(selected[at - 1], selected[at]);
        const FamilyGraph graph = sketch.graph();
        TidyTask task{graph, sketch.generations()};
        task.present = before;
        task.pitch = narrowPitch;
        task.widths = widths;
        task.margin = margin;
        after = tidySelection(task, selected).value();
    }

    std::int32_t stepBehind(PersonIndex person) const { return widths[person] + rowGap; }
    bool isSelected(PersonIndex person) const { return std::ranges::count(selected, person) > 0; }

    /// The row as the literal one sees it; those not selected have to have kept their order.
    LiteralSelection literal() const
    {
        LiteralSelection row;
        row.pitch = narrowPitch;
        row.leftmost = margin;
        row.rightmost = *std::ranges::max_element(before);
        std::vector<PersonIndex> persons(sketch.persons());
        std::iota(persons.begin(), persons.end(), PersonIndex{0});
        std::ranges::sort(persons, {}, [&](PersonIndex person) { return after[person]; });
        PersonIndex last = 0;
        for (const PersonIndex person : persons) {
            const bool joins = !row.groups.empty() && row.groups.back().gap == row.before.size() &&
                               std::ranges::count(sketch.partners[person], last) > 0;
            if (!isSelected(person)) {
                row.before.push_back(before[person]);
                row.after.push_back(after[person]);
                row.steps.push_back(stepBehind(person));
            } else if (joins) {
                EXPECT_LE(after[person] - after[last], narrowPitch);
                // Who stays does so as far from a partner as before; others may come as near as the nodes let them.
                const bool stay = after[person] - after[last] == before[person] - before[last];
                row.groups.back().width +=
                    (stay ? after[person] - after[last] - stepBehind(last) : 0) + stepBehind(person);
            } else {
                row.groups.push_back({row.before.size(), stepBehind(person)});
            }
            last = person;
        }
        return row;
    }

    /// Whether nobody stands nearer to another than the nodes let them.
    bool isApart() const
    {
        std::vector<PersonIndex> row(sketch.persons());
        std::iota(row.begin(), row.end(), PersonIndex{0});
        std::ranges::sort(row, {}, [&](PersonIndex person) { return after[person]; });
        return std::ranges::adjacent_find(row, [&](PersonIndex left, PersonIndex right) {
                   return after[right] - after[left] < stepBehind(left);
               }) == row.end();
    }

    Sketch sketch;
    LeftEdges before;
    LeftEdges after;
    std::vector<std::int32_t> widths;
    std::vector<PersonIndex> selected;
};

TEST(TidySelection, MovesOthersOnlyWithoutRoomAndThenByTheLeastTotal)
{
    Random random(35);
    int withoutRoom = 0;
    for (int round = 0; round < sharedRows; ++round) {
        SCOPED_TRACE(round);
        const SharedRowTrial trial(random);
        const LiteralSelection row = trial.literal();
        ASSERT_TRUE(std::ranges::is_sorted(row.before));
        for (std::size_t at = 1; at < row.after.size(); ++at)
            ASSERT_GE(row.after[at] - row.after[at - 1], row.steps[at - 1]);
        ASSERT_EQ(row.lack(), row.leastLack());
        ASSERT_EQ(row.moved(), row.leastMoved());
        ASSERT_TRUE(row.moved() == 0 || row.leastLack() > 0);
        withoutRoom += row.leastLack() > 0 ? 1 : 0;
        ASSERT_TRUE(trial.isApart());
    }
    EXPECT_GT(withoutRoom, sharedRows / 100);
}

} // namespace
} // namespace lineara::layout
