#pragma once

#include "arrangement.h"

namespace lineara::layout {

/// Leaves a place free now and then where many stand shoulder to shoulder, so that whoever is added to a row later
/// pushes only few aside. Rows keep their order and the bounds of the arrangement, so the widest row stays as it is.
/// Nothing is done where it would cost crossings. Takes the time of counting crossings a few times.
void leaveFreePlaces(const Chart& chart, Arrangement& arrangement);

} // namespace lineara::layout
