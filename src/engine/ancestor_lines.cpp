#include "ancestor_lines.h"

#include <algorithm>

namespace lineara::engine {

std::vector<std::int32_t> ancestorLines(const FamilyGraph& family)
{
    std::vector<std::int32_t> lengths(family.persons(), 1);
    std::vector<std::uint32_t> parentsToCome(family.persons());
    std::vector<PersonIndex> settled;
    settled.reserve(family.persons());
    for (PersonIndex person = 0; person < family.persons(); ++person) {
        parentsToCome[person] = static_cast<std::uint32_t>(family.parents[person].size());
        if (parentsToCome[person] == 0)
            settled.push_back(person);
    }
    for (std::size_t next = 0; next < settled.size(); ++next) {
        const PersonIndex parent = settled[next];
        for (const PersonIndex child : family.children[parent]) {
            lengths[child] = std::max(lengths[child], lengths[parent] + 1);
            if (--parentsToCome[child] == 0)
                settled.push_back(child);
        }
    }
    return lengths;
}

} // namespace lineara::engine
