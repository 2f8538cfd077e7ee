// Prints what a family costs on the canvas: building its views, the first picture, frames while scrolling, zooming and
// with everybody in view, and memory for each person. Families of 1,000, 10,000 and 100,000 persons, or of the sizes
// given as arguments. Milliseconds; a view of 1400 x 900 pixels.

#include "canvas/placement.h"
#include "canvas/tree_view.h"
#include "elements/leaf_nursery.h"
#include "elements/random_source.h"
#include "made_family.h"

#include <QApplication>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <functional>
#include <optional>
#include <vector>

#include <malloc.h>

namespace lineara::bench {

namespace {

constexpr QSize viewport(1400, 900);

/// Time that the processor worked, which on a quiet machine is the time that passed: all of it is done on one thread.
double millisecondsOf(const std::function<void()>& work)
{
    const std::clock_t start = std::clock();
    work();
    return static_cast<double>(std::clock() - start) * 1000 / CLOCKS_PER_SEC;
}

std::size_t heapInUse()
{
    const struct mallinfo2 info = mallinfo2();
    return info.uordblks + info.hblkhd;
}

struct Times
{
    std::vector<double> frames;

    double quantile(double share)
    {
        std::ranges::sort(frames);
        return frames[std::min(frames.size() - 1,
                               static_cast<std::size_t>(share * static_cast<double>(frames.size())))];
    }
};

/// Moves the view step by step and times each step together with its picture.
Times framesOf(TreeView& view, int steps, const std::function<void(int step)>& move)
{
    Times times;
    for (int step = 0; step < steps; ++step)
        times.frames.push_back(millisecondsOf([&] {
            move(step);
            view.viewport()->repaint();
        }));
    return times;
}

Times scrolling(TreeView& view)
{
    view.zoomTo(1, {0, 0});
    const QSizeF canvas = view.canvasSize();
    const double left = canvas.width() / 3;
    const double bottom = canvas.height() / 3;
    return framesOf(view, 300, [&](int step) {
        const int along = 40 * (step % 150);
        view.scrollTo(left + along, bottom + (step < 150 ? 0 : along / 4));
    });
}

Times zooming(TreeView& view)
{
    view.zoomTo(1, {0, 0});
    view.scrollTo(view.canvasSize().width() / 2, view.canvasSize().height() / 2);
    // From 400 % down to 2 % and back, a hundred steps each way.
    return framesOf(view, 200, [&](int step) {
        const int down = step < 100 ? step : 200 - step;
        view.zoomTo(4 * std::pow(0.02 / 4, down / 100.0), {700, 450});
    });
}

Times fitting(TreeView& view)
{
    return framesOf(view, 20, [&](int) { view.fit(); });
}

void print(const char* what, Times times)
{
    std::printf("  %-10s median %6.2f   99th percentile %6.2f\n", what, times.quantile(0.5), times.quantile(0.99));
}

void measure(std::uint32_t persons)
{
    const auto context = madeFamily(persons);
    Pool& pool = *context->allPools().front();
    const auto members = static_cast<double>(pool.persons().size());
    QWidget window;
    window.resize(viewport);
    window.show();
    QApplication::processEvents();

    const std::size_t before = heapInUse();
    SeededRandom random(1);
    std::optional<LeafNursery> nursery;
    std::optional<TreeView> view;
    const double building = millisecondsOf([&] {
        nursery.emplace(*context, random);
        view.emplace(pool, firstFrame(viewport.width(), pool.maxGenerationSize(), pool.maxGeneration()), random,
                     &window);
    });
    const double firstPaint = millisecondsOf([&] {
        view->resize(viewport);
        view->show();
        view->viewport()->repaint();
    });
    const auto bytes = static_cast<double>(heapInUse() - before);

    std::printf("%u persons\n  build %.2f   first paint %.2f   together %.2f   bytes a person %.0f\n", persons,
                building, firstPaint, building + firstPaint, bytes / members);
    print("scrolling", scrolling(*view));
    print("zooming", zooming(*view));
    print("fit", fitting(*view));
    std::fflush(stdout);
}

} // namespace

} // namespace lineara::bench

int main(int argc, char** argv)
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    std::vector<std::uint32_t> sizes;
    for (int argument = 1; argument < argc; ++argument)
        sizes.push_back(static_cast<std::uint32_t>(std::strtoul(argv[argument], nullptr, 10)));
    if (sizes.empty())
        sizes = {1'000, 10'000, 100'000};
    for (const std::uint32_t persons : sizes)
        lineara::bench::measure(persons);
}
