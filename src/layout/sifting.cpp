#include "sifting.h"

#include <algorithm>
#include <numeric>
#include <span>

namespace lineara::layout {

namespace {

/// How many neighbours to either side a block may pass in one go.
constexpr std::size_t reach = 15;

/// Pairs of one place each in which the first lies right of the second, less those in which it lies left.
std::int64_t lead(const std::vector<double>& one, const std::vector<double>& other)
{
    if (one.size() > other.size())
        return -lead(other, one);
    std::int64_t sum = 0;
    for (const double place : one) {
        const auto [from, to] = std::ranges::equal_range(other, place);
        sum += (from - other.begin()) - (other.end() - to);
    }
    return sum;
}

} // namespace

bool Sifting::siftRow(Arrangement& arrangement, std::uint32_t row)
{
    const auto blocks = arrangement.rows[row];
    if (blocks.size() < 2)
        return false;
    collect(arrangement, row);
    bool moved = false;
    for (std::uint32_t item = 0; item < blocks.size(); ++item)
        moved |= siftItem(item);
    if (!moved)
        return false;
    std::size_t next = 0;
    for (const std::uint32_t item : sequence_)
        if (items_[item].block != passingLine)
            blocks[next++] = items_[item].block;
    return true;
}

Sifting::Item& Sifting::addItem(double place, BlockIndex block)
{
    if (used_ == items_.size())
        items_.emplace_back();
    Item& item = items_[used_++];
    item.place = place;
    item.block = block;
    item.above.clear();
    item.below.clear();
    return item;
}

void Sifting::collect(const Arrangement& arrangement, std::uint32_t row)
{
    used_ = 0;
    for (const BlockIndex block : arrangement.rows[row]) {
        itemOf_[block] = static_cast<std::uint32_t>(used_);
        addItem(arrangement.left[block] + chart_.middle(block), block);
    }
    if (row > 0)
        addLinesAbove(arrangement, row);
    if (row + 1 < chart_.rows)
        addLinesBelow(arrangement, row);
    for (Item& item : std::span(items_).first(used_)) {
        std::ranges::sort(item.above);
        std::ranges::sort(item.below);
    }
    sequence_.resize(used_);
    std::iota(sequence_.begin(), sequence_.end(), 0U);
    std::ranges::stable_sort(sequence_, {}, [&](std::uint32_t item) { return items_[item].place; });
    position_.resize(used_);
    for (std::uint32_t position = 0; position < sequence_.size(); ++position)
        position_[sequence_[position]] = position;
}

void Sifting::addLinesAbove(const Arrangement& arrangement, std::uint32_t row)
{
    for (const std::uint32_t line : chart_.linesBelow[row - 1]) {
        const StraightLine drawn(chart_, arrangement, chart_.lines[line]);
        if (drawn.bottom == row)
            items_[itemOf_[chart_.lines[line].child.block]].above.push_back(drawn.placeIn(row - 1));
    }
}

// A line that starts between two parents of different blocks belongs to neither and stays where it is.
void Sifting::addLinesBelow(const Arrangement& arrangement, std::uint32_t row)
{
    for (const std::uint32_t line : chart_.linesBelow[row]) {
        const ChildLine& ends = chart_.lines[line];
        const StraightLine drawn(chart_, arrangement, ends);
        if (drawn.top == row && ends.firstParent.block == ends.secondParent.block) {
            items_[itemOf_[ends.firstParent.block]].below.push_back(drawn.placeIn(row + 1));
            continue;
        }
        Item& passing = addItem(drawn.placeIn(row), passingLine);
        passing.below.push_back(drawn.placeIn(row + 1));
        if (drawn.top < row)
            passing.above.push_back(drawn.placeIn(row - 1));
    }
}

bool Sifting::siftItem(std::uint32_t item)
{
    const std::size_t at = position_[item];
    std::size_t best = at;
    std::int64_t most = 0;
    std::int64_t saved = 0;
    for (std::size_t to = at + 1; to < sequence_.size() && to <= at + reach; ++to) {
        saved += savedByExchange(item, sequence_[to]);
        if (saved > most) {
            most = saved;
            best = to;
        }
    }
    saved = 0;
    for (std::size_t to = at; to-- > 0 && to + reach >= at;) {
        saved += savedByExchange(sequence_[to], item);
        if (saved > most) {
            most = saved;
            best = to;
        }
    }
    const auto iterator = [&](std::size_t index) { return sequence_.begin() + static_cast<std::ptrdiff_t>(index); };
    if (best > at)
        std::rotate(iterator(at), iterator(at + 1), iterator(best + 1));
    else
        std::rotate(iterator(best), iterator(at), iterator(at + 1));
    for (std::size_t index = std::min(at, best); index <= std::max(at, best); ++index)
        position_[sequence_[index]] = static_cast<std::uint32_t>(index);
    return best != at;
}

std::int64_t Sifting::savedByExchange(std::uint32_t left, std::uint32_t right) const
{
    return lead(items_[left].above, items_[right].above) + lead(items_[left].below, items_[right].below);
}

} // namespace lineara::layout
