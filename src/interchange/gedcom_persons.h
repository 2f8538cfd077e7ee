#pragma once

#include "gedcom_tree.h"

#include "engine/family_graph.h"
#include "model/person.h"

#include <optional>
#include <vector>

namespace lineara {

class NodeLedger;

/// The persons of a file, in file order, as values that records can be made of.
class GedcomPersons
{
public:
    /// Unfinished if the progress is stopped meanwhile.
    static GedcomPersons read(const GedcomTree& tree, NodeLedger& ledger, const Progress& progress);

    std::uint32_t size() const { return static_cast<std::uint32_t>(persons_.size()); }
    const PersonValues& values(engine::PersonIndex person) const { return persons_[person].values; }
    NodeIndex record(engine::PersonIndex person) const { return persons_[person].record; }

    /// The person that a record stands for; no value if the record is no person.
    std::optional<engine::PersonIndex> of(NodeIndex record) const;

    /// How sentences call the person: the name, or a way to find one without a name.
    QString label(engine::PersonIndex person) const;

private:
    struct Entry
    {
        NodeIndex record;
        std::uint32_t line;
        PersonValues values;
    };
    std::vector<Entry> persons_; // their records ascend
};

} // namespace lineara
