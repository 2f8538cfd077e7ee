#pragma once

#include "engine/family_graph.h"
#include "engine/process.h"

#include <stop_token>
#include <vector>

namespace lineara::engine {

/// Raises every member that stands at or below one of its children, its partners with it, until nobody does.
///
/// Sweeps over the family in its order. When two sweeps running push the same persons in the same order, goes on
/// without partners; when that repeats as well, gives up. Sweeps with partners that would never end are told by
/// proof: the pass then goes back to where it began and sweeps without partners. All but a quiet end is logged.
/// When `stop` is requested it returns early with the generations half done; when `hurry` is, sweeps with partners
/// count as never ending.
void pushUp(const FamilyGraph& family, std::vector<Generation>& generations, std::vector<LogEntry>& log,
            const std::stop_token& stop, const std::stop_token& hurry);

} // namespace lineara::engine
