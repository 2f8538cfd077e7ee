#pragma once

#include "engine/family_graph.h"
#include "engine/process.h"

#include <cstdint>
#include <functional>
#include <limits>
#include <optional>
#include <span>
#include <vector>

namespace lineara::layout {

/// The birth year of somebody of whom none is known: later than all others, so that they stand last.
inline constexpr std::int32_t unknownBirthYear = std::numeric_limits<std::int32_t>::max();

/// A family to be tidied up. What it refers to must outlive the call.
struct TidyTask
{
    const engine::FamilyGraph& family;
    /// One entry per person of the graph, as the engine gave them.
    const std::vector<engine::Generation>& generations;
    /// One entry per person, `unknownBirthYear` where there is none; or nothing, when no year is known.
    std::span<const std::int32_t> birthYears = {};
    /// Left edges in points of everybody who has a place already, one per person, none further than a thousand million
    /// points from 0; or nothing, for a family that has none. An order that is tidy already is kept.
    std::span<const std::int32_t> present = {};
    /// Neighbours in a row stand at least this many points apart, from left edge to left edge.
    std::int32_t pitch = 152;
    /// Widths of the nodes in points, one per person, less than `pitch` by `rowGap` at least; or nothing, when all are
    /// as wide as that. Only where some persons are tidied up between others: these may stand nearer than `pitch`.
    std::span<const std::int32_t> widths = {};
    /// Where the leftmost person stands.
    std::int32_t margin = 253;
};

/// Hears what share of the work is done, from 0 to 1; says whether to go on.
using TidyProgress = std::function<bool(double)>;

/// Left edges in points for a whole family: one whole number per person of the graph, or nothing where `progress`
/// said not to go on.
///
/// Partners stand side by side, children together beneath the middle of their parents, unconnected families beside
/// one another, the largest first, and persons without links apart in their row; few child lines cross, and all
/// is as narrow as the longest row allows. Nobody overlaps. Deterministic; twice as many persons take little more than
/// twice as long, up to 200,000 of them at least.
/// May be called from any thread.
std::optional<std::vector<std::int32_t>> tidy(const TidyTask& task, const TidyProgress& progress = {});

/// The same for some persons only, each named once; `present` is needed for it. Everybody else stays, and the selected
/// find room between them, `rowGap` apart at least, where it suits their relatives; who stands well already stays. Only
/// where a row has no room for them, those not selected move apart, by the least total and in their order. Left of all
/// others there is room for one at least, even if that leads beyond the margin.
std::optional<std::vector<std::int32_t>>
tidySelection(const TidyTask& task, std::span<const engine::PersonIndex> selected, const TidyProgress& progress = {});

} // namespace lineara::layout
