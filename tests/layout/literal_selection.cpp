#include "literal_selection.h"

#include <algorithm>
#include <cstdlib>
#include <limits>

namespace lineara::layout {

std::int64_t LiteralSelection::lackOf(const std::vector<std::size_t>& gaps) const
{
    std::vector<std::int64_t> room;
    std::int64_t first = before.empty() ? leftmost : std::min(leftmost, before.front() - pitch);
    for (std::size_t other = 0; other < before.size(); ++other) {
        room.push_back(before[other] - first);
        first = before[other] + steps[other];
    }
    room.push_back(std::max(first, rightmost) - first + pitch);
    for (std::size_t group = 0; group < groups.size(); ++group)
        room[gaps[group]] -= groups[group].width;
    std::int64_t lack = 0;
    for (const std::int64_t left : room)
        lack += std::max<std::int64_t>(-left, 0);
    return lack;
}

std::int64_t LiteralSelection::lack() const
{
    std::vector<std::size_t> gaps;
    for (const Group& group : groups)
        gaps.push_back(group.gap);
    return lackOf(gaps);
}

std::int64_t LiteralSelection::leastLack() const
{
    std::vector<std::size_t> gaps(groups.size(), 0);
    std::int64_t least = lackOf(gaps);
    for (;;) {
        // The next way in which no group is left of the one before it, counted like a number.
        std::size_t last = gaps.size();
        while (last > 0 && gaps[last - 1] == before.size())
            --last;
        if (last == 0)
            return least;
        std::fill(gaps.begin() + static_cast<std::ptrdiff_t>(last) - 1, gaps.end(), gaps[last - 1] + 1);
        least = std::min(least, lackOf(gaps));
    }
}

std::int64_t LiteralSelection::moved() const
{
    std::int64_t sum = 0;
    for (std::size_t other = 0; other < before.size(); ++other)
        sum += std::abs(after[other] - before[other]);
    return sum;
}

/// What the groups take of each gap.
std::vector<std::int64_t> LiteralSelection::taken() const
{
    std::vector<std::int64_t> taken(before.size() + 1, 0);
    for (const Group& group : groups)
        taken[group.gap] += group.width;
    return taken;
}

std::int64_t LiteralSelection::leastMoved() const
{
    if (before.empty())
        return 0;
    std::int64_t reach = 0;
    for (const std::int64_t width : taken())
        reach += width + pitch;
    const std::int64_t lowest = before.front() - reach;
    const auto places = static_cast<std::size_t>(before.back() + reach - lowest + 1);
    const auto widths = taken();
    // The least total of those so far, with the last of them at each place.
    std::vector<std::int64_t> costs(places, 0);
    for (std::size_t other = 0; other < before.size(); ++other) {
        const auto apart = static_cast<std::size_t>(other == 0 ? 0 : steps[other - 1] + widths[other]);
        std::vector<std::int64_t> next(places, std::numeric_limits<std::int32_t>::max());
        std::int64_t best = std::numeric_limits<std::int32_t>::max();
        for (std::size_t place = apart; place < places; ++place) {
            best = std::min(best, costs[place - apart]);
            next[place] = best + std::abs(lowest + static_cast<std::int64_t>(place) - before[other]);
        }
        costs = next;
    }
    return *std::ranges::min_element(costs);
}

} // namespace lineara::layout
