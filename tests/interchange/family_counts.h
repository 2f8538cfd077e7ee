#pragma once

#include "interchange/gedcom_import.h"

#include <cstddef>
#include <iosfwd>

namespace lineara {

/// What can be counted in a family, from its records alone.
struct FamilyCounts
{
    std::size_t persons = 0;
    std::size_t named = 0;
    std::size_t partnerPairs = 0;
    std::size_t parentChildPairs = 0;
    std::size_t longestLine = 0; ///< persons on the longest line of ancestors, both ends counted
    std::size_t components = 0;  ///< groups of linked persons; one without links is a group
    std::size_t unlinked = 0;
    std::size_t birthYears = 0;
    std::size_t deathYears = 0;
    friend bool operator==(const FamilyCounts&, const FamilyCounts&) = default;
};

FamilyCounts count(const ObjectContext& context);

std::ostream& operator<<(std::ostream& out, const FamilyCounts& counts);

} // namespace lineara
