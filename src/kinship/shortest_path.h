#pragma once

#include "engine/family_graph.h"

#include <vector>

namespace lineara::kinship {

/// The fewest persons who lead from one to another along links of any kind, both included; empty if none do. Walks from
/// both ends at once, so near relatives are found without looking at the rest of the family.
std::vector<engine::PersonIndex> shortestPath(const engine::FamilyGraph& family, engine::PersonIndex from,
                                              engine::PersonIndex to);

} // namespace lineara::kinship
