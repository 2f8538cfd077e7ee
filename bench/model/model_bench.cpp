#include "model/context_loader.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <memory>

namespace lineara {

namespace {

constexpr std::size_t generationsOfFamily = 25;

/// Couples in rows: the persons of a row are partners by twos, and each couple of the row above has its children here.
class FamilyMaker
{
public:
    explicit FamilyMaker(std::size_t persons) : loader_(QUuid::createUuid(), 102 + persons, persons + 1)
    {
        Pool& pool = loader_.addPool({101});
        for (std::size_t at = 0; at < persons; ++at)
            persons_.push_back(&loader_.addPerson({102 + at}, {.name = QString::number(at), .x = 10}));
        const std::size_t row = std::max<std::size_t>(2, persons / generationsOfFamily & ~std::size_t{1});
        for (std::size_t at = 0; at < persons; ++at)
            link(at, row);
        loader_.setMembers(pool, persons_);
    }

    std::unique_ptr<ObjectContext> finish() { return loader_.finish(); }

private:
    void link(std::size_t at, std::size_t row)
    {
        const std::size_t couple = at & ~std::size_t{1};
        Person& person = *persons_[at];
        if ((at ^ 1) < persons_.size())
            loader_.setPartners(person, {persons_[at ^ 1]});
        if (at % 2 == 0 && couple >= row)
            loader_.setParents(person, {persons_[couple - row], persons_[couple - row + 1]});
        if (couple + row < persons_.size())
            loader_.setChildren(person, {persons_[couple + row]});
    }

    ContextLoader loader_;
    std::vector<Person*> persons_;
};

std::size_t personsOf(const benchmark::State& state)
{
    return static_cast<std::size_t>(state.range(0));
}

void load(benchmark::State& state)
{
    for (auto round : state) {
        auto context = FamilyMaker(personsOf(state)).finish();
        benchmark::DoNotOptimize(context);
        state.PauseTiming();
        context.reset();
        state.ResumeTiming();
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

void takeSnapshot(benchmark::State& state)
{
    const auto context = FamilyMaker(personsOf(state)).finish();
    const Pool& pool = *context->allPools().front();
    for (auto round : state)
        benchmark::DoNotOptimize(pool.snapshot());
}

/// Everybody goes up a row or down again, as one event and one journal entry.
void writeBack(benchmark::State& state)
{
    const auto context = FamilyMaker(personsOf(state)).finish();
    Pool& pool = *context->allPools().front();
    const FamilySnapshot family = pool.snapshot();
    engine::ProcessResult result = *engine::process(family.graph);
    for (auto round : state) {
        context->journal().begin(QStringLiteral("Link"));
        pool.apply(family, result);
        state.PauseTiming();
        for (engine::Generation& generation : result.generations)
            generation += state.iterations() % 2 ? 1 : -1;
        state.ResumeTiming();
    }
}

void processWhole(benchmark::State& state)
{
    const auto context = FamilyMaker(personsOf(state)).finish();
    Pool& pool = *context->allPools().front();
    for (auto round : state)
        benchmark::DoNotOptimize(pool.process());
}

void shiftEverybody(benchmark::State& state)
{
    const auto context = FamilyMaker(personsOf(state)).finish();
    Pool& pool = *context->allPools().front();
    context->journal().begin(QStringLiteral("Move"));
    for (auto round : state)
        context->shiftX(pool, 1);
}

void undoAndRedo(benchmark::State& state)
{
    const auto context = FamilyMaker(personsOf(state)).finish();
    Pool& pool = *context->allPools().front();
    context->journal().begin(QStringLiteral("Link"));
    pool.process();
    for (auto round : state) {
        context->journal().undo();
        context->journal().redo();
    }
}

BENCHMARK(load)->Arg(1'000)->Arg(100'000)->Unit(benchmark::kMillisecond);
BENCHMARK(takeSnapshot)->Arg(1'000)->Arg(100'000)->Unit(benchmark::kMillisecond);
BENCHMARK(writeBack)->Arg(1'000)->Arg(100'000)->Unit(benchmark::kMillisecond);
BENCHMARK(processWhole)->Arg(1'000)->Arg(100'000)->Unit(benchmark::kMillisecond);
BENCHMARK(shiftEverybody)->Arg(1'000)->Arg(100'000)->Unit(benchmark::kMillisecond);
BENCHMARK(undoAndRedo)->Arg(1'000)->Arg(100'000)->Unit(benchmark::kMillisecond);

} // namespace

} // namespace lineara

BENCHMARK_MAIN();
