#pragma once

#include "engine/family_graph.h"
#include "sweeps.h"

#include <cstddef>
#include <cstdint>
#include <limits>
#include <optional>
#include <stop_token>
#include <vector>

namespace lineara::engine {

/// Sweeps that are going to push the same persons in the same order over and over.
struct Repetition
{
    static constexpr std::int64_t forever = std::numeric_limits<std::int64_t>::max();

    /// How many periods running are alike, this one included; `forever` is proved, not counted.
    std::int64_t periods = 0;
    /// What everybody's generation gains in one period.
    std::vector<std::int64_t> rises;
    /// The persons pushed in the last sweep of a period.
    std::vector<PersonIndex> lastPushed;
};

/// Looks ahead whether the coming `sweeps` sweeps are a period that comes again. `previous` are the persons pushed in
/// the sweep just made. No value if the period does not come again, if one of the sweeps would be the last one,
/// or if `stop` is requested.
///
/// Why it comes again: a push is a copy. The person pushed takes the generation of its highest child, plus one, and
/// its partners take it over. Say that a period begins with generations g, and gains everybody r. Let the next ones
/// begin with g + r, g + 2r, ..., and follow one moment through all periods. As long as every comparison comes out as
/// in the first, everybody's generation at that moment of period j is g' + j r', where g' is its generation in the
/// first and r' the gain of the person it was copied from. Comparing such courses tells for how many j it comes out
/// alike: `a` stays at or below `b` forever if it gains no more than `b`, else until it has made up the distance. The
/// least of these numbers over a whole period is the number of periods alike, provided that everybody ends with the
/// gain it began with: then period j ends with g + (j + 1) r, which is where period j + 1 begins, and so on by
/// induction.
///
/// As every sweep of the period pushes somebody, and other persons than the sweep before it, the seams included, none
/// of these periods ends the sweeps. A number of periods without end is therefore a proof that the sweeps never end.
std::optional<Repetition> findRepetition(const FamilyGraph& family, SweepMode mode,
                                         const std::vector<Generation>& generations,
                                         const std::vector<PersonIndex>& previous, std::size_t sweeps,
                                         const std::stop_token& stop);

} // namespace lineara::engine
