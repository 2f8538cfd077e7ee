#pragma once

#include "engine/family_graph.h"

#include <vector>

namespace lineara::engine {

/// Persons linked with each other and with nobody else, as a family of their own in the same order.
struct FamilyPart
{
    FamilyGraph graph;
    std::vector<PersonIndex> persons; ///< whom the persons of the part are in the whole family
};

/// The parts in which these persons stand.
std::vector<FamilyPart> partsWith(const FamilyGraph& family, const std::vector<PersonIndex>& persons);

} // namespace lineara::engine
