#pragma once

#include "gedcom_tree.h"

#include <QString>
#include <QStringList>

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

    /// Persons as they are shown, families by their parents, other records by their title, name, text or picture, or
    /// else by that of a record that they point at. That there is none of these is told of records of the standard;
    /// empty for others.
    const QString& of(const SourceRecord& record);

    /// The whole value of a line, with its continuations. A pointer without a name stands between @ signs.
    QString valueOf(const GedcomTree& tree, NodeIndex line);
    /// The same for a line without a place in its tree, which has no continuations.
    QString valueOf(const GedcomLine& line);

    /// "Family of Anna and Bert", from a family's record and its lines.
    QString ofFamily(const SourceRecord& family, const GedcomTree& tree);
    /// "Family with Bert", as `partner` would say.
    QString ofFamilyOf(const SourceRecord& partner, const SourceRecord& family, const GedcomTree& tree);

private:
    struct Partners
    {
        QStringList names;
        bool isSomebodyUnknown = false;
    };

    QString read(const SourceRecord& record);
    const QString& ownNameOf(const SourceRecord& record);
    const QString& ownNameOf(const SourceRecord& record, const GedcomTree& tree);
    QString titleBehind(const GedcomTree& tree);
    QString nameInHeading(const SourceRecord& person);
    QString valueOfPointer(std::string_view xref);
    Partners partnersIn(const SourceRecord& family, const GedcomTree& tree, const SourceRecord* but);

    const ImportedIndex& index_;
    std::unordered_map<const SourceRecord*, QString> names_;
    std::unordered_map<const SourceRecord*, QString> ownNames_; // empty for records that have none
};

} // namespace lineara
