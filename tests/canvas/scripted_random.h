#pragma once

#include "elements/random_source.h"

#include <initializer_list>
#include <vector>

namespace lineara {

/// Draws the numbers that it was told to, then zeros, and remembers what was asked.
class ScriptedRandom final : public RandomSource
{
public:
    ScriptedRandom(std::initializer_list<std::uint32_t> numbers) : numbers_(numbers) {}

    std::uint32_t below(std::uint32_t bound) override
    {
        const std::uint32_t number = bounds_.size() < numbers_.size() ? numbers_[bounds_.size()] : 0;
        bounds_.push_back(bound);
        return number;
    }

    const std::vector<std::uint32_t>& bounds() const { return bounds_; }

private:
    std::vector<std::uint32_t> numbers_;
    std::vector<std::uint32_t> bounds_;
};

} // namespace lineara
