#include "family_maker.h"

#include <gmock/gmock.h>

namespace lineara::engine {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// A couple (0, 1) with two children (2, 3), of whom the second has a child (4); and a stranger (5).
FamilyMaker fivePersonsAndAStranger()
{
    FamilyMaker maker(6);
    maker.partners(0, 1).offspring({{0, 2}, {1, 2}, {0, 3}, {1, 3}, {3, 4}}).members(5);
    return maker;
}

TEST(PartOfAFamily, HoldsThePersonsInTheOrderInWhichTheyAreNamed)
{
    const FamilyGraph part = partOf(fivePersonsAndAStranger().graph(), std::vector<PersonIndex>{4, 3, 0});
    EXPECT_THAT(part.numbers, ElementsAre(105, 104, 101));
    EXPECT_EQ(part.members, 3);
}

TEST(PartOfAFamily, KeepsTheLinksAmongThem)
{
    const FamilyGraph part = partOf(fivePersonsAndAStranger().graph(), std::vector<PersonIndex>{4, 3, 0, 1});
    EXPECT_THAT(part.parents[0], ElementsAre(1));
    EXPECT_THAT(part.parents[1], ElementsAre(2, 3));
    EXPECT_THAT(part.children[2], ElementsAre(1));
    EXPECT_THAT(part.partners[3], ElementsAre(2));
}

TEST(PartOfAFamily, LeavesOutTheLinksToOthers)
{
    const FamilyGraph part = partOf(fivePersonsAndAStranger().graph(), std::vector<PersonIndex>{2, 4, 1});
    EXPECT_THAT(part.parents[0], ElementsAre(2));
    EXPECT_THAT(part.parents[1], IsEmpty());
    EXPECT_THAT(part.partners[2], IsEmpty());
}

TEST(PartOfAFamily, KnowsWhoseChildrenHandNothingUp)
{
    FamilyMaker maker = fivePersonsAndAStranger();
    maker.markWillWalk(3);
    EXPECT_THAT(partOf(maker.graph(), std::vector<PersonIndex>{3, 0}).willWalk, ElementsAre(true, false));
}

TEST(PartOfAFamily, MayBeNobody)
{
    const FamilyGraph part = partOf(fivePersonsAndAStranger().graph(), {});
    EXPECT_EQ(part.persons(), 0);
    EXPECT_EQ(part.parents.persons(), 0);
}

} // namespace
} // namespace lineara::engine
