#pragma once

#include "engine/family_graph.h"
#include "engine/process.h"

namespace lineara::engine {

/// Without children and parents, partners aside.
inline bool isLoose(const FamilyGraph& family, PersonIndex person)
{
    return family.children[person].empty() && family.parents[person].empty();
}

/// Without any link.
inline bool isUnlinked(const FamilyGraph& family, PersonIndex person)
{
    return isLoose(family, person) && family.partners[person].empty();
}

/// A generation where a whole number is needed.
inline Generation valueOrZero(Generation generation)
{
    return generation == noGeneration ? 0 : generation;
}

} // namespace lineara::engine
