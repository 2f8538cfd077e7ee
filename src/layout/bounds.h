#pragma once

#include "arrangement.h"
#include "hearing.h"

namespace lineara::layout {

/// How wide a chart is drawn, in places, unless there is reason to draw it narrower: as its widest row, and for small
/// families more than that.
double usualWidth(const Chart& chart);

/// From the leftmost to the rightmost edge, in places.
double widthOf(const Chart& chart, const Arrangement& arrangement);

/// Brings the middle between the leftmost and the rightmost edge to place 0.
void centre(const Chart& chart, Arrangement& arrangement);

/// Lets the rows reach half of `width` to either side of place 0 from now on.
void setBounds(Arrangement& arrangement, double width);

/// Sets the bounds, which are no narrower than the widest row, and brings every row within them, in its order.
void keepWithin(const Chart& chart, Arrangement& arrangement, double width);

/// Draws a chart that is much wider than its widest row closer together, in its order, where that costs no crossing and
/// its lines grow by less than half of what its width loses: the less room a small family takes, the more of it is seen
/// at once. Its bounds become as narrow. What is there after `heard` said not to go on is worth nothing.
void narrow(const Chart& chart, Arrangement& arrangement, const Heard& heard = {});

} // namespace lineara::layout
