#include "engine/process.h"

#include "graph_queries.h"

#include <algorithm>

namespace lineara::engine {

Rows arrangeGenerations(const FamilyGraph& family, const std::vector<Generation>& generations)
{
    const auto rowOf = [&](PersonIndex member) { return std::max(0, valueOrZero(generations[member])); };

    Rows result;
    for (PersonIndex member = 0; member < family.members; ++member)
        result.maxGeneration = std::max(result.maxGeneration, rowOf(member));

    const auto rowCount = static_cast<std::size_t>(result.maxGeneration) + 1;
    std::vector<std::uint32_t> sizes(rowCount, 0);
    for (PersonIndex member = 0; member < family.members; ++member)
        ++sizes[static_cast<std::size_t>(rowOf(member))];

    result.rows.resize(rowCount);
    for (std::size_t row = 0; row < rowCount; ++row)
        result.rows[row].reserve(sizes[row]);
    for (PersonIndex member = 0; member < family.members; ++member)
        result.rows[static_cast<std::size_t>(rowOf(member))].push_back(member);
    result.maxGenerationSize = static_cast<std::int32_t>(std::ranges::max(sizes));
    return result;
}

} // namespace lineara::engine
