#include "engine/family_graph.h"

namespace lineara::engine {

namespace {

constexpr PersonIndex notInPart = ~PersonIndex{0};

Adjacency linksAmong(const Adjacency& links, std::span<const PersonIndex> persons,
                     const std::vector<PersonIndex>& indexInPart)
{
    Adjacency among;
    for (const PersonIndex person : persons) {
        for (const PersonIndex other : links[person]) {
            if (indexInPart[other] != notInPart)
                among.add(indexInPart[other]);
        }
        among.endPerson();
    }
    return among;
}

} // namespace

void Adjacency::reserve(std::size_t persons, std::size_t links)
{
    begins_.reserve(persons + 1);
    others_.reserve(links);
}

FamilyGraph partOf(const FamilyGraph& family, std::span<const PersonIndex> persons)
{
    FamilyGraph part;
    std::vector<PersonIndex> indexInPart(family.persons(), notInPart);
    for (const PersonIndex person : persons) {
        indexInPart[person] = part.members++;
        part.numbers.push_back(family.numbers[person]);
        if (!family.willWalk.empty())
            part.willWalk.push_back(family.willWalk[person]);
    }
    part.parents = linksAmong(family.parents, persons, indexInPart);
    part.children = linksAmong(family.children, persons, indexInPart);
    part.partners = linksAmong(family.partners, persons, indexInPart);
    return part;
}

} // namespace lineara::engine
