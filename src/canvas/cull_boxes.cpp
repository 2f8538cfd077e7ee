#include "canvas/cull_boxes.h"

#include <cmath>

namespace lineara {

namespace {

/// Covers outlines and antialiasing, and, far out, the distance between neighbouring floats.
double margin(double edge)
{
    return 4 + std::abs(edge) * 0x1p-22;
}

} // namespace

CullBoxes::Box CullBoxes::widened(const QRectF& bounds)
{
    return {static_cast<float>(bounds.left() - margin(bounds.left())),
            static_cast<float>(bounds.top() - margin(bounds.top())),
            static_cast<float>(bounds.right() + margin(bounds.right())),
            static_cast<float>(bounds.bottom() + margin(bounds.bottom()))};
}

} // namespace lineara
