#pragma once

#include "engine/family_graph.h"
#include "engine/process.h"

#include <cstdint>
#include <initializer_list>
#include <random>
#include <utility>
#include <vector>

namespace lineara::engine {

/// Builds a family link by link. Lists keep the order in which the links were made.
class FamilyMaker
{
public:
    using Pairs = std::initializer_list<std::pair<PersonIndex, PersonIndex>>;

    /// Persons numbered from 101 on.
    explicit FamilyMaker(std::uint32_t persons);

    FamilyMaker& offspring(PersonIndex parent, PersonIndex child);
    FamilyMaker& offspring(Pairs pairs);
    FamilyMaker& partners(PersonIndex first, PersonIndex second);
    FamilyMaker& partners(Pairs pairs);
    FamilyMaker& numbers(std::vector<std::uint64_t> numbers);
    /// Persons from this index on are no members.
    FamilyMaker& members(std::uint32_t count);
    FamilyMaker& markWillWalk(PersonIndex person);

    /// A line of offspring from `first` to `last`, through all between.
    FamilyMaker& line(PersonIndex first, PersonIndex last);

    std::uint32_t persons() const { return static_cast<std::uint32_t>(numbers_.size()); }
    /// Whether the rules let anybody draw that link.
    bool mayBeOffspring(PersonIndex parent, PersonIndex child) const;
    const std::vector<PersonIndex>& parentsOf(PersonIndex person) const { return parents_[person]; }

    FamilyGraph graph() const;

private:
    std::uint32_t members_;
    std::vector<std::uint64_t> numbers_;
    std::vector<std::vector<PersonIndex>> parents_;
    std::vector<std::vector<PersonIndex>> children_;
    std::vector<std::vector<PersonIndex>> partners_;
    std::vector<bool> willWalk_;
};

/// What a random family looks like.
struct RandomFamily
{
    std::uint32_t leastPersons = 1;
    std::uint32_t greatestPersons = 12;
    double offspringPerPerson = 1.0;
    double partnersPerPerson = 0.5;
    double strangers = 0.0; ///< share of the families that have some
    double willWalk = 0.0;  ///< share of the families that have some
};

/// A large family in which everybody's number is consistent: couples in rows of equal size, the oldest row first, and
/// about two links a person. `unlinked` more persons follow.
FamilyMaker familyInRows(std::uint32_t persons, std::uint32_t rows, std::uint32_t unlinked = 0);

/// A family without cycles of parents and with at most two parents each; anything else goes.
FamilyGraph randomFamily(const RandomFamily& wish, std::mt19937_64& random);

/// Couples in lines of ten generations, and then links between anybody, drawn one by one where the rules allow them.
FamilyMaker tangledFamily(std::uint32_t persons, std::uint32_t links, std::mt19937_64& random);

/// What the engine says of the family, run to its end.
inline ProcessResult processed(const FamilyMaker& family)
{
    return process(family.graph()).value();
}

} // namespace lineara::engine
