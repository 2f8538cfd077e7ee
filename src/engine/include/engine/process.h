#pragma once

#include "engine/family_graph.h"

#include <cstdint>
#include <limits>
#include <optional>
#include <stop_token>
#include <string>
#include <vector>

namespace lineara::engine {

/// Generation number of a person, or `noGeneration`. Higher is older: a parent stands one above its child.
using Generation = std::int32_t;
inline constexpr Generation noGeneration = std::numeric_limits<Generation>::min();

/// One record of a link list: two partners (the one whose number sorts lower first), or a parent and its child.
struct GraphLink
{
    PersonIndex source = 0;
    PersonIndex target = 0;
    friend bool operator==(const GraphLink&, const GraphLink&) = default;
};

/// What one run had to report, in order. Kept as values, because a run on a large family reports thousands.
struct LogEntry
{
    enum class Kind : std::uint8_t
    {
        RefusedGeneration, ///< a person was reached with a second number; the first stands
        StillImbalanced,   ///< pushing did not settle even without partners
        EndlessPush,       ///< pushing partners provably never ends; partners were left out
        PushCutShort,      ///< nobody wanted to wait for pushing partners; partners were left out
        BelowFirstRow,     ///< linked persons ended below row 1 and are kept in row 0; at most once a run
    };
    Kind kind{};
    Generation wanted = 0;   ///< RefusedGeneration only: the number that was refused
    Generation existing = 0; ///< RefusedGeneration: the number that stands; BelowFirstRow: the lowest number
    friend bool operator==(const LogEntry&, const LogEntry&) = default;
};

/// The line that goes to the system log for an entry, without a line end.
std::string logLine(const LogEntry& entry);

/// Everything a run works out. Persons are named by their index in the graph.
struct ProcessResult
{
    /// One entry per person of the graph, `noGeneration` where there is none.
    std::vector<Generation> generations;
    /// False for an empty family: rows and sizes are then to be left as they were.
    bool rowsBuilt = false;
    std::int32_t maxGeneration = 0;
    std::optional<PersonIndex> maxGenerationOf;
    std::int32_t maxGenerationSize = 0;
    /// rows[i] holds the members whose generation is i, in the family's order; row 0 also all without a generation
    /// and all below 0.
    std::vector<std::vector<PersonIndex>> rows;
    std::vector<GraphLink> partners;
    std::vector<GraphLink> offspring;
    /// The marks of the graph as the run leaves them: reset on everyone who was reached. Empty if the graph's are.
    std::vector<bool> willWalk;
    std::vector<LogEntry> log;
};

/// Works every generation out again from the links alone; generations of an earlier run play no part.
///
/// Takes time linear in persons and links, apart from the balancing sweeps. Returns no value if `stop` was requested
/// before the run had ended. Once `hurry` is requested it waits no longer for the end of pushing partners, and leaves
/// partners out as if there were none: that is for families where the end is far. Pure: may run on any thread.
///
/// Parent links are expected to be free of cycles. Where they are not (damaged data), the run ends all the same:
/// ancestors on or below a cycle don't count for the longest line, nobody is asked twice for a generation, persons
/// who get none from any founder or partner stay without one, and balancing may give up with `StillImbalanced`.
std::optional<ProcessResult> process(const FamilyGraph& family, std::stop_token stop = {}, std::stop_token hurry = {});

/// Rows and sizes out of given generations (the last step of `process`), for a family whose generations were
/// assigned by hand. `generations` holds one entry per person of the graph.
struct Rows
{
    std::int32_t maxGeneration = 0;
    std::int32_t maxGenerationSize = 0;
    std::vector<std::vector<PersonIndex>> rows;
};
Rows arrangeGenerations(const FamilyGraph& family, const std::vector<Generation>& generations);

} // namespace lineara::engine
