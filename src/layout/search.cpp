#include "search.h"

#include "bounds.h"
#include "branch_moves.h"
#include "cost.h"
#include "crossings.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

namespace lineara::layout {

namespace {

/// How often all branches are tried, or which part of them once.
struct Effort
{
    std::size_t rounds = 1;
    std::size_t everyNth = 1;
};

Effort effortFor(const Chart& chart)
{
    constexpr double affordable = 1'700;
    constexpr double affordableInOne = 6'000;
    constexpr double most = 12;
    double comparisons = 1;
    for (std::uint32_t row = 0; row < chart.rows; ++row)
        comparisons += std::pow(static_cast<double>(chart.linesBelow[row].size()), 2);
    const double perBlock = comparisons / static_cast<double>(chart.blocks());
    return {static_cast<std::size_t>(std::clamp(affordable / perBlock, 1.0, most)),
            static_cast<std::size_t>(std::max(std::ceil(perBlock / affordableInOne), 1.0))};
}

} // namespace

Search::Search(const Chart& chart, FamilyTree tree, double costOfDisorder)
    : chart_(chart), tree_(std::move(tree)), costOfDisorder_(costOfDisorder), placement_(chart), sweep_(chart),
      sifting_(chart), now_(walkOrder(chart_, tree_))
{
    setBounds(now_, usualWidth(chart_));
    centreRows();
    placement_.pull(now_, 6);
    for (int time = 0; time < 3; ++time) {
        for (std::uint32_t row = 0; row < chart_.rows; ++row)
            sweep_.turnRow(now_, row);
        placement_.pull(now_, 3);
    }
    best_ = now_;
    least_ = Cost(chart_, best_, costOfDisorder_).inAll();
}

bool Search::isPlane() const
{
    return countCrossings(chart_, best_) == 0;
}

void Search::sweep(int times, double share, const Heard& heard)
{
    Hearing hearing(heard);
    hearing.nextPart(1);
    for (int time = 0; time < times && hearing.goesOn(static_cast<double>(time) / times); ++time) {
        sweep_.down(now_, share);
        sweep_.up(now_, share);
        compare();
    }
}

void Search::sift(int times, const Heard& heard)
{
    Hearing hearing(heard);
    bool moved = true;
    for (int time = 0; moved && time < times && !hearing.isStopped(); ++time) {
        hearing.nextPart(1.0 / times);
        moved = downAndUp(chart_.rows, hearing.ofPart(), [this](std::uint32_t row) { return siftRow(row); });
        placement_.pull(now_, 2);
        compare();
    }
}

/// Where the effort does not suffice for all rounds the large branches are left out, which cost most and save least.
void Search::moveBranches(const Heard& heard)
{
    constexpr std::array<std::size_t, 8> sizes{400, 1, 100, 1, 30, 1, 10, 1};
    constexpr std::size_t usualSize = 40;
    const Effort effort = effortFor(chart_);
    const std::size_t skipped = sizes.size() - std::min(effort.rounds, sizes.size());
    BranchMoves moves(chart_, tree_, costOfDisorder_);
    Hearing hearing(heard);
    for (std::size_t round = 0; round < effort.rounds && !hearing.isStopped(); ++round) {
        hearing.nextPart(1.0 / static_cast<double>(effort.rounds));
        const std::size_t turn = skipped + round;
        const std::size_t size = turn < sizes.size() ? sizes[turn] : turn % 2 == 0 ? usualSize : 1;
        moves.goOver(now_, {size, effort.everyNth, turn % 2 == 0}, hearing.ofPart());
        compare();
    }
}

void Search::centreRows()
{
    for (std::uint32_t row = 0; row < chart_.rows; ++row) {
        const BlockIndex last = now_.rows[row].back();
        const double width = now_.left[last] + chart_.width(last);
        for (const BlockIndex block : now_.rows[row])
            now_.left[block] -= width / 2;
    }
}

bool Search::siftRow(std::uint32_t row)
{
    sweep_.turnRow(now_, row);
    const bool moved = sifting_.siftRow(now_, row);
    if (moved)
        placement_.pullRow(now_, row);
    return moved;
}

void Search::compare()
{
    const double cost = Cost(chart_, now_, costOfDisorder_).inAll();
    if (cost < least_) {
        least_ = cost;
        best_ = now_;
    }
}

} // namespace lineara::layout
