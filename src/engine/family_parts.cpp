#include "family_parts.h"

#include <algorithm>

namespace lineara::engine {

namespace {

class PartCollector
{
public:
    explicit PartCollector(const FamilyGraph& family)
        : family_(family), met_(family.persons(), false), indexInPart_(family.persons())
    {}

    bool hasMet(PersonIndex person) const { return met_[person]; }

    FamilyPart collect(PersonIndex start)
    {
        FamilyPart part;
        meet(start, part.persons);
        for (std::size_t next = 0; next < part.persons.size(); ++next) {
            const PersonIndex person = part.persons[next];
            for (const auto* links : {&family_.parents, &family_.children, &family_.partners}) {
                for (const PersonIndex other : (*links)[person])
                    meet(other, part.persons);
            }
        }
        std::ranges::sort(part.persons);
        for (std::size_t at = 0; at < part.persons.size(); ++at)
            indexInPart_[part.persons[at]] = static_cast<PersonIndex>(at);
        part.graph = graphOf(part.persons);
        return part;
    }

private:
    void meet(PersonIndex person, std::vector<PersonIndex>& persons)
    {
        if (met_[person])
            return;
        met_[person] = true;
        persons.push_back(person);
    }

    FamilyGraph graphOf(const std::vector<PersonIndex>& persons) const
    {
        FamilyGraph graph;
        const auto firstStranger = std::ranges::lower_bound(persons, family_.members);
        graph.members = static_cast<std::uint32_t>(firstStranger - persons.begin());
        for (const PersonIndex person : persons) {
            graph.numbers.push_back(family_.numbers[person]);
            addLinks(family_.parents[person], graph.parents);
            addLinks(family_.children[person], graph.children);
            addLinks(family_.partners[person], graph.partners);
        }
        return graph;
    }

    void addLinks(std::span<const PersonIndex> others, Adjacency& links) const
    {
        for (const PersonIndex other : others)
            links.add(indexInPart_[other]);
        links.endPerson();
    }

    const FamilyGraph& family_;
    std::vector<bool> met_;
    std::vector<PersonIndex> indexInPart_;
};

} // namespace

std::vector<FamilyPart> partsWith(const FamilyGraph& family, const std::vector<PersonIndex>& persons)
{
    PartCollector collector(family);
    std::vector<FamilyPart> parts;
    for (const PersonIndex person : persons) {
        if (!collector.hasMet(person))
            parts.push_back(collector.collect(person));
    }
    return parts;
}

} // namespace lineara::engine
