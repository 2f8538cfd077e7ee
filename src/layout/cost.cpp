#include "cost.h"

#include "crossings.h"
#include "sibling_order.h"

#include <cmath>

namespace lineara::layout {

Cost::Cost(const Chart& chart, const Arrangement& arrangement, double costOfDisorder)
    : crossings(countCrossings(chart, arrangement)),
      besides(costOfDisorder * static_cast<double>(disorderOf(chart, arrangement)))
{
    constexpr double costOfLength = 0.07;
    besides += costOfLength * lengthOfLines(chart, arrangement);
}

double costOf(const Chart& chart, const Arrangement& arrangement)
{
    return Cost(chart, arrangement, chart.costOfDisorder).inAll();
}

double lengthOfLines(const Chart& chart, const Arrangement& arrangement)
{
    double length = 0;
    for (const ChildLine& line : chart.lines) {
        const StraightLine drawn(chart, arrangement, line);
        length += std::abs(drawn.from - drawn.to);
    }
    return length;
}

} // namespace lineara::layout
