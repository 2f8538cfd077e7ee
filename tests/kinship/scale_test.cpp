#include "engine/family_maker.h"
#include "kinship/checks.h"
#include "kinship/relationship.h"
#include "kinship/relatives.h"

#include <gmock/gmock.h>

namespace lineara::kinship {
namespace {

using engine::FamilyMaker;

TEST(KinshipScaleTest, ALineOfTwoHundredThousandIsWalkedWithoutRecursion)
{
    const std::uint32_t persons = 200'000;
    const auto line = FamilyMaker(persons).line(0, persons - 1).graph();
    const Relation ends = relationshipOf(line, persons - 1, 0);
    EXPECT_EQ(ends.blood->up, persons - 1);
    EXPECT_EQ(ends.path.size(), persons);
    EXPECT_EQ(ancestorsOf(line, persons - 1).size(), persons - 1);
}

TEST(KinshipScaleTest, SixtyGenerationsOfCousinMarriagesAreCountedOnce)
{
    // Every row is one couple whose two children are the next one: the lines between two siblings are beyond counting.
    const std::uint32_t rows = 60;
    FamilyMaker family(2 * rows);
    for (PersonIndex one = 2; one < 2 * rows; one += 2) {
        family.offspring({{one - 2, one}, {one - 1, one}, {one - 2, one + 1}, {one - 1, one + 1}});
        family.partners(one, one + 1);
    }
    const auto graph = family.graph();
    const Relation couple = relationshipOf(graph, 2 * rows - 2, 2 * rows - 1);
    EXPECT_EQ(couple.kinship, Kinship::Partners);
    EXPECT_EQ(couple.blood->steps(), 2U);
    EXPECT_EQ(couple.otherLines, rows - 2);
    const Relation founder = relationshipOf(graph, 2 * rows - 1, 0);
    EXPECT_EQ(founder.blood->up, rows - 1);
    EXPECT_EQ(founder.otherLines, 0U);
}

TEST(KinshipScaleTest, APersonWithThousandsOfPartnersIsNoTrouble)
{
    const std::uint32_t persons = 30'000;
    FamilyMaker family(persons);
    for (PersonIndex partner = 2; partner < persons; ++partner)
        family.partners(0, partner);
    family.offspring(persons - 1, 1);
    const Relation stepchild = relationshipOf(family.graph(), 0, 1);
    EXPECT_EQ(stepchild.inLaw->marriage, Marriage::OfFirst);
    EXPECT_EQ(stepchild.inLaw->steps(), 2U);
}

TEST(KinshipScaleTest, ThousandsOfSiblingsAreNoTrouble)
{
    const std::uint32_t persons = 30'000;
    FamilyMaker family(persons);
    std::vector<LifeDates> dates(persons);
    for (PersonIndex child = 2; child < persons; ++child) {
        family.offspring({{0, child}, {1, child}});
        dates[child].birth = {static_cast<std::int32_t>(1 + child / 12), static_cast<std::int32_t>(1 + child % 12)};
    }
    const auto graph = family.graph();
    EXPECT_EQ(relationshipOf(graph, 2, persons - 1).blood->shared, Shared::BothParents);
    // Children of the month before may be a day apart; those of the month before that can't.
    EXPECT_EQ(findings({graph, dates})->size(), persons - 4);
}

} // namespace
} // namespace lineara::kinship
