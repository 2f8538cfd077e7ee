#include "made_family.h"
#include "store/family_file.h"
#include "xml_fragment.h"

#include <benchmark/benchmark.h>

#include <QBuffer>

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

BENCHMARK(reading)->Arg(1'000)->Arg(10'000)->Arg(100'000)->UseManualTime()->Iterations(11)->Unit(
    benchmark::kMillisecond);
BENCHMARK(writing)->Arg(1'000)->Arg(10'000)->Arg(100'000)->UseManualTime()->Iterations(11)->Unit(
    benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
