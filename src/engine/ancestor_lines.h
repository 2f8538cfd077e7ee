#pragma once

#include "engine/family_graph.h"

#include <cstdint>
#include <vector>

namespace lineara::engine {

/// For every person of the graph the number of persons on its longest line of ancestors, itself included.
///
/// Parents on or below a cycle of parent links, which only damaged data has, do not count.
std::vector<std::int32_t> ancestorLines(const FamilyGraph& family);

} // namespace lineara::engine
