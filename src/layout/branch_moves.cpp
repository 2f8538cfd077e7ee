#include "branch_moves.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace lineara::layout {

namespace {

/// What a place of horizontal line counts beside a crossing.
constexpr double costOfLength = 0.1;

} // namespace

BranchMoves::BranchMoves(const Chart& chart, const FamilyTree& tree, double costOfDisorder)
    : chart_(chart), tree_(tree), costOfDisorder_(costOfDisorder), placement_(chart), drawn_(chart),
      chosenIn_(chart.blocks(), 0), hasMoved_(chart.rows, false)
{
    placement_.easeBeyond(1);
}

void BranchMoves::goOver(Arrangement& arrangement, const Scope& scope, const Heard& heard)
{
    arrangement_ = &arrangement;
    drawn_.drawAll(arrangement);
    Hearing hearing(heard);
    hearing.nextPart(1);
    for (std::uint32_t row = 0; row < chart_.rows && hearing.goesOn(static_cast<double>(row) / chart_.rows); ++row)
        tryRow(scope.downwards ? row : chart_.rows - 1 - row, scope);
}

void BranchMoves::tryRow(std::uint32_t row, const Scope& scope)
{
    const auto blocks = arrangement_->rows[row];
    standing_.clear();
    for (const BlockIndex block : blocks)
        standing_.emplace_back(arrangement_->middleOf(chart_, block), block);
    std::ranges::sort(standing_);
    blocksOfRow_.assign(blocks.begin(), blocks.end());
    for (const BlockIndex block : blocksOfRow_) {
        if (block % scope.everyNth != 0 || drawn_.of(block).empty())
            continue;
        chooseBranch(block, scope.largest);
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
    double least = costOf(best, std::numeric_limits<double>::infinity()) - noticeable;
    const auto weigh = [&](const Move& move) {
        const double cost = costOf(move, least);
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
    drawn_.draw(*arrangement_, lines_);
}

void BranchMoves::liftLines()
{
    lines_.clear();
    for (const BlockIndex block : chosen_)
        drawn_.liftAt(block, lines_);
    linesEnds_.clear();
    for (const std::uint32_t line : lines_) {
        const ChildLine& ends = chart_.lines[line];
        linesEnds_.push_back({endAt(ends.firstParent), endAt(ends.secondParent), endAt(ends.child)});
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
    for (const auto& [first, second, child] : linesEnds_) {
        const bool below = child.isMoving;
        if (below && first.isMoving && second.isMoving)
            continue;
        const double lean = (first.place + second.place) / 2 - child.place;
        const double target = leadersMiddle_ + (below ? lean : -lean);
        if (targets_.size() < mostSingle)
            targets_.push_back(target);
        Pull& pull = below ? up : down;
        pull.weight += 1;
        pull.ends += target;
    }
    constexpr double justPast = 1e-3;
    for (const auto& [elder, younger] : chart_.siblingPairs[chosen_.front()]) {
        if (elder.block == chosen_.front())
            targets_.push_back(arrangement_->middleOf(chart_, younger.block) - justPast);
        else
            targets_.push_back(arrangement_->middleOf(chart_, elder.block) + justPast);
    }
    if (up.weight > 1)
        targets_.push_back(up.end());
    if (down.weight > 1)
        targets_.push_back(down.end());
    if (up.weight > 0 && down.weight > 0)
        targets_.push_back((up.ends + down.ends) / (up.weight + down.weight));
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

/// Counts crossings, which takes by far the longest, only until it is known that the cost reaches the limit.
double BranchMoves::costOf(const Move& move, double limit)
{
    ends_.clear();
    double length = 0;
    for (const auto& [first, second, child] : linesEnds_) {
        const double from = (placeAfter(move, first) + placeAfter(move, second)) / 2;
        const double to = placeAfter(move, child);
        length += std::abs(from - to);
        ends_.emplace_back(static_cast<float>(from), static_cast<float>(to));
    }
    double cost = costOfLength * length + costOfDisorder_ * disorderAfter(move);
    for (std::size_t at = 0; at < lines_.size() && cost < limit; ++at)
        cost += static_cast<double>(drawn_.crossingsOf(lines_[at], ends_[at].first, ends_[at].second));
    return cost;
}

/// How many pairs of siblings, one of them in the branch at least, stand in the wrong order.
double BranchMoves::disorderAfter(const Move& move) const
{
    double disorder = 0;
    for (const BlockIndex block : chosen_)
        for (const auto& [elder, younger] : chart_.siblingPairs[block]) {
            if (block == younger.block && isChosen(elder.block))
                continue;
            disorder += placeAfter(move, endAt(elder)) > placeAfter(move, endAt(younger)) ? 1 : 0;
        }
    return disorder;
}

BranchMoves::End BranchMoves::endAt(const Anchor& anchor) const
{
    return {arrangement_->placeOf(anchor), isChosen(anchor.block)};
}

double BranchMoves::placeAfter(const Move& move, const End& end) const
{
    if (!end.isMoving)
        return end.place;
    return (move.mirror ? 2 * leadersMiddle_ - end.place : end.place) + move.shift;
}

void BranchMoves::carryOut(const Move& move)
{
    bool moreInRow = false;
    const std::uint32_t row = chart_.rowOf[chosen_.front()];
    for (const BlockIndex block : chosen_) {
        if (move.mirror) {
            const double middle = 2 * leadersMiddle_ - arrangement_->middleOf(chart_, block);
            arrangement_->left[block] = middle - chart_.middle(block);
            arrangement_->mirror(chart_, block, !arrangement_->isMirrored(block));
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
            drawn_.draw(*arrangement_, drawn_.of(block));
    }
    movedRows_.clear();
}

} // namespace lineara::layout
