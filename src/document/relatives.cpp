#include "relatives.h"

#include "kinship/relatives.h"
#include "model/pool.h"

#include <algorithm>
#include <optional>

namespace lineara {

namespace {

std::optional<engine::PersonIndex> indexOf(const FamilySnapshot& family, RecordId person)
{
    const auto found = std::ranges::find(family.persons, person);
    if (found == family.persons.end())
        return std::nullopt;
    return static_cast<engine::PersonIndex>(found - family.persons.begin());
}

std::vector<RecordId> idsOf(const FamilySnapshot& family, const std::vector<engine::PersonIndex>& persons)
{
    std::vector<RecordId> ids;
    ids.reserve(persons.size());
    for (const engine::PersonIndex person : persons)
        ids.push_back(family.persons[person]);
    return ids;
}

} // namespace

std::vector<RecordId> ancestorsOf(const Pool& pool, RecordId person)
{
    const FamilySnapshot family = pool.snapshot();
    const auto index = indexOf(family, person);
    return index ? idsOf(family, kinship::ancestorsOf(family.graph, *index)) : std::vector<RecordId>();
}

std::vector<RecordId> descendantsWithPartnersOf(const Pool& pool, RecordId person)
{
    const FamilySnapshot family = pool.snapshot();
    const auto index = indexOf(family, person);
    if (!index)
        return {};
    std::vector<engine::PersonIndex> all = kinship::descendantsOf(family.graph, *index);
    const std::size_t descendants = all.size();
    for (std::size_t at = 0; at < descendants; ++at) {
        const auto& partners = family.graph.partners[all[at]];
        all.insert(all.end(), partners.begin(), partners.end());
    }
    std::ranges::sort(all);
    const auto repeated = std::ranges::unique(all);
    all.erase(repeated.begin(), repeated.end());
    std::erase(all, *index);
    return idsOf(family, all);
}

} // namespace lineara
