#pragma once

#include "engine/family_graph.h"

#include <vector>

namespace lineara::engine {

/// Calls `use` with everybody whose generation, or push, decides on the generation of this person in a sweep: its
/// children, and its partners, unless they have no children and are never pushed.
template<class Use>
void forEachDrivingOn(const FamilyGraph& family, PersonIndex person, Use&& use)
{
    for (const PersonIndex child : family.children[person])
        use(child);
    for (const PersonIndex partner : family.partners[person]) {
        if (!family.children[partner].empty())
            use(partner);
    }
}

/// Several persons who drive on each other in a ring.
using Knot = std::vector<PersonIndex>;

/// The knots among these persons and all who drive them on, directly or over others. Whoever drives a knot on from
/// outside stands in a knot before it, or in none.
std::vector<Knot> knotsDriving(const FamilyGraph& family, const std::vector<PersonIndex>& persons);

} // namespace lineara::engine
