#pragma once

#include "gedcom_tree.h"

#include "engine/family_graph.h"

#include <cstddef>
#include <vector>

namespace lineara {

class GedcomPersons;
class NodeLedger;

/// The links that the families of a file ask for, in file order, each pair once.
struct FamilyWishes
{
    struct Partners
    {
        engine::PersonIndex first;
        engine::PersonIndex second;
    };
    struct Offspring
    {
        engine::PersonIndex parent;
        engine::PersonIndex child;
        NodeIndex line; ///< the CHIL line that asks for it
    };

    std::size_t families = 0;
    std::vector<Partners> partners;
    std::vector<Offspring> offspring;
};

/// What a family record names decides. What a person claims about families beyond that is told.
/// Unfinished if the progress is stopped meanwhile.
FamilyWishes readFamilies(const GedcomTree& tree, const GedcomPersons& persons, NodeLedger& ledger,
                          const Progress& progress);

} // namespace lineara
