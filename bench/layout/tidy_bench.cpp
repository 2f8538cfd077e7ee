#include "layout/tidy.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdint>
#include <random>
#include <vector>

/// Whole families tidied up. Rows hold as many persons as the second argument says, two thirds of them couples whose
/// children are born near to where they stand themselves, so that there is something to be untangled.
namespace {

using namespace lineara;
using layout::TidyTask;

struct Family
{
    engine::FamilyGraph graph;
    std::vector<engine::Generation> generations;
};

using Links = std::vector<std::vector<engine::PersonIndex>>;

engine::Adjacency flattened(const Links& links)
{
    engine::Adjacency adjacency;
    for (const auto& others : links) {
        for (const engine::PersonIndex other : others)
            adjacency.add(other);
        adjacency.endPerson();
    }
    return adjacency;
}

Family randomFamily(std::uint32_t rows, std::uint32_t personsInRow)
{
    constexpr std::uint32_t spread = 30;
    std::mt19937 random(1);
    const std::uint32_t persons = rows * personsInRow;
    Links parents(persons);
    Links children(persons);
    Links partners(persons);
    Family family;
    for (std::uint32_t person = 0; person < persons; ++person) {
        const std::uint32_t place = person % personsInRow;
        family.graph.numbers.push_back(100 + person);
        family.generations.push_back(static_cast<engine::Generation>(rows - person / personsInRow));
        if (place % 2 == 1) {
            partners[person].push_back(person - 1);
            partners[person - 1].push_back(person);
        }
        if (person < personsInRow || (place % 2 == 1 && random() % 3 == 0))
            continue;
        const std::uint32_t near =
            std::min<std::uint32_t>(place + static_cast<std::uint32_t>(random()) % spread, personsInRow - 2);
        const engine::PersonIndex parent = person - place - personsInRow + near / 2 * 2;
        parents[person] = {parent, parent + 1};
        children[parent].push_back(person);
        children[parent + 1].push_back(person);
    }
    family.graph.members = persons;
    family.graph.parents = flattened(parents);
    family.graph.children = flattened(children);
    family.graph.partners = flattened(partners);
    return family;
}

void tidiedFamily(benchmark::State& state)
{
    const Family family =
        randomFamily(static_cast<std::uint32_t>(state.range(0)), static_cast<std::uint32_t>(state.range(1)));
    for (auto _ : state)
        benchmark::DoNotOptimize(layout::tidy({family.graph, family.generations}));
}

BENCHMARK(tidiedFamily)
    ->ArgNames({"rows", "persons"})
    ->Args({10, 20})
    ->Args({30, 100})
    ->Args({36, 280})
    ->Args({36, 950})
    ->Args({36, 2'800})
    ->Unit(benchmark::kMillisecond);

} // namespace
