#pragma once

#include "engine/family_graph.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace lineara::kinship {

using engine::PersonIndex;

/// What the two children at the top of a line have in common: both lines begin at them, beneath the common ancestor.
enum class Shared : std::uint8_t
{
    BothParents,
    Unknown, ///< one parent, and of one of the two children no other parent is known
    OneParent
};

/// Descent from a common ancestor: so many generations up from the first person, so many down to the second. Two
/// siblings are (1, 1), an aunt is (2, 1), and where one of the two is the ancestor its number is 0.
struct BloodLine
{
    std::uint32_t up = 0;
    std::uint32_t down = 0;
    Shared shared = Shared::BothParents; ///< of no meaning where one of the two is the ancestor
    /// The ancestor in whom the lines meet; the two of them, lower index first, where both parents are shared.
    std::vector<PersonIndex> ancestors;

    bool isDirect() const { return up == 0 || down == 0; }
    std::uint32_t steps() const { return up + down; }
    friend bool operator==(const BloodLine&, const BloodLine&) = default;
};

/// Where the one partner link of a relationship by marriage stands.
enum class Marriage : std::uint8_t
{
    BetweenParents, ///< a parent of the one and a parent of the other are partners: step-siblings
    OfFirst,        ///< the second is a relative of a partner of the first
    OfSecond        ///< the second is a partner of a relative of the first
};

struct InLaw
{
    Marriage marriage{};
    BloodLine line; ///< beside the partner link; (1, 1) without ancestors for step-siblings

    std::uint32_t steps() const { return line.steps() + 1; }
    friend bool operator==(const InLaw&, const InLaw&) = default;
};

enum class Kinship : std::uint8_t
{
    Same, ///< one and the same person
    Partners,
    Blood,
    ByMarriage,
    Connected, ///< by a path of links that has no shorter name
    None
};

/// What the second of two persons is to the first.
struct Relation
{
    Kinship kinship = Kinship::None;
    /// The closest line, if there is any, whatever `kinship` is.
    std::optional<BloodLine> blood;
    /// Lines besides the closest one: ancestors (couples count once) in whom the shortest lines of both persons meet
    /// for the first time.
    std::uint32_t otherLines = 0;
    /// If the two are no partners, and no blood line is as short.
    std::optional<InLaw> inLaw;
    /// From the first person to the second, both included, along the links that `kinship` tells of. Nobody occurs
    /// twice. Empty for `None`.
    std::vector<PersonIndex> path;
};

/// Relationship of any two persons. Of several lines the closest is the one with the fewest links; of equal ones
/// descent comes before common descent, both parents shared before one, and the lesser difference of generations.
/// Partners are told before blood, blood before marriage, and anything before a mere connection. Time and memory are
/// linear in the family at most; nothing is recursive. Pure: may run on any thread.
Relation relationshipOf(const engine::FamilyGraph& family, PersonIndex first, PersonIndex second);

} // namespace lineara::kinship
