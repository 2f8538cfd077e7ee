#include "drawn_lines.h"

#include <algorithm>
#include <array>
#include <limits>

namespace lineara::layout {

namespace {

struct OwnedLine
{
    BlockIndex owner = 0;
    std::uint32_t line = 0;
};

Lists<std::uint32_t> linesOfBlocks(const Chart& chart)
{
    std::vector<OwnedLine> owned;
    for (std::uint32_t line = 0; line < chart.lines.size(); ++line) {
        std::array ends{chart.lines[line].firstParent.block, chart.lines[line].secondParent.block,
                        chart.lines[line].child.block};
        std::ranges::sort(ends);
        for (auto end = ends.begin(); end != std::unique(ends.begin(), ends.end()); ++end)
            owned.push_back({*end, line});
    }
    return sortIntoLists(chart.blocks(), owned, &OwnedLine::line);
}

/// How many of the pieces the one from `from` to `to` crosses. Written for the compiler to take several at once: four,
/// or eight where the processor can. That is found out when the program is loaded, before ThreadSanitizer is there.
#if defined(__x86_64__) && !defined(__SANITIZE_THREAD__)
[[gnu::target_clones("avx2", "default")]]
#endif
std::int64_t
crossed(std::span<const float> upper, std::span<const float> lower, float from, float to)
{
    const float* const above = upper.data();
    const float* const below = lower.data();
    const std::size_t count = upper.size();
    std::int32_t crossings = 0;
    for (std::size_t piece = 0; piece < count; ++piece)
        crossings += (above[piece] - from) * (below[piece] - to) < 0.0F ? 1 : 0;
    return crossings;
}

} // namespace

DrawnLines::DrawnLines(const Chart& chart)
    : chart_(chart), linesOf_(linesOfBlocks(chart)), isLifted_(chart.lines.size(), true)
{
    std::vector<bool> counts(chart_.lines.size(), false);
    for (std::uint32_t row = 0; row < chart_.rows; ++row)
        for (const std::uint32_t line : chart_.linesBelow[row])
            counts[line] = true;
    std::uint32_t pieces = 0;
    for (std::uint32_t line = 0; line < chart_.lines.size(); ++line) {
        const std::uint32_t top = chart_.topOf(chart_.lines[line]);
        const std::uint32_t bottom = counts[line] ? chart_.bottomOf(chart_.lines[line]) : top;
        pieces_.push_back({top, bottom, pieces});
        pieces += bottom - top;
    }
    standsAt_.resize(pieces);
    upper_.resize(pieces, std::numeric_limits<float>::quiet_NaN());
    lower_.resize(pieces);
    std::uint32_t next = 0;
    for (std::uint32_t row = 0; row < chart_.rows; ++row) {
        rowBegins_.push_back(next);
        for (const std::uint32_t line : chart_.linesBelow[row])
            standsAt_[pieces_[line].first + row - pieces_[line].top] = next++;
    }
    rowBegins_.push_back(next);
}

void DrawnLines::draw(const Arrangement& arrangement, std::uint32_t line)
{
    isLifted_[line] = false;
    const Pieces& pieces = pieces_[line];
    const StraightLine drawn(chart_, arrangement, chart_.lines[line]);
    for (std::uint32_t row = pieces.top; row < pieces.bottom; ++row) {
        const std::uint32_t at = standsAt_[pieces.first + row - pieces.top];
        upper_[at] = static_cast<float>(drawn.placeIn(row));
        lower_[at] = static_cast<float>(drawn.placeIn(row + 1));
    }
}

void DrawnLines::draw(const Arrangement& arrangement, std::span<const std::uint32_t> lines)
{
    for (const std::uint32_t line : lines)
        draw(arrangement, line);
}

void DrawnLines::drawAll(const Arrangement& arrangement)
{
    for (std::uint32_t line = 0; line < pieces_.size(); ++line)
        draw(arrangement, line);
}

void DrawnLines::lift(std::uint32_t line)
{
    isLifted_[line] = true;
    const Pieces& pieces = pieces_[line];
    for (std::uint32_t piece = 0; piece < pieces.bottom - pieces.top; ++piece)
        upper_[standsAt_[pieces.first + piece]] = std::numeric_limits<float>::quiet_NaN();
}

void DrawnLines::liftAt(BlockIndex block, std::vector<std::uint32_t>& lifted)
{
    for (const std::uint32_t line : linesOf_[block]) {
        if (isLifted_[line])
            continue;
        lift(line);
        lifted.push_back(line);
    }
}

std::int64_t DrawnLines::lower(const Arrangement& arrangement, std::span<const std::uint32_t> lines, std::int64_t most)
{
    std::int64_t crossings = 0;
    for (const std::uint32_t line : lines) {
        if (crossings > most)
            break;
        const StraightLine drawn(chart_, arrangement, chart_.lines[line]);
        crossings += crossingsOf(line, static_cast<float>(drawn.from), static_cast<float>(drawn.to));
        draw(arrangement, line);
    }
    return crossings;
}

std::int64_t DrawnLines::crossingsOf(std::uint32_t line, float from, float to) const
{
    const Pieces& pieces = pieces_[line];
    const float rise = (to - from) / static_cast<float>(pieces.bottom - pieces.top);
    std::int64_t crossings = 0;
    for (std::uint32_t row = pieces.top; row < pieces.bottom; ++row) {
        const std::size_t begin = rowBegins_[row];
        const std::size_t count = rowBegins_[row + 1] - begin;
        const float upper = from + rise * static_cast<float>(row - pieces.top);
        const float lower = row + 1 == pieces.bottom ? to : upper + rise;
        crossings += crossed({upper_.data() + begin, count}, {lower_.data() + begin, count}, upper, lower);
    }
    return crossings;
}

} // namespace lineara::layout
