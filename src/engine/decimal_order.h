#pragma once

#include <cstdint>

namespace lineara::engine {

/// Whether the decimal text of `a` sorts before that of `b`, as in "10" < "9" and "1" < "10".
constexpr bool precedesAsText(std::uint64_t a, std::uint64_t b)
{
    std::uint64_t firstOfA = a;
    std::uint64_t firstOfB = b;
    // Cut the longer number down to the length of the shorter; both then compare like their texts.
    for (std::uint64_t restOfA = a, restOfB = b; restOfA >= 10 || restOfB >= 10; restOfA /= 10, restOfB /= 10) {
        if (restOfA < 10)
            firstOfB /= 10;
        if (restOfB < 10)
            firstOfA /= 10;
    }
    return firstOfA != firstOfB ? firstOfA < firstOfB : a < b;
}

} // namespace lineara::engine
