#include "family_maker.h"
#include "hang_guard.h"
#include "literal_rules.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>

namespace lineara::engine {

namespace {

#ifdef LINEARA_SANITIZED
constexpr int comparedFamilies = 2'000;
constexpr int smallFamilies = 2'000;
constexpr int tangledFamilies = 100;
#else
constexpr int comparedFamilies = 30'000;
constexpr int smallFamilies = 100'000;
constexpr int tangledFamilies = 2'000;
#endif

bool isOfTheEngineAlone(const LogEntry& entry)
{
    return entry.kind == LogEntry::Kind::BelowFirstRow || entry.kind == LogEntry::Kind::EndlessPush;
}

bool isEndless(const ProcessResult& result)
{
    return std::ranges::count(result.log, LogEntry::Kind::EndlessPush, &LogEntry::kind) > 0;
}

void expectSame(const ProcessResult& engine, const ProcessResult& literal)
{
    EXPECT_EQ(engine.generations, literal.generations);
    EXPECT_EQ(engine.rowsBuilt, literal.rowsBuilt);
    EXPECT_EQ(engine.maxGeneration, literal.maxGeneration);
    EXPECT_EQ(engine.maxGenerationOf, literal.maxGenerationOf);
    EXPECT_EQ(engine.maxGenerationSize, literal.maxGenerationSize);
    EXPECT_EQ(engine.rows, literal.rows);
    EXPECT_EQ(engine.partners, literal.partners);
    EXPECT_EQ(engine.offspring, literal.offspring);
    EXPECT_EQ(engine.willWalk, literal.willWalk);
    std::vector<LogEntry> log = engine.log;
    std::erase_if(log, isOfTheEngineAlone);
    EXPECT_EQ(log, literal.log);
}

struct Tally
{
    int ended = 0;
    int endless = 0;
    int refused = 0;
    int belowFirstRow = 0;
    int stillImbalanced = 0;
};

std::optional<ProcessResult> processInASecond(const FamilyGraph& family)
{
    const HangGuard guard;
    return process(family);
}

/// Compares the engine with the rules on random families, until the first that differs.
Tally compare(const std::function<FamilyGraph(std::mt19937_64&)>& make, int families, std::uint64_t seed,
              std::int64_t greatestSweeps)
{
    Tally tally;
    for (int round = 0; round < families && !testing::Test::HasFailure(); ++round) {
        SCOPED_TRACE("family " + std::to_string(round) + " of seed " + std::to_string(seed));
        std::mt19937_64 random(seed * 1'000'003 + static_cast<std::uint64_t>(round));
        const FamilyGraph family = make(random);
        const auto engine = processInASecond(family);
        const auto literal = processLiterally(family, greatestSweeps);
        EXPECT_EQ(isEndless(*engine), !literal.has_value());
        if (literal) {
            expectSame(*engine, *literal);
            ++tally.ended;
        } else {
            ++tally.endless;
        }
        const auto kinds = [&](LogEntry::Kind kind) {
            return static_cast<int>(std::ranges::count(engine->log, kind, &LogEntry::kind));
        };
        tally.refused += kinds(LogEntry::Kind::RefusedGeneration);
        tally.belowFirstRow += kinds(LogEntry::Kind::BelowFirstRow);
        tally.stillImbalanced += kinds(LogEntry::Kind::StillImbalanced);
    }
    return tally;
}

Tally compare(const RandomFamily& wish, int families, std::uint64_t seed, std::int64_t greatestSweeps)
{
    return compare([&](std::mt19937_64& random) { return randomFamily(wish, random); }, families, seed, greatestSweeps);
}

} // namespace

TEST(ProcessAgainstRules, AgreesOnFamiliesOfAllKinds)
{
    const Tally sparse = compare({1, 20, 0.8, 0.3, 0.3, 0.1}, comparedFamilies / 3, 1, 20'000);
    const Tally dense = compare({2, 16, 1.4, 0.8, 0.3, 0.1}, comparedFamilies / 3, 2, 20'000);
    const Tally larger = compare({20, 60, 1.0, 0.4, 0.2, 0.05}, comparedFamilies / 3, 3, 20'000);
    EXPECT_GT(sparse.refused, 0);
    EXPECT_GT(dense.belowFirstRow, 0);
    EXPECT_GT(dense.endless, 0);
    EXPECT_GT(larger.refused, 0);
    EXPECT_EQ(sparse.stillImbalanced + dense.stillImbalanced + larger.stillImbalanced, 0);
}

TEST(ProcessAgainstRules, AgreesOnFamiliesThatSomebodyTangledLinkByLink)
{
    for (const std::uint32_t links : {5U, 10U, 20U, 40U}) {
        const auto make = [&](std::mt19937_64& random) { return tangledFamily(60, links, random).graph(); };
        const Tally tally = compare(make, tangledFamilies / 4, links, 5'000);
        EXPECT_GT(tally.ended, 0);
        EXPECT_GT(tally.endless, 0);
    }
}

TEST(ProcessAgainstRules, EndsWhereTheyNeverEndAndOnlyThere)
{
    const Tally tally = compare({2, 10, 1.0, 0.5, 0.0, 0.0}, smallFamilies, 4, 100'000);
    EXPECT_EQ(tally.ended + tally.endless, smallFamilies);
    EXPECT_GT(tally.endless, 0);
    EXPECT_EQ(tally.stillImbalanced, 0) << "only a cycle of parents can end like that";
}

} // namespace lineara::engine
