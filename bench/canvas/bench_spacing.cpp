// Prints what keeping rows apart costs in a family of 100,000 persons in 60 rows: a pass that finds nothing to do, one
// that finds somebody in another row, and one after everybody was shifted; and the spacing of a row of 2,500 from which
// everybody has to move. Milliseconds, medians.

#include "bench_window.h"
#include "canvas/placement.h"
#include "canvas/tree_view.h"
#include "elements/leaf_nursery.h"
#include "elements/random_source.h"
#include "model/context_loader.h"

#include <QApplication>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace lineara::bench {

namespace {

constexpr QSize viewport(1400, 900);
constexpr int repeats = 31;

double millisecondsOf(const std::function<void()>& work)
{
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
}

/// The median of many runs, each made ready by work that is not timed.
void print(const char* what, const std::function<void()>& prepare, const std::function<void()>& work)
{
    std::vector<double> times;
    for (int run = 0; run < repeats; ++run) {
        prepare();
        times.push_back(millisecondsOf(work));
    }
    std::ranges::nth_element(times, times.begin() + repeats / 2);
    std::printf("  %-44s %7.2f\n", what, times[repeats / 2]);
}

std::unique_ptr<ObjectContext> rowsOfPersons(std::uint32_t rows, std::uint32_t perRow)
{
    ContextLoader loader(QUuid::createUuidV5(QUuid(), QStringLiteral("rows")), rows * perRow + 102, rows * perRow + 1);
    std::vector<Person*> members;
    for (std::uint32_t person = 0; person < rows * perRow; ++person) {
        PersonValues values;
        values.name = QStringLiteral("Maria Theresia");
        values.generation = static_cast<std::int32_t>(person / perRow + 1);
        values.x = static_cast<std::int32_t>(person % perRow) * placePerPerson;
        members.push_back(&loader.addPerson(RecordId{102 + person}, std::move(values)));
    }
    Pool& pool = loader.addPool(RecordId{101});
    loader.setMembers(pool, members);
    auto context = loader.finish();
    context->allPools().front()->arrangeGenerations();
    return context;
}

/// A family on a canvas that has been painted.
class Shown
{
public:
    Shown(std::uint32_t rows, std::uint32_t perRow) : context(rowsOfPersons(rows, perRow))
    {
        view.resize(viewport);
        view.show();
        view.viewport()->repaint();
        QApplication::processEvents();
    }

    std::unique_ptr<ObjectContext> context;
    SeededRandom random{1};
    LeafNursery nursery{*context};
    Pool& pool = *context->allPools().front();
    TreeView view{pool, firstFrame(viewport.width(), pool.maxGenerationSize(), pool.maxGeneration()), random};
};

void measurePasses()
{
    Shown family(60, 1667);
    TreeView& view = family.view;
    std::printf("100,000 persons in 60 rows\n");
    print(
        "a pass that finds nothing to do", [&] { view.setNeedsUpdateConstraints(); }, [&] { view.settle(); });
    Person& changing = *family.pool.persons()[70'000];
    print(
        "somebody in another row",
        [&] {
            changing.setGeneration(*changing.generation() == 30 ? 31 : 30);
            family.pool.arrangeGenerations();
            view.setNeedsUpdateConstraints();
        },
        [&] { view.settle(); });
    Person& leftmost = *family.pool.persons()[0];
    print(
        "everybody shifted by the left edge", [&] { leftmost.setX(-1); }, [&] { view.settle(); });
}

/// Everybody within the width of ten nodes, in the old order.
void crowd(Shown& family)
{
    const auto members = family.pool.persons().span();
    std::vector<std::optional<std::int32_t>> places;
    for (std::size_t member = 0; member < members.size(); ++member)
        places.emplace_back(static_cast<std::int32_t>(200'000 + member * 1'000 / members.size()));
    family.context->setMany(PersonAttribute::X, members, places);
    family.view.settle();
}

void measureRow()
{
    Shown family(1, 2500);
    std::printf("a row of 2,500\n");
    Person& anybody = *family.pool.persons()[1'000];
    print(
        "from a crowd to rest", [&] { crowd(family); },
        [&] {
            family.view.reconstrainCollisionsForPerson(anybody);
            family.view.settle();
        });
    print(
        "a click in the row at rest", [&] { family.view.settle(); },
        [&] {
            family.view.reconstrainCollisionsForPerson(anybody);
            family.view.settle();
        });
}

} // namespace

} // namespace lineara::bench

int main(int argc, char** argv)
{
    lineara::bench::drawIntoMemory();
    const QApplication application(argc, argv);
    lineara::bench::measurePasses();
    lineara::bench::measureRow();
}
