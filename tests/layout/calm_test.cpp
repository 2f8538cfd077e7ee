// What adding somebody to a real, tidy family does to everybody else.

#include "edited_family.h"

#include "layout/tidy.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <vector>

namespace lineara::layout {
namespace {

using namespace sketch;

// As many where every memory access is checked: of fewer, nine in ten say little.
constexpr std::size_t calmAdditions = 200;
#ifdef LINEARA_SANITIZED
constexpr int calmRetidyings = 1;
constexpr int tidiedLines = 2;
#else
constexpr int calmRetidyings = 4;
constexpr int tidiedLines = 10;
#endif

/// The royal family, which is tidied up once for all tests.
const EditedFamily& royalFamily()
{
    static const EditedFamily family = EditedFamily::imported("royal92.ged");
    return family;
}

/// Anybody of whom this holds.
template<class Condition>
PersonIndex pickAmong(Random& random, const EditedFamily& family, Condition isMeant)
{
    for (;;) {
        const PersonIndex person = pick(random, 0, static_cast<std::uint32_t>(family.persons()) - 1);
        if (isMeant(person))
            return person;
    }
}

/// A child of a couple, a partner of somebody who has none, or a parent of somebody who has none.
void addSomebody(Random& random, EditedFamily& family)
{
    const Sketch& links = family.links();
    const auto hasPartner = [&](PersonIndex person) { return !links.partners[person].empty(); };
    const std::uint32_t kind = pick(random, 0, 2);
    const bool isLeft = pick(random, 0, 1) == 0;
    if (kind == 0) {
        const PersonIndex first = pickAmong(random, family, hasPartner);
        const auto& partners = links.partners[first];
        family.addChild(first, partners[pick(random, 0, static_cast<std::uint32_t>(partners.size()) - 1)], isLeft);
    } else if (kind == 1) {
        family.addPartner(pickAmong(random, family, [&](PersonIndex person) { return !hasPartner(person); }), isLeft);
    } else {
        family.addParent(pickAmong(random, family, [&](PersonIndex person) { return links.parents[person].empty(); }),
                         isLeft);
    }
}

/// The share of those who were there before that is somewhere else now, after a shift that most have in common.
double shareMoved(const EditedFamily& before, const EditedFamily& after)
{
    std::map<std::int32_t, std::size_t> shifts;
    for (std::size_t person = 0; person < before.persons(); ++person)
        ++shifts[after.places()[person] - before.places()[person]];
    const auto bySize = [](const auto& one, const auto& other) { return one.second < other.second; };
    const std::size_t together = std::ranges::max_element(shifts, bySize)->second;
    return 1 - static_cast<double>(together) / static_cast<double>(before.persons());
}

/// Who stands left of each; who is leftmost has themselves there.
std::vector<PersonIndex> leftNeighbours(const EditedFamily& family)
{
    std::vector<PersonIndex> neighbours(family.persons());
    for (const auto& [generation, row] : family.rows())
        for (std::size_t at = 0; at < row.size(); ++at)
            neighbours[row[at]] = row[at > 0 ? at - 1 : 0];
    return neighbours;
}

double shareWithAnotherNeighbour(const EditedFamily& before, const EditedFamily& after)
{
    const auto then = leftNeighbours(before);
    const auto now = leftNeighbours(after);
    std::size_t others = 0;
    for (std::size_t person = 0; person < before.persons(); ++person)
        others += then[person] != now[person] ? 1U : 0U;
    return static_cast<double>(others) / static_cast<double>(before.persons());
}

TEST(CalmArrangement, AdditionsToARealFamilyMoveFewOthers)
{
    Random random(31);
    const EditedFamily& family = royalFamily();
    std::vector<double> moved;
    std::vector<double> withAnotherNeighbour;
    for (std::size_t addition = 0; addition < calmAdditions; ++addition) {
        EditedFamily grown = family;
        addSomebody(random, grown);
        moved.push_back(shareMoved(family, grown));
        withAnotherNeighbour.push_back(shareWithAnotherNeighbour(family, grown));
    }
    std::ranges::sort(moved);
    std::ranges::sort(withAnotherNeighbour);
    EXPECT_LE(moved[calmAdditions / 2], 0.01);
    EXPECT_LE(withAnotherNeighbour[calmAdditions / 2], 0.005);
    // Free places keep it so where rows are crowded, too.
    EXPECT_LE(moved[calmAdditions * 9 / 10], 0.01);
}

TEST(CalmArrangement, TidyingUpAgainRightAwayMovesNobody)
{
    EditedFamily again = royalFamily();
    again.tidyUp();
    EXPECT_EQ(again.places(), royalFamily().places());
}

TEST(CalmArrangement, TidyingUpTheLineOfSomebodyInATidyFamilyMovesNobody)
{
    Random random(33);
    const Sketch& links = royalFamily().links();
    for (int time = 0; time < tidiedLines; ++time)
        for (const auto* next : {&links.parents, &links.children}) {
            EditedFamily tidied = royalFamily();
            tidied.tidyUp(lineOf(*next, pick(random, 0, static_cast<std::uint32_t>(links.persons()) - 1)));
            EXPECT_EQ(tidied.places(), royalFamily().places());
        }
}

TEST(CalmArrangement, TidyingUpAgainAfterAdditionsKeepsTheOrder)
{
    Random random(32);
    EditedFamily family = royalFamily();
    for (int time = 0; time < calmRetidyings; ++time) {
        for (int addition = 0; addition < 10; ++addition)
            addSomebody(random, family);
        EditedFamily tidied = family;
        tidied.tidyUp();
        EXPECT_LE(shareWithAnotherNeighbour(family, tidied), 0.05);
    }
}

} // namespace
} // namespace lineara::layout
