#pragma once

#include "gedcom_tree.h"
#include "import_notes.h"

#include <QString>

#include <vector>

namespace lineara {

/// Accounts for every line of a tree: each is either taken, or told with the reason why not. A line that nobody ever
/// asked about is told at the end, so that none can get lost in silence.
class NodeLedger
{
public:
    NodeLedger(const GedcomTree& tree, ImportNotes& notes);

    /// The line's content found its place (or says nothing that is not said elsewhere).
    void take(NodeIndex index) { settled_[index] = true; }

    /// The same for a line and its continuations.
    void takeText(NodeIndex index);

    /// The line was not taken: "INDI.BIRT.PLAC "Rome" was not taken: `why`".
    void reject(NodeIndex index, const QString& why);

    /// The line was taken, with this remark: "INDI.BIRT.DATE "ABT 1600" `what`".
    void remark(NodeIndex index, const QString& what);

    /// The text of a line made fit for a family file; told where that changes it.
    QString writable(NodeIndex index, QString text);

    /// A link that the line asks for is refused.
    void refuse(NodeIndex index, const QString& why);

    /// Tells every line that was neither taken nor told, unless stopped.
    void tellRest(const Progress& progress);

private:
    /// The line as a reader finds it: "INDI.BIRT.PLAC "Rome"".
    QString describe(NodeIndex index) const;
    std::uint32_t lineOf(NodeIndex index) const { return tree_[index].line.number; }

    const GedcomTree& tree_;
    ImportNotes& notes_;
    std::vector<bool> settled_;
};

} // namespace lineara
