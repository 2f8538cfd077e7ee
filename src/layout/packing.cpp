#include "packing.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace lineara::layout {

using engine::Generation;
using engine::PersonIndex;

namespace {

constexpr std::int64_t emptyRow = std::numeric_limits<std::int64_t>::min() / 2;

/// The person at the left end of a block as it stands.
PersonIndex leftmostOf(const Chart& chart, const Arrangement& arrangement, BlockIndex block)
{
    const auto members = chart.members[block];
    return arrangement.mirrored[block] ? members.back() : members.front();
}

} // namespace

Packing::Packing(const std::vector<Generation>& rows, std::int32_t pitch)
    : rows_(rows), pitch_(pitch), used_(rows), edges_(rows.size(), 0)
{
    std::ranges::sort(used_);
    used_.erase(std::unique(used_.begin(), used_.end()), used_.end());
    ends_.assign(used_.size(), emptyRow);
}

void Packing::addFamily(const Chart& chart, const Arrangement& arrangement)
{
    const double origin = *std::ranges::min_element(arrangement.left);
    for (std::uint32_t row = 0; row < chart.rows; ++row)
        placeRow(chart, arrangement, row, origin);
    const std::int64_t shift = shiftFor(chart, arrangement);
    for (std::uint32_t row = 0; row < chart.rows; ++row) {
        std::int64_t& end = ends_[ordinalOf(chart.members[arrangement.rows[row].front()].front())];
        for (const BlockIndex block : arrangement.rows[row])
            for (const PersonIndex person : chart.members[block]) {
                edges_[person] += shift;
                end = std::max(end, edges_[person] + pitch_);
            }
    }
}

// Turns places into whole points that keep the pitch within the row. Counted from the leftmost place, most are whole
// numbers already, and a last digit does not decide which way they are rounded.
void Packing::placeRow(const Chart& chart, const Arrangement& arrangement, std::uint32_t row, double origin)
{
    std::int64_t edge = std::numeric_limits<std::int64_t>::min();
    for (const BlockIndex block : arrangement.rows[row]) {
        edge = std::max<std::int64_t>(edge,
                                      std::llround((arrangement.left[block] - origin) * static_cast<double>(pitch_)));
        const auto place = [&](PersonIndex person) {
            edges_[person] = edge;
            edge += pitch_;
        };
        const auto members = chart.members[block];
        if (arrangement.mirrored[block])
            std::for_each(members.rbegin(), members.rend(), place);
        else
            std::for_each(members.begin(), members.end(), place);
    }
}

std::int64_t Packing::shiftFor(const Chart& chart, const Arrangement& arrangement) const
{
    std::int64_t leftmost = std::numeric_limits<std::int64_t>::max();
    std::int64_t shift = emptyRow;
    for (std::uint32_t row = 0; row < chart.rows; ++row) {
        const PersonIndex first = leftmostOf(chart, arrangement, arrangement.rows[row].front());
        leftmost = std::min(leftmost, edges_[first]);
        if (const std::int64_t end = ends_[ordinalOf(first)]; end != emptyRow)
            shift = std::max(shift, end + pitch_ / 2 - edges_[first]);
    }
    return std::max(shift, -leftmost);
}

void Packing::addAlone(PersonIndex person)
{
    std::int64_t& end = ends_[ordinalOf(person)];
    edges_[person] = std::max<std::int64_t>(end, 0);
    end = edges_[person] + pitch_;
}

std::vector<std::int32_t> Packing::leftEdges(std::int32_t margin) const
{
    const std::int64_t leftmost = edges_.empty() ? 0 : *std::ranges::min_element(edges_);
    std::vector<std::int32_t> edges;
    edges.reserve(edges_.size());
    for (const std::int64_t edge : edges_)
        edges.push_back(static_cast<std::int32_t>(edge - leftmost + margin));
    return edges;
}

std::size_t Packing::ordinalOf(PersonIndex person) const
{
    return static_cast<std::size_t>(std::ranges::lower_bound(used_, rows_[person]) - used_.begin());
}

} // namespace lineara::layout
