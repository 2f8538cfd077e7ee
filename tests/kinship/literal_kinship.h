#pragma once

#include "kinship/relationship.h"

#include <set>
#include <vector>

namespace lineara::kinship {

/// The rules of kinship written down word by word, without a thought for time.
namespace literal {

/// Everybody's distance above a person; -1 where there is none.
std::vector<int> heightsAbove(const engine::FamilyGraph& family, PersonIndex person);

struct Line
{
    std::uint32_t up = 0;
    std::uint32_t down = 0;
    Shared shared = Shared::BothParents;
    std::set<PersonIndex> ancestors;
};

/// All lines of two persons, each once, the closest first.
std::vector<Line> bloodLines(const engine::FamilyGraph& family, PersonIndex first, PersonIndex second);

struct Marriages
{
    bool areStepSiblings = false;
    std::vector<Line> ofFirst;  ///< the closest line of each partner of the first, the closest first
    std::vector<Line> ofSecond; ///< the same of the second
};
Marriages marriages(const engine::FamilyGraph& family, PersonIndex first, PersonIndex second);

/// Number of links on a shortest path of links of any kind; -1 without one.
int linksBetween(const engine::FamilyGraph& family, PersonIndex first, PersonIndex second);

std::set<PersonIndex> ancestorsOf(const engine::FamilyGraph& family, PersonIndex person);
std::set<PersonIndex> descendantsOf(const engine::FamilyGraph& family, PersonIndex person);
std::set<PersonIndex> withPartners(const engine::FamilyGraph& family, const std::set<PersonIndex>& persons);

} // namespace literal
} // namespace lineara::kinship
