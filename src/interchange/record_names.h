#pragma once

#include "gedcom_tree.h"

#include <QString>

#include <string_view>
#include <unordered_map>
#include <vector>

namespace lineara {

class ImportedIndex;
class SourceRecord;

/// What a FILE line calls its file: the title below it, or else the name.
QString titleOfFile(const GedcomTree& tree, NodeIndex file);

/// What imported records are called where others point at them. Each is looked at once, so names are as of the first
/// question.
class RecordNames
{
public:
    explicit RecordNames(const ImportedIndex& index) : index_(index) {}

    /// Persons as they are shown, families by their parents, other records by their title, name, text or
    /// picture; empty if the record says nothing of the kind.
    const QString& of(const SourceRecord& record);

    /// The whole value of a line, with its continuations. A pointer without a name stands between @ signs.
    QString valueOf(const GedcomTree& tree, NodeIndex line);

    /// "Family of Anna and Bert", from a family's record.
    QString ofFamily(const GedcomTree& family);
    /// "Family with Bert", as `partner` would say.
    QString ofFamilyOf(const SourceRecord& partner, const GedcomTree& family);

private:
    QString read(const SourceRecord& record);
    QString titleOfPicture(const GedcomTree& tree) const;
    QString valueOfPointer(std::string_view xref);
    QStringList partnersIn(const GedcomTree& family, const SourceRecord* but);

    const ImportedIndex& index_;
    std::unordered_map<const SourceRecord*, QString> names_;
};

} // namespace lineara
