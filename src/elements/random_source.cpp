#include "elements/random_source.h"

#include <limits>
#include <random>

namespace lineara {

SeededRandom SeededRandom::fromEntropy()
{
    std::random_device device;
    const std::uint64_t high = device();
    return SeededRandom((high << 32) | device());
}

std::uint32_t SeededRandom::below(std::uint32_t bound)
{
    if (bound == 0)
        return 0;
    // Numbers from the last, incomplete round would favour small results; they are drawn again.
    constexpr std::uint64_t greatest = std::numeric_limits<std::uint64_t>::max();
    const std::uint64_t completeRounds = greatest - greatest % bound;
    std::uint64_t drawn = next();
    while (drawn >= completeRounds)
        drawn = next();
    return static_cast<std::uint32_t>(drawn % bound);
}

// SplitMix64: consecutive seeds, such as the numbers of persons, give unrelated sequences.
std::uint64_t SeededRandom::next()
{
    state_ += 0x9e3779b97f4a7c15u;
    std::uint64_t mixed = state_;
    mixed = (mixed ^ (mixed >> 30)) * 0xbf58476d1ce4e5b9u;
    mixed = (mixed ^ (mixed >> 27)) * 0x94d049bb133111ebu;
    return mixed ^ (mixed >> 31);
}

} // namespace lineara
