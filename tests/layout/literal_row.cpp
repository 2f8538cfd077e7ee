#include "literal_row.h"

#include <algorithm>
#include <compare>
#include <cstdlib>

namespace lineara::layout {
namespace {

/// Compared in this order: what all are moved, then what those are moved who stood in the row.
struct Cost
{
    std::int64_t all = 0;
    std::int64_t stood = 0;

    auto operator<=>(const Cost&) const = default;
    Cost operator+(const Cost& other) const { return {all + other.all, stood + other.stood}; }
};

constexpr Cost impossible{1'000'000'000, 0};

using Costs = std::vector<Cost>; // by place, counted from the lowest one that is tried

class Trial
{
public:
    explicit Trial(const std::vector<RowNode>& row) : row_(row)
    {
        std::int64_t reach = 0;
        for (const RowNode& node : row)
            reach += node.width + rowGap;
        lowest_ = std::ranges::min(row, {}, &RowNode::left).left - reach;
        places_ = std::ranges::max(row, {}, &RowNode::left).left + reach - lowest_ + 1;
    }

    std::vector<std::int64_t> solved() const
    {
        const auto left = costsOfThoseLeft();
        const auto right = costsOfThoseRight();
        std::vector<std::int64_t> places;
        for (std::size_t node = 0; node < row_.size(); ++node)
            places.push_back(rightmostBest(node, left[node], right[node]));
        return places;
    }

private:
    Cost own(std::size_t node, std::int64_t place) const
    {
        const std::int64_t moved = std::abs(lowest_ + place - row_[node].left);
        return {moved, row_[node].stood ? moved : 0};
    }

    Costs none() const { return Costs(static_cast<std::size_t>(places_)); }

    std::vector<Costs> costsOfThoseLeft() const
    {
        std::vector<Costs> costs(row_.size(), none());
        for (std::size_t node = 1; node < row_.size(); ++node) {
            Cost best = impossible;
            for (std::int64_t place = 0; place < places_; ++place) {
                if (const auto other = place - row_[node - 1].width - rowGap; other >= 0)
                    best = std::min(best, costs[node - 1][static_cast<std::size_t>(other)] + own(node - 1, other));
                costs[node][static_cast<std::size_t>(place)] = best;
            }
        }
        return costs;
    }

    std::vector<Costs> costsOfThoseRight() const
    {
        std::vector<Costs> costs(row_.size(), none());
        for (std::size_t node = row_.size() - 1; node-- > 0;) {
            Cost best = impossible;
            for (std::int64_t place = places_; place-- > 0;) {
                if (const auto other = place + row_[node].width + rowGap; other < places_)
                    best = std::min(best, costs[node + 1][static_cast<std::size_t>(other)] + own(node + 1, other));
                costs[node][static_cast<std::size_t>(place)] = best;
            }
        }
        return costs;
    }

    std::int64_t rightmostBest(std::size_t node, const Costs& left, const Costs& right) const
    {
        Cost best = impossible;
        std::int64_t found = 0;
        for (std::int64_t place = 0; place < places_; ++place) {
            const auto at = static_cast<std::size_t>(place);
            const Cost cost = left[at] + own(node, place) + right[at];
            if (cost <= best) {
                best = cost;
                found = lowest_ + place;
            }
        }
        return found;
    }

    const std::vector<RowNode>& row_;
    std::int64_t lowest_ = 0;
    std::int64_t places_ = 0;
};

} // namespace

std::vector<std::int64_t> literallySolved(const std::vector<RowNode>& row)
{
    return Trial(row).solved();
}

} // namespace lineara::layout
