#include "record_names.h"

#include "gedcom_pointer.h"
#include "import_texts.h"
#include "imported_index.h"
#include "model/person.h"
#include "model/source_record.h"
#include "person_reading.h"

#include <QStringBuilder>

#include <initializer_list>
#include <utility>

namespace lineara {
namespace {

/// Of records that say nothing; empty if their tag is not one of the standard.
QString thatNothingIsSaid(std::string_view tag)
{
    if (tag == "SOUR")
        return ImportTexts::tr("Source without a title");
    if (tag == "NOTE" || tag == "SNOTE")
        return ImportTexts::tr("Note without a text");
    if (tag == "OBJE")
        return ImportTexts::tr("Picture or recording without a file");
    if (tag == "REPO")
        return ImportTexts::tr("Repository without a name");
    return tag == "SUBM" ? ImportTexts::tr("Submitter without a name") : QString();
}

/// What the first of the lines below says that says something.
QString firstSaid(const GedcomTree& tree, NodeIndex parent, std::initializer_list<std::string_view> tags)
{
    for (const std::string_view tag : tags) {
        const auto line = tree.child(parent, tag);
        QString text = line ? tree.text(*line).trimmed() : QString();
        if (!text.isEmpty())
            return text;
    }
    return {};
}

QString titleOfFirstFile(const GedcomTree& tree)
{
    const auto file = tree.child(0, "FILE");
    return file ? titleOfFile(tree, *file) : QString();
}

/// A text of the record itself is that of a note. What is said about a source or a picture is less than its title.
QString titleIn(const GedcomTree& tree)
{
    for (const QString& title : {tree.text(0).trimmed(), firstSaid(tree, 0, {"TITL", "NAME", "AUTH", "PUBL", "ABBR"}),
                                 titleOfFirstFile(tree), firstSaid(tree, 0, {"TEXT", "NOTE"})})
        if (!title.isEmpty())
            return title;
    return {};
}

/// A person's is the one that is shown, where the record became one.
QString ownNameIn(const SourceRecord& record, const GedcomTree& tree)
{
    if (tree.size() == 0)
        return {};
    if (tree[0].line.tag != "INDI")
        return titleIn(tree);
    return record.person() ? record.person()->name().value_or(QString()) : shownName(tree);
}

/// "Anna, Bert", but the last.
QString allButLast(const QStringList& names)
{
    return names.first(names.size() - 1).join(QStringLiteral(", "));
}

} // namespace

QString titleOfFile(const GedcomTree& tree, NodeIndex file)
{
    QString title = firstSaid(tree, file, {"TITL"});
    return title.isEmpty() ? tree.text(file).trimmed() : title;
}

const QString& RecordNames::of(const SourceRecord& record)
{
    if (const auto known = names_.find(&record); known != names_.end())
        return known->second;
    QString name = read(record); // may ask for other names, and so is no part of the next line
    return names_.emplace(&record, std::move(name)).first->second;
}

QString RecordNames::read(const SourceRecord& record)
{
    const GedcomTree tree(readableRecord(record), index_.isVersionSeven());
    if (tree.size() == 0)
        return {};
    const std::string_view tag = tree[0].line.tag;
    if (tag == "FAM")
        return ofFamily(record, tree);
    const QString own = ownNameOf(record, tree);
    if (tag == "INDI")
        return own.isEmpty() ? ImportTexts::tr("a person without a name") : own;
    QString title = own.isEmpty() ? titleBehind(tree) : own;
    return title.isEmpty() ? thatNothingIsSaid(tag) : title;
}

/// What the record says of itself; empty if it does not. Asked of the same big record by thousands that point at it.
const QString& RecordNames::ownNameOf(const SourceRecord& record)
{
    if (const auto known = ownNames_.find(&record); known != ownNames_.end())
        return known->second;
    return ownNameOf(record, GedcomTree(readableRecord(record), index_.isVersionSeven()));
}

const QString& RecordNames::ownNameOf(const SourceRecord& record, const GedcomTree& tree)
{
    if (const auto known = ownNames_.find(&record); known != ownNames_.end())
        return known->second;
    return ownNames_.emplace(&record, ownNameIn(record, tree)).first->second;
}

/// A source may be nothing but the picture of it, or what a library has, and a note nothing but its source.
QString RecordNames::titleBehind(const GedcomTree& tree)
{
    for (const std::string_view tag : {"OBJE", "SOUR", "REPO", "NOTE", "SNOTE"}) {
        const auto pointer = tree.child(0, tag);
        if (!pointer || !leadsToARecord(tree[*pointer].line))
            continue;
        const SourceRecord* const behind = index_.target(tree[*pointer].line.value);
        QString title = behind ? ownNameOf(*behind) : QString();
        if (!title.isEmpty())
            return title;
    }
    return {};
}

QString RecordNames::valueOf(const GedcomTree& tree, NodeIndex line)
{
    QString text = tree.text(line);
    if (!tree[line].line.isPointer)
        return text;
    const QString told = valueOfPointer(tree[line].line.value);
    return text.isEmpty() ? told : QString(told % u'\n' % text);
}

QString RecordNames::valueOf(const GedcomLine& line)
{
    if (line.isPointer)
        return valueOfPointer(line.value);
    return QString::fromUtf8(line.value.data(), static_cast<qsizetype>(line.value.size()));
}

QString RecordNames::valueOfPointer(std::string_view xref)
{
    if (xref == pointsAtNobody)
        return ImportTexts::tr("not in the file");
    const SourceRecord* const target = index_.target(xref);
    QString name = target ? of(*target) : QString();
    if (!name.isEmpty())
        return name;
    return u'@' % QString::fromUtf8(xref.data(), static_cast<qsizetype>(xref.size())) % u'@';
}

/// In the case that the language asks for after "with" and "of".
QString RecordNames::nameInHeading(const SourceRecord& person)
{
    const QString& name = ownNameOf(person);
    return name.isEmpty() ? ImportTexts::tr("a person without a name", "in “Family with %1” and “Family of %1”") : name;
}

/// Who was removed is no member any more.
RecordNames::Partners RecordNames::partnersIn(const SourceRecord& family, const GedcomTree& tree,
                                              const SourceRecord* but)
{
    Partners partners;
    MissedPointers missed(family, index_);
    for (const NodeIndex index : tree.children(0)) {
        const GedcomLine& line = tree[index].line;
        if (line.tag != "HUSB" && line.tag != "WIFE")
            continue;
        const SourceRecord* const partner = leadsToARecord(line) ? index_.target(line.value) : nullptr;
        if (!partner || readableRecord(*partner).tag != "INDI")
            partners.isSomebodyUnknown = partners.isSomebodyUnknown || (!line.value.empty() && !missed.contains(line));
        else if (partner != but)
            partners.names << nameInHeading(*partner);
    }
    return partners;
}

QString RecordNames::ofFamily(const SourceRecord& family, const GedcomTree& tree)
{
    const QStringList parents = partnersIn(family, tree, nullptr).names;
    if (parents.isEmpty())
        return ImportTexts::tr("Family of unknown parents");
    if (parents.size() == 1)
        return ImportTexts::tr("Family of %1").arg(parents.front());
    return ImportTexts::tr("Family of %1 and %2").arg(allButLast(parents), parents.back());
}

QString RecordNames::ofFamilyOf(const SourceRecord& partner, const SourceRecord& family, const GedcomTree& tree)
{
    const auto [others, isSomebodyUnknown] = partnersIn(family, tree, &partner);
    if (others.isEmpty())
        return isSomebodyUnknown ? ImportTexts::tr("Family with an unknown partner")
                                 : ImportTexts::tr("Family without a partner");
    if (others.size() == 1)
        return ImportTexts::tr("Family with %1").arg(others.front());
    return ImportTexts::tr("Family with %1 and %2").arg(allButLast(others), others.back());
}

} // namespace lineara
