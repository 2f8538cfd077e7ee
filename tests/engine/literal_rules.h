#pragma once

#include "engine/process.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace lineara::engine {

/// The rules of the engine written down as they are told: recursive, without any memory of persons met, one visit per
/// person and sweep. For small families only. No value if balancing made more sweeps than `greatestSweeps`.
///
/// Lines the engine adds of its own (`EndlessPush`, `BelowFirstRow`) are not written.
std::optional<ProcessResult> processLiterally(const FamilyGraph& family, std::int64_t greatestSweeps = 100'000);

/// The longest line from the person up, by plain recursion.
std::int32_t maxPathLiterally(const FamilyGraph& family, PersonIndex person);

/// Whether `a` descends from `b`, by plain recursion down from `b`.
bool isDescendedFromLiterally(const std::vector<std::vector<PersonIndex>>& childrenOf, PersonIndex a, PersonIndex b);

} // namespace lineara::engine
