#pragma once

#include "elements/geometry.h"

#include <array>

namespace lineara {

/// Elements of a partner link: move, curve, curve, line, curve, curve, line; a curve counts as its two control points
/// and its end. An arch 10 points wide at its feet, standing on the two centres, its top 25 points above the left one;
/// with equal x the start counts as left. Closed.
std::array<CanvasPoint, 15> partnerOutline(CanvasPoint start, CanvasPoint end);

/// Elements of an offspring link: move, curve, line, curve. A ribbon 10 points wide from centre to centre, bending at
/// half height. Open: only filling closes it.
std::array<CanvasPoint, 8> offspringOutline(CanvasPoint start, CanvasPoint end);

/// A rectangle that holds the whole outline, without making it.
Frame partnerBounds(CanvasPoint start, CanvasPoint end);
Frame offspringBounds(CanvasPoint start, CanvasPoint end);

} // namespace lineara
