#include "id_index.h"

#include <algorithm>

namespace lineara::store {

IdIndex::IdIndex(const RawFamily& family)
{
    std::vector<Entry> entries;
    entries.reserve(family.persons.size() + family.pools.size() + family.pics.size() + family.sources.size() +
                    family.unknownNumbers.size());
    const auto add = [&entries](Kind kind, std::size_t index, Number number) {
        entries.push_back({number, {kind, static_cast<std::uint32_t>(index)}});
    };
    for (std::size_t i = 0; i < family.persons.size(); ++i)
        add(Kind::Person, i, family.persons[i].number);
    for (std::size_t i = 0; i < family.pools.size(); ++i)
        add(Kind::Pool, i, family.pools[i]);
    for (std::size_t i = 0; i < family.pics.size(); ++i)
        add(Kind::Pic, i, family.pics[i].number);
    for (std::size_t i = 0; i < family.sources.size(); ++i)
        add(Kind::Source, i, family.sources[i].number);
    for (std::size_t i = 0; i < family.unknownNumbers.size(); ++i)
        add(Kind::Unknown, i, family.unknownNumbers[i]);
    for (const auto& entry : entries)
        highest_ = std::max(highest_, entry.number);

    const bool isDense = highest_ <= 1024 + 8 * entries.size();
    if (isDense)
        fillArray(entries);
    else
        sortEntries(std::move(entries));
}

void IdIndex::fillArray(const std::vector<Entry>& entries)
{
    slots_.resize(highest_ + 1);
    places_.reserve(entries.size());
    for (const auto& entry : entries) {
        if (slots_[entry.number] != 0 && !duplicate_)
            duplicate_ = entry.number;
        places_.push_back(entry.place);
        slots_[entry.number] = static_cast<std::uint32_t>(places_.size());
    }
}

void IdIndex::sortEntries(std::vector<Entry> entries)
{
    sorted_ = std::move(entries);
    std::sort(sorted_.begin(), sorted_.end(), [](const Entry& a, const Entry& b) { return a.number < b.number; });
    const auto twin = std::adjacent_find(sorted_.begin(), sorted_.end(),
                                         [](const Entry& a, const Entry& b) { return a.number == b.number; });
    if (twin != sorted_.end())
        duplicate_ = twin->number;
}

std::optional<Place> IdIndex::find(Number number) const
{
    if (number < slots_.size())
        return slots_[number] == 0 ? std::nullopt : std::optional(places_[slots_[number] - 1]);
    const auto found = std::lower_bound(sorted_.begin(), sorted_.end(), number,
                                        [](const Entry& entry, Number wanted) { return entry.number < wanted; });
    return found != sorted_.end() && found->number == number ? std::optional(found->place) : std::nullopt;
}

} // namespace lineara::store
