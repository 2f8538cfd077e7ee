#include "sibling_order.h"

#include "crossings.h"
#include "placement.h"

#include <algorithm>
#include <array>
#include <limits>
#include <numeric>
#include <tuple>

namespace lineara::layout {

namespace {

/// Sibships whose branches have more blocks together are left as they are: trying them takes too long.
constexpr std::size_t mostBlocks = 3'000;
/// What all sibships together may cost for each block, in comparisons of lines, and what a block of a branch costs.
constexpr std::int64_t workPerBlock = 20'000;
constexpr std::int64_t workPerEntry = 100;
/// After how many sibships is asked whether to go on: most are in order and take no time.
constexpr std::size_t askedEvery = 64;
/// Brothers and sisters who are tried in pairs at most.
constexpr std::size_t mostExchanged = 100;

bool isKnown(const Sibling& sibling)
{
    return sibling.bornIn != unknownBirthYear;
}

/// How many neighbours, of those whose years are known, stand in the wrong order.
std::int64_t disorderOf(std::span<const Sibling> siblings, const std::vector<std::uint32_t>& sequence)
{
    std::int64_t disorder = 0;
    const Sibling* before = nullptr;
    for (const std::uint32_t number : sequence) {
        const Sibling& sibling = siblings[number];
        if (!isKnown(sibling))
            continue;
        disorder += before && before->bornIn > sibling.bornIn ? 1 : 0;
        before = &sibling;
    }
    return disorder;
}

} // namespace

SiblingOrder::SiblingOrder(const Chart& chart, const FamilyTree& tree)
    : chart_(chart), tree_(tree), drawn_(chart), takenIn_(chart.blocks(), 0),
      affordableWork_(workPerBlock * static_cast<std::int64_t>(chart.blocks()))
{}

bool SiblingOrder::goOver(Arrangement& arrangement, std::int64_t perPair, std::int64_t inAll, const Heard& heard)
{
    arrangement_ = &arrangement;
    perPair_ = perPair;
    affordable_ = inAll;
    drawn_.drawAll(arrangement);
    bool moved = false;
    Hearing hearing(heard);
    hearing.nextPart(1);
    const std::size_t sibships = chart_.sibships.lists();
    const auto goesOn = [&](std::size_t sibship) {
        return hearing.goesOn(static_cast<double>(sibship) / static_cast<double>(sibships));
    };
    for (std::size_t sibship = 0; sibship < sibships && (sibship % askedEvery != 0 || goesOn(sibship)); ++sibship)
        moved |= sortSibship(chart_.sibships[sibship]);
    return moved;
}

bool SiblingOrder::sortSibship(std::span<const Sibling> sibship)
{
    if (affordableWork_ < 0 || isInOrder(sibship))
        return false;
    bool moved = false;
    for (const Extent extent : {Extent::Whole, Extent::Descendants, Extent::Alone}) {
        extent_ = extent;
        moved |= collectBranches() && (sortAtOnce() || exchangeNeighbours());
        if (isInOrder(sibship))
            break;
    }
    return moved;
}

bool SiblingOrder::sortAtOnce()
{
    std::vector<std::uint32_t> known;
    for (std::uint32_t number = 0; number < siblings_.size(); ++number)
        if (isKnown(siblings_[number]))
            known.push_back(number);
    std::vector<std::uint32_t> byYear = known;
    std::ranges::stable_sort(byYear, {}, [&](std::uint32_t number) { return siblings_[number].bornIn; });
    std::vector<std::uint32_t> sequence(siblings_.size());
    std::iota(sequence.begin(), sequence.end(), 0U);
    for (std::size_t index = 0; index < known.size(); ++index)
        sequence[known[index]] = byYear[index];
    return tryOrder(sequence);
}

/// Takes the siblings from left to right.
bool SiblingOrder::isInOrder(std::span<const Sibling> sibship)
{
    siblings_.assign(sibship.begin(), sibship.end());
    std::ranges::stable_sort(siblings_, {},
                             [&](const Sibling& one) { return arrangement_->middleOf(chart_, one.place.block); });
    std::int32_t latest = std::numeric_limits<std::int32_t>::min();
    for (const Sibling& sibling : siblings_) {
        if (!isKnown(sibling))
            continue;
        if (sibling.bornIn < latest)
            return false;
        latest = sibling.bornIn;
    }
    return true;
}

bool SiblingOrder::collectBranches()
{
    ++taking_;
    entries_.clear();
    // The parents are of no branch, whichever way the tree reaches them.
    for (const Spring& spring : chart_.springsUp[siblings_.front().place.block])
        if (spring.own == siblings_.front().place.offset)
            takenIn_[spring.other.block] = taking_;
    for (const Sibling& sibling : siblings_)
        takenIn_[sibling.place.block] = taking_;
    for (std::uint32_t number = 0; number < siblings_.size(); ++number)
        if (!collectBranch(number, siblings_[number]))
            return false;
    affordableWork_ -= workPerEntry * static_cast<std::int64_t>(entries_.size());
    std::ranges::sort(entries_, [](const Entry& one, const Entry& other) {
        return std::tie(one.row, one.middle, one.block) < std::tie(other.row, other.middle, other.block);
    });
    return true;
}

bool SiblingOrder::collectBranch(std::uint32_t number, const Sibling& sibling)
{
    const std::size_t first = entries_.size();
    const auto take = [&](BlockIndex block) {
        entries_.push_back({chart_.rowOf[block], arrangement_->middleOf(chart_, block), number, block});
    };
    take(sibling.place.block);
    for (std::size_t next = first; extent_ != Extent::Alone && next < entries_.size(); ++next) {
        const BlockIndex block = entries_[next].block;
        const auto reach = [&](BlockIndex other) {
            const bool isOutside = extent_ == Extent::Descendants && chart_.rowOf[other] < chart_.rowOf[block];
            if (isOutside || takenIn_[other] == taking_)
                return;
            takenIn_[other] = taking_;
            take(other);
        };
        for (const BlockIndex branch : tree_.branches[block])
            reach(branch);
        const BlockIndex through = tree_.metThrough[block];
        if (through != noBlock && chart_.rowOf[through] > chart_.rowOf[block])
            reach(through);
        if (entries_.size() > mostBlocks) {
            affordableWork_ -= workPerEntry * static_cast<std::int64_t>(mostBlocks);
            return false;
        }
    }
    return true;
}

bool SiblingOrder::exchangeNeighbours()
{
    if (siblings_.size() > mostExchanged)
        return false;
    bool moved = false;
    std::vector<std::uint32_t> sequence(siblings_.size());
    for (bool again = true; again;) {
        again = false;
        std::size_t before = siblings_.size();
        for (std::size_t at = 0; at < siblings_.size(); ++at) {
            if (!isKnown(siblings_[at]))
                continue;
            if (before < siblings_.size() && siblings_[before].bornIn > siblings_[at].bornIn) {
                std::iota(sequence.begin(), sequence.end(), 0U);
                std::swap(sequence[before], sequence[at]);
                again |= tryOrder(sequence);
            }
            before = at;
        }
        moved |= again;
    }
    return moved;
}

/// Puts the branches into another sequence if that adds few crossings.
bool SiblingOrder::tryOrder(const std::vector<std::uint32_t>& sequence)
{
    std::vector<std::uint32_t> present(siblings_.size());
    std::iota(present.begin(), present.end(), 0U);
    const std::int64_t won = disorderOf(siblings_, present) - disorderOf(siblings_, sequence);
    if (won <= 0)
        return false;
    reassign(sequence);
    liftMoved();
    affordableWork_ -= static_cast<std::int64_t>(2 * lines_.size() * chart_.lines.size() / chart_.rows);
    const std::int64_t before = drawn_.lower(*arrangement_, lines_);
    const std::int64_t most = before + std::min(won * perPair_, affordable_);
    exchange();
    const std::int64_t after = drawn_.lower(*arrangement_, lines_, most);
    if (after > most) {
        exchange();
        drawn_.draw(*arrangement_, lines_);
        return false;
    }
    affordable_ -= after - before;
    settleRows();
    std::vector<Sibling> siblings;
    siblings.reserve(sequence.size());
    for (const std::uint32_t number : sequence)
        siblings.push_back(siblings_[number]);
    siblings_ = std::move(siblings);
    collectBranches();
    return true;
}

/// Moves the blocks to their other places, or back.
void SiblingOrder::exchange()
{
    for (MovedBlock& moved : moved_) {
        arrangement_->left[moved.block] = moved.after;
        std::swap(moved.before, moved.after);
    }
    for (const std::uint32_t line : lines_)
        drawn_.lift(line);
}

/// In every row the places of the branches stay the same and are taken by the branches in their new sequence.
void SiblingOrder::reassign(const std::vector<std::uint32_t>& sequence)
{
    std::vector<std::uint32_t> rank(siblings_.size());
    for (std::uint32_t position = 0; position < sequence.size(); ++position)
        rank[sequence[position]] = position;
    moved_.clear();
    std::vector<std::size_t> order;
    for (std::size_t begin = 0; begin < entries_.size();) {
        std::size_t end = begin;
        while (end < entries_.size() && entries_[end].row == entries_[begin].row)
            ++end;
        order.resize(end - begin);
        std::iota(order.begin(), order.end(), begin);
        std::ranges::stable_sort(order, {}, [&](std::size_t entry) { return rank[entries_[entry].branch]; });
        for (std::size_t at = 0; at < order.size(); ++at) {
            const BlockIndex block = entries_[order[at]].block;
            if (order[at] != begin + at)
                moved_.push_back(
                    {block, arrangement_->left[block], entries_[begin + at].middle - chart_.middle(block)});
        }
        begin = end;
    }
}

void SiblingOrder::liftMoved()
{
    lines_.clear();
    for (const MovedBlock& moved : moved_)
        drawn_.liftAt(moved.block, lines_);
}

void SiblingOrder::settleRows()
{
    std::vector<std::uint32_t> rows;
    rows.reserve(moved_.size());
    for (const MovedBlock& moved : moved_)
        rows.push_back(chart_.rowOf[moved.block]);
    std::ranges::sort(rows);
    rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
    for (const std::uint32_t row : rows)
        settle(row);
}

void SiblingOrder::settle(std::uint32_t row)
{
    const auto blocks = arrangement_->rows[row];
    std::ranges::stable_sort(blocks, {}, [&](BlockIndex block) { return arrangement_->middleOf(chart_, block); });
    std::vector<Wish> wishes;
    wishes.reserve(blocks.size());
    for (const BlockIndex block : blocks)
        wishes.push_back({arrangement_->left[block], 1});
    settleRow(chart_, *arrangement_, row, wishes);
    for (std::size_t at = 0; at < blocks.size(); ++at)
        if (arrangement_->left[blocks[at]] != wishes[at].left)
            drawn_.draw(*arrangement_, drawn_.of(blocks[at]));
}

std::int64_t disorderOf(const Chart& chart, const Arrangement& arrangement)
{
    std::int64_t disorder = 0;
    for (BlockIndex block = 0; block < chart.blocks(); ++block)
        for (const auto& [elder, younger] : chart.siblingPairs[block]) {
            const bool isWrong = arrangement.placeOf(elder) > arrangement.placeOf(younger);
            disorder += block == elder.block && isWrong ? 1 : 0;
        }
    return disorder;
}

std::int64_t stepsBackOf(const Chart& chart, const Arrangement& arrangement)
{
    std::int64_t steps = 0;
    std::vector<std::pair<double, std::int32_t>> born;
    for (std::size_t sibship = 0; sibship < chart.sibships.lists(); ++sibship) {
        born.clear();
        for (const Sibling& sibling : chart.sibships[sibship])
            if (isKnown(sibling))
                born.emplace_back(arrangement.placeOf(sibling.place), sibling.bornIn);
        std::ranges::sort(born);
        for (std::size_t next = 1; next < born.size(); ++next)
            steps += born[next - 1].second > born[next].second ? 1 : 0;
    }
    return steps;
}

bool sortSiblings(const Chart& chart, const FamilyTree& tree, Arrangement& arrangement, std::uint64_t mostAdded,
                  const Heard& heard)
{
    if (chart.sibships.lists() == 0)
        return false;
    std::uint64_t crossings = countCrossings(chart, arrangement);
    std::int64_t disorder = disorderOf(chart, arrangement);
    const std::uint64_t most = crossings + mostAdded;
    SiblingOrder siblings(chart, tree);
    Hearing hearing(heard);
    bool moved = false;
    // The cheapest come first. What more was paid than is allowed, because others had to step aside, is taken back, and
    // so is what brought others out of order.
    constexpr std::array<std::int64_t, 6> perPair{0, 1, 2, 4, 8, 0};
    for (const std::int64_t price : perPair) {
        if ((price > 0 && mostAdded == 0) || hearing.isStopped())
            break;
        hearing.nextPart(1.0 / perPair.size());
        Arrangement sorted = arrangement;
        if (!siblings.goOver(sorted, price, static_cast<std::int64_t>(most - crossings), hearing.ofPart()))
            continue;
        const std::uint64_t crossingsThen = countCrossings(chart, sorted);
        const std::int64_t disorderThen = disorderOf(chart, sorted);
        if (crossingsThen > most || disorderThen >= disorder)
            continue;
        arrangement = std::move(sorted);
        crossings = crossingsThen;
        disorder = disorderThen;
        moved = true;
    }
    return moved;
}

} // namespace lineara::layout
