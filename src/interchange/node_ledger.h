#pragma once

#include "gedcom_tree.h"
#include "import_notes.h"

#include <QString>

#include <cstdint>
#include <vector>

namespace lineara {

/// What became of a line.
enum class LineFate : std::uint8_t
{
    Kept,  ///< nobody asked about it: it is kept beside the family
    Taken, ///< its content found its place (or says nothing that is not said elsewhere)
    Part,  ///< the same for some of its content
    Told   ///< it was asked about, and told with the reason why it was not taken
};

/// Accounts for every line of one record after the other, so that none can get lost in silence.
class NodeLedger
{
public:
    /// Lines stand for `tree` as it is whenever open() is called.
    NodeLedger(const GedcomTree& tree, ImportNotes& notes) : tree_(tree), notes_(notes) {}

    /// Begins with the record that the tree holds now: nobody has asked about any line yet.
    void open() { fates_.assign(tree_.size(), LineFate::Kept); }

    /// Counts every line of the record by its fate, and tells those that have no place in the tree.
    void close();

    LineFate fate(NodeIndex index) const { return fates_[index]; }

    void take(NodeIndex index) { fates_[index] = LineFate::Taken; }
    void takePart(NodeIndex index) { fates_[index] = LineFate::Part; }

    /// The same for a line and its continuations.
    void takeText(NodeIndex index);

    /// The line was not taken: "INDI.BIRT.DATE "?" was not taken: `why`".
    void reject(NodeIndex index, const QString& why);

    /// The line has this peculiarity: "INDI.BIRT.DATE "ABT 1600" `what`".
    void remark(NodeIndex index, const QString& what);

    /// A link that the line asks for is refused. `reason` says it of any link, `why` of this one.
    void refuse(NodeIndex index, const QString& reason, const QString& why);

private:
    /// The line as a reader finds it: "INDI.BIRT.PLAC "Rome"".
    QString describe(NodeIndex index) const;
    void countNodes();
    KeptPaths::Path pathOf(NodeIndex index);
    void tellStray(const GedcomStray& stray);

    const GedcomTree& tree_;
    ImportNotes& notes_;
    std::vector<LineFate> fates_;
    std::vector<KeptPaths::Path> paths_; // the root's where nobody asked yet
    std::vector<NodeIndex> steps_;
};

} // namespace lineara
