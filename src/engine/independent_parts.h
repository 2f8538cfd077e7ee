#pragma once

#include "engine/family_graph.h"

#include <vector>

namespace lineara::engine {

/// Persons whom nobody else drives on in the sweeps, as a family of their own in the same order: sweeps over it alone
/// push those whom sweeps over the whole family push of it. Links to others are left out.
struct IndependentPart
{
    FamilyGraph graph;
    std::vector<PersonIndex> persons; ///< whom the persons of the part are in the whole family
};

/// For each knot in which somebody was pushed, the least part that holds it; parts of few knots first. Leaves out parts
/// that hold everybody pushed, and ends once those looked at have as many persons as the family, so that it takes
/// linear time.
std::vector<IndependentPart> partsOfKnots(const FamilyGraph& family, const std::vector<PersonIndex>& pushed);

} // namespace lineara::engine
