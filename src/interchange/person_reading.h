#pragma once

#include "gedcom_tree.h"

#include "model/person.h"

#include <optional>
#include <vector>

namespace lineara {

class NodeLedger;
class SharedNotes;

/// What a record of a person says that a family has a field for, and which of its lines say it.
struct PersonReading
{
    struct Event
    {
        std::optional<NodeIndex> event; ///< the BIRT or DEAT line that counts
        std::optional<NodeIndex> date;  ///< its DATE line
    };
    PersonValues values;
    std::optional<NodeIndex> name; ///< the NAME line that counts
    Event birth;
    Event death;
    std::vector<NodeIndex> notes;    ///< lines that hold a note or point at one, in order
    std::vector<NodeIndex> pictures; ///< lines that hold a picture or point at one, in order; not looked at
};

/// Reads what stands in the record of the tree (an INDI), and accounts for it in its ledger. The pointers to families
/// are left to the families.
PersonReading readPerson(const GedcomTree& tree, NodeLedger& ledger, SharedNotes& sharedNotes);

/// The name that a NAME line gives, by its value or else its pieces; empty if none.
QString nameOf(const GedcomTree& tree, NodeIndex line);

/// The name that counts of the person in the tree; empty if none.
QString shownName(const GedcomTree& tree);

} // namespace lineara
