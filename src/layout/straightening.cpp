#include "straightening.h"

#include "cost.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace lineara::layout {

namespace {

constexpr double noticeable = 0.01;

} // namespace

Straightening::Straightening(const Chart& chart, double easedBeyond)
    : chart_(chart), placement_(chart), drawn_(chart), wanted_(chart.blocks(), 0)
{
    placement_.easeBeyond(easedBeyond);
}

bool Straightening::goOver(Arrangement& arrangement, const Heard& heard)
{
    arrangement_ = &arrangement;
    drawn_.drawAll(arrangement);
    return downAndUp(chart_.rows, heard, [this](std::uint32_t row) { return pullRow(row); });
}

bool Straightening::pullRow(std::uint32_t row)
{
    const std::span<const BlockIndex> blocks = arrangement_->rows[row];
    for (const BlockIndex block : blocks)
        wanted_[block] = arrangement_->left[block];
    placement_.pullRow(*arrangement_, row);
    for (const BlockIndex block : blocks)
        std::swap(wanted_[block], arrangement_->left[block]);
    bool moved = false;
    for (std::size_t first = 0; first < blocks.size();) {
        const std::size_t end = endOfPart(blocks, first);
        moved |= movePart(blocks.subspan(first, end - first));
        first = end;
    }
    return moved;
}

std::size_t Straightening::endOfPart(std::span<const BlockIndex> blocks, std::size_t first) const
{
    constexpr double rounding = 1e-9;
    for (std::size_t next = first + 1; next < blocks.size(); ++next) {
        const BlockIndex block = blocks[next - 1];
        const BlockIndex right = blocks[next];
        const double end = std::max(arrangement_->left[block], wanted_[block]) + chart_.width(block);
        if (end <= std::min(arrangement_->left[right], wanted_[right]) + rounding)
            return next;
    }
    return blocks.size();
}

bool Straightening::movePart(std::span<const BlockIndex> part)
{
    const auto isAside = [&](BlockIndex block) {
        return std::abs(wanted_[block] - arrangement_->left[block]) > noticeable;
    };
    if (std::ranges::none_of(part, isAside))
        return false;
    lines_.clear();
    for (const BlockIndex block : part)
        drawn_.liftAt(block, lines_);
    const std::int64_t before = drawn_.lower(*arrangement_, lines_);
    exchange(part);
    if (drawn_.lower(*arrangement_, lines_, before) <= before)
        return true;
    exchange(part);
    drawn_.draw(*arrangement_, lines_);
    return false;
}

/// Moves the blocks to where they are wanted, or back, and takes their lines out.
void Straightening::exchange(std::span<const BlockIndex> part)
{
    for (const BlockIndex block : part)
        std::swap(arrangement_->left[block], wanted_[block]);
    for (const std::uint32_t line : lines_)
        drawn_.lift(line);
}

void straighten(const Chart& chart, Arrangement& arrangement, const Heard& heard)
{
    constexpr double easedBeyond = 1;
    Hearing hearing(heard);
    hearing.nextPart(0.5);
    Arrangement pulled = arrangement;
    Placement placement(chart);
    placement.easeBeyond(easedBeyond);
    placement.pull(pulled, passes(chart, 40, 12), hearing.ofPart());
    const Cost crooked(chart, arrangement, chart.costOfDisorder);
    const Cost straight(chart, pulled, chart.costOfDisorder);
    if (straight.inAll() <= crooked.inAll() && straight.crossings <= crooked.crossings)
        arrangement = std::move(pulled);
    Straightening straightening(chart, easedBeyond);
    const int most = passes(chart, 6, 1);
    bool moved = true;
    for (int pass = 0; moved && pass < most && !hearing.isStopped(); ++pass) {
        hearing.nextPart(0.5 / most);
        moved = straightening.goOver(arrangement, hearing.ofPart());
    }
}

} // namespace lineara::layout
