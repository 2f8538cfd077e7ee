#pragma once

#include "model/record.h"

namespace lineara {

/// What part of a family a view shows, told by the person nearest to its middle: persons may be moved, all of them
/// together even by opening their file, and the part stays the same.
struct SeenPart
{
    RecordId person;
    /// From the middle of the person's node to the middle of the view, in points.
    double right = 0;
    double up = 0;
    double zoom = 1; ///< pixels per point
    friend bool operator==(const SeenPart&, const SeenPart&) = default;
};

} // namespace lineara
