#include "branch_moves.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

namespace lineara::layout {

namespace {

/// What a place of horizontal line counts beside a crossing.
constexpr double costOfLength = 0.1;

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

/// How many of the pieces the one from `from` to `to` crosses. Written for the compiler to take several at once.
std::int64_t crossed(std::span<const float> upper, std::span<const float> lower, float from, float to)
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

BranchMoves::BranchMoves(const Chart& chart, const FamilyTree& tree)
    : chart_(chart), tree_(tree), placement_(chart), linesOf_(linesOfBlocks(chart)), chosenIn_(chart.blocks(), 0),
      liftedIn_(chart.lines.size(), 0), hasMoved_(chart.rows, false)
{
    placement_.easeBeyond(1);
    numberPieces();
}

void BranchMoves::numberPieces()
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
    upper_.resize(pieces);
    lower_.resize(pieces);
    std::uint32_t next = 0;
    for (std::uint32_t row = 0; row < chart_.rows; ++row) {
        rowBegins_.push_back(next);
        for (const std::uint32_t line : chart_.linesBelow[row])
            standsAt_[pieces_[line].first + row - pieces_[line].top] = next++;
    }
    rowBegins_.push_back(next);
}

void BranchMoves::goOver(Arrangement& arrangement, std::size_t largest, bool downwards)
{
    arrangement_ = &arrangement;
    for (std::uint32_t line = 0; line < pieces_.size(); ++line)
        drawLine(line);
    for (std::uint32_t row = 0; row < chart_.rows; ++row)
        tryRow(downwards ? row : chart_.rows - 1 - row, largest);
}

void BranchMoves::tryRow(std::uint32_t row, std::size_t largest)
{
    const auto blocks = arrangement_->rows[row];
    standing_.clear();
    for (const BlockIndex block : blocks)
        standing_.emplace_back(arrangement_->middleOf(chart_, block), block);
    std::ranges::sort(standing_);
    blocksOfRow_.assign(blocks.begin(), blocks.end());
    for (const BlockIndex block : blocksOfRow_) {
        if (linesOf_[block].empty())
            continue;
        chooseBranch(block, largest);
        tryBranch(block);
    }
    settleMovedRows();
}

void BranchMoves::chooseBranch(BlockIndex block, std::size_t largest)
{
    ++choice_;
    chosen_.assign(1, block);
    for (std::size_t next = 0; largest > 1 && next < chosen_.size(); ++next) {
        const auto branches = tree_.branches[chosen_[next]];
        chosen_.insert(chosen_.end(), branches.begin(), branches.end());
        if (chosen_.size() > largest)
            chosen_.resize(1);
    }
    for (const BlockIndex chosen : chosen_)
        chosenIn_[chosen] = choice_;
}

void BranchMoves::tryBranch(BlockIndex block)
{
    leadersMiddle_ = arrangement_->middleOf(chart_, block);
    leadersSlot_ = static_cast<std::size_t>(std::ranges::lower_bound(standing_, std::pair(leadersMiddle_, block)) -
                                            standing_.begin());
    liftLines();
    findTargets();
    constexpr double noticeable = 1e-6;
    Move best;
    double least = costOf(best) - noticeable;
    const auto weigh = [&](const Move& move) {
        const double cost = costOf(move);
        if (cost >= least)
            return;
        least = cost - noticeable;
        best = move;
    };
    if (chosen_.size() > 1 || chart_.members[block].size() > 1)
        weigh({0, true});
    triedSlots_.assign({leadersSlot_, leadersSlot_ + 1});
    for (const double target : targets_) {
        const auto slot = static_cast<std::size_t>(
            std::ranges::lower_bound(standing_, std::pair(target, BlockIndex{0})) - standing_.begin());
        if (std::ranges::find(triedSlots_, slot) != triedSlots_.end())
            continue;
        triedSlots_.push_back(slot);
        weigh({placeBetween(slot, target) - leadersMiddle_, false});
    }
    if (best.mirror || best.shift != 0)
        carryOut(best);
    lowerLines();
}

void BranchMoves::liftLines()
{
    lines_.clear();
    for (const BlockIndex block : chosen_)
        for (const std::uint32_t line : linesOf_[block]) {
            if (liftedIn_[line] == choice_)
                continue;
            liftedIn_[line] = choice_;
            lines_.push_back(line);
            const Pieces& pieces = pieces_[line];
            for (std::uint32_t piece = 0; piece < pieces.bottom - pieces.top; ++piece)
                upper_[standsAt_[pieces.first + piece]] = std::numeric_limits<float>::quiet_NaN();
        }
}

void BranchMoves::lowerLines()
{
    for (const std::uint32_t line : lines_)
        drawLine(line);
}

void BranchMoves::drawLine(std::uint32_t line)
{
    const Pieces& pieces = pieces_[line];
    const StraightLine drawn(chart_, *arrangement_, chart_.lines[line]);
    for (std::uint32_t row = pieces.top; row < pieces.bottom; ++row) {
        const std::uint32_t at = standsAt_[pieces.first + row - pieces.top];
        upper_[at] = static_cast<float>(drawn.placeIn(row));
        lower_[at] = static_cast<float>(drawn.placeIn(row + 1));
    }
}

/// Where the leader would stand if one of the lines that lead out of the branch were upright, or all upwards or
/// downwards on average, or if it changed places with a neighbour.
void BranchMoves::findTargets()
{
    constexpr std::size_t mostSingle = 6;
    targets_.clear();
    Pull up;
    Pull down;
    for (const std::uint32_t line : lines_) {
        const ChildLine& ends = chart_.lines[line];
        const bool below = isChosen(ends.child.block);
        if (below && isChosen(ends.firstParent.block) && isChosen(ends.secondParent.block))
            continue;
        const StraightLine drawn(chart_, *arrangement_, ends);
        const double target = leadersMiddle_ + (below ? drawn.from - drawn.to : drawn.to - drawn.from);
        if (targets_.size() < mostSingle)
            targets_.push_back(target);
        Pull& pull = below ? up : down;
        pull.weight += 1;
        pull.ends += target;
    }
    if (up.weight > 1)
        targets_.push_back(up.end());
    if (down.weight > 1)
        targets_.push_back(down.end());
    if (up.weight > 0 && down.weight > 0)
        targets_.push_back((up.ends + down.ends) / (up.weight + down.weight));
    constexpr double justPast = 1e-3;
    for (const std::size_t step : {std::size_t{2}, std::size_t{1}}) {
        if (leadersSlot_ >= step)
            targets_.push_back(standing_[leadersSlot_ - step].first - justPast);
        if (leadersSlot_ + step < standing_.size())
            targets_.push_back(standing_[leadersSlot_ + step].first + justPast);
    }
}

/// A place for the leader between the blocks around a slot, as near to the target as they let it.
double BranchMoves::placeBetween(std::size_t slot, double target) const
{
    constexpr double margin = 0.2;
    if (slot == 0)
        return standing_.front().first - chart_.width(standing_.front().second) / 2 - 0.5;
    const auto& [left, leftBlock] = standing_[slot - 1];
    if (slot == standing_.size())
        return left + chart_.width(leftBlock) / 2 + 0.5;
    const double right = standing_[slot].first;
    return std::clamp(target, left + (right - left) * margin, right - (right - left) * margin);
}

double BranchMoves::costOf(const Move& move) const
{
    std::int64_t crossings = 0;
    double length = 0;
    for (const std::uint32_t line : lines_) {
        const ChildLine& ends = chart_.lines[line];
        const double from = (placeAfter(move, ends.firstParent) + placeAfter(move, ends.secondParent)) / 2;
        const double to = placeAfter(move, ends.child);
        length += std::abs(from - to);
        crossings += crossingsOf(line, static_cast<float>(from), static_cast<float>(to));
    }
    return static_cast<double>(crossings) + costOfLength * length;
}

std::int64_t BranchMoves::crossingsOf(std::uint32_t line, float from, float to) const
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

double BranchMoves::placeAfter(const Move& move, const Anchor& anchor) const
{
    const double place = arrangement_->placeOf(chart_, anchor);
    if (!isChosen(anchor.block))
        return place;
    return (move.mirror ? 2 * leadersMiddle_ - place : place) + move.shift;
}

void BranchMoves::carryOut(const Move& move)
{
    bool moreInRow = false;
    const std::uint32_t row = chart_.rowOf[chosen_.front()];
    for (const BlockIndex block : chosen_) {
        if (move.mirror) {
            const double middle = 2 * leadersMiddle_ - arrangement_->middleOf(chart_, block);
            arrangement_->left[block] = middle - chart_.middle(block);
            arrangement_->mirrored[block] = !arrangement_->mirrored[block];
        }
        arrangement_->left[block] += move.shift;
        const std::uint32_t its = chart_.rowOf[block];
        if (!hasMoved_[its])
            movedRows_.push_back(its);
        hasMoved_[its] = true;
        moreInRow |= chart_.rowOf[block] == row && block != chosen_.front();
    }
    if (moreInRow) {
        for (auto& [middle, block] : standing_)
            middle = arrangement_->middleOf(chart_, block);
        std::ranges::sort(standing_);
        return;
    }
    standing_.erase(standing_.begin() + static_cast<std::ptrdiff_t>(leadersSlot_));
    const std::pair leader(arrangement_->middleOf(chart_, chosen_.front()), chosen_.front());
    standing_.insert(std::ranges::lower_bound(standing_, leader), leader);
}

void BranchMoves::settleMovedRows()
{
    std::ranges::sort(movedRows_);
    for (const std::uint32_t row : movedRows_) {
        hasMoved_[row] = false;
        const auto blocks = arrangement_->rows[row];
        std::ranges::stable_sort(blocks, {}, [&](BlockIndex block) { return arrangement_->middleOf(chart_, block); });
        placement_.pullRow(*arrangement_, row, 0.2);
        for (const BlockIndex block : blocks)
            for (const std::uint32_t line : linesOf_[block])
                drawLine(line);
    }
    movedRows_.clear();
}

} // namespace lineara::layout
