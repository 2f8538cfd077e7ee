// Sharing out the gaps of a row, beside trying every way.

#include "shared_gaps.h"

#include "family_sketch.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <optional>
#include <utility>
#include <vector>

namespace lineara::layout {
namespace {

using sketch::pick;
using sketch::Random;

#ifdef LINEARA_SANITIZED
constexpr int trials = 500;
#else
constexpr int trials = 20'000;
#endif

/// Less is better: room missing first, then distance from the wishes.
using Price = std::pair<std::int64_t, std::int64_t>;

struct Trial
{
    std::vector<GroupShare> groups;
    std::vector<Gap> gaps;

    Price priceOf(const std::vector<std::size_t>& chosen) const
    {
        Price price{0, 0};
        for (std::size_t gap = 0; gap < gaps.size(); ++gap) {
            std::int64_t taken = 0;
            for (std::size_t group = 0; group < groups.size(); ++group)
                taken += chosen[group] == gap ? groups[group].width : 0;
            const std::int64_t room = std::max<std::int64_t>(0, gaps[gap].end - gaps[gap].first);
            price.first += std::max<std::int64_t>(0, taken - room);
        }
        for (std::size_t group = 0; group < groups.size(); ++group) {
            const auto& [wish, width] = groups[group];
            const Gap& gap = gaps[chosen[group]];
            const std::int64_t last = std::max(gap.first, gap.end - width);
            price.second += std::abs(std::clamp(wish, gap.first, last) - wish);
        }
        return price;
    }

    Price best() const
    {
        std::vector<std::size_t> chosen(groups.size(), 0);
        std::optional<Price> least;
        tryAll(chosen, 0, 0, least);
        return *least;
    }

private:
    void tryAll(std::vector<std::size_t>& chosen, std::size_t group, std::size_t from,
                std::optional<Price>& least) const
    {
        if (group == groups.size()) {
            const Price price = priceOf(chosen);
            least = std::min(least.value_or(price), price);
            return;
        }
        for (std::size_t gap = from; gap < gaps.size(); ++gap) {
            chosen[group] = gap;
            tryAll(chosen, group + 1, gap, least);
        }
    }
};

Trial trialOf(Random& random)
{
    const auto number = [&](std::uint32_t low, std::uint32_t high) {
        return static_cast<std::int64_t>(pick(random, low, high));
    };
    Trial trial;
    std::int64_t left = 0;
    for (std::uint32_t gap = pick(random, 1, 6); gap > 0; --gap) {
        const std::int64_t end = left + (pick(random, 0, 1) == 0 ? 0 : number(0, 40));
        trial.gaps.push_back({left, end});
        left = end + number(5, 15);
    }
    for (std::uint32_t group = pick(random, 1, 5); group > 0; --group)
        trial.groups.push_back({number(0, 120), number(5, 20)});
    std::ranges::sort(trial.groups, {}, &GroupShare::wish);
    return trial;
}

TEST(SharedGaps, AreSharedOutAsWellAsByTryingEveryWay)
{
    Random random(91);
    int tight = 0;
    for (int round = 0; round < trials; ++round) {
        SCOPED_TRACE(round);
        const Trial trial = trialOf(random);
        const auto shared = shareOut(trial.groups, trial.gaps, {});
        ASSERT_TRUE(shared);
        ASSERT_TRUE(std::ranges::is_sorted(shared->gaps));
        ASSERT_EQ(trial.priceOf(shared->gaps), trial.best());
        ASSERT_EQ(shared->lack, trial.best().first);
        tight += shared->lack > 0 ? 1 : 0;
    }
    EXPECT_GT(tight, trials / 10);
    EXPECT_LT(tight, trials - trials / 10);
}

} // namespace
} // namespace lineara::layout
