#pragma once

#include "arrangement.h"

#include <cstdint>

namespace lineara::layout {

/// How good an arrangement is, less being better: its crossings, and besides a little for the length of its child lines
/// and `costOfDisorder` for each pair of siblings in the wrong order.
struct Cost
{
    Cost(const Chart& chart, const Arrangement& arrangement, double costOfDisorder);
    double inAll() const { return static_cast<double>(crossings) + besides; }

    std::uint64_t crossings;
    double besides;
};

/// The cost in all, with the chart's own weight of siblings in the wrong order.
double costOf(const Chart& chart, const Arrangement& arrangement);

/// How far children stand from the middle of their parents, in places and in all.
double lengthOfLines(const Chart& chart, const Arrangement& arrangement);

} // namespace lineara::layout
