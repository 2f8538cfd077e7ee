#include "xref_places.h"

#include <algorithm>
#include <bit>
#include <functional>

namespace lineara {
namespace {

std::uint32_t hashOfXref(std::string_view xref)
{
    return static_cast<std::uint32_t>(std::hash<std::string_view>()(xref));
}

} // namespace

void XrefPlaces::add(std::string_view xref, Place place)
{
    entries_.push_back({hashOfXref(xref), place, 0});
}

void XrefPlaces::finish()
{
    chains_.assign(std::bit_ceil(entries_.size() + 1), 0);
    // Backwards, so that each chain is in order.
    for (auto number = static_cast<std::uint32_t>(entries_.size()); number > 0; --number) {
        Entry& entry = entries_[number - 1];
        std::uint32_t& first = chains_[entry.hash & (chains_.size() - 1)];
        entry.next = first;
        first = number;
    }
}

std::vector<XrefPlaces::Place> XrefPlaces::find(std::string_view xref) const
{
    std::vector<Place> found;
    const std::uint32_t hash = hashOfXref(xref);
    std::uint32_t number = chains_.empty() ? 0 : chains_[hash & (chains_.size() - 1)];
    for (; number != 0; number = entries_[number - 1].next) {
        const Entry& entry = entries_[number - 1];
        if (entry.hash == hash && (found.empty() || found.back() != entry.place))
            found.push_back(entry.place);
    }
    return found;
}

} // namespace lineara
