#include "engine/process.h"

#include "family_maker.h"
#include "hang_guard.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <chrono>
#include <thread>

namespace lineara::engine {

TEST(LargeFamily, MayBeOneLineOfTwoHundredThousand)
{
    constexpr std::uint32_t persons = 200'000;
    const FamilyGraph family = FamilyMaker(persons).line(0, persons - 1).graph();
    const HangGuard guard;
    const auto result = process(family);
    EXPECT_EQ(result->generations.front(), static_cast<Generation>(persons));
    EXPECT_EQ(result->generations.back(), 1);
    EXPECT_EQ(result->maxGenerationSize, 1);
}

TEST(LargeFamily, MayBeALatticeOfSixtyGenerationsOfCousins)
{
    constexpr std::uint32_t rows = 60;
    FamilyMaker family(2 * rows);
    for (PersonIndex row = 0; row + 1 < rows; ++row) {
        const PersonIndex first = 2 * row;
        family.offspring({{first, first + 2}, {first, first + 3}, {first + 1, first + 2}, {first + 1, first + 3}});
    }
    const HangGuard guard;
    const auto result = process(family.graph());
    EXPECT_EQ(result->maxGeneration, 60);
    EXPECT_EQ(result->maxGenerationSize, 2);
}

TEST(LargeFamily, MayHaveFiveThousandChildren)
{
    FamilyMaker family(5'002);
    family.partners(0, 1);
    for (PersonIndex child = 2; child < family.persons(); ++child)
        family.offspring(0, child).offspring(1, child);
    const HangGuard guard;
    EXPECT_EQ(process(family.graph())->maxGenerationSize, 5'000);
}

TEST(LargeFamily, MayFallIntoFiftyThousandFamilies)
{
    FamilyMaker family(150'000);
    for (PersonIndex person = 0; person < family.persons(); person += 3)
        family.partners(person, person + 1).offspring(person, person + 2).offspring(person + 1, person + 2);
    const FamilyGraph graph = family.graph();
    const HangGuard guard;
    const auto result = process(graph);
    EXPECT_EQ(result->maxGeneration, 2);
    EXPECT_EQ(result->maxGenerationSize, 100'000);
}

TEST(LargeFamily, EndsInSpiteOfOneKnotAmongAHundredThousand)
{
    // A line of four with the oldest partner of the youngest: beside the family, below its youngest row, where the
    // knot would drag all its ancestors up for ever, and between its rows.
    constexpr std::uint32_t persons = 100'000;
    constexpr PersonIndex oldest = persons;
    const FamilyMaker family = familyInRows(persons, 25, 4).line(oldest, oldest + 3).partners(oldest, oldest + 3);
    for (const PersonIndex parent : {oldest, persons - 1, persons / 2}) {
        FamilyMaker knotted = family;
        if (parent != oldest)
            knotted.offspring(parent, oldest);
        const FamilyGraph graph = knotted.graph();
        const HangGuard guard;
        const auto result = process(graph);
        EXPECT_EQ(std::ranges::count(result->log, LogEntry::Kind::EndlessPush, &LogEntry::kind), 1);
        EXPECT_LT(result->maxGeneration, 100);
    }
}

TEST(StoppedRun, ReturnsNothing)
{
    std::stop_source stop;
    stop.request_stop();
    EXPECT_EQ(process(familyInRows(1'000, 12).graph(), stop.get_token()), std::nullopt);
    EXPECT_EQ(process(FamilyMaker(0).graph(), stop.get_token()), std::nullopt);
}

TEST(StoppedRun, EndsSoonWhereverItIs)
{
    const FamilyGraph family = familyInRows(100'000, 25).graph();
    for (const int wait : {0, 1, 2, 4, 8, 16}) {
        std::stop_source stop;
        std::optional<ProcessResult> result;
        std::jthread worker([&] { result = process(family, stop.get_token()); });
        std::this_thread::sleep_for(std::chrono::milliseconds(wait));
        stop.request_stop();
        const HangGuard guard;
        worker.join();
        if (result) {
            EXPECT_EQ(result->generations.size(), family.persons());
        }
    }
}

TEST(HurriedRun, LeavesPartnersOutAndSaysSo)
{
    const FamilyGraph family = FamilyMaker(2).offspring(0, 1).partners(0, 1).graph();
    std::stop_source hurry;
    EXPECT_EQ(process(family, {}, hurry.get_token())->generations, (std::vector<Generation>{5, 4}));
    hurry.request_stop();
    const auto result = process(family, {}, hurry.get_token());
    EXPECT_EQ(result->generations, (std::vector<Generation>{3, 2}));
    ASSERT_EQ(result->log.size(), 1U);
    EXPECT_EQ(logLine(result->log[0]), "Pushing up with partners was cut short. Pushing up without partners instead");
}

TEST(HurriedRun, EndsWithAllRowsBuiltWheneverTheHurryComes)
{
    std::mt19937_64 random(1);
    const FamilyGraph family = tangledFamily(2'000, 4'000, random).graph();
    for (const int wait : {0, 1, 2, 4, 8, 16}) {
        std::stop_source hurry;
        std::optional<ProcessResult> result;
        std::jthread worker([&] { result = process(family, {}, hurry.get_token()); });
        std::this_thread::sleep_for(std::chrono::milliseconds(wait));
        hurry.request_stop();
        const HangGuard guard;
        worker.join();
        ASSERT_TRUE(result.has_value());
        EXPECT_TRUE(result->rowsBuilt);
        for (PersonIndex child = 0; child < family.persons(); ++child) {
            for (const PersonIndex parent : family.parents[child])
                EXPECT_GT(result->generations[parent], result->generations[child]);
        }
    }
}

} // namespace lineara::engine
