#pragma once

#include "arrangement.h"

#include <cstdint>

namespace lineara::layout {

/// How many pairs of child lines cross, every line cut at each row that it passes. Lines that share an end do not
/// cross, and lines that the chart leaves out of its bands do not count. Takes O(n log n) for n pieces of line.
std::uint64_t countCrossings(const Chart& chart, const Arrangement& arrangement);

} // namespace lineara::layout
