#pragma once

#include <cstdint>

namespace lineara {

/// Where chance comes from: the tilt of leaves, the place of a new person. Injected, so that tests and exports repeat.
class RandomSource
{
public:
    virtual ~RandomSource() = default;

    /// A uniformly drawn whole number in [0, bound); 0 for a bound of 0.
    virtual std::uint32_t below(std::uint32_t bound) = 0;
};

/// The same seed gives the same numbers on every machine.
class SeededRandom final : public RandomSource
{
public:
    explicit SeededRandom(std::uint64_t seed) : state_(seed) {}

    /// Seeded differently at every run of the program.
    static SeededRandom fromEntropy();

    std::uint32_t below(std::uint32_t bound) override;

private:
    std::uint64_t next();

    std::uint64_t state_;
};

} // namespace lineara
