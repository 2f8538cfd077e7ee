#pragma once

#include "engine/family_graph.h"

#include <cstdint>
#include <span>
#include <vector>

namespace lineara::engine {

/// A wish for an offspring link, in the order in which the wishes are to be judged.
struct OffspringWish
{
    PersonIndex parent = 0;
    PersonIndex child = 0;
};

enum class LinkVerdict : std::uint8_t
{
    Allowed,
    SamePerson, ///< source and target are one person
    TwoParents, ///< the child already has two parents
    Cycle,      ///< the child is an ancestor of the parent
};

/// Judges many offspring wishes at once, starting from a family without offspring links: the same verdicts, one per
/// wish, as asking for each link alone and making it where allowed, but in time linear in the wishes where no cycle
/// is among them. A wish for a link that was already allowed earlier is judged like any other (two parents).
std::vector<LinkVerdict> judgeOffspring(std::uint32_t persons, std::span<const OffspringWish> wishes);

} // namespace lineara::engine
