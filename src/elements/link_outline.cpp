#include "elements/link_outline.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace lineara {

namespace {

constexpr double halfWidth = 5;
constexpr double archHeight = 25;
constexpr double archThickness = 5;

struct Sides
{
    CanvasPoint left;
    CanvasPoint right;
};

Sides sides(CanvasPoint start, CanvasPoint end)
{
    return end.x < start.x ? Sides{end, start} : Sides{start, end};
}

} // namespace

std::array<CanvasPoint, 15> partnerOutline(CanvasPoint start, CanvasPoint end)
{
    const auto [left, right] = sides(start, end);
    const CanvasPoint leftOuter{left.x - halfWidth, left.y};
    const CanvasPoint leftInner{left.x + halfWidth, left.y};
    const CanvasPoint rightOuter{right.x + halfWidth, right.y};
    const CanvasPoint rightInner{right.x - halfWidth, right.y};
    const double middle = (leftOuter.x + rightOuter.x) / 2;
    const double outerTop = left.y + archHeight;
    const double innerTop = outerTop - archThickness;
    return {leftOuter,
            leftOuter,
            {(leftOuter.x + middle) / 2, outerTop},
            {middle, outerTop},
            {(middle + rightOuter.x) / 2, outerTop},
            rightOuter,
            rightOuter,
            rightInner,
            rightInner,
            {(rightInner.x + middle) / 2, innerTop},
            {middle, innerTop},
            {(middle + leftInner.x) / 2, innerTop},
            leftInner,
            leftInner,
            leftOuter};
}

std::array<CanvasPoint, 8> offspringOutline(CanvasPoint start, CanvasPoint end)
{
    const double middle = (start.y + end.y) / 2;
    return {{{start.x - halfWidth, start.y},
             {start.x - halfWidth, middle},
             {end.x - halfWidth, middle},
             {end.x - halfWidth, end.y},
             {end.x + halfWidth, end.y},
             {end.x + halfWidth, middle},
             {start.x + halfWidth, middle},
             {start.x + halfWidth, start.y}}};
}

// Curves stay within the hull of their control points, and no control point lies outside these rectangles.
Frame partnerBounds(CanvasPoint start, CanvasPoint end)
{
    const auto [left, right] = sides(start, end);
    const double bottom = std::min(left.y, right.y);
    const double top = std::max(left.y + archHeight, right.y);
    return {left.x - halfWidth, bottom, right.x - left.x + 2 * halfWidth, top - bottom};
}

Frame offspringBounds(CanvasPoint start, CanvasPoint end)
{
    return {std::min(start.x, end.x) - halfWidth, std::min(start.y, end.y), std::abs(end.x - start.x) + 2 * halfWidth,
            std::abs(end.y - start.y)};
}

} // namespace lineara
