#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace lineara::layout {

/// Room in a row, as left edges: of the first person that fits in, and of the last. Too small for anybody if that is
/// further left.
struct Gap
{
    std::int64_t first = 0;
    std::int64_t last = 0;
};

/// Persons who stand together and look for room.
struct GroupShare
{
    std::int64_t wish = 0; ///< the left edge
    std::int64_t width = 0;
};

/// Which gap each group gets, and how much room is missing in all of them.
struct SharedOut
{
    std::vector<std::size_t> gaps;
    std::int64_t lack = 0;
};

/// Shares out the gaps of a row, from left to right, among groups that keep their order: of all ways those with the
/// least lack of room, and of these the one in which the groups stand nearest to their wishes, each seen alone. There
/// is at least one gap. Takes time and memory in proportion to groups times gaps.
SharedOut shareOut(std::span<const GroupShare> groups, std::span<const Gap> gaps, std::int64_t pitch);

} // namespace lineara::layout
