#pragma once

#include "gedcom_tree.h"

#include <QString>

#include <unordered_map>

namespace lineara {

class NodeLedger;

/// Texts of note records that persons point at. Each is read once; persons with the same note share it.
class SharedNotes
{
public:
    /// Characters that pointers may hand out in all. A small file could otherwise ask for any amount of text, by many
    /// persons who point at one long note.
    static constexpr qsizetype mostCharacters = 64 * 1024 * 1024;

    SharedNotes(const GedcomTree& tree, NodeLedger& ledger) : tree_(tree), ledger_(ledger) {}

    /// The text of the note that the line points at; empty where there is none, which is told.
    QString read(NodeIndex line);

private:
    const GedcomTree& tree_;
    NodeLedger& ledger_;
    std::unordered_map<NodeIndex, QString> texts_;
    qsizetype handedOut_ = 0;
};

} // namespace lineara
