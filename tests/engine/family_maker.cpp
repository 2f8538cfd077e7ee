#include "family_maker.h"

#include "engine/descent.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <span>

namespace lineara::engine {

namespace {

Adjacency adjacency(const std::vector<std::vector<PersonIndex>>& lists)
{
    Adjacency result;
    for (const auto& list : lists) {
        for (const PersonIndex other : list)
            result.add(other);
        result.endPerson();
    }
    return result;
}

std::uint32_t upTo(std::uint32_t greatest, std::mt19937_64& random)
{
    return std::uniform_int_distribution<std::uint32_t>(0, greatest)(random);
}

bool chance(double probability, std::mt19937_64& random)
{
    return std::uniform_real_distribution<>()(random) < probability;
}

/// Links are drawn between persons shuffled by age, older to younger, in random order.
void linkAtRandom(FamilyMaker& family, const RandomFamily& wish, std::mt19937_64& random)
{
    const std::uint32_t persons = family.persons();
    std::vector<PersonIndex> byAge(persons);
    std::iota(byAge.begin(), byAge.end(), 0U);
    if (chance(0.7, random))
        std::ranges::shuffle(byAge, random);
    const auto offspring = static_cast<std::uint32_t>(std::lround(wish.offspringPerPerson * persons));
    const auto partners = static_cast<std::uint32_t>(std::lround(wish.partnersPerPerson * persons));
    const std::uint32_t greatestGap = chance(0.5, random) ? persons : 3;
    for (std::uint32_t links = upTo(2 * (offspring + partners), random); links > 0; --links) {
        const std::uint32_t older = upTo(persons - 1, random);
        const std::uint32_t younger = older + 1 + upTo(greatestGap, random);
        if (younger >= persons)
            continue;
        const PersonIndex first = byAge[older];
        const PersonIndex second = byAge[younger];
        if (upTo(offspring + partners, random) < partners)
            family.partners(first, second);
        else if (family.parentsOf(second).size() < 2)
            family.offspring(first, second);
    }
}

} // namespace

FamilyMaker::FamilyMaker(std::uint32_t persons)
    : members_(persons), numbers_(persons), parents_(persons), children_(persons), partners_(persons)
{
    std::iota(numbers_.begin(), numbers_.end(), 101U);
}

FamilyMaker& FamilyMaker::offspring(PersonIndex parent, PersonIndex child)
{
    if (std::ranges::find(children_[parent], child) == children_[parent].end()) {
        children_[parent].push_back(child);
        parents_[child].push_back(parent);
    }
    return *this;
}

FamilyMaker& FamilyMaker::offspring(Pairs pairs)
{
    for (const auto& [parent, child] : pairs)
        offspring(parent, child);
    return *this;
}

bool FamilyMaker::mayBeOffspring(PersonIndex parent, PersonIndex child) const
{
    const auto childrenOf = [this](PersonIndex person) { return std::span(children_[person]); };
    const auto parentsOf = [this](PersonIndex person) { return std::span(parents_[person]); };
    return parents_[child].size() < 2 && !isDescendedFrom(parent, child, childrenOf, parentsOf);
}

FamilyMaker& FamilyMaker::line(PersonIndex first, PersonIndex last)
{
    for (PersonIndex parent = first; parent < last; ++parent)
        offspring(parent, parent + 1);
    return *this;
}

FamilyMaker& FamilyMaker::partners(PersonIndex first, PersonIndex second)
{
    if (std::ranges::find(partners_[first], second) == partners_[first].end()) {
        partners_[first].push_back(second);
        partners_[second].push_back(first);
    }
    return *this;
}

FamilyMaker& FamilyMaker::partners(Pairs pairs)
{
    for (const auto& [first, second] : pairs)
        partners(first, second);
    return *this;
}

FamilyMaker& FamilyMaker::numbers(std::vector<std::uint64_t> numbers)
{
    numbers_ = std::move(numbers);
    return *this;
}

FamilyMaker& FamilyMaker::members(std::uint32_t count)
{
    members_ = count;
    return *this;
}

FamilyMaker& FamilyMaker::markWillWalk(PersonIndex person)
{
    willWalk_.resize(numbers_.size(), false);
    willWalk_[person] = true;
    return *this;
}

FamilyGraph FamilyMaker::graph() const
{
    return {members_, numbers_, adjacency(parents_), adjacency(children_), adjacency(partners_), willWalk_};
}

FamilyMaker familyInRows(std::uint32_t persons, std::uint32_t rows, std::uint32_t unlinked)
{
    FamilyMaker family(persons + unlinked);
    std::mt19937_64 random(persons + rows);
    const std::uint32_t width = persons / rows;
    for (PersonIndex person = 0; person < persons; ++person) {
        const std::uint32_t row = std::min(person / width, rows - 1);
        if (person % 2 == 1 && (person - 1) / width == row && chance(0.8, random))
            family.partners(person - 1, person);
        if (row == 0 || chance(0.2, random))
            continue;
        const PersonIndex parent = (row - 1) * width + upTo(width - 1, random);
        family.offspring(parent, person);
        if (const PersonIndex other = parent ^ 1U; other / width == row - 1)
            family.offspring(other, person);
    }
    return family;
}

FamilyGraph randomFamily(const RandomFamily& wish, std::mt19937_64& random)
{
    const std::uint32_t persons = wish.leastPersons + upTo(wish.greatestPersons - wish.leastPersons, random);
    FamilyMaker family(persons);
    std::vector<std::uint64_t> numbers(persons);
    std::iota(numbers.begin(), numbers.end(), chance(0.5, random) ? 101U : 1U + upTo(100, random));
    if (chance(0.3, random))
        std::ranges::shuffle(numbers, random);
    family.numbers(std::move(numbers));
    linkAtRandom(family, wish, random);
    if (chance(wish.strangers, random))
        family.members(upTo(persons, random));
    if (chance(wish.willWalk, random)) {
        for (PersonIndex person = 0; person < persons; ++person) {
            if (chance(0.3, random))
                family.markWillWalk(person);
        }
    }
    return family.graph();
}

FamilyMaker tangledFamily(std::uint32_t persons, std::uint32_t links, std::mt19937_64& random)
{
    constexpr std::uint32_t personsOfALine = 20;
    FamilyMaker family(persons);
    for (PersonIndex person = 0; person + 1 < persons; person += 2) {
        family.partners(person, person + 1);
        if (person % personsOfALine != 0)
            family.offspring({{person - 2, person}, {person - 1, person}});
    }
    for (; links > 0; --links) {
        const PersonIndex from = upTo(persons - 1, random);
        const PersonIndex to = upTo(persons - 1, random);
        if (from == to)
            continue;
        if (chance(0.5, random))
            family.partners(from, to);
        else if (family.mayBeOffspring(from, to))
            family.offspring(from, to);
    }
    return family;
}

} // namespace lineara::engine
