// How the list of a large family answers: opening any row, sorting anew, searching while somebody types.

#include "model/object_context.h"
#include "personlist/person_table_view_controller.h"
#include "platform/main_thread.h"

#include <QApplication>
#include <QLineEdit>

#include <benchmark/benchmark.h>

#include <random>
#include <vector>

namespace {

using namespace lineara;

constexpr int persons = 100'000;
constexpr int generations = 60;

/// A family of 100,000 in a window that is shown.
struct LargeList
{
    LargeList()
    {
        MainThread::prepare();
        static const char* const names[] = {"Anna", "Bob", "Charlotte", "Dietrich", "Élodie", "Frédéric", "Gretä"};
        for (int number = 0; number < persons; ++number) {
            const QString name =
                QString::fromUtf8(names[chance() % std::size(names)]) + QStringLiteral(" van der Berg %1").arg(number);
            const auto generation = static_cast<std::int32_t>(chance() % generations);
            Person& person = context.insertPerson({.name = name,
                                                   .additional = QStringLiteral("Farmer, lived in two parishes."),
                                                   .birthYear = 1500 + static_cast<std::int32_t>(chance() % 500),
                                                   .generation = generation});
            pool.addPerson(person);
            everybody.push_back(&person);
        }
        list.setObjects(everybody);
        list.rearrangeObjects();
        list.setReducedMotion(true);
        list.view().resize(320, 900);
        list.view().show();
        QApplication::processEvents();
    }

    Person& anybody() { return *everybody[chance() % everybody.size()]; }
    QLineEdit& search() { return *list.view().findChild<QLineEdit*>(QStringLiteral("searchField")); }

    std::mt19937 chance{1};
    ObjectContext context;
    Pool& pool = context.insertPool();
    std::vector<Person*> everybody;
    PersonTableViewController list{pool};
};

LargeList& largeList()
{
    static auto* const list = new LargeList;
    return *list;
}

/// From selecting somebody anywhere in the list to the first picture of the open row.
void selectAndShow(benchmark::State& state, bool moving)
{
    LargeList& large = largeList();
    large.list.setReducedMotion(!moving);
    for (auto run : state) {
        large.list.select(large.anybody());
        large.list.view().repaint();
        state.PauseTiming();
        QApplication::processEvents();
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        state.ResumeTiming();
    }
    large.list.setReducedMotion(true);
}

/// With a row open, after generations have changed.
void rearrange(benchmark::State& state, int changed)
{
    LargeList& large = largeList();
    large.list.select(large.anybody());
    for (auto run : state) {
        state.PauseTiming();
        for (int times = 0; times < changed; ++times)
            large.anybody().setGeneration(static_cast<std::int32_t>(large.chance() % generations));
        QApplication::processEvents();
        state.ResumeTiming();
        large.list.rearrangeObjects();
    }
}

/// One key in the search field, up to the picture of who is found.
void typeInSearch(benchmark::State& state, const char* before, const char* after)
{
    LargeList& large = largeList();
    for (auto run : state) {
        state.PauseTiming();
        large.search().setText(QString::fromUtf8(before));
        QApplication::processEvents();
        state.ResumeTiming();
        large.search().setText(QString::fromUtf8(after));
        large.list.view().repaint();
    }
    large.search().clear();
    QApplication::processEvents();
}

} // namespace

BENCHMARK_CAPTURE(selectAndShow, at_once, false)->Unit(benchmark::kMillisecond)->Iterations(200);
BENCHMARK_CAPTURE(selectAndShow, first_frame_of_motion, true)->Unit(benchmark::kMillisecond)->Iterations(200);
BENCHMARK_CAPTURE(rearrange, nothing_changed, 0)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(rearrange, hundred_changed, 100)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(typeInSearch, first_letter, "", "a")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(typeInSearch, second_letter, "a", "an")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(typeInSearch, down_to_one, "berg 1234", "berg 12345")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(typeInSearch, cleared, "berg 12345", "")->Unit(benchmark::kMillisecond);

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
