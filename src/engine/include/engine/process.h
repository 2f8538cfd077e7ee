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
    enum class Kind : std::uint8_t {
        RefusedGeneration,   ///< a person was reached with a second number; the first stands
        StillImbalanced,     ///< pushing did not settle even without partners
        EndlessPush,         ///< pushing partners provably never ends; partners were left out
        BelowFirstRow,       ///< a linked person ended below row 1 and is kept in row 0
    };
    Kind kind{};
    Generation wanted = 0;
    Generation existing = 0;
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
    /// rows[i] holds the members whose generation is i, in the family's order; row 0 also all without a generation.
    std::vector<std::vector<PersonIndex>> rows;
    std::vector<GraphLink> partners;
    std::vector<GraphLink> offspring;
    std::vector<LogEntry> log;
};

/// Works every generation out again from the links alone.
///
/// Takes time linear in persons and links, apart from the balancing sweeps. Returns no value if `stop` was requested
/// before the run had ended. Pure: may run on any thread.
std::optional<ProcessResult> process(const FamilyGraph& family, std::stop_token stop = {});

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
