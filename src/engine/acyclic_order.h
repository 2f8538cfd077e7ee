#pragma once

#include "engine/family_graph.h"
#include "engine/link_rules.h"

#include <cstdint>
#include <span>
#include <vector>

namespace lineara::engine {

/// Keeps a rank for every person such that each parent ranks before its children, while links are made one by one.
///
/// The first ranks come from a depth-first walk over all wishes. Links that agree with the ranks, which are all of
/// them where no cycle is among the wishes, cost next to nothing. Another one is searched for a cycle only between the
/// ranks of its two ends, and those found between them swap ranks.
class AcyclicOrder
{
public:
    AcyclicOrder(std::uint32_t persons, std::span<const OffspringWish> wishes);

    /// Makes the link, or returns false if it would close a cycle with the links made before.
    bool link(PersonIndex parent, PersonIndex child);

private:
    bool collectDescendants(PersonIndex child, PersonIndex parent);
    void collectAncestors(PersonIndex parent, std::uint32_t leastRank);
    void putAncestorsFirst();

    std::vector<std::uint32_t> ranks_;
    std::vector<std::vector<PersonIndex>> children_;
    std::vector<std::vector<PersonIndex>> parents_;
    std::vector<PersonIndex> descendants_;
    std::vector<PersonIndex> ancestors_;
    std::vector<bool> found_;
};

} // namespace lineara::engine
