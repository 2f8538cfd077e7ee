#pragma once

#include "arrangement.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <span>

namespace lineara::layout {

/// Hears what share of a piece of work is done, from 0 to 1; says whether to go on.
using Heard = std::function<bool(double)>;

/// How good an arrangement is, less being better: its crossings, and a little for the length of its child lines.
double costOf(const Chart& chart, const Arrangement& arrangement);

/// Sets the bounds for the rows of a chart: wide enough for the widest row, and for small families more than that.
void setBounds(const Chart& chart, Arrangement& arrangement);

/// The arrangement in which everybody of the chart keeps the order that `places`, one per person of the family, gives;
/// only who stands between partners steps aside.
Arrangement arrangementAt(const Chart& chart, std::span<const double> places);

/// Orders the rows of a chart so that families stay together and few child lines cross, and gives places. Nothing if
/// `heard` says so.
std::optional<Arrangement> orderFamilies(const Chart& chart, const Heard& heard);

} // namespace lineara::layout
