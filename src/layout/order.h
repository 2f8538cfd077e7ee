#pragma once

#include "arrangement.h"

namespace lineara::layout {

/// Orders the rows of a chart so that families stay together and few child lines cross, and gives first places.
/// The number of passes falls with the size of the family, down to a fixed least.
Arrangement orderFamilies(const Chart& chart);

} // namespace lineara::layout
