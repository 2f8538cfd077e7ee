#pragma once

#include "engine/family_graph.h"

#include <cstdint>
#include <span>

namespace lineara::kinship {

enum class Sex : std::uint8_t
{
    Unknown,
    Female,
    Male
};

/// `sexes` has one entry per person of the family, or none where nobody's is known.
inline Sex sexOf(std::span<const Sex> sexes, engine::PersonIndex person)
{
    return sexes.empty() ? Sex::Unknown : sexes[person];
}

} // namespace lineara::kinship
