#pragma once

#include "hearing.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace lineara::layout {

/// Room in a row: the left edge of whom it begins with, and of whom it ends before. There is none if that is not
/// further right.
struct Gap
{
    std::int64_t first = 0;
    std::int64_t end = 0;

    std::int64_t room() const { return end - first; }
};

/// Persons who stand together and look for room.
struct GroupShare
{
    std::int64_t wish = 0;  ///< the left edge
    std::int64_t width = 0; ///< with what stays free behind them
};

/// Which gap each group gets, and how much room is missing in all of them.
struct SharedOut
{
    std::vector<std::size_t> gaps;
    std::int64_t lack = 0;
};

/// Shares out the gaps of a row, from left to right, among groups that keep their order: of all ways those with the
/// least lack of room, and of these the one in which the groups stand nearest to their wishes, each seen alone. There
/// is at least one gap and one group. No value if `heard` said not to go on. Where all wishes can be granted, this
/// takes time in proportion to groups and gaps; else to groups times gaps, of which only those count where somebody
/// fits in as long as these suffice, and memory in proportion to groups times the root of gaps.
std::optional<SharedOut> shareOut(std::span<const GroupShare> groups, std::span<const Gap> gaps, const Heard& heard);

} // namespace lineara::layout
