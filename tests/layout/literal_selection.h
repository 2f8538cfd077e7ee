#pragma once

#include <cstdint>
#include <vector>

namespace lineara::layout {

/// A row in which some were tidied up between others, by trying everything. Meant for very small rows.
struct LiteralSelection
{
    /// Left edges of those not selected, ascending, before; and after.
    std::vector<std::int64_t> before;
    std::vector<std::int64_t> after;
    /// From these left edges to the next ones at the least.
    std::vector<std::int64_t> steps;
    /// The selected as they stand together, from left to right: how many of the others stand left of each group, and
    /// how far it is from its left edge to the next one at the least.
    struct Group
    {
        std::size_t gap = 0;
        std::int64_t width = 0;
    };
    std::vector<Group> groups;
    std::int64_t pitch = 0;
    /// Between which left edges there is room.
    std::int64_t leftmost = 0;
    std::int64_t rightmost = 0;

    /// How much room is missing where the groups are, and where they could be in this order with the least missing.
    std::int64_t lack() const;
    std::int64_t leastLack() const;
    /// What those not selected are moved in total, and what they have to be for the groups where they are.
    std::int64_t moved() const;
    std::int64_t leastMoved() const;

private:
    std::int64_t lackOf(const std::vector<std::size_t>& gaps) const;
    std::vector<std::int64_t> taken() const;
};

} // namespace lineara::layout
