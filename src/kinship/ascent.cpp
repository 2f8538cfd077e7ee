#include "ascent.h"

#include <algorithm>

namespace lineara::kinship {

Ascent::Ascent(const engine::FamilyGraph& family, std::span<const PersonIndex> from)
    : family_(family), heights_(family.persons(), unreached)
{
    const auto reach = [this](PersonIndex person, std::uint32_t height) {
        if (heights_[person] != unreached)
            return;
        heights_[person] = height;
        reached_.push_back(person);
    };
    for (const PersonIndex person : from)
        reach(person, 0);
    for (std::size_t next = 0; next < reached_.size(); ++next) {
        const PersonIndex child = reached_[next];
        for (const PersonIndex parent : family.parents[child])
            reach(parent, heights_[child] + 1);
    }
}

std::vector<PersonIndex> Ascent::lineDownFrom(PersonIndex ancestor) const
{
    std::vector<PersonIndex> line{ancestor};
    while (heights_[line.back()] > 0) {
        const std::uint32_t below = heights_[line.back()] - 1;
        const auto children = family_.children[line.back()];
        line.push_back(*std::ranges::find(children, below, [this](PersonIndex child) { return heights_[child]; }));
    }
    return line;
}

} // namespace lineara::kinship
