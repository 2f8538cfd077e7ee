#include "engine/process.h"

#include "family_maker.h"

#include <gmock/gmock.h>

namespace lineara::engine {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr Generation none = noGeneration;

std::vector<std::string> logLines(const ProcessResult& result)
{
    std::vector<std::string> lines;
    for (const LogEntry& entry : result.log)
        lines.push_back(logLine(entry));
    return lines;
}

} // namespace

TEST(Process, PlacesThreeGenerationsInThreeRows)
{
    enum : PersonIndex
    {
        G1,
        G2,
        C,
        P,
        K
    };
    const auto result =
        processed(FamilyMaker(5).partners({{G1, G2}, {C, P}}).offspring({{G1, C}, {G2, C}, {C, K}, {P, K}}));
    EXPECT_THAT(result.generations, ElementsAre(3, 3, 2, 2, 1));
    EXPECT_EQ(result.maxGenerationOf, K);
    EXPECT_EQ(result.maxGeneration, 3);
    EXPECT_EQ(result.maxGenerationSize, 2);
    EXPECT_THAT(result.rows, ElementsAre(IsEmpty(), ElementsAre(K), ElementsAre(C, P), ElementsAre(G1, G2)));
    EXPECT_THAT(result.partners, ElementsAre(GraphLink{G1, G2}, GraphLink{C, P}));
    EXPECT_THAT(result.offspring, ElementsAre(GraphLink{G1, C}, GraphLink{G2, C}, GraphLink{C, K}, GraphLink{P, K}));
    EXPECT_THAT(result.log, IsEmpty());
}

TEST(Process, OfAnEmptyFamilyBuildsNoRows)
{
    const auto result = processed(FamilyMaker(0));
    EXPECT_FALSE(result.rowsBuilt);
    EXPECT_EQ(result.maxGeneration, 0);
    EXPECT_EQ(result.maxGenerationOf, std::nullopt);
    EXPECT_THAT(result.partners, IsEmpty());
    EXPECT_THAT(result.offspring, IsEmpty());
}

TEST(Process, LeavesAPersonWithoutLinksInRowZero)
{
    const auto result = processed(FamilyMaker(1));
    EXPECT_THAT(result.generations, ElementsAre(none));
    EXPECT_EQ(result.maxGenerationOf, 0U);
    EXPECT_EQ(result.maxGeneration, 0);
    EXPECT_EQ(result.maxGenerationSize, 1);
    EXPECT_THAT(result.rows, ElementsAre(ElementsAre(0U)));
}

TEST(Process, PutsTwoPartnersIntoRowOne)
{
    const auto result = processed(FamilyMaker(2).numbers({7, 3}).partners(0, 1));
    EXPECT_THAT(result.generations, ElementsAre(1, 1));
    EXPECT_THAT(result.partners, ElementsAre(GraphLink{1, 0}));
}

TEST(Process, PutsAParentAboveItsChild)
{
    const auto result = processed(FamilyMaker(2).offspring(0, 1));
    EXPECT_THAT(result.generations, ElementsAre(2, 1));
    EXPECT_EQ(result.maxGenerationOf, 1U);
    EXPECT_THAT(result.offspring, ElementsAre(GraphLink{0, 1}));
}

TEST(Process, RaisesEverybodyByOneForAPersonWithoutLinks)
{
    const auto result = processed(FamilyMaker(3).offspring(0, 1));
    EXPECT_THAT(result.generations, ElementsAre(3, 2, none));
    EXPECT_THAT(result.rows, ElementsAre(ElementsAre(2U), IsEmpty(), ElementsAre(1U), ElementsAre(0U)));
}

TEST(Process, StartsFoundersOfASecondFamilyAtTheTopOfTheLongestLine)
{
    const auto result = processed(FamilyMaker(5).line(0, 2).offspring(3, 4));
    EXPECT_THAT(result.generations, ElementsAre(3, 2, 1, 3, 2));
}

TEST(Process, TakesTheFirstOfEquallyLongLines)
{
    EXPECT_EQ(processed(FamilyMaker(4).offspring({{3, 1}, {2, 0}})).maxGenerationOf, 0U);
}

TEST(Process, RaisesWhoWasReachedDownwardIntoRowOne)
{
    // The longest line ends in 3; 4 to 6 hang lower below its oldest than 3 does.
    const auto result = processed(FamilyMaker(7).line(0, 3).offspring({{4, 2}, {4, 5}, {5, 6}}));
    EXPECT_THAT(result.generations, ElementsAre(4, 3, 2, 1, 3, 2, 1));
}

TEST(Process, LetsTheFirstNumberStandAndLogsTheSecond)
{
    // The partners 0 and 1 have a common grandchild by lines of different length.
    const auto result = processed(FamilyMaker(4).partners(0, 1).offspring({{0, 2}, {2, 3}, {1, 3}}));
    EXPECT_THAT(logLines(result),
                testing::Contains("Failed to assign generation 2 to person with existing generation 3"));
}

TEST(Process, GivesPartnersWithLinksOfTheirOwnTheGreaterNumber)
{
    // 3 is deepest; 4 is a founder without ancestors whose child stands below, and partner of 0.
    const auto result = processed(FamilyMaker(8).line(0, 2).line(3, 6).partners(6, 0).offspring(1, 7));
    EXPECT_EQ(result.generations[6], result.generations[0]);
}

TEST(Process, OrdersPartnersByTheTextOfTheirNumbers)
{
    const auto sourceOf = [](std::uint64_t first, std::uint64_t second) {
        const auto result = processed(FamilyMaker(2).numbers({first, second}).partners(0, 1));
        return result.partners.at(0).source == 0 ? first : second;
    };
    EXPECT_EQ(sourceOf(9, 10), 10U);
    EXPECT_EQ(sourceOf(1000, 999), 1000U);
    EXPECT_EQ(sourceOf(1, 10), 1U);
    EXPECT_EQ(sourceOf(100, 10), 10U);
    EXPECT_EQ(sourceOf(12, 2), 12U);
    EXPECT_EQ(sourceOf(102, 101), 101U);
    EXPECT_EQ(sourceOf(18446744073709551615U, 2), 18446744073709551615U);
    EXPECT_EQ(sourceOf(10000000000000000000U, 1000000000000000000U), 1000000000000000000U);
}

TEST(Process, DependsOnTheOrderOfTheMembers)
{
    // A is parent of B; C is partner of both.
    const auto oldestFirst = processed(FamilyMaker(3).offspring(0, 1).partners({{0, 2}, {1, 2}}));
    EXPECT_THAT(oldestFirst.generations, ElementsAre(2, 1, 1));
    const auto oldestLast =
        processed(FamilyMaker(3).numbers({102, 103, 101}).offspring(2, 0).partners({{2, 1}, {0, 1}}));
    EXPECT_THAT(oldestLast.generations, ElementsAre(1, 2, 2));
}

TEST(Process, KeepsPersonsBelowTheFirstRowInRowZero)
{
    // Persons reached by spreading after the shift was settled are not raised by it.
    const auto six = processed(FamilyMaker(6).offspring({{1, 0}, {5, 2}, {3, 4}}).partners(2, 3));
    EXPECT_THAT(six.generations, ElementsAre(1, 2, 1, 1, 0, 2));
    EXPECT_THAT(six.rows, ElementsAre(ElementsAre(4U), ElementsAre(0U, 2U, 3U), ElementsAre(1U, 5U)));
    EXPECT_THAT(logLines(six), ElementsAre("Persons below the first row, down to generation 0, are kept in row 0"));

    const auto eight = processed(FamilyMaker(8).offspring({{1, 0}, {5, 2}, {3, 4}, {6, 7}}).partners({{2, 3}, {4, 6}}));
    EXPECT_THAT(eight.generations, ElementsAre(1, 2, 1, 1, 0, 2, 0, -1));
    EXPECT_THAT(eight.rows, ElementsAre(ElementsAre(4U, 6U, 7U), ElementsAre(0U, 2U, 3U), ElementsAre(1U, 5U)));
    EXPECT_THAT(logLines(eight), ElementsAre("Persons below the first row, down to generation -1, are kept in row 0"));
}

TEST(Process, ReachesStrangersButKeepsThemOutOfRowsAndLists)
{
    // Person 2 is linked to 0 but not a member yet.
    const auto result = processed(FamilyMaker(3).members(2).offspring(0, 1).partners(0, 2));
    EXPECT_THAT(result.generations, ElementsAre(2, 1, 2));
    EXPECT_THAT(result.rows, ElementsAre(IsEmpty(), ElementsAre(1U), ElementsAre(0U)));
    EXPECT_THAT(result.partners, ElementsAre(GraphLink{0, 2}));
}

TEST(Process, DoesNotWalkUpIntoMarkedPersonsAndResetsTheMarksOfThoseReached)
{
    const auto result = processed(FamilyMaker(4).offspring({{0, 1}, {1, 2}, {3, 1}}).markWillWalk(0).markWillWalk(2));
    EXPECT_THAT(result.generations, ElementsAre(3, 2, 1, 3));
    EXPECT_THAT(result.willWalk, ElementsAre(true, false, false, false));
    EXPECT_THAT(processed(FamilyMaker(2).offspring(0, 1)).willWalk, IsEmpty());
}

TEST(Process, EndsOnACycleOfParents)
{
    const auto alone = processed(FamilyMaker(3).offspring({{0, 1}, {1, 2}, {2, 0}}));
    EXPECT_THAT(logLines(alone), testing::Contains("Pushing still required after trying to push up without partners. "
                                                   "Tree imbalanced"));
    EXPECT_TRUE(alone.rowsBuilt);
    const auto beside = processed(FamilyMaker(7).line(0, 3).offspring({{4, 5}, {5, 4}, {5, 6}}).partners(6, 0));
    EXPECT_TRUE(beside.rowsBuilt);
    EXPECT_TRUE(processed(FamilyMaker(2).offspring(0, 0).partners(1, 1)).rowsBuilt);
}

TEST(ArrangeGenerations, KeepsEmptyRowsBetween)
{
    const Rows rows = arrangeGenerations(FamilyMaker(2).graph(), {1, 3});
    EXPECT_THAT(rows.rows, ElementsAre(IsEmpty(), ElementsAre(0U), IsEmpty(), ElementsAre(1U)));
    EXPECT_EQ(rows.maxGeneration, 3);
    EXPECT_EQ(rows.maxGenerationSize, 1);
}

TEST(ArrangeGenerations, PutsThoseWithoutAGenerationAndThoseBelowZeroIntoRowZero)
{
    const Rows rows = arrangeGenerations(FamilyMaker(3).graph(), {none, -2, 0});
    EXPECT_THAT(rows.rows, ElementsAre(ElementsAre(0U, 1U, 2U)));
    EXPECT_EQ(rows.maxGeneration, 0);
    EXPECT_EQ(rows.maxGenerationSize, 3);
}

} // namespace lineara::engine
