#pragma once

#include <cstdint>
#include <span>
#include <vector>

namespace lineara::engine {

/// Index of a person within one FamilyGraph.
using PersonIndex = std::uint32_t;

/// For every person an ordered list of others, all lists in one array (compressed sparse rows).
class Adjacency
{
public:
    /// Room for `persons` lists holding `links` entries in all. Lists are then appended in person order.
    void reserve(std::size_t persons, std::size_t links);

    /// Appends one entry to the list of the person that is being filled.
    void add(PersonIndex other) { others_.push_back(other); }

    /// Ends the list being filled; the next entry belongs to the next person.
    void endPerson() { begins_.push_back(static_cast<std::uint32_t>(others_.size())); }

    std::span<const PersonIndex> operator[](PersonIndex person) const
    {
        return {others_.data() + begins_[person], others_.data() + begins_[person + 1]};
    }

    std::size_t persons() const { return begins_.size() - 1; }
    std::size_t links() const { return others_.size(); }

private:
    std::vector<std::uint32_t> begins_{0};
    std::vector<PersonIndex> others_;
};

/// A family as the engine sees it: plain arrays, taken from the records in one go.
///
/// Persons 0 to `members` - 1 are the members of the pool in the pool's order. Persons linked to them that are not
/// members (yet) follow: they are reached by the recursions, but stand in no row and in no loop over the family.
/// Every list enumerates in the order in which the links were made, and every link stands in the lists of both ends.
struct FamilyGraph
{
    std::uint32_t members = 0;
    /// Object number of every person; two persons compare by the decimal text of their numbers.
    std::vector<std::uint64_t> numbers;
    Adjacency parents;
    Adjacency children;
    Adjacency partners;
    /// Persons whose children do not hand a generation up to them; empty means that there are none.
    std::vector<bool> willWalk;

    std::uint32_t persons() const { return static_cast<std::uint32_t>(numbers.size()); }
};

/// These persons, each named once, as members of a family of their own in the order in which they are named; with the
/// links that both ends of are among them.
FamilyGraph partOf(const FamilyGraph& family, std::span<const PersonIndex> persons);

} // namespace lineara::engine
