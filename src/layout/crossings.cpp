#include "crossings.h"

#include <algorithm>
#include <cstddef>
#include <span>
#include <utility>
#include <vector>

namespace lineara::layout {

namespace {

/// The pieces of lines between one row and the next, by their ends.
struct Pieces
{
    std::vector<double> tops;
    std::vector<double> bottoms;
};

void collect(const Chart& chart, const Arrangement& arrangement, std::uint32_t row, Pieces& pieces)
{
    pieces.tops.clear();
    pieces.bottoms.clear();
    for (const std::uint32_t line : chart.linesBelow[row]) {
        const StraightLine drawn(chart, arrangement, chart.lines[line]);
        pieces.tops.push_back(drawn.placeIn(row));
        pieces.bottoms.push_back(drawn.placeIn(row + 1));
    }
}

/// Compares all with all. Written for the compiler to take several at once: two, or four where the processor can. That
/// is found out when the program is loaded, before ThreadSanitizer is there.
#if defined(__x86_64__) && !defined(__SANITIZE_THREAD__)
[[gnu::target_clones("avx2", "default")]]
#endif
std::int64_t
countByComparing(std::span<const double> tops, std::span<const double> bottoms)
{
    const double* const above = tops.data();
    const double* const below = bottoms.data();
    const std::size_t count = tops.size();
    std::int64_t crossings = 0;
    for (std::size_t one = 1; one < count; ++one) {
        const double top = above[one];
        const double bottom = below[one];
        for (std::size_t other = 0; other < one; ++other)
            crossings += (above[other] - top) * (below[other] - bottom) < 0 ? 1 : 0;
    }
    return crossings;
}

/// Sorts by the lower ends, counting the pairs that had to change sides (merge sort from the bottom up).
std::int64_t countInversions(std::vector<double>& bottoms)
{
    std::int64_t inversions = 0;
    std::vector<double> merged(bottoms.size());
    for (std::size_t run = 1; run < bottoms.size(); run *= 2) {
        for (std::size_t begin = 0; begin < bottoms.size(); begin += 2 * run) {
            const std::size_t middle = std::min(begin + run, bottoms.size());
            const std::size_t end = std::min(begin + 2 * run, bottoms.size());
            std::size_t left = begin;
            std::size_t right = middle;
            for (std::size_t next = begin; next < end; ++next) {
                const bool takeRight = left == middle || (right < end && bottoms[right] < bottoms[left]);
                inversions += takeRight ? static_cast<std::int64_t>(middle - left) : 0;
                merged[next] = bottoms[takeRight ? right++ : left++];
            }
        }
        bottoms.swap(merged);
    }
    return inversions;
}

std::int64_t countBySorting(const Pieces& pieces)
{
    std::vector<std::pair<double, double>> byTop;
    byTop.reserve(pieces.tops.size());
    for (std::size_t piece = 0; piece < pieces.tops.size(); ++piece)
        byTop.emplace_back(pieces.tops[piece], pieces.bottoms[piece]);
    // Among equal upper ends the lower ends ascend, so that lines from one point are no inversions.
    std::ranges::sort(byTop);
    std::vector<double> bottoms;
    bottoms.reserve(byTop.size());
    for (const auto& [top, bottom] : byTop)
        bottoms.push_back(bottom);
    return countInversions(bottoms);
}

} // namespace

std::uint64_t countCrossings(const Chart& chart, const Arrangement& arrangement)
{
    constexpr std::size_t soonerCompared = 400;
    std::int64_t crossings = 0;
    Pieces pieces;
    for (std::uint32_t row = 0; row + 1 < chart.rows; ++row) {
        collect(chart, arrangement, row, pieces);
        const bool areFew = pieces.tops.size() <= soonerCompared;
        crossings += areFew ? countByComparing(pieces.tops, pieces.bottoms) : countBySorting(pieces);
    }
    return static_cast<std::uint64_t>(crossings);
}

} // namespace lineara::layout
