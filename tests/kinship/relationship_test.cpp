#include "engine/family_maker.h"
#include "kinship/relationship.h"

#include <gmock/gmock.h>

namespace lineara::kinship {
namespace {

using engine::FamilyMaker;
using testing::ElementsAre;
using testing::IsEmpty;

/// Two brothers of one couple and their lines: 0 and 1 are the couple, 2 and 3 their children, 4 and 5 theirs, ...
/// `more` persons without links follow.
FamilyMaker twoLines(std::uint32_t generations, std::uint32_t more = 0)
{
    FamilyMaker family(2 + 2 * generations + more);
    for (PersonIndex parent : {0U, 1U})
        family.offspring({{parent, 2}, {parent, 3}});
    for (PersonIndex child = 4; child < 2 + 2 * generations; ++child)
        family.offspring(child - 2, child);
    return family;
}

TEST(RelationshipTest, OneselfIsTheSamePerson)
{
    const Relation oneself = relationshipOf(FamilyMaker(1).graph(), 0, 0);
    EXPECT_EQ(oneself.kinship, Kinship::Same);
    EXPECT_THAT(oneself.path, ElementsAre(0));
}

TEST(RelationshipTest, StrangersHaveNoPath)
{
    const Relation strangers = relationshipOf(FamilyMaker(2).graph(), 0, 1);
    EXPECT_EQ(strangers.kinship, Kinship::None);
    EXPECT_THAT(strangers.path, IsEmpty());
}

TEST(RelationshipTest, AncestorsAreSoManyGenerationsUp)
{
    const auto line = FamilyMaker(4).line(0, 3).graph();
    const Relation up = relationshipOf(line, 3, 0);
    EXPECT_EQ(up.blood, (BloodLine{3, 0, Shared::BothParents, {0}}));
    EXPECT_THAT(up.path, ElementsAre(3, 2, 1, 0));
    const Relation down = relationshipOf(line, 0, 3);
    EXPECT_EQ(down.blood, (BloodLine{0, 3, Shared::BothParents, {0}}));
    EXPECT_THAT(down.path, ElementsAre(0, 1, 2, 3));
}

TEST(RelationshipTest, FullSiblingsShareBothParents)
{
    const Relation siblings = relationshipOf(twoLines(1).graph(), 2, 3);
    EXPECT_EQ(siblings.kinship, Kinship::Blood);
    EXPECT_EQ(siblings.blood, (BloodLine{1, 1, Shared::BothParents, {0, 1}}));
    EXPECT_EQ(siblings.otherLines, 0U);
    EXPECT_THAT(siblings.path, ElementsAre(2, 0, 3));
}

TEST(RelationshipTest, HalfSiblingsShareOneOfTwoKnownParents)
{
    const auto family = FamilyMaker(5).offspring({{0, 3}, {1, 3}, {1, 4}, {2, 4}}).graph();
    EXPECT_EQ(relationshipOf(family, 3, 4).blood, (BloodLine{1, 1, Shared::OneParent, {1}}));
}

TEST(RelationshipTest, WhereAParentIsNotKnownSiblingsMayBeFullOrHalf)
{
    const auto family = FamilyMaker(4).offspring({{0, 2}, {1, 2}, {1, 3}}).graph();
    EXPECT_EQ(relationshipOf(family, 2, 3).blood, (BloodLine{1, 1, Shared::Unknown, {1}}));
}

TEST(RelationshipTest, CousinsOfDifferentGenerationsMeetAtTheCouple)
{
    const auto family = twoLines(5).graph();
    const Relation cousins = relationshipOf(family, 8, 11);
    EXPECT_EQ(cousins.blood, (BloodLine{4, 5, Shared::BothParents, {0, 1}}));
    EXPECT_THAT(cousins.path, ElementsAre(8, 6, 4, 2, 0, 3, 5, 7, 9, 11));
}

TEST(RelationshipTest, DoubleCousinsAreRelatedByTwoLines)
{
    // Two siblings (4, 5) and two siblings (6, 7) marry; 8 and 9 are their children.
    const auto family = FamilyMaker(10)
                            .offspring({{0, 4}, {1, 4}, {0, 5}, {1, 5}, {2, 6}, {3, 6}, {2, 7}, {3, 7}})
                            .offspring({{4, 8}, {6, 8}, {5, 9}, {7, 9}})
                            .graph();
    const Relation cousins = relationshipOf(family, 8, 9);
    EXPECT_EQ(cousins.blood, (BloodLine{2, 2, Shared::BothParents, {0, 1}}));
    EXPECT_EQ(cousins.otherLines, 1U);
}

TEST(RelationshipTest, AncestorsOfACommonAncestorAreNoFurtherLines)
{
    FamilyMaker family(5);
    family.offspring({{0, 1}, {1, 2}, {2, 3}, {2, 4}});
    EXPECT_EQ(relationshipOf(family.graph(), 3, 4).otherLines, 0U);
}

TEST(RelationshipTest, PartnersAreToldBeforeTheirBlood)
{
    auto family = twoLines(2);
    family.partners(4, 5);
    const Relation cousins = relationshipOf(family.graph(), 4, 5);
    EXPECT_EQ(cousins.kinship, Kinship::Partners);
    EXPECT_EQ(cousins.blood, (BloodLine{2, 2, Shared::BothParents, {0, 1}}));
    EXPECT_THAT(cousins.path, ElementsAre(4, 5));
}

TEST(RelationshipTest, ASiblingsPartnerAndAPartnersSiblingAreInLaws)
{
    const auto family = FamilyMaker(5).offspring({{0, 2}, {1, 2}, {0, 3}, {1, 3}}).partners(3, 4).graph();
    const Relation ofSecond = relationshipOf(family, 2, 4);
    EXPECT_EQ(ofSecond.kinship, Kinship::ByMarriage);
    EXPECT_EQ(ofSecond.inLaw, (InLaw{Marriage::OfSecond, {1, 1, Shared::BothParents, {0, 1}}}));
    EXPECT_THAT(ofSecond.path, ElementsAre(2, 0, 3, 4));
    const Relation ofFirst = relationshipOf(family, 4, 2);
    EXPECT_EQ(ofFirst.inLaw, (InLaw{Marriage::OfFirst, {1, 1, Shared::BothParents, {0, 1}}}));
    EXPECT_THAT(ofFirst.path, ElementsAre(4, 3, 0, 2));
}

TEST(RelationshipTest, AParentsOtherPartnerIsAStepparent)
{
    const auto family = FamilyMaker(3).offspring(0, 1).partners(0, 2).graph();
    EXPECT_EQ(relationshipOf(family, 1, 2).inLaw, (InLaw{Marriage::OfSecond, {1, 0, Shared::BothParents, {0}}}));
    EXPECT_EQ(relationshipOf(family, 2, 1).inLaw, (InLaw{Marriage::OfFirst, {0, 1, Shared::BothParents, {0}}}));
}

TEST(RelationshipTest, ChildrenOfPartnersWithoutACommonParentAreStepSiblings)
{
    const auto family = FamilyMaker(4).offspring({{0, 2}, {1, 3}}).partners(0, 1).graph();
    const Relation siblings = relationshipOf(family, 2, 3);
    EXPECT_EQ(siblings.inLaw, (InLaw{Marriage::BetweenParents, {1, 1, Shared::Unknown, {}}}));
    EXPECT_THAT(siblings.path, ElementsAre(2, 0, 1, 3));
}

TEST(RelationshipTest, ANearerMarriageIsToldBesideFarBlood)
{
    // 8 and 9 are third cousins, and 9 is the partner of a child of 8.
    auto family = twoLines(4, 1);
    family.offspring(8, 10).partners(10, 9);
    const Relation both = relationshipOf(family.graph(), 8, 9);
    EXPECT_EQ(both.kinship, Kinship::Blood);
    EXPECT_EQ(both.blood->steps(), 8U);
    EXPECT_EQ(both.inLaw, (InLaw{Marriage::OfSecond, {0, 1, Shared::BothParents, {8}}}));
}

TEST(RelationshipTest, EverybodyElseIsConnectedByTheShortestPath)
{
    // 0 and 1 are partners, so are 2 and 3, and 4 and 5; 1 and 2, and 3 and 4, are siblings.
    const auto family =
        FamilyMaker(8).offspring({{6, 1}, {6, 2}, {7, 3}, {7, 4}}).partners({{0, 1}, {2, 3}, {4, 5}}).graph();
    const Relation far = relationshipOf(family, 0, 5);
    EXPECT_EQ(far.kinship, Kinship::Connected);
    EXPECT_THAT(far.path, ElementsAre(0, 1, 6, 2, 3, 7, 4, 5));
}

} // namespace
} // namespace lineara::kinship
