// Prints what a family costs on the canvas: building its views, the first picture, frames while scrolling, zooming and
// with everybody in view, and memory for each person. Families of 1,000, 10,000 and 100,000 persons, or of the sizes
// given as arguments. Milliseconds; a view of 1400 x 900 pixels.

#include "bench_window.h"
#include "canvas/placement.h"
#include "canvas/tree_view.h"
#include "elements/leaf_nursery.h"
#include "elements/random_source.h"
#include "made_family.h"

#include <QApplication>
#include <QScrollBar>
#include <QWheelEvent>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <functional>
#include <optional>
#include <thread>
#include <vector>

#include <malloc.h>

namespace lineara::bench {

namespace {

constexpr QSize viewport(1400, 900);

/// The time that passes, since large areas are filled by more than one thread; to be run on a quiet machine.
double millisecondsOf(const std::function<void()>& work)
{
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
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

/// Along a row and up through the rows, as the scroll bars move the view.
Times scrolling(TreeView& view)
{
    view.zoomTo(1, {0, 0});
    view.scrollTo(view.canvasSize().width() / 3, view.canvasSize().height() / 3);
    return framesOf(view, 300, [&](int step) {
        QScrollBar& bar = step < 200 ? *view.horizontalScrollBar() : *view.verticalScrollBar();
        bar.setValue(bar.value() + (step % 100 < 50 ? 40 : -40));
    });
}

void turnWheel(TreeView& view, int angle)
{
    const QPointF pointer(700, 450);
    QWheelEvent event(pointer, view.viewport()->mapToGlobal(pointer), {}, {0, angle}, Qt::NoButton, Qt::ControlModifier,
                      Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(view.viewport(), &event);
}

/// From 400 % down to less than 2 % and back by the wheel, every picture at another zoom.
Times zooming(TreeView& view)
{
    view.zoomTo(4, {0, 0});
    view.scrollTo(view.canvasSize().width() * 2, view.canvasSize().height() * 2);
    return framesOf(view, 240, [&](int step) { turnWheel(view, step < 120 ? -30 : 30); });
}

/// The same picture again and again, as it looks at rest.
Times resting(TreeView& view, double zoom)
{
    view.zoomTo(zoom, {700, 450});
    // A moment after the last movement the picture is drawn with smooth edges.
    std::this_thread::sleep_for(std::chrono::milliseconds(500));
    QApplication::processEvents();
    return framesOf(view, 30, [](int) {});
}

Times fitting(TreeView& view)
{
    return framesOf(view, 20, [&](int) { view.fit(); });
}

void print(const char* what, Times times)
{
    std::printf("  %-10s median %6.2f   99th percentile %6.2f\n", what, times.quantile(0.5), times.quantile(0.99));
}

void printFrames(TreeView& view)
{
    print("scrolling", scrolling(view));
    print("zooming", zooming(view));
    print("at 100 %", resting(view, 1));
    print("at 50 %", resting(view, 0.5));
    print("fit", fitting(view));
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
    const auto bytes = static_cast<double>(heapInUse() - before);
    const double firstPaint = millisecondsOf([&] {
        view->resize(viewport);
        view->show();
        view->viewport()->repaint();
    });
    const auto bytesDrawn = static_cast<double>(heapInUse() - before);

    std::printf("%u persons\n  build %.2f   first paint %.2f   together %.2f\n", persons, building, firstPaint,
                building + firstPaint);
    std::printf("  bytes a person %.0f, with the first picture %.0f\n", bytes / members, bytesDrawn / members);
    printFrames(*view);
    std::vector<RecordId> half;
    for (const Person* const person : pool.persons()) {
        if (person->recordId().number % 2 == 0)
            half.push_back(person->recordId());
    }
    std::printf("  half of them highlighted, in %.2f\n", millisecondsOf([&] { view->setHighlight(half); }));
    printFrames(*view);
    std::fflush(stdout);
}

} // namespace

} // namespace lineara::bench

int main(int argc, char** argv)
{
    lineara::bench::drawIntoMemory();
    const QApplication application(argc, argv);
    for (const std::uint32_t persons : lineara::bench::familySizes(argc, argv, {1'000, 10'000, 100'000}))
        lineara::bench::measure(persons);
}
