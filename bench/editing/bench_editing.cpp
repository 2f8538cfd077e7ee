// Prints what a user waits for while editing: from the release of a handle over another person's node to the first
// picture of what follows, and the frames while everybody glides and while a node with six links is dragged. Families
// of 3,000, 10,000 and 100,000 persons, or of the sizes given as arguments. Milliseconds; a canvas of about 1400 x 900
// pixels.

#include "bench_window.h"
#include "canvas/tree_view.h"
#include "edited_family.h"
#include "elements/leaf_view.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <optional>
#include <vector>

namespace lineara::bench {

namespace {

constexpr int rounds = 21;
// From the first picture of a refresh on. A glide takes 250 ms from the refresh; its last frame comes to rest, too.
constexpr std::chrono::milliseconds glideTime(215);
constexpr std::chrono::milliseconds restTime(600);

double quantile(std::vector<double> times, double share)
{
    if (times.empty())
        return 0;
    std::ranges::sort(times);
    return times[std::min(times.size() - 1, static_cast<std::size_t>(share * static_cast<double>(times.size())))];
}

void print(const char* what, const std::vector<double>& times)
{
    std::printf("  %-22s median %7.2f   99th percentile %7.2f   greatest %7.2f   (%zu)\n", what, quantile(times, 0.5),
                quantile(times, 0.99), quantile(times, 1), times.size());
}

struct Couple
{
    Person* from = nullptr;
    Person* to = nullptr;
};

/// Persons all over the family, each with somebody nearby, so many rows higher, whom it may be linked to as a partner.
std::vector<Couple> couplesToLink(EditedFamily& family, int rowsApart)
{
    std::vector<Couple> couples;
    const auto& nodes = family.canvas().personLayer().nodes();
    const std::size_t step = std::max<std::size_t>(1, nodes.size() / (rounds * 3));
    for (std::size_t at = 0; at < nodes.size() && couples.size() < rounds; at += step) {
        Person& from = nodes[at]->person();
        const Frame place = nodes[at]->frame();
        const auto to = std::ranges::find_if(nodes, [&](const LeafView* node) {
            const Frame other = node->frame();
            const bool isNear = std::abs(other.x - place.x) < 700 && std::abs(other.y - place.y - 221 * rowsApart) < 1;
            return isNear && family.pool().canLink(partnerLink, from, node->person());
        });
        if (to != nodes.end())
            couples.push_back({&from, &(*to)->person()});
    }
    return couples;
}

void showBoth(TreeView& canvas, const Couple& couple)
{
    canvas.zoomTo(1, {0, 0});
    const Frame from = couple.from->leafView()->frame();
    const Frame to = couple.to->leafView()->frame();
    canvas.scrollTo(std::min(from.x, to.x) - 300, std::min(from.y, to.y) - 250);
    QApplication::processEvents();
}

/// Rows are spaced when a family is opened, so that persons who stood near each other may be far apart by now.
bool isInReach(const TreeView& canvas, const Couple& couple)
{
    const LeafView& from = *couple.from->leafView();
    const LeafView& to = *couple.to->leafView();
    const auto isInView = [&](CanvasPoint point) {
        // At the edge the view would scroll by itself.
        return QRectF(canvas.viewport()->rect()).adjusted(60, 60, -60, -60).contains(canvas.toViewport(point));
    };
    return isInView(from.partnerHandle().frame().centre()) && isInView(to.imageFrame().centre());
}

struct Frames
{
    std::vector<double> gliding;
    std::vector<double> comingToRest; // rows are spaced anew, and the picture is drawn well
};

/// Milliseconds from the release to the end of the first picture after the canvas began to follow; what is drawn from
/// then on is added to `frames`. No value if the drop was refused.
std::optional<double> linkOnce(FrameClock& clock, EditedFamily& family, const Couple& couple, Frames& frames)
{
    TreeView& canvas = family.canvas();
    const QPointF handle = canvas.toViewport(couple.from->leafView()->partnerHandle().frame().centre());
    const QPointF target = canvas.toViewport(couple.to->leafView()->imageFrame().centre());
    family.press(handle);
    for (int part = 1; part <= 10; ++part)
        family.drag(handle + (target - handle) * part / 10);
    clock.watch(*canvas.viewport());
    const auto start = FrameClock::Clock::now();
    const std::size_t steps = canvas.pool().context().journal().depth();
    family.release(target);
    if (canvas.pool().context().journal().depth() == steps) {
        std::fprintf(stderr, "somebody stands in between\n");
        return std::nullopt;
    }
    EditedFamily::waitUntil(
        [&] { return family.lastRefresh() > start && clock.lastPaint() && *clock.lastPaint() > family.lastRefresh(); });
    const auto end = *clock.lastPaint();
    const auto collect = [&](std::chrono::milliseconds untilAfter, std::vector<double>& into) {
        clock.watch(*canvas.viewport());
        family.waitUntil([until = end + untilAfter] { return FrameClock::Clock::now() > until; });
        into.insert(into.end(), clock.frames().begin(), clock.frames().end());
    };
    collect(glideTime, frames.gliding);
    collect(restTime, frames.comingToRest);
    return std::chrono::duration<double, std::milli>(end - start).count();
}

/// Linked across rows, everybody above or below moves along: such links also show the glide.
void measureLinks(FrameClock& clock, EditedFamily& family, int rowsApart)
{
    std::vector<double> waits;
    Frames frames;
    for (const Couple& couple : couplesToLink(family, rowsApart)) {
        showBoth(family.canvas(), couple);
        if (!isInReach(family.canvas(), couple))
            continue;
        const auto wait = linkOnce(clock, family, couple, frames);
        if (!wait)
            continue;
        waits.push_back(*wait);
        family.settle();
        family.document().undo();
        family.settle();
    }
    print(rowsApart == 0 ? "link in one row" : "link across rows", waits);
    if (rowsApart != 0) {
        print("gliding", frames.gliding);
        print("coming to rest", frames.comingToRest);
    }
}

Person* withSixLinks(const Pool& pool)
{
    const auto found = std::ranges::find_if(pool.persons(), [](const Person* person) {
        return person->linkLayers().size() == 6 && person->generation().value_or(0) > 1;
    });
    return found == pool.persons().end() ? nullptr : *found;
}

void measureDrag(FrameClock& clock, EditedFamily& family)
{
    Person* const person = withSixLinks(family.pool());
    if (!person) {
        std::printf("  nobody has six links\n");
        return;
    }
    TreeView& canvas = family.canvas();
    showBoth(canvas, {person, person});
    const QPointF grip = canvas.toViewport(person->leafView()->infoFrame().centre());
    clock.watch(*canvas.viewport());
    family.press(grip);
    for (int event = 1; event <= 300; ++event) {
        family.drag(grip + QPointF(event % 100 < 50 ? event % 100 * 4 : 400 - event % 100 * 4, 0));
        const std::size_t painted = clock.frames().size();
        EditedFamily::waitUntil([&] { return clock.frames().size() > painted; });
    }
    print("dragging six links", clock.frames());
    family.release(grip);
    family.settle();
}

void measure(FrameClock& clock, std::uint32_t persons)
{
    EditedFamily family(persons);
    std::printf("%u persons\n", persons);
    measureLinks(clock, family, 0);
    measureLinks(clock, family, 1);
    measureDrag(clock, family);
    std::fflush(stdout);
}

} // namespace

} // namespace lineara::bench

int main(int argc, char** argv)
{
    lineara::bench::drawIntoMemory();
    const lineara::bench::OwnFolders folders;
    lineara::bench::FrameClock clock(argc, argv);
    for (const std::uint32_t persons : lineara::bench::familySizes(argc, argv, {3'000, 10'000, 100'000}))
        lineara::bench::measure(clock, persons);
}
