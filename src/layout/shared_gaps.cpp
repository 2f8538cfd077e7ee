#include "shared_gaps.h"

#include <algorithm>
#include <compare>
#include <cstdlib>
#include <deque>
#include <limits>

namespace lineara::layout {

namespace {

/// What a way to share out costs; less room missing counts before all nearness.
struct Crowding
{
    std::int64_t lack = 0;
    std::int64_t distance = 0;

    auto operator<=>(const Crowding&) const = default;
    Crowding operator+(const Crowding& other) const { return {lack + other.lack, distance + other.distance}; }
    Crowding operator-(const Crowding& other) const { return {lack - other.lack, distance - other.distance}; }
};

/// Goes over the gaps from left to right; after each it knows the cheapest way to have put the first groups, as many
/// as one likes, into the gaps so far.
class Sharing
{
public:
    Sharing(std::span<const GroupShare> groups, std::int64_t pitch) : groups_(groups), pitch_(pitch)
    {
        constexpr Crowding impossible{std::numeric_limits<std::int64_t>::max() / 4, 0};
        best_.assign(groups.size() + 1, impossible);
        best_.front() = {};
        ends_.assign(groups.size() + 1, 0);
        for (std::size_t group = 0; group < groups.size(); ++group)
            ends_[group + 1] = ends_[group] + groups[group].width;
    }

    void add(const Gap& gap)
    {
        const std::int64_t room = gap.last - gap.first + pitch_;
        std::vector<Crowding> next(best_.size());
        std::vector<std::uint32_t> from(best_.size());
        const std::vector<std::int64_t> distances = distancesIn(gap);
        const auto fitting = [&](std::size_t first) { return best_[first] - Crowding{0, distances[first]}; };
        // The gap gets the groups from `first` on: of those that fit in, the cheapest is at the front; of those that
        // are too many, the one is known that lacks least.
        std::deque<std::size_t> cheapest;
        std::size_t tooMany = 0;
        std::size_t firstFitting = 0;
        const auto crowding = [&](std::size_t first) { return fitting(first) - Crowding{ends_[first], 0}; };
        for (std::size_t end = 0; end < best_.size(); ++end) {
            while (!cheapest.empty() && fitting(end) <= fitting(cheapest.back()))
                cheapest.pop_back();
            cheapest.push_back(end);
            for (; ends_[end] - ends_[firstFitting] > std::max<std::int64_t>(room, 0); ++firstFitting) {
                tooMany = crowding(firstFitting) < crowding(tooMany) ? firstFitting : tooMany;
                if (cheapest.front() == firstFitting)
                    cheapest.pop_front();
            }
            next[end] = fitting(cheapest.front()) + Crowding{0, distances[end]};
            from[end] = static_cast<std::uint32_t>(cheapest.front());
            if (firstFitting == 0)
                continue;
            const Crowding crowded =
                crowding(tooMany) + Crowding{ends_[end] - std::max<std::int64_t>(room, 0), distances[end]};
            if (crowded < next[end]) {
                next[end] = crowded;
                from[end] = static_cast<std::uint32_t>(tooMany);
            }
        }
        best_ = std::move(next);
        cameFrom_.push_back(std::move(from));
    }

    SharedOut result() const
    {
        SharedOut shared{std::vector<std::size_t>(groups_.size()), best_.back().lack};
        std::size_t end = groups_.size();
        for (std::size_t gap = cameFrom_.size(); gap-- > 0;) {
            const std::size_t first = cameFrom_[gap][end];
            std::fill(shared.gaps.begin() + static_cast<std::ptrdiff_t>(first),
                      shared.gaps.begin() + static_cast<std::ptrdiff_t>(end), gap);
            end = first;
        }
        return shared;
    }

private:
    /// How far the first groups, as many as one likes, would stand from their wishes in total if all were in this gap.
    std::vector<std::int64_t> distancesIn(const Gap& gap) const
    {
        std::vector<std::int64_t> distances{0};
        distances.reserve(groups_.size() + 1);
        for (const auto& [wish, width] : groups_) {
            const std::int64_t last = std::max(gap.first, gap.last + pitch_ - width);
            distances.push_back(distances.back() + std::abs(std::clamp(wish, gap.first, last) - wish));
        }
        return distances;
    }

    std::span<const GroupShare> groups_;
    std::int64_t pitch_;
    /// By how many groups there are so far.
    std::vector<Crowding> best_;
    std::vector<std::int64_t> ends_;
    /// For each gap: where the groups in it begin, by where they end.
    std::vector<std::vector<std::uint32_t>> cameFrom_;
};

} // namespace

SharedOut shareOut(std::span<const GroupShare> groups, std::span<const Gap> gaps, std::int64_t pitch)
{
    Sharing sharing(groups, pitch);
    for (const Gap& gap : gaps)
        sharing.add(gap);
    return sharing.result();
}

} // namespace lineara::layout
