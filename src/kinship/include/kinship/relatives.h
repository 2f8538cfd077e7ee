#pragma once

#include "engine/family_graph.h"

#include <span>
#include <vector>

namespace lineara::kinship {

/// Everybody the person is descended from, and everybody descended from the person; without the person. Each once, the
/// nearest first. Time is linear in those found and their links, and memory in the family.
std::vector<engine::PersonIndex> ancestorsOf(const engine::FamilyGraph& family, engine::PersonIndex person);
std::vector<engine::PersonIndex> descendantsOf(const engine::FamilyGraph& family, engine::PersonIndex person);

/// The persons, and behind them whom any of them has a partnership or children with. Each once. Time is linear in those
/// found and their links, and memory in the family.
std::vector<engine::PersonIndex> withPartners(const engine::FamilyGraph& family,
                                              std::span<const engine::PersonIndex> persons);

} // namespace lineara::kinship
