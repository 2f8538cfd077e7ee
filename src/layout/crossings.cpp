#include "crossings.h"

#include <algorithm>

namespace lineara::layout {

namespace {

/// A piece of a line between one row and the next.
struct Piece
{
    double top = 0;
    double bottom = 0;
    friend auto operator<=>(const Piece&, const Piece&) = default;
};

/// Sorts the pieces by their lower ends, counting the pairs that had to change sides (merge sort from the bottom up).
std::uint64_t countInversions(std::vector<Piece>& pieces, std::vector<Piece>& merged)
{
    std::uint64_t inversions = 0;
    merged.resize(pieces.size());
    for (std::size_t run = 1; run < pieces.size(); run *= 2) {
        for (std::size_t begin = 0; begin < pieces.size(); begin += 2 * run) {
            const std::size_t middle = std::min(begin + run, pieces.size());
            const std::size_t end = std::min(begin + 2 * run, pieces.size());
            std::size_t left = begin;
            std::size_t right = middle;
            for (std::size_t next = begin; next < end; ++next) {
                const bool takeRight = left == middle || (right < end && pieces[right].bottom < pieces[left].bottom);
                inversions += takeRight ? middle - left : 0;
                merged[next] = pieces[takeRight ? right++ : left++];
            }
        }
        pieces.swap(merged);
    }
    return inversions;
}

} // namespace

std::uint64_t countCrossings(const Chart& chart, const Arrangement& arrangement)
{
    std::uint64_t crossings = 0;
    std::vector<Piece> pieces;
    std::vector<Piece> scratch;
    for (std::uint32_t row = 0; row + 1 < chart.rows; ++row) {
        pieces.clear();
        for (const std::uint32_t line : chart.linesBelow[row]) {
            const StraightLine drawn(chart, arrangement, chart.lines[line]);
            pieces.push_back({drawn.placeIn(row), drawn.placeIn(row + 1)});
        }
        // Among equal upper ends the lower ends ascend, so that lines from one point are no inversions.
        std::ranges::sort(pieces);
        crossings += countInversions(pieces, scratch);
    }
    return crossings;
}

} // namespace lineara::layout
