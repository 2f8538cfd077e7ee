// What persons are to each other, in words.

#include "kin_words.h"
#include "relationship_words.h"

#include "engine/family_maker.h"

#include <gmock/gmock.h>

#include <map>

namespace lineara {
namespace {

using engine::FamilyMaker;
using kinship::Marriage;
using kinship::Sex;
using kinship::Shared;

std::string blood(std::uint32_t up, std::uint32_t down, Shared shared = Shared::BothParents, Sex sex = Sex::Unknown)
{
    return bloodWords({up, down, shared, {}}, sex).toStdString();
}

std::string ofWoman(std::uint32_t up, std::uint32_t down)
{
    return blood(up, down, Shared::BothParents, Sex::Female);
}

std::string ofMan(std::uint32_t up, std::uint32_t down)
{
    return blood(up, down, Shared::BothParents, Sex::Male);
}

std::string inLaw(Marriage marriage, std::uint32_t up, std::uint32_t down, Sex sex = Sex::Unknown,
                  Sex between = Sex::Unknown)
{
    return inLawWords({marriage, {up, down, Shared::BothParents, {}}}, sex, between).toStdString();
}

TEST(KinWords, OfAncestorsAndDescendants)
{
    EXPECT_EQ(blood(1, 0), "parent");
    EXPECT_EQ(blood(2, 0), "grandparent");
    EXPECT_EQ(blood(3, 0), "great-grandparent");
    EXPECT_EQ(blood(4, 0), "great-great-grandparent");
    EXPECT_EQ(blood(5, 0), "3rd great-grandparent");
    EXPECT_EQ(blood(13, 0), "11th great-grandparent");
    EXPECT_EQ(blood(60, 0), "58th great-grandparent");
    EXPECT_EQ(blood(0, 1), "child");
    EXPECT_EQ(blood(0, 2), "grandchild");
    EXPECT_EQ(blood(0, 4), "great-great-grandchild");
    EXPECT_EQ(blood(0, 6), "4th great-grandchild");
}

TEST(KinWords, OfSiblingsAndTheirLines)
{
    EXPECT_EQ(blood(1, 1), "sibling");
    EXPECT_EQ(blood(1, 1, Shared::OneParent), "half-sibling");
    EXPECT_EQ(blood(1, 1, Shared::Unknown), "sibling");
    EXPECT_EQ(blood(2, 1), "aunt or uncle");
    EXPECT_EQ(blood(3, 1), "great-aunt or great-uncle");
    EXPECT_EQ(blood(5, 1), "3rd great-aunt or great-uncle");
    EXPECT_EQ(blood(1, 2), "niece or nephew");
    EXPECT_EQ(blood(1, 4), "great-great-niece or great-great-nephew");
    EXPECT_EQ(blood(1, 5, Shared::OneParent), "half 3rd great-niece or great-nephew");
}

TEST(KinWords, OfCousins)
{
    EXPECT_EQ(blood(2, 2), "first cousin");
    EXPECT_EQ(blood(3, 3), "second cousin");
    EXPECT_EQ(blood(4, 4), "third cousin");
    EXPECT_EQ(blood(5, 5), "4th cousin");
    EXPECT_EQ(blood(12, 12), "11th cousin");
    EXPECT_EQ(blood(23, 23), "22nd cousin");
    EXPECT_EQ(blood(24, 24), "23rd cousin");
    EXPECT_EQ(blood(112, 112), "111th cousin");
    EXPECT_EQ(blood(3, 2), "first cousin once removed");
    EXPECT_EQ(blood(3, 5), "second cousin twice removed");
    EXPECT_EQ(blood(6, 3), "second cousin three times removed");
    EXPECT_EQ(blood(2, 9), "first cousin 7 times removed");
    EXPECT_EQ(blood(3, 4, Shared::OneParent), "half second cousin once removed");
}

TEST(KinWords, OfRelativesByMarriage)
{
    EXPECT_EQ(inLaw(Marriage::OfFirst, 1, 0), "parent-in-law");
    EXPECT_EQ(inLaw(Marriage::OfSecond, 0, 1), "child-in-law");
    EXPECT_EQ(inLaw(Marriage::OfFirst, 1, 1), "sibling-in-law");
    EXPECT_EQ(inLaw(Marriage::OfSecond, 1, 1), "sibling-in-law");
    EXPECT_EQ(inLaw(Marriage::OfSecond, 1, 0), "stepparent");
    EXPECT_EQ(inLaw(Marriage::OfFirst, 0, 1), "stepchild");
    EXPECT_EQ(inLaw(Marriage::BetweenParents, 1, 1), "step-sibling");
    EXPECT_EQ(inLaw(Marriage::OfSecond, 2, 1), "aunt or uncle by marriage");
    EXPECT_EQ(inLaw(Marriage::OfSecond, 3, 3), "partner of a second cousin");
    EXPECT_EQ(inLaw(Marriage::OfSecond, 12, 12), "partner of an 11th cousin");
    EXPECT_EQ(inLaw(Marriage::OfFirst, 1, 2), "niece or nephew of the partner");
    EXPECT_EQ(inLaw(Marriage::OfFirst, 2, 0), "grandparent of the partner");
}

TEST(KinWords, OfMenAndWomen)
{
    EXPECT_EQ(ofWoman(1, 0), "mother");
    EXPECT_EQ(ofMan(1, 0), "father");
    EXPECT_EQ(ofWoman(2, 0), "grandmother");
    EXPECT_EQ(ofWoman(3, 0), "great-grandmother");
    EXPECT_EQ(ofMan(4, 0), "great-great-grandfather");
    EXPECT_EQ(ofMan(13, 0), "11th great-grandfather");
    EXPECT_EQ(ofWoman(0, 1), "daughter");
    EXPECT_EQ(ofMan(0, 2), "grandson");
    EXPECT_EQ(ofWoman(0, 6), "4th great-granddaughter");
    EXPECT_EQ(ofWoman(1, 1), "sister");
    EXPECT_EQ(blood(1, 1, Shared::OneParent, Sex::Male), "half-brother");
    EXPECT_EQ(ofMan(2, 1), "uncle");
    EXPECT_EQ(ofWoman(3, 1), "great-aunt");
    EXPECT_EQ(ofMan(5, 1), "3rd great-uncle");
    EXPECT_EQ(ofWoman(1, 2), "niece");
    EXPECT_EQ(blood(1, 4, Shared::OneParent, Sex::Male), "half great-great-nephew");
    EXPECT_EQ(ofWoman(2, 2), "first cousin");
    EXPECT_EQ(ofMan(3, 5), "second cousin twice removed");
}

TEST(KinWords, OfMenAndWomenByMarriage)
{
    EXPECT_EQ(partnerWords(Sex::Female), u"wife");
    EXPECT_EQ(partnerWords(Sex::Male), u"husband");
    EXPECT_EQ(partnerWords(Sex::Unknown), u"partner");
    EXPECT_EQ(inLaw(Marriage::OfFirst, 1, 0, Sex::Female), "mother-in-law");
    EXPECT_EQ(inLaw(Marriage::OfSecond, 0, 1, Sex::Male), "son-in-law");
    EXPECT_EQ(inLaw(Marriage::OfFirst, 1, 1, Sex::Female), "sister-in-law");
    EXPECT_EQ(inLaw(Marriage::OfSecond, 1, 1, Sex::Male), "brother-in-law");
    EXPECT_EQ(inLaw(Marriage::OfSecond, 1, 0, Sex::Female), "stepmother");
    EXPECT_EQ(inLaw(Marriage::OfFirst, 0, 1, Sex::Male), "stepson");
    EXPECT_EQ(inLaw(Marriage::BetweenParents, 1, 1, Sex::Female), "stepsister");
    EXPECT_EQ(inLaw(Marriage::OfSecond, 2, 1, Sex::Male), "uncle by marriage");
}

TEST(KinWords, TellTheSexOfTheOneBetween)
{
    EXPECT_EQ(inLaw(Marriage::OfFirst, 1, 2, Sex::Female, Sex::Male), "niece of the husband");
    EXPECT_EQ(inLaw(Marriage::OfFirst, 2, 0, Sex::Unknown, Sex::Female), "grandparent of the wife");
    EXPECT_EQ(inLaw(Marriage::OfSecond, 3, 3, Sex::Female, Sex::Male), "wife of a second cousin");
    EXPECT_EQ(inLaw(Marriage::OfSecond, 12, 12, Sex::Male), "husband of an 11th cousin");
    EXPECT_EQ(inLaw(Marriage::OfSecond, 0, 2, Sex::Male, Sex::Female), "husband of a granddaughter");
}

/// Two families' persons have letters for names.
RelationshipText told(const FamilyMaker& family, kinship::PersonIndex first, kinship::PersonIndex second,
                      std::span<const Sex> sexes = {})
{
    const auto graph = family.graph();
    const auto name = [](kinship::PersonIndex person) { return QString(QChar(u'A' + person)); };
    return relationshipText(kinship::relationshipOf(graph, first, second), {graph, sexes, name}, first, second);
}

TEST(RelationshipWords, SayWhoIsWhatOfWhom)
{
    const auto family = FamilyMaker(3).line(0, 2);
    EXPECT_EQ(told(family, 2, 0).sentence, u"A is <b>grandparent</b> of C");
    EXPECT_EQ(told(family, 0, 2).sentence, u"C is <b>grandchild</b> of A");
    EXPECT_EQ(told(family, 0, 2).details, QString());
    EXPECT_EQ(told(FamilyMaker(2), 0, 1).sentence, u"B and A are not connected in this family");
}

TEST(RelationshipWords, NamesAreNoMarkup)
{
    const auto graph = FamilyMaker(2).line(0, 1).graph();
    const auto name = [](kinship::PersonIndex) { return QStringLiteral("<i>%1 & Co</i>"); };
    const auto text = relationshipText(kinship::relationshipOf(graph, 1, 0), {graph, {}, name}, 1, 0);
    EXPECT_EQ(text.sentence, u"&lt;i&gt;%1 &amp; Co&lt;/i&gt; is <b>parent</b> of &lt;i&gt;%1 &amp; Co&lt;/i&gt;");
}

TEST(RelationshipWords, TellCommonAncestorsAndFurtherLines)
{
    // Two siblings and two siblings marry; I and J are their children.
    const auto family = FamilyMaker(10)
                            .offspring({{0, 4}, {1, 4}, {0, 5}, {1, 5}, {2, 6}, {3, 6}, {2, 7}, {3, 7}})
                            .offspring({{4, 8}, {6, 8}, {5, 9}, {7, 9}});
    EXPECT_EQ(told(family, 8, 9).sentence, u"J is <b>first cousin</b> of I");
    EXPECT_EQ(told(family, 8, 9).details, u"Common ancestors are A and B · related by 1 more line(s)");
}

TEST(RelationshipWords, TellPartnersWhatElseTheyAre)
{
    const auto family = FamilyMaker(5).offspring({{0, 1}, {0, 2}, {1, 3}, {2, 4}}).partners(3, 4);
    EXPECT_EQ(told(family, 3, 4).sentence, u"E is <b>partner</b> of D");
    EXPECT_EQ(told(family, 3, 4).details, u"Also first cousin · the common ancestor is A");
}

TEST(RelationshipWords, TellAWayThatHasNoName)
{
    // A and B are partners, C is B's sibling and D's partner, whose parent is E.
    const auto family = FamilyMaker(6).offspring({{5, 1}, {5, 2}, {4, 3}}).partners({{0, 1}, {2, 3}});
    EXPECT_EQ(told(family, 0, 4).sentence, u"E is connected with A: <b>partner › sibling › partner › parent</b>");
    EXPECT_EQ(told(family, 0, 4).details, u"5 step(s)");
}

TEST(RelationshipWords, KnowWhoIsAManAndWhoAWoman)
{
    // A and B are partners, C is B's sibling and D's partner, whose parent is E; F is parent of B and C.
    const auto family = FamilyMaker(6).offspring({{5, 1}, {5, 2}, {4, 3}}).partners({{0, 1}, {2, 3}});
    const std::vector sexes{Sex::Male, Sex::Female, Sex::Male, Sex::Unknown, Sex::Female, Sex::Male};
    EXPECT_EQ(told(family, 0, 1, sexes).sentence, u"B is <b>wife</b> of A");
    EXPECT_EQ(told(family, 1, 0, sexes).sentence, u"A is <b>husband</b> of B");
    EXPECT_EQ(told(family, 2, 3, sexes).sentence, u"D is <b>partner</b> of C");
    EXPECT_EQ(told(family, 1, 5, sexes).sentence, u"F is <b>father</b> of B");
    EXPECT_EQ(told(family, 0, 2, sexes).sentence, u"C is <b>brother-in-law</b> of A");
    EXPECT_EQ(told(family, 0, 4, sexes).sentence, u"E is connected with A: <b>wife › brother › partner › mother</b>");
}

TEST(RelationshipWords, TellWhoseRelativeAnInLawIs)
{
    // A is B's partner; B's parent is C, whose parent is D; D's other child E has the child F, whose partner is G.
    const auto family = FamilyMaker(7).offspring({{2, 1}, {3, 2}, {3, 4}, {4, 5}}).partners({{0, 1}, {5, 6}});
    std::vector sexes(7, Sex::Unknown);
    sexes[1] = Sex::Female;
    EXPECT_EQ(told(family, 0, 3, sexes).sentence, u"D is <b>grandparent of the wife</b> of A");
    sexes[5] = Sex::Male;
    sexes[6] = Sex::Female;
    EXPECT_EQ(told(family, 1, 6, sexes).sentence, u"G is <b>wife of a first cousin</b> of B");
    EXPECT_EQ(told(family, 3, 6, sexes).sentence, u"G is <b>wife of a grandson</b> of D");
}

TEST(RelationshipWords, GoDownAndUpAgainThroughAChild)
{
    const auto family = FamilyMaker(3).offspring({{0, 1}, {2, 1}});
    EXPECT_EQ(told(family, 0, 2).sentence, u"C is connected with A: <b>child › parent</b>");
}

TEST(RelationshipWords, CutALongWayShort)
{
    FamilyMaker family(17);
    for (kinship::PersonIndex child = 1; child < 17; child += 2)
        family.offspring({{child - 1, child}, {child + 1, child}});
    const QString sentence = told(family, 0, 16).sentence;
    EXPECT_EQ(sentence.count(u'›'), 6);
    EXPECT_TRUE(sentence.endsWith(QStringLiteral("› …</b>"))) << sentence.toStdString();
}

} // namespace
} // namespace lineara
