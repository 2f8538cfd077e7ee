#include "engine/made_family.h"
#include "kinship/checks.h"
#include "kinship/relationship.h"
#include "kinship/relatives.h"
#include "model/pool.h"

#include <benchmark/benchmark.h>

#include <random>

/// What a click waits for: the relationship of two persons anywhere in a family, and everybody who is to be
/// highlighted; and what all the checks together cost.
namespace {

using namespace lineara;
using kinship::PersonIndex;

engine::FamilyGraph familyOf(const benchmark::State& state)
{
    const auto family = madeFamily(static_cast<std::size_t>(state.range(0)), 0);
    return family->allPools().front()->snapshot().graph;
}

void relationshipOfAnyTwo(benchmark::State& state)
{
    const engine::FamilyGraph family = familyOf(state);
    std::mt19937 random{1};
    for (auto _ : state) {
        const PersonIndex first = static_cast<PersonIndex>(random()) % family.persons();
        const PersonIndex second = static_cast<PersonIndex>(random()) % family.persons();
        benchmark::DoNotOptimize(kinship::relationshipOf(family, first, second));
    }
}

void ancestorsAndDescendants(benchmark::State& state)
{
    const engine::FamilyGraph family = familyOf(state);
    std::mt19937 random{1};
    for (auto _ : state) {
        const PersonIndex person = static_cast<PersonIndex>(random()) % family.persons();
        benchmark::DoNotOptimize(kinship::ancestorsOf(family, person));
        benchmark::DoNotOptimize(kinship::descendantsOf(family, person));
    }
}

void snapshotOfLinks(benchmark::State& state)
{
    const auto family = madeFamily(static_cast<std::size_t>(state.range(0)), 0);
    for (auto _ : state)
        benchmark::DoNotOptimize(family->allPools().front()->snapshot());
}

void allChecks(benchmark::State& state)
{
    const engine::FamilyGraph family = familyOf(state);
    std::mt19937 random{1};
    std::vector<kinship::LifeDates> dates(family.persons());
    // The oldest row comes first, and a row takes thirty years.
    const std::uint32_t rows = 40;
    for (PersonIndex person = 0; person < family.persons(); ++person) {
        const std::uint32_t row = person / (family.persons() / rows);
        const auto year = static_cast<std::int32_t>(500 + 30 * row + random() % 20);
        dates[person] = {{year, 1 + static_cast<std::int32_t>(random() % 12), 5}, {year + 60}};
    }
    for (auto _ : state)
        benchmark::DoNotOptimize(kinship::findings({family, dates}));
}

} // namespace

BENCHMARK(relationshipOfAnyTwo)->Arg(10'000)->Arg(100'000)->Unit(benchmark::kMicrosecond);
BENCHMARK(ancestorsAndDescendants)->Arg(10'000)->Arg(100'000)->Unit(benchmark::kMicrosecond);
BENCHMARK(snapshotOfLinks)->Arg(10'000)->Arg(100'000)->Unit(benchmark::kMicrosecond);
BENCHMARK(allChecks)->Arg(10'000)->Arg(100'000)->Unit(benchmark::kMicrosecond);
