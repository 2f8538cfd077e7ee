#include "made_family.h"

#include "model/journal.h"
#include "model/person.h"
#include "model/pool.h"
#include "platform/log.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <ctime>
#include <optional>
#include <vector>

/// The engine beside one plain pass over the same links, and the whole road from the records through the engine back
/// into the records. Times are taken in turns, so that all see the same machine; figures are medians.
namespace {

using namespace lineara;

/// Processor time of this thread, which other programs disturb least.
double now()
{
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + 1e-9 * static_cast<double>(time.tv_nsec);
}

template<class Work>
double secondsOf(Work work)
{
    const double begin = now();
    work();
    return now() - begin;
}

double median(std::vector<double> values)
{
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

/// What any computation over the links has to do at least: look at each link and at the number behind it.
void passOverLinks(const engine::FamilyGraph& family, std::vector<engine::Generation>& numbers)
{
    for (engine::PersonIndex person = 0; person < family.persons(); ++person) {
        engine::Generation highest = 0;
        for (const auto* list : {&family.parents, &family.children, &family.partners}) {
            for (const engine::PersonIndex other : (*list)[person])
                highest = std::max(highest, numbers[other]);
        }
        numbers[person] = highest + 1;
    }
    benchmark::DoNotOptimize(numbers.data());
}

void forgetGenerations(Pool& pool)
{
    const Journal::Pause pause(pool.context().journal());
    const std::vector<Person*> persons(pool.persons().begin(), pool.persons().end());
    pool.context().setMany(PersonAttribute::Generation, persons,
                           std::vector<std::optional<std::int32_t>>(persons.size()));
}

void process(benchmark::State& state)
{
    const auto context = madeFamily(static_cast<std::size_t>(state.range(0)), static_cast<unsigned>(state.range(1)));
    Pool& pool = *context->allPools().front();
    const FamilySnapshot family = pool.snapshot();
    const LogCapture quiet;
    std::vector<double> floors;
    std::vector<double> engines;
    std::vector<double> roads;
    std::size_t lines = 0;
    for (auto _ : state) {
        std::vector<engine::Generation> numbers(family.graph.persons(), 0);
        passOverLinks(family.graph, numbers);
        floors.push_back(secondsOf([&] { passOverLinks(family.graph, numbers); }));
        engines.push_back(secondsOf([&] { lines = engine::process(family.graph)->log.size(); }));
        forgetGenerations(pool);
        context->journal().clear();
        context->journal().begin({});
        roads.push_back(secondsOf([&] { pool.process(); }));
        state.SetIterationTime(roads.back());
    }
    state.counters["floor_ms"] = 1e3 * median(floors);
    state.counters["engine_ms"] = 1e3 * median(engines);
    state.counters["records_to_records_ms"] = 1e3 * median(roads);
    state.counters["engine_to_floor"] = median(engines) / median(floors);
    state.counters["log_lines"] = static_cast<double>(lines);
}

BENCHMARK(process)
    ->ArgNames({"persons", "straying"})
    ->ArgsProduct({{1'000, 10'000, 100'000, 200'000}, {0, 1}})
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond)
    ->MinTime(2);

} // namespace
