#pragma once

#include "arrangement.h"

namespace lineara::layout {

/// A first order: every founder is followed by all descendants, child after child, and only then by the families into
/// which they married. So a family without marriages among its descendants stands without a crossing. Every row is
/// packed from place 0.
Arrangement descentOrder(const Chart& chart);

} // namespace lineara::layout
