#include "made_family.h"
#include "store/family_file.h"
#include "store/migration_manager.h"
#include "store/model_bundle.h"
#include "xml_fragment.h"

#include <benchmark/benchmark.h>

#include <QBuffer>
#include <QTemporaryDir>

#include <algorithm>
#include <optional>
#include <vector>

#include <ctime>

/// Reading and writing beside what the XML library alone needs for the same bytes, in turns, so that both see the same
/// machine. `ratio` is the median of the ratios of each turn.
namespace {

using namespace lineara;

QByteArray textOf(const ObjectContext& family)
{
    QByteArray text;
    QBuffer buffer(&text);
    buffer.open(QIODevice::WriteOnly);
    writeFamily(family, buffer);
    return text;
}

double cpuSeconds()
{
    timespec now = {};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) + 1e-9 * static_cast<double>(now.tv_nsec);
}

/// Processor time of this thread, which other programs on the machine disturb little.
template<class Work>
double secondsOf(Work work)
{
    const auto begin = cpuSeconds();
    work();
    return cpuSeconds() - begin;
}

double median(std::vector<double> values)
{
    std::nth_element(values.begin(), values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2), values.end());
    return values[values.size() / 2];
}

/// Collects the turns of one benchmark.
class Comparison
{
public:
    void add(double ours, double floor)
    {
        ours_.push_back(ours);
        floors_.push_back(floor);
        ratios_.push_back(ours / floor);
    }

    void report(benchmark::State& state, qsizetype bytes) const
    {
        state.counters["ours_ms"] = 1e3 * median(ours_);
        state.counters["pugixml_ms"] = 1e3 * median(floors_);
        state.counters["ratio"] = median(ratios_);
        state.counters["MB"] = static_cast<double>(bytes) / 1e6;
    }

private:
    std::vector<double> ours_;
    std::vector<double> floors_;
    std::vector<double> ratios_;
};

void parse(pugi::xml_document& document, QByteArray& bytes)
{
    document.load_buffer_inplace(bytes.data(), static_cast<std::size_t>(bytes.size()), store::parseFlags,
                                 pugi::encoding_utf8);
}

void reading(benchmark::State& state)
{
    const auto text = textOf(*madeFamily(static_cast<std::size_t>(state.range(0))));
    Comparison comparison;
    for (auto _ : state) {
        QByteArray floorBytes(text.constData(), text.size());
        QByteArray bytes(text.constData(), text.size());
        // Taking down what was built is not part of reading.
        pugi::xml_document document;
        const double floor = secondsOf([&] { parse(document, floorBytes); });
        document.reset();
        std::optional<Outcome<LoadedFamily>> family;
        const double ours = secondsOf([&] { family = readFamily(std::move(bytes), QStringLiteral("made")); });
        comparison.add(ours, floor);
        state.SetIterationTime(ours);
    }
    comparison.report(state, text.size());
}

struct MemoryWriter : pugi::xml_writer
{
    void write(const void* data, std::size_t size) override
    {
        memory.append(static_cast<const char*>(data), static_cast<qsizetype>(size));
    }
    QByteArray memory;
};

void writing(benchmark::State& state)
{
    const auto family = madeFamily(static_cast<std::size_t>(state.range(0)));
    auto text = textOf(*family);
    const auto size = text.size();
    pugi::xml_document document;
    document.load_buffer(text.constData(), static_cast<std::size_t>(size),
                         pugi::parse_default | pugi::parse_ws_pcdata_single);
    Comparison comparison;
    for (auto _ : state) {
        const double floor = secondsOf([&document] {
            MemoryWriter writer;
            document.save(writer, "    ");
        });
        const double ours = secondsOf([&family] { benchmark::DoNotOptimize(textOf(*family)); });
        comparison.add(ours, floor);
        state.SetIterationTime(ours);
    }
    comparison.report(state, size);
}

/// What the main thread pays for a copy that is written elsewhere. `ms` is the median, `letting_go_ms` what dropping it
/// costs on whatever thread that happens.
/// The family as version 12 wrote it: with dates instead of days, months and years.
QByteArray olderText(const ObjectContext& family)
{
    QByteArray result;
    for (QByteArray line : textOf(family).split('\n')) {
        if (line.contains("Day\"") || line.contains("Month\""))
            continue;
        if (const auto year = line.indexOf("Year\" type=\"int32\""); year >= 0)
            line = line.left(year) + "\" type=\"date\">-4733589600.5</attribute>";
        result += line + '\n';
    }
    result.chop(1);
    return result.replace("modelVersion\">14", "modelVersion\">12");
}

void migrating(benchmark::State& state)
{
    const QTemporaryDir folder;
    const auto text = olderText(*madeFamily(static_cast<std::size_t>(state.range(0))));
    QFile file(folder.filePath(QStringLiteral("old")));
    if (!file.open(QIODevice::WriteOnly) || file.write(text) != text.size())
        return state.SkipWithError("no room for the old file");
    file.close();
    const ResourceBundle bundle;
    const auto source = bundle.model(bundle.resources(u"mom"_qs, u"Document.momd"_qs).at(1)).value();
    const MigrationManager manager(source, bundle.currentModel());
    const auto mapping = bundle.mappingModel(source, bundle.currentModel()).value();
    Comparison comparison;
    for (auto _ : state) {
        QByteArray floorBytes(text.constData(), text.size());
        pugi::xml_document document;
        const double floor = secondsOf([&] { parse(document, floorBytes); });
        document.reset();
        const double ours = secondsOf([&] {
            const auto done = manager.migrateStore(file.fileName(), folder.filePath(QStringLiteral("new")), mapping);
            if (done.failed())
                state.SkipWithError(qPrintable(done.failure().message));
        });
        comparison.add(ours, floor);
        state.SetIterationTime(ours);
    }
    comparison.report(state, text.size());
}

void takingContent(benchmark::State& state)
{
    const auto family = madeFamily(static_cast<std::size_t>(state.range(0)));
    std::vector<double> taking;
    std::vector<double> lettingGo;
    for (auto _ : state) {
        std::optional<FamilyContent> content;
        taking.push_back(secondsOf([&] { content.emplace(*family); }));
        lettingGo.push_back(secondsOf([&] { content.reset(); }));
        state.SetIterationTime(taking.back());
    }
    state.counters["ms"] = 1e3 * median(taking);
    state.counters["letting_go_ms"] = 1e3 * median(lettingGo);
}

BENCHMARK(takingContent)
    ->Arg(1'000)
    ->Arg(10'000)
    ->Arg(100'000)
    ->UseManualTime()
    ->Iterations(21)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(reading)->Arg(1'000)->Arg(10'000)->Arg(100'000)->UseManualTime()->Iterations(11)->Unit(
    benchmark::kMillisecond);
BENCHMARK(writing)->Arg(1'000)->Arg(10'000)->Arg(100'000)->UseManualTime()->Iterations(11)->Unit(
    benchmark::kMillisecond);
BENCHMARK(migrating)->Arg(1'000)->Arg(10'000)->Arg(100'000)->UseManualTime()->Iterations(7)->Unit(
    benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
