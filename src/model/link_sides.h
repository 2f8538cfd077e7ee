#pragma once

#include "model/changes.h"

#include <cstdint>
#include <limits>

namespace lineara {

/// Where the two ends of a link stand in each other's sets; places beyond the end of a set mean its end.
struct LinkPlaces
{
    static constexpr std::uint32_t end = std::numeric_limits<std::uint32_t>::max();
    std::uint32_t inOwner = end;  ///< of the member, among the owner's
    std::uint32_t inMember = end; ///< of the owner, among the member's
    friend bool operator==(const LinkPlaces&, const LinkPlaces&) = default;
};

/// The one place that writes relationships, always both sides at once. Reports and journals nothing.
class LinkSides
{
public:
    static bool linked(Relationship relationship, const Record& owner, const Record& member);

    /// The two must not be linked, and a side that holds only one must be free. Returns where they stand now.
    static LinkPlaces join(Relationship relationship, Record& owner, Record& member, LinkPlaces places);

    /// The two must be linked. Returns where they stood.
    static LinkPlaces part(Relationship relationship, Record& owner, Record& member);
};

} // namespace lineara
