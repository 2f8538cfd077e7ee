#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

namespace lineara::engine {

/// A set of the numbers below a fixed size that gives out its members in ascending order while others come in.
///
/// A tree of bits: a bit of the upper levels tells whether the word below it holds any. Every operation costs one
/// word per level, and there are four levels for sixteen million members.
class OrderedWorklist
{
public:
    explicit OrderedWorklist(std::uint32_t size)
    {
        std::size_t bits = size;
        do {
            bits = (bits + wordBits - 1) / wordBits;
            levels_.emplace_back(bits, 0);
        } while (bits > 1);
    }

    void insert(std::uint32_t member)
    {
        std::size_t at = member;
        for (auto& level : levels_) {
            std::uint64_t& word = level[at / wordBits];
            const bool seenFromAbove = word != 0;
            word |= bit(at);
            if (seenFromAbove)
                return;
            at /= wordBits;
        }
    }

    /// Removes and returns the least member not below `from`.
    std::optional<std::uint32_t> takeFrom(std::uint32_t from)
    {
        const auto least = leastFrom(from);
        if (least)
            remove(*least);
        return least;
    }

private:
    static constexpr std::size_t wordBits = 64;

    static constexpr std::uint64_t bit(std::size_t at) { return std::uint64_t{1} << (at % wordBits); }

    std::optional<std::uint32_t> leastFrom(std::size_t at) const
    {
        for (std::size_t level = 0; level < levels_.size(); ++level) {
            const std::size_t word = at / wordBits;
            if (word >= levels_[level].size())
                return std::nullopt;
            const std::uint64_t notBelow = ~(bit(at) - 1);
            if (const std::uint64_t found = levels_[level][word] & notBelow)
                return descend(level, word * wordBits + static_cast<std::size_t>(std::countr_zero(found)));
            at = word + 1;
        }
        return std::nullopt;
    }

    std::uint32_t descend(std::size_t level, std::size_t at) const
    {
        while (level-- > 0)
            at = at * wordBits + static_cast<std::size_t>(std::countr_zero(levels_[level][at]));
        return static_cast<std::uint32_t>(at);
    }

    void remove(std::size_t at)
    {
        for (auto& level : levels_) {
            std::uint64_t& word = level[at / wordBits];
            word &= ~bit(at);
            if (word != 0)
                return;
            at /= wordBits;
        }
    }

    std::vector<std::vector<std::uint64_t>> levels_;
};

} // namespace lineara::engine
