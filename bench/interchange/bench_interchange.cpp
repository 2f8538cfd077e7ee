// Prints what it costs to take in genealogies, to arrange them and to give them back: processor time and most memory of
// the process so far. Of the GEDCOM files given as arguments, in their order, so that the largest should come last.
// Pictures beside a file are read too.

#include "canvas/tidying.h"
#include "interchange/gedcom_export.h"
#include "interchange/gedcom_import.h"
#include "platform/log.h"
#include "store/family_content.h"

#include <QCoreApplication>

#include <sys/resource.h>

#include <cstdio>
#include <ctime>
#include <utility>

namespace lineara::bench {

namespace {

double processorSeconds()
{
    timespec time{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) / 1e9;
}

double mostMegabytes()
{
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return static_cast<double>(usage.ru_maxrss) / 1024;
}

void measure(const QString& path)
{
    const double start = processorSeconds();
    const auto family = importGedcomFile(path);
    if (family.failed()) {
        std::printf("%s\n", qPrintable(family.failure().message));
        return;
    }
    const double imported = processorSeconds();
    std::printf("%s: %lld persons\n  import  %7.3f s  %5.0f MB\n", qPrintable(path),
                static_cast<long long>(family.value().context->allPools().front()->persons().size()), imported - start,
                mostMegabytes());
    Pool& pool = *family.value().context->allPools().front();
    pool.process();
    const double processed = processorSeconds();
    giveFirstPlaces(pool);
    std::printf("  arrange %7.3f s  %5.0f MB\n", processorSeconds() - processed, mostMegabytes());
    for (const auto& [name, format] : {std::pair{"5.5.1", GedcomFormat::Gedcom551}, {"7.0", GedcomFormat::Gedcom70}}) {
        const double before = processorSeconds();
        const auto text = gedcomOf(FamilyContent(*family.value().context), format);
        std::printf("  %-7s %7.3f s  %5.0f MB  %lld bytes\n", name, processorSeconds() - before, mostMegabytes(),
                    static_cast<long long>(text.failed() ? 0 : text.value().size()));
    }
    std::fflush(stdout);
}

} // namespace

} // namespace lineara::bench

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    // Figures stand alone, without every generation that the engine had to refuse.
    const lineara::LogCapture refusals;
    for (int at = 1; at < argc; ++at)
        lineara::bench::measure(QString::fromLocal8Bit(argv[at]));
}
