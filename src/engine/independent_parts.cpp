#include "independent_parts.h"

#include "knots.h"

#include <algorithm>

namespace lineara::engine {

namespace {

class PartCollector
{
public:
    explicit PartCollector(const FamilyGraph& family)
        : family_(family), met_(family.persons(), false), indexInPart_(family.persons())
    {}

    /// The person with all who drive it on, directly or over others, in the family's order.
    std::vector<PersonIndex> collect(PersonIndex start)
    {
        std::vector<PersonIndex> persons;
        const auto meet = [&](PersonIndex person) {
            if (!met_[person])
                persons.push_back(person);
            met_[person] = true;
        };
        meet(start);
        for (std::size_t next = 0; next < persons.size(); ++next)
            forEachDrivingOn(family_, persons[next], meet);
        for (const PersonIndex person : persons)
            met_[person] = false;
        std::ranges::sort(persons);
        return persons;
    }

    IndependentPart part(std::vector<PersonIndex> persons)
    {
        for (std::size_t at = 0; at < persons.size(); ++at) {
            met_[persons[at]] = true;
            indexInPart_[persons[at]] = static_cast<PersonIndex>(at);
        }
        IndependentPart part{graphOf(persons), std::move(persons)};
        for (const PersonIndex person : part.persons)
            met_[person] = false;
        return part;
    }

private:
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
        for (const PersonIndex other : others) {
            if (met_[other])
                links.add(indexInPart_[other]);
        }
        links.endPerson();
    }

    const FamilyGraph& family_;
    std::vector<bool> met_;
    std::vector<PersonIndex> indexInPart_;
};

} // namespace

std::vector<IndependentPart> partsOfKnots(const FamilyGraph& family, const std::vector<PersonIndex>& pushed)
{
    const auto wasPushed = [&](PersonIndex person) { return std::ranges::binary_search(pushed, person); };
    const auto repeatsLikeAll = [&](const std::vector<PersonIndex>& part) {
        return std::ranges::includes(part, pushed);
    };
    PartCollector collector(family);
    std::vector<IndependentPart> parts;
    std::size_t toFind = family.persons();
    for (const Knot& knot : knotsDriving(family, pushed)) {
        if (std::ranges::none_of(knot, wasPushed))
            continue;
        auto persons = collector.collect(knot.front());
        const std::size_t found = persons.size();
        if (!repeatsLikeAll(persons))
            parts.push_back(collector.part(std::move(persons)));
        if (found >= toFind)
            break;
        toFind -= found;
    }
    return parts;
}

} // namespace lineara::engine
