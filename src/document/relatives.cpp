#include "relatives.h"

#include "kinship/relatives.h"
#include "model/pool.h"

namespace lineara {

namespace {

template<class Reach>
std::vector<RecordId> reachedFrom(RecordId person, const Pool& pool, Reach reach)
{
    const FamilySnapshot family = pool.snapshot();
    const auto index = family.indexOf(person);
    return index ? family.idsOf(reach(family.graph, *index)) : std::vector<RecordId>();
}

} // namespace

std::vector<RecordId> ancestorsOf(const Pool& pool, RecordId person)
{
    return reachedFrom(person, pool, kinship::ancestorsOf);
}

std::vector<RecordId> descendantsWithPartnersOf(const Pool& pool, RecordId person)
{
    return reachedFrom(person, pool, [](const engine::FamilyGraph& family, engine::PersonIndex from) {
        auto persons = kinship::withPartners(family, kinship::descendantsOf(family, from));
        std::erase(persons, from);
        return persons;
    });
}

} // namespace lineara
