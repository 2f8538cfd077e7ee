#include "elements/random_source.h"

#include <random>

namespace lineara {

SeededRandom SeededRandom::fromEntropy()
{
    std::random_device device;
    const std::uint64_t high = device();
    return SeededRandom((high << 32) | device());
}

// The upper half of draw * bound. Draws whose lower half falls into the uneven rest would favour some results; they
// are drawn again.
std::uint32_t SeededRandom::below(std::uint32_t bound)
{
    const auto scaled = [&] { return (next() >> 32) * bound; };
    std::uint64_t product = scaled();
    if (static_cast<std::uint32_t>(product) < bound) {
        const std::uint32_t unevenRest = bound == 0 ? 0 : (0u - bound) % bound;
        while (static_cast<std::uint32_t>(product) < unevenRest)
            product = scaled();
    }
    return static_cast<std::uint32_t>(product >> 32);
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
