#include "packing.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace lineara::layout {

using engine::Generation;
using engine::PersonIndex;

namespace {

/// The person at the left end of a block as it stands, and the one at the right end.
std::pair<PersonIndex, PersonIndex> endsOf(const Chart& chart, const Arrangement& arrangement, BlockIndex block)
{
    const auto members = chart.members[block];
    return arrangement.isMirrored(block) ? std::pair(members.back(), members.front())
                                         : std::pair(members.front(), members.back());
}

} // namespace

Packing::Packing(const std::vector<Generation>& rows, std::int32_t pitch)
    : rows_(rows), pitch_(pitch), used_(rows), edges_(rows.size(), 0)
{
    std::ranges::sort(used_);
    used_.erase(std::unique(used_.begin(), used_.end()), used_.end());
    taken_.resize(used_.size());
}

void Packing::addFamily(const Chart& chart, const Arrangement& arrangement, bool asItStands)
{
    const double origin = *std::ranges::min_element(arrangement.left);
    for (std::uint32_t row = 0; row < chart.rows; ++row)
        placeRow(chart, arrangement, row, origin);
    measureRows(chart, arrangement);
    std::int64_t end = 0;
    for (const RowOfFamily& row : family_)
        end = std::max(end, row.taken.last);
    std::vector<RowOfFamily> mirrored = family_;
    for (RowOfFamily& row : mirrored)
        row.taken = {end - row.taken.last, end - row.taken.first};
    const std::int64_t shift = roomFor(family_);
    const std::int64_t shiftIfMirrored = roomFor(mirrored);
    const bool mirror = !asItStands && shiftIfMirrored < shift;
    for (BlockIndex block = 0; block < chart.blocks(); ++block)
        for (const PersonIndex person : chart.members[block])
            edges_[person] = mirror ? shiftIfMirrored + end - edges_[person] : shift + edges_[person];
    for (const auto& [row, stretch] : mirror ? mirrored : family_) {
        const std::int64_t by = mirror ? shiftIfMirrored : shift;
        take(row, {stretch.first + by, stretch.last + by});
    }
}

void Packing::measureRows(const Chart& chart, const Arrangement& arrangement)
{
    family_.clear();
    for (std::uint32_t row = 0; row < chart.rows; ++row) {
        const PersonIndex first = endsOf(chart, arrangement, arrangement.rows[row].front()).first;
        const PersonIndex last = endsOf(chart, arrangement, arrangement.rows[row].back()).second;
        family_.push_back({ordinalOf(first), {edges_[first], edges_[last]}});
    }
}

/// The least shift, not below 0, with which a family is clear of all others. Whoever is in the way is passed.
std::int64_t Packing::roomFor(std::span<const RowOfFamily> family) const
{
    const std::int64_t clearance = pitch_ + pitch_ / 2;
    std::int64_t shift = 0;
    for (bool passed = true; passed;) {
        passed = false;
        for (const auto& [row, wanted] : family) {
            const auto& taken = taken_[row];
            auto inTheWay = std::ranges::partition_point(
                taken, [&](const Stretch& other) { return other.last + clearance <= wanted.first + shift; });
            for (; inTheWay != taken.end() && inTheWay->first < wanted.last + shift + clearance; ++inTheWay) {
                shift = inTheWay->last + clearance - wanted.first;
                passed = true;
            }
        }
    }
    return shift;
}

/// Stretches between which nobody finds room are joined, so that a row has few of them.
void Packing::take(std::size_t row, Stretch stretch)
{
    const std::int64_t least = 3 * pitch_;
    auto& taken = taken_[row];
    auto first =
        std::ranges::partition_point(taken, [&](const Stretch& other) { return other.last + least < stretch.first; });
    auto next = first;
    for (; next != taken.end() && next->first <= stretch.last + least; ++next)
        stretch = {std::min(stretch.first, next->first), std::max(stretch.last, next->last)};
    taken.insert(taken.erase(first, next), stretch);
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
        if (arrangement.isMirrored(block))
            std::for_each(members.rbegin(), members.rend(), place);
        else
            std::for_each(members.begin(), members.end(), place);
    }
}

void Packing::addAlone(PersonIndex person)
{
    const std::size_t row = ordinalOf(person);
    edges_[person] = taken_[row].empty() ? 0 : taken_[row].back().last + pitch_;
    take(row, {edges_[person], edges_[person]});
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
