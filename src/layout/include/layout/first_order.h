#pragma once

#include "engine/family_graph.h"
#include "engine/process.h"

#include <cstdint>
#include <vector>

namespace lineara::layout {

/// Left edges in points for a whole family that has no places yet: one whole number per person of the graph.
///
/// Keeps families together (partners side by side, children below their parents, unconnected families apart) and
/// never lets two persons of a row overlap: neighbours in a row are at least `pitch` points apart. The leftmost person
/// stands at `margin`. Deterministic, and close to linear in persons and links.
std::vector<std::int32_t> firstOrder(const engine::FamilyGraph& family,
                                     const std::vector<engine::Generation>& generations, std::int32_t pitch,
                                     std::int32_t margin);

} // namespace lineara::layout
