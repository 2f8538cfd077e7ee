#pragma once

#include "arrangement.h"
#include "hearing.h"

#include <cstdint>
#include <optional>
#include <span>

namespace lineara::layout {

/// Everybody of the chart in the order in which they stand in `places`, one per person of the family, and near there;
/// only who stands between partners steps aside. Rows may overlap.
Arrangement orderAt(const Chart& chart, std::span<const double> places);

/// Whether all stand in the same order, however far apart.
bool isSameOrder(const Chart& chart, const Arrangement& one, const Arrangement& other);

/// Tidies up what stands in an order already, in whole points of which a place has `pitch`. Only siblings change their
/// order, and only where that adds no crossing. Who stands well enough stays: what comes out is its own answer. Nothing
/// if `heard` says so.
std::optional<Arrangement> keptOrder(const Chart& chart, Arrangement arrangement, std::int32_t pitch,
                                     const Heard& heard);

/// Orders the rows of a chart so that families stay together and few child lines cross, and gives places. Nothing if
/// `heard` says so.
std::optional<Arrangement> orderFamilies(const Chart& chart, const Heard& heard);

} // namespace lineara::layout
