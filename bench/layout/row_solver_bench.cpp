#include "layout/row_solver.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <random>
#include <vector>

/// One row of random nodes put in order and solved. Places lie as many points apart as the second argument says, about
/// 81 being what they need: everybody in a heap, too narrow by half, just too narrow, and mostly room enough.
namespace {

using namespace lineara::layout;

struct Nodes
{
    std::vector<std::int32_t> lefts;
    std::vector<std::int32_t> widths;
};

Nodes randomNodes(std::size_t count, std::size_t pitch)
{
    std::mt19937 random(1);
    Nodes nodes;
    for (std::size_t node = 0; node < count; ++node) {
        nodes.lefts.push_back(static_cast<std::int32_t>(random() % (count * pitch + 1'000)));
        nodes.widths.push_back(static_cast<std::int32_t>(random() % 143));
    }
    return nodes;
}

std::vector<RowNode> inOrder(const Nodes& nodes)
{
    std::vector<RowNode> row;
    row.reserve(nodes.lefts.size());
    for (const std::size_t node : rowOrder(nodes.lefts))
        row.push_back({nodes.lefts[node], nodes.widths[node], node % 3 != 0});
    return row;
}

void solvedRow(benchmark::State& state)
{
    const auto nodes = randomNodes(static_cast<std::size_t>(state.range(0)), static_cast<std::size_t>(state.range(1)));
    for (auto _ : state)
        benchmark::DoNotOptimize(solveRow(inOrder(nodes)));
}

BENCHMARK(solvedRow)
    ->ArgNames({"nodes", "pitch"})
    ->ArgsProduct({{1'000, 20'000, 100'000}, {0, 40, 80, 300}})
    ->Unit(benchmark::kMillisecond);

} // namespace
