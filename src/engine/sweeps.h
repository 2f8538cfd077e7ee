#pragma once

#include "engine/family_graph.h"
#include "engine/process.h"

#include <cstdint>
#include <stop_token>
#include <vector>

namespace lineara::engine {

enum class SweepMode : std::uint8_t
{
    WithPartners, ///< the partners of a raised person are set to its new generation
    WithoutPartners,
};

enum class SweepsEnd : std::uint8_t
{
    Quiet,     ///< a sweep pushed nobody: every member stands above its children
    Repeating, ///< two sweeps running pushed the same persons in the same order
    Endless,   ///< neither would ever happen, or only beyond the range of a generation
    Stopped,   ///< the stop was requested
};

/// Nobody is raised above this: far more than any line of persons is long, while rows up to it would take hundreds of
/// megabytes by themselves. The range of a generation is never left.
inline constexpr Generation greatestGeneration = 1 << 24;

/// Sweeps over the members in their order until the end that is returned. In a sweep every member that stands at or
/// below a child is raised to one above its highest child; later members see that at once.
SweepsEnd sweepUntilEnd(const FamilyGraph& family, std::vector<Generation>& generations, SweepMode mode,
                        const std::stop_token& stop);

} // namespace lineara::engine
