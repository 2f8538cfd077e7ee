#pragma once

#include "ascent.h"
#include "kinship/relationship.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace lineara::kinship {

struct BloodLines
{
    BloodLine closest;
    std::uint32_t others = 0;
    /// Along the closest line, from one of the persons that the first ascent began with to one of the second.
    std::vector<PersonIndex> path;
};

/// All lines between two groups of persons, of whom the ascents tell.
std::optional<BloodLines> bloodLines(const engine::FamilyGraph& family, const Ascent& first, const Ascent& second);

} // namespace lineara::kinship
