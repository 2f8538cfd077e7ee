#pragma once

#include "lists.h"

#include "engine/family_graph.h"

namespace lineara::layout {

/// The connected parts of a family, each with its persons in the order in which they are reached from its first.
/// Unlinked persons are in none of them. Links to either side count, also one-sided ones.
Lists<engine::PersonIndex> connectedFamilies(const engine::FamilyGraph& family);

} // namespace lineara::layout
