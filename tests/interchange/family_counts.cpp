#include "family_counts.h"

#include <algorithm>
#include <numeric>
#include <ostream>
#include <unordered_map>
#include <unordered_set>

namespace lineara {
namespace {

std::size_t countComponents(const std::vector<Person*>& persons)
{
    std::unordered_set<const Person*> seen;
    std::size_t components = 0;
    for (const Person* start : persons) {
        if (!seen.insert(start).second)
            continue;
        ++components;
        std::vector<const Person*> open{start};
        while (!open.empty()) {
            const Person* person = open.back();
            open.pop_back();
            for (const auto* links : {&person->parents(), &person->children(), &person->partners()}) {
                for (const Person* other : *links) {
                    if (seen.insert(other).second)
                        open.push_back(other);
                }
            }
        }
    }
    return components;
}

/// Peels the family generation by generation from those without parents; each round is one more person on a line.
std::size_t longestLine(const std::vector<Person*>& persons)
{
    std::unordered_map<const Person*, std::size_t> missingParents;
    std::vector<const Person*> ready;
    for (const Person* person : persons) {
        missingParents[person] = person->parents().size();
        if (person->parents().empty())
            ready.push_back(person);
    }
    std::size_t rounds = 0;
    for (; !ready.empty(); ++rounds) {
        std::vector<const Person*> next;
        for (const Person* person : ready) {
            for (const Person* child : person->children()) {
                if (--missingParents[child] == 0)
                    next.push_back(child);
            }
        }
        ready = std::move(next);
    }
    return rounds;
}

} // namespace

FamilyCounts count(const ObjectContext& context)
{
    const auto persons = context.allPersons();
    const auto countIf = [&persons](auto holds) {
        return static_cast<std::size_t>(std::count_if(persons.begin(), persons.end(), holds));
    };
    const auto sumOf = [&persons](auto size) {
        return std::accumulate(persons.begin(), persons.end(), std::size_t{0},
                               [size](std::size_t sum, const Person* person) { return sum + size(*person); });
    };
    FamilyCounts counts;
    counts.persons = persons.size();
    counts.named = countIf([](const Person* person) { return person->name().has_value(); });
    counts.partnerPairs = sumOf([](const Person& person) { return person.partners().size(); }) / 2;
    counts.parentChildPairs = sumOf([](const Person& person) { return person.children().size(); });
    counts.longestLine = longestLine(persons);
    counts.components = countComponents(persons);
    counts.unlinked = countIf([](const Person* person) {
        return person->partners().empty() && person->children().empty() && person->parents().empty();
    });
    counts.birthYears = countIf([](const Person* person) { return person->birthYear().has_value(); });
    counts.deathYears = countIf([](const Person* person) { return person->deathYear().has_value(); });
    return counts;
}

std::ostream& operator<<(std::ostream& out, const FamilyCounts& counts)
{
    return out << "persons " << counts.persons << ", named " << counts.named << ", partners " << counts.partnerPairs
               << ", parent-child " << counts.parentChildPairs << ", longest line " << counts.longestLine
               << ", components " << counts.components << ", unlinked " << counts.unlinked << ", birth years "
               << counts.birthYears << ", death years " << counts.deathYears;
}

} // namespace lineara
