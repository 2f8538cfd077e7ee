#pragma once

namespace lineara {

inline constexpr int horizontalPlacementPriority = 953;
inline constexpr int requiredPriority = 1000;

/// One number that places a node, or sizes a part of it, and how strongly: what has a higher priority wins.
struct PlacementConstraint
{
    double constant = 0;
    int priority = requiredPriority;
    friend bool operator==(const PlacementConstraint&, const PlacementConstraint&) = default;
};

} // namespace lineara
