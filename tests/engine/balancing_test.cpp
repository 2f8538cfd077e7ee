#include "engine/process.h"

#include "family_maker.h"
#include "hang_guard.h"
#include "literal_rules.h"

#include <gmock/gmock.h>

#include <algorithm>

namespace lineara::engine {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

bool tells(const ProcessResult& result, LogEntry::Kind kind)
{
    return std::ranges::count(result.log, kind, &LogEntry::kind) > 0;
}

/// A partner pair, 0 and 1, from whom lines of the given lengths lead to one child, the last person.
FamilyMaker twoLines(std::uint32_t shorter, std::uint32_t longer)
{
    const PersonIndex child = 2 + shorter + longer;
    FamilyMaker family(child + 1);
    family.partners(0, 1).offspring(0, 2).line(2, 1 + shorter).offspring(1 + shorter, child);
    family.offspring(1, 2 + shorter).line(2 + shorter, child);
    return family;
}

} // namespace

TEST(Balancing, RaisesAParentWhoIsPartnerOfItsChild)
{
    const auto result = processed(FamilyMaker(2).offspring(0, 1).partners(0, 1));
    const auto literal = processLiterally(FamilyMaker(2).offspring(0, 1).partners(0, 1).graph());
    EXPECT_THAT(result.generations, ElementsAre(5, 4));
    EXPECT_EQ(result.generations, literal->generations);
    EXPECT_THAT(result.log, IsEmpty());
}

TEST(Balancing, LeavesAFamilyWithoutChildrenAlone)
{
    EXPECT_THAT(processed(FamilyMaker(4).partners({{0, 1}, {2, 3}, {1, 2}})).generations, ElementsAre(1, 1, 1, 1));
}

TEST(Balancing, PullsPartnersAlong)
{
    // 5 starts level with its partner 0, high above its parent 4, who then rises with its partner 6.
    const FamilyMaker family = FamilyMaker(7).line(0, 3).offspring(4, 5).partners({{0, 5}, {4, 6}});
    const auto result = processed(family);
    EXPECT_EQ(result.generations[4], result.generations[5] + 1);
    EXPECT_EQ(result.generations[6], result.generations[4]);
    EXPECT_EQ(result.generations, processLiterally(family.graph())->generations);
}

TEST(Balancing, GoesBackAndLeavesPartnersOutWhereItWouldNeverEnd)
{
    const auto result = processed(FamilyMaker(4).line(0, 3).partners(0, 3));
    EXPECT_THAT(result.generations, ElementsAre(7, 6, 5, 4));
    ASSERT_EQ(result.log.size(), 1U);
    EXPECT_EQ(logLine(result.log[0]), "Pushing up with partners would never end. Pushing up without partners instead");
}

TEST(Balancing, EndsForTheSameFamilyYoungestFirst)
{
    const FamilyMaker family = FamilyMaker(4).offspring({{3, 2}, {2, 1}, {1, 0}}).partners(0, 3);
    const auto result = processed(family);
    EXPECT_FALSE(tells(result, LogEntry::Kind::EndlessPush));
    EXPECT_EQ(result.generations, processLiterally(family.graph())->generations);
}

TEST(Balancing, ProvesEndlessnessWhereOnePartnerFollowsTwoLinesOfDifferentSpeed)
{
    // 11 falls back to the slow 4 and is raised by the fast 9 again, each time by one more.
    FamilyMaker family(12);
    family.offspring({{1, 0}, {1, 11}, {1, 9}, {2, 5}, {2, 3}, {2, 8}, {4, 2}, {7, 11}, {7, 6}, {9, 2}});
    family.offspring({{10, 8}, {10, 3}, {11, 6}, {11, 0}, {11, 9}});
    family.partners({{1, 9}, {1, 11}, {0, 6}, {0, 9}, {2, 8}, {2, 10}, {2, 5}, {4, 11}, {4, 10}});
    family.partners({{5, 8}, {6, 9}, {7, 11}, {8, 10}});
    EXPECT_FALSE(processLiterally(family.graph(), 10'000).has_value());
    EXPECT_TRUE(tells(processed(family), LogEntry::Kind::EndlessPush));
}

TEST(Balancing, ProvesEndlessnessOfManyKnotsOfDifferentPeriods)
{
    // Lines of 4 to 40 persons, each with a period of its own: together they repeat only after ages.
    FamilyMaker family((40 + 4) * 37 / 2);
    PersonIndex oldest = 0;
    for (std::uint32_t length = 4; length <= 40; oldest += length, ++length)
        family.line(oldest, oldest + length - 1).partners(oldest, oldest + length - 1);
    ASSERT_EQ(oldest, family.persons());
    const FamilyGraph graph = family.graph();
    const HangGuard guard;
    EXPECT_TRUE(tells(process(graph).value(), LogEntry::Kind::EndlessPush));
}

TEST(Balancing, ProvesEndlessnessOfKnotsThatHangTogether)
{
    // As before, but more, and all of them below one founder.
    FamilyMaker family((80 + 4) * 77 / 2 + 1);
    const PersonIndex founder = family.persons() - 1;
    PersonIndex oldest = 0;
    for (std::uint32_t length = 4; length <= 80; oldest += length, ++length)
        family.line(oldest, oldest + length - 1).partners(oldest, oldest + length - 1).offspring(founder, oldest);
    ASSERT_EQ(oldest, founder);
    const FamilyGraph graph = family.graph();
    const HangGuard guard;
    EXPECT_TRUE(tells(process(graph).value(), LogEntry::Kind::EndlessPush));
}

TEST(Balancing, ProvesEndlessnessWherePushesRepeatSoonerThanTheirHeights)
{
    // In the seventh of these, say, pushes come again after three sweeps, but rise by five and by three levels in
    // turns.
#ifdef LINEARA_SANITIZED
    constexpr unsigned families = 50;
#else
    constexpr unsigned families = 1'000;
#endif
    int endless = 0;
    const HangGuard guard;
    for (unsigned seed = 0; seed < families; ++seed) {
        std::mt19937_64 random(seed);
        endless += tells(processed(tangledFamily(60, 10, random)), LogEntry::Kind::EndlessPush);
    }
    EXPECT_GT(endless, 0);
}

TEST(Balancing, ReachesTheLimitOfGenerationsWhereAKnotNeverRepeats)
{
    // Two knots of different speed that share persons: the slower one slips by one sweep ever more seldom.
    std::mt19937_64 random(3 * 1'000'003 + 7316);
    const FamilyGraph graph = randomFamily({20, 60, 1.0, 0.4, 0.2, 0.05}, random);
    ASSERT_FALSE(processLiterally(graph, 20'000).has_value());
    const HangGuard guard;
    EXPECT_TRUE(tells(process(graph).value(), LogEntry::Kind::EndlessPush));
}

TEST(Balancing, WorksOnTwoLinesOfDifferentLengthAsTheRulesDo)
{
#ifdef LINEARA_SANITIZED
    const FamilyGraph family = twoLines(10, 400).graph();
#else
    const FamilyGraph family = twoLines(10, 3'200).graph();
#endif
    const auto result = process(family);
    const auto literal = processLiterally(family);
    ASSERT_TRUE(literal.has_value());
    EXPECT_EQ(result->generations, literal->generations);
    EXPECT_EQ(result->rows, literal->rows);
    EXPECT_EQ(result->log, literal->log);
}

TEST(Balancing, TakesOneStepPerPushOnLongLines)
{
    // What the rules give for shorter lines holds here: the child ends at `longer` - `shorter`, each line rises from
    // it without gaps, and the founders stand above the longer one.
    constexpr Generation shorter = 10;
    constexpr Generation longer = 100'000;
    std::vector<Generation> expected{2 * longer - shorter + 1, 2 * longer - shorter + 1};
    for (Generation person = 0; person < shorter; ++person)
        expected.push_back(longer - person);
    for (Generation person = 0; person < longer; ++person)
        expected.push_back(2 * longer - shorter - person);
    expected.push_back(longer - shorter);

    const FamilyGraph family = twoLines(shorter, longer).graph();
    const HangGuard guard;
    const auto result = process(family);
    EXPECT_TRUE(result->generations == expected); // A listing of 100,000 numbers would help nobody.
    EXPECT_FALSE(tells(*result, LogEntry::Kind::EndlessPush));
}

} // namespace lineara::engine
