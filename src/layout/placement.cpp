#include "placement.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace lineara::layout {

namespace {

/// What has to stay free left of a block of a row. The first one has nobody beside it.
double freeBefore(std::span<const BlockIndex> blocks, std::size_t index, std::span<const double> free)
{
    return index == 0 || free.empty() ? 0 : free[blocks[index]];
}

} // namespace

// Pool adjacent violators: taking what is taken to the left of each block off its wish turns "no overlap" into "not
// decreasing"; neighbours that would decrease merge into one cluster at their common mean.
void Settling::collectClusters(std::span<const BlockIndex> blocks, std::span<const Wish> wishes,
                               std::span<const double> free)
{
    clusters_.clear();
    double taken = 0;
    for (std::size_t index = 0; index < blocks.size(); ++index) {
        taken += freeBefore(blocks, index, free);
        Cluster cluster{index, wishes[index].left - taken, wishes[index].weight};
        taken += chart_.width(blocks[index]);
        while (!clusters_.empty() && clusters_.back().place >= cluster.place) {
            const Cluster& before = clusters_.back();
            const double weight = before.weight + cluster.weight;
            cluster = {before.first, (before.place * before.weight + cluster.place * cluster.weight) / weight, weight};
            clusters_.pop_back();
        }
        clusters_.push_back(cluster);
    }
}

double Settling::settle(Arrangement& arrangement, std::uint32_t row, std::span<const Wish> wishes,
                        std::span<const double> free)
{
    const auto blocks = arrangement.rows[row];
    collectClusters(blocks, wishes, free);
    double rowWidth = 0;
    for (std::size_t index = 0; index < blocks.size(); ++index)
        rowWidth += freeBefore(blocks, index, free) + chart_.width(blocks[index]);
    // The best places within bounds are those without, brought back to the bounds.
    const double last = std::max(arrangement.leftBound, arrangement.rightBound - rowWidth);
    double farthest = 0;
    double taken = 0;
    for (std::size_t index = 0, cluster = 0; index < blocks.size(); ++index) {
        if (cluster + 1 < clusters_.size() && clusters_[cluster + 1].first == index)
            ++cluster;
        taken += freeBefore(blocks, index, free);
        const double left = std::clamp(clusters_[cluster].place, arrangement.leftBound, last) + taken;
        farthest = std::max(farthest, std::abs(std::exchange(arrangement.left[blocks[index]], left) - left));
        taken += chart_.width(blocks[index]);
    }
    return farthest;
}

double Placement::pullRow(Arrangement& arrangement, std::uint32_t row, double stride)
{
    wishes_.clear();
    for (const BlockIndex block : arrangement.rows[row]) {
        Pull pull;
        addPulls(pull, arrangement, block, chart_.springsUp[block]);
        addPulls(pull, arrangement, block, chart_.springsDown[block]);
        const double now = arrangement.left[block];
        if (pull.weight > 0)
            wishes_.push_back({now + stride * (pull.left() - now), pull.weight});
        else
            wishes_.push_back({now, weightOfTheUntied});
    }
    return settling_.settle(arrangement, row, wishes_);
}

void Placement::addPulls(Pull& pull, const Arrangement& arrangement, BlockIndex block,
                         std::span<const Spring> springs) const
{
    if (eased_ == 0) {
        pull.add(arrangement, block, springs);
        return;
    }
    for (const Spring& spring : springs) {
        const double place = arrangement.placeOf(spring.other);
        const double within = arrangement.within({block, spring.own});
        const double length = arrangement.left[block] + within - place;
        pull.add(place, within, eased_ / std::max(std::abs(length), eased_) * spring.weight);
    }
}

void Placement::pull(Arrangement& arrangement, int rounds, const Heard& heard)
{
    constexpr double longStride = 1.6;
    constexpr int calmRounds = 4;
    constexpr double noticeable = 0.0001;
    Hearing hearing(heard);
    hearing.nextPart(1);
    for (int round = 0; round < rounds && hearing.goesOn(static_cast<double>(round) / rounds); ++round) {
        const double stride = round + calmRounds < rounds ? longStride : 1;
        double farthest = 0;
        for (std::uint32_t row = 0; row < chart_.rows; ++row)
            farthest = std::max(farthest, pullRow(arrangement, row, stride));
        for (std::uint32_t row = chart_.rows; row-- > 0;)
            farthest = std::max(farthest, pullRow(arrangement, row, stride));
        if (farthest < noticeable)
            return;
    }
}

} // namespace lineara::layout
