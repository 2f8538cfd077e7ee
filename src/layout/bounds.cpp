#include "bounds.h"

#include "cost.h"
#include "crossings.h"
#include "placement.h"
#include "straightening.h"

#include <algorithm>
#include <array>
#include <utility>
#include <vector>

namespace lineara::layout {

namespace {

double widestRow(const Chart& chart)
{
    std::vector<double> widths(chart.rows, 0);
    for (BlockIndex block = 0; block < chart.blocks(); ++block)
        widths[chart.rowOf[block]] += chart.width(block);
    return *std::ranges::max_element(widths);
}

double rightEdge(const Chart& chart, const Arrangement& arrangement)
{
    double last = arrangement.left.front();
    for (BlockIndex block = 0; block < chart.blocks(); ++block)
        last = std::max(last, arrangement.left[block] + chart.width(block));
    return last;
}

/// How long the lines of a chart are as drawn, taking a row to be as high as a place is wide.
double drawnLength(const Chart& chart, const Arrangement& arrangement)
{
    return lengthOfLines(chart, arrangement) + static_cast<double>(chart.lines.size());
}

} // namespace

double usualWidth(const Chart& chart)
{
    constexpr double slack = 40'000;
    const double widest = widestRow(chart);
    return widest + std::min(1 + slack / (widest * widest), 2 + widest / 2);
}

double widthOf(const Chart& chart, const Arrangement& arrangement)
{
    return rightEdge(chart, arrangement) - std::ranges::min(arrangement.left);
}

void centre(const Chart& chart, Arrangement& arrangement)
{
    const double middle = (std::ranges::min(arrangement.left) + rightEdge(chart, arrangement)) / 2;
    for (double& left : arrangement.left)
        left -= middle;
}

void setBounds(Arrangement& arrangement, double width)
{
    arrangement.leftBound = -width / 2;
    arrangement.rightBound = width / 2;
}

void keepWithin(const Chart& chart, Arrangement& arrangement, double width)
{
    setBounds(arrangement, std::max(width, widestRow(chart)));
    std::vector<Wish> wishes;
    for (std::uint32_t row = 0; row < chart.rows; ++row) {
        wishes.clear();
        for (const BlockIndex block : arrangement.rows[row])
            wishes.push_back({arrangement.left[block], 1});
        settleRow(chart, arrangement, row, wishes);
    }
}

void narrow(const Chart& chart, Arrangement& arrangement, const Heard& heard)
{
    constexpr double worthwhile = 0.05;
    constexpr double worth = 0.5;
    constexpr std::array shares{0.0, 0.25, 0.5, 0.75};
    const double least = widestRow(chart);
    const double width = widthOf(chart, arrangement);
    if (width - least < worthwhile * least)
        return;
    centre(chart, arrangement);
    const std::uint64_t crossings = countCrossings(chart, arrangement);
    const double length = drawnLength(chart, arrangement);
    Hearing hearing(heard);
    for (const double share : shares) {
        hearing.nextPart(1.0 / shares.size());
        Arrangement narrower = arrangement;
        keepWithin(chart, narrower, least + share * (width - least));
        straighten(chart, narrower, hearing.ofPart());
        const double saved = 1 - widthOf(chart, narrower) / width;
        const double grown = drawnLength(chart, narrower) / length - 1;
        if (grown > worth * saved || countCrossings(chart, narrower) > crossings)
            continue;
        arrangement = std::move(narrower);
        return;
    }
}

} // namespace lineara::layout
