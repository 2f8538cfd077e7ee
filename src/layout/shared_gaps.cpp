#include "shared_gaps.h"

#include <algorithm>
#include <cmath>
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

/// What the cheapest way costs to have put the first groups, by how many these are, into the gaps so far.
using Costs = std::vector<Crowding>;

/// Goes over the gaps from left to right. Where the groups of a gap begin is worked out a second time, stretch by
/// stretch from the right, since to remember it would take memory for each group in each gap.
class Sharing
{
public:
    explicit Sharing(std::span<const GroupShare> groups) : groups_(groups)
    {
        ends_.assign(groups.size() + 1, 0);
        for (std::size_t group = 0; group < groups.size(); ++group)
            ends_[group + 1] = ends_[group] + groups[group].width;
    }

    /// No value if `heard` said not to go on.
    std::optional<SharedOut> share(std::span<const Gap> gaps, const Heard& heard) const
    {
        constexpr std::size_t gapsBetweenHearings = 64;
        constexpr double wayThere = 0.6;
        const auto stretch = static_cast<std::size_t>(std::ceil(std::sqrt(static_cast<double>(gaps.size()))));
        Hearing hearing(heard);
        hearing.nextPart(wayThere);
        std::vector<Costs> beforeStretch;
        Costs costs = costsWithoutGaps();
        for (std::size_t gap = 0; gap < gaps.size(); ++gap) {
            if (gap % gapsBetweenHearings == 0 && !hearing.goesOn(shareOf(gap, gaps.size())))
                return std::nullopt;
            if (gap % stretch == 0)
                beforeStretch.push_back(costs);
            costs = withGap(costs, gaps[gap]).costs;
        }
        SharedOut shared{std::vector<std::size_t>(groups_.size()), costs.back().lack};
        hearing.nextPart(1 - wayThere);
        std::size_t end = groups_.size();
        for (std::size_t done = 0; done < beforeStretch.size() && end > 0; ++done) {
            if (!hearing.goesOn(shareOf(done, beforeStretch.size())))
                return std::nullopt;
            const std::size_t number = beforeStretch.size() - 1 - done;
            end = goBack(beforeStretch[number], gaps, number * stretch, stretch, end, shared);
        }
        return shared;
    }

private:
    struct Step
    {
        Costs costs;
        std::vector<std::uint32_t> begins; ///< of the groups in the gap, by where they end
    };

    static double shareOf(std::size_t part, std::size_t all)
    {
        return static_cast<double>(part) / static_cast<double>(all);
    }

    Costs costsWithoutGaps() const
    {
        constexpr Crowding impossible{std::numeric_limits<std::int64_t>::max() / 4, 0};
        Costs costs(groups_.size() + 1, impossible);
        costs.front() = {};
        return costs;
    }

    /// Tells the gaps of the groups before `end` that are in one stretch of gaps. Returns where these groups begin.
    std::size_t goBack(Costs costs, std::span<const Gap> gaps, std::size_t first, std::size_t stretch, std::size_t end,
                       SharedOut& shared) const
    {
        std::vector<std::vector<std::uint32_t>> begins;
        for (const Gap& gap : gaps.subspan(first, std::min(stretch, gaps.size() - first))) {
            Step step = withGap(costs, gap);
            costs = std::move(step.costs);
            begins.push_back(std::move(step.begins));
        }
        for (std::size_t gap = begins.size(); gap-- > 0;) {
            const std::size_t begin = begins[gap][end];
            std::fill(shared.gaps.begin() + static_cast<std::ptrdiff_t>(begin),
                      shared.gaps.begin() + static_cast<std::ptrdiff_t>(end), first + gap);
            end = begin;
        }
        return end;
    }

    Step withGap(const Costs& costs, const Gap& gap) const
    {
        const std::int64_t room = std::max<std::int64_t>(gap.room(), 0);
        Step step{Costs(costs.size()), std::vector<std::uint32_t>(costs.size())};
        const std::vector<std::int64_t> distances = distancesIn(gap);
        const auto fitting = [&](std::size_t first) { return costs[first] - Crowding{0, distances[first]}; };
        // The gap gets the groups from `first` on: of those that fit in, the cheapest is at the front; of those that
        // are too many, the one is known that lacks least.
        std::deque<std::size_t> cheapest;
        std::size_t tooMany = 0;
        std::size_t firstFitting = 0;
        const auto crowding = [&](std::size_t first) { return fitting(first) - Crowding{ends_[first], 0}; };
        for (std::size_t end = 0; end < costs.size(); ++end) {
            while (!cheapest.empty() && fitting(end) <= fitting(cheapest.back()))
                cheapest.pop_back();
            cheapest.push_back(end);
            for (; ends_[end] - ends_[firstFitting] > room; ++firstFitting) {
                tooMany = crowding(firstFitting) < crowding(tooMany) ? firstFitting : tooMany;
                if (cheapest.front() == firstFitting)
                    cheapest.pop_front();
            }
            step.costs[end] = fitting(cheapest.front()) + Crowding{0, distances[end]};
            step.begins[end] = static_cast<std::uint32_t>(cheapest.front());
            if (firstFitting == 0)
                continue;
            const Crowding crowded = crowding(tooMany) + Crowding{ends_[end] - room, distances[end]};
            if (crowded < step.costs[end]) {
                step.costs[end] = crowded;
                step.begins[end] = static_cast<std::uint32_t>(tooMany);
            }
        }
        return step;
    }

    /// How far the first groups, as many as one likes, would stand from their wishes in total if all were in this gap.
    std::vector<std::int64_t> distancesIn(const Gap& gap) const
    {
        std::vector<std::int64_t> distances{0};
        distances.reserve(groups_.size() + 1);
        for (const auto& [wish, width] : groups_) {
            const std::int64_t last = std::max(gap.first, gap.end - width);
            distances.push_back(distances.back() + std::abs(std::clamp(wish, gap.first, last) - wish));
        }
        return distances;
    }

    std::span<const GroupShare> groups_;
    std::vector<std::int64_t> ends_;
};

/// Everybody in the gap that holds their wish, if all find room there. Nothing can be nearer than that.
std::optional<SharedOut> asWished(std::span<const GroupShare> groups, std::span<const Gap> gaps)
{
    SharedOut shared{std::vector<std::size_t>(groups.size()), 0};
    std::size_t gap = 0;
    std::int64_t room = gaps.front().room();
    for (std::size_t group = 0; group < groups.size(); ++group) {
        const auto& [wish, width] = groups[group];
        while (gaps[gap].end < wish + width) {
            if (++gap == gaps.size())
                return std::nullopt;
            room = gaps[gap].room();
        }
        room -= width;
        if (wish < gaps[gap].first || room < 0)
            return std::nullopt;
        shared.gaps[group] = gap;
    }
    return shared;
}

/// Who finds room without lack does so in these.
std::vector<std::size_t> roomyGaps(std::span<const GroupShare> groups, std::span<const Gap> gaps)
{
    const std::int64_t narrowest = std::ranges::min_element(groups, {}, &GroupShare::width)->width;
    std::vector<std::size_t> roomy;
    for (std::size_t gap = 0; gap < gaps.size(); ++gap) {
        if (gaps[gap].room() >= narrowest)
            roomy.push_back(gap);
    }
    return roomy;
}

} // namespace

std::optional<SharedOut> shareOut(std::span<const GroupShare> groups, std::span<const Gap> gaps, const Heard& heard)
{
    constexpr double shareOfEither = 0.5;
    if (auto wished = asWished(groups, gaps))
        return wished;
    const Sharing sharing(groups);
    Hearing hearing(heard);
    hearing.nextPart(shareOfEither);
    const std::vector<std::size_t> roomy = roomyGaps(groups, gaps);
    std::vector<Gap> chosen;
    chosen.reserve(roomy.size());
    for (const std::size_t gap : roomy)
        chosen.push_back(gaps[gap]);
    auto shared = sharing.share(chosen, hearing.ofPart());
    if (shared && shared->lack == 0) {
        for (std::size_t& gap : shared->gaps)
            gap = roomy[gap];
    } else if (shared) {
        hearing.nextPart(shareOfEither);
        shared = sharing.share(gaps, hearing.ofPart());
    }
    return shared;
}

} // namespace lineara::layout
