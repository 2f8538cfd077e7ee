#pragma once

#include <cstdint>
#include <span>
#include <utility>
#include <vector>

namespace lineara::layout {

/// Many lists in one array; list i of `lists()` is `[i]`.
template<typename Item>
class Lists
{
public:
    Lists() = default;

    /// `ends` holds a leading zero and then the end of every list within `items`.
    Lists(std::vector<std::uint32_t> ends, std::vector<Item> items) : begins_(std::move(ends)), items_(std::move(items))
    {}

    void append(const Item& item) { items_.push_back(item); }
    void endList() { begins_.push_back(static_cast<std::uint32_t>(items_.size())); }

    std::span<const Item> operator[](std::size_t list) const
    {
        return {items_.data() + begins_[list], items_.data() + begins_[list + 1]};
    }
    std::span<Item> operator[](std::size_t list)
    {
        return {items_.data() + begins_[list], items_.data() + begins_[list + 1]};
    }
    std::size_t lists() const { return begins_.size() - 1; }
    std::size_t items() const { return items_.size(); }

private:
    std::vector<std::uint32_t> begins_{0};
    std::vector<Item> items_;
};

/// Hands items that belong to lists in any order out as lists; the order within a list is kept.
template<typename Placed, typename Item>
Lists<Item> sortIntoLists(std::size_t lists, const std::vector<Placed>& placed, Item Placed::*item)
{
    std::vector<std::uint32_t> ends(lists + 1, 0);
    for (const Placed& entry : placed)
        ++ends[entry.owner + 1];
    for (std::size_t list = 0; list < lists; ++list)
        ends[list + 1] += ends[list];
    std::vector<std::uint32_t> next(ends.begin(), ends.end() - 1);
    std::vector<Item> items(placed.size());
    for (const Placed& entry : placed)
        items[next[entry.owner]++] = entry.*item;
    return Lists<Item>(std::move(ends), std::move(items));
}

} // namespace lineara::layout
