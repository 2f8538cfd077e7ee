#pragma once

#include "engine/family_graph.h"

#include <cstdint>
#include <limits>
#include <span>
#include <vector>

namespace lineara::kinship {

using engine::PersonIndex;

/// How many generations the ancestors of some persons lie above the nearest of them, who stand at 0 themselves.
class Ascent
{
public:
    static constexpr std::uint32_t unreached = std::numeric_limits<std::uint32_t>::max();

    Ascent(const engine::FamilyGraph& family, std::span<const PersonIndex> from);

    std::uint32_t height(PersonIndex person) const { return heights_[person]; }
    bool reaches(PersonIndex person) const { return heights_[person] != unreached; }
    /// The lowest first.
    const std::vector<PersonIndex>& reached() const { return reached_; }

    /// The shortest line from an ancestor down to one of the persons, both included; of equal ones the first by the
    /// order of children.
    std::vector<PersonIndex> lineDownFrom(PersonIndex ancestor) const;

private:
    const engine::FamilyGraph& family_;
    std::vector<std::uint32_t> heights_;
    std::vector<PersonIndex> reached_;
};

} // namespace lineara::kinship
