#include "elements/random_source.h"

#include <gmock/gmock.h>

#include <array>
#include <cmath>

namespace lineara {
namespace {

TEST(SeededRandom, SameSeedGivesTheSameNumbers)
{
    SeededRandom one(7);
    SeededRandom other(7);
    for (int draw = 0; draw < 100; ++draw)
        EXPECT_EQ(one.below(1000), other.below(1000));
}

TEST(SeededRandom, BoundOfZeroGivesZero)
{
    SeededRandom random(1);
    EXPECT_EQ(random.below(0), 0u);
    EXPECT_EQ(random.below(1), 0u);
}

TEST(SeededRandom, NumbersAreUniform)
{
    SeededRandom random(3);
    std::array<int, 39> counts{};
    constexpr int draws = 39000;
    for (int draw = 0; draw < draws; ++draw)
        ++counts.at(random.below(39));
    // Six standard deviations.
    for (const int count : counts)
        EXPECT_NEAR(count, draws / 39, 6 * std::sqrt(draws / 39.0));
}

TEST(SeededRandom, NeighbouringSeedsAreUnrelated)
{
    int equal = 0;
    for (std::uint64_t seed = 0; seed < 1000; ++seed)
        equal += SeededRandom(seed).below(39) == SeededRandom(seed + 1).below(39) ? 1 : 0;
    EXPECT_LT(equal, 60);
}

} // namespace
} // namespace lineara
