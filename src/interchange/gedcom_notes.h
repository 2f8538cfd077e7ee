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

    explicit SharedNotes(const GedcomRecords& records) : records_(records) {}

    /// The text of the note that the line of a person's record points at; empty where there is none, which is told.
    QString read(const GedcomTree& tree, NodeLedger& ledger, NodeIndex line);

    /// Whether the text of that record went to somebody.
    bool wasRead(RecordIndex record) const { return texts_.contains(record); }

private:
    const GedcomRecords& records_;
    GedcomTree note_;
    std::unordered_map<RecordIndex, QString> texts_;
    qsizetype handedOut_ = 0;
};

} // namespace lineara
