#pragma once

#include "engine/family_graph.h"
#include "engine/process.h"

#include <cstdint>
#include <random>
#include <vector>

namespace lineara::layout::sketch {

using engine::FamilyGraph;
using engine::Generation;
using engine::PersonIndex;

/// A family under construction, with the row of every person chosen by hand.
class Sketch
{
public:
    PersonIndex person(Generation row);
    void marry(PersonIndex one, PersonIndex other);
    void bear(PersonIndex child, const std::vector<PersonIndex>& parents);

    std::size_t persons() const { return rows_.size(); }
    FamilyGraph graph() const;
    const std::vector<Generation>& generations() const { return rows_; }

    std::vector<std::vector<PersonIndex>> parents;
    std::vector<std::vector<PersonIndex>> children;
    std::vector<std::vector<PersonIndex>> partners;

private:
    std::vector<Generation> rows_;
};

using Random = std::mt19937;

/// A whole number from `low` to `high`, the same on every platform.
std::uint32_t pick(Random& random, std::uint32_t low, std::uint32_t high);

/// A founding couple and its descendants in straight rows; those who marry bring nobody along.
Sketch randomDescendants(Random& random, Generation rows, std::uint32_t mostChildren);

/// Anything goes: partners in different rows, parents below or several rows above their children, unlinked persons,
/// generations below the lowest row, several families.
Sketch randomTangle(Random& random, std::uint32_t persons);

/// All members of both, unconnected.
Sketch together(const Sketch& one, const Sketch& other);

/// As many rows of as many persons, couples side by side, every child born to a couple near its own place.
Sketch largeFamily(Random& random, std::uint32_t rows, std::uint32_t personsInRow);

/// Everybody whom somebody reaches by these links, the nearest first and without that one.
std::vector<PersonIndex> lineOf(const std::vector<std::vector<PersonIndex>>& next, PersonIndex person);

/// The distance of neighbours, and the least one from the edge.
inline constexpr std::int32_t pitch = 152;
inline constexpr std::int32_t margin = 160;

std::vector<std::int32_t> tidied(const FamilyGraph& family, const std::vector<Generation>& generations,
                                 std::int32_t leftMargin);

/// The family tidied up.
std::vector<std::int32_t> order(const Sketch& sketch, std::int32_t leftMargin = margin);

} // namespace lineara::layout::sketch
